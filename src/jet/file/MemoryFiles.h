#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "jet/file/FileSystem.h"

namespace huebrush::jet {

/// Files in memory, for tests. Before each call of the system `onCall` may throw, as a failing
/// disk does; what the call would have done is undone then.
class MemoryFiles final : public FileSystem {
 public:
    using Content = std::shared_ptr<Bytes>;
    /// One thing done to the medium, in the order in which it was asked for.
    struct Deed {
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
    std::unique_ptr<File> create(const std::string& name, const std::string& like) override;
    void replace(const std::string& from, const std::string& to) override;
    void moveNew(const std::string& from, const std::string& to) override;
    void remove(const std::string& name) override;
    void syncFolder(const std::string& name) override;
    std::unique_ptr<Lock> lock(const std::string& name) override;

    /// Keeps a list of all deeds from now on.
    void record() { recording = true; }
    void note(Deed deed);
    void call(const char* what) const {
        if (onCall) onCall(what);
    }

    std::map<std::string, Content> files;
    std::function<void(const char*)> onCall;
    std::vector<Deed> deeds;
    bool recording = false;
    /// A lock is held on a content, as on a file whose name may come to lead elsewhere.
    std::shared_ptr<std::set<Content>> locked = std::make_shared<std::set<Content>>();
};

}  // namespace huebrush::jet
