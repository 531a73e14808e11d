// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "jet/file/FileSystem.h"

namespace huebrush::jet {

/// Files in memory: a place to create a database in before it is written somewhere, and a medium
/// that tests inspect. A file in the making is one beside the file that it will be. Before each
/// call of the system `onCall` may throw, as a failing disk does; then the call does nothing.
class MemoryFiles final : public FileSystem {
 public:
    using Content = std::shared_ptr<Bytes>;
    /// One thing done to the medium, in the order in which it was asked for.
    struct Action {
        enum class Kind { create, write, sync, replace, moveNew, remove, syncFolder };
        Kind kind;
        std::string name;
        std::string other;  ///< the new name of replace and moveNew
        std::uint64_t at = 0;
        Bytes bytes;
    };

    std::string resolve(const std::string& name) override { return name; }
    bool exists(const std::string& name) override { return files.contains(name); }
    std::unique_ptr<File> open(const std::string& name) override;
    std::unique_ptr<NewFile> create(const std::string& name) override;
    std::unique_ptr<Lock> lock(const std::string& name) override;
    void remove(const std::string& name) override;
    /// Names may have any folders.
    void makeFolder(const std::string&) override {}

    /// The name that a file has until it is published.
    static std::string beside(const std::string& name) { return name + ".new"; }

    /// Records all actions from now on.
    void record() { recording = true; }
    void note(Action action);
    void call(const char* what) const {
        if (onCall) onCall(what);
    }

    std::map<std::string, Content> files;
    std::function<void(const char*)> onCall;
    std::vector<Action> actions;
    bool recording = false;
    /// A lock is held on a content, as on a file whose name may come to lead elsewhere.
    std::shared_ptr<std::set<Content>> locked = std::make_shared<std::set<Content>>();
};

}  // namespace huebrush::jet
