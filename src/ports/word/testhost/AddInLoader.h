// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "ports/word/com/Extensibility.h"
#include "ports/word/com/Pointer.h"

namespace huebrush::word {

/// The add-ins that Word loads when it starts, by their names: those of the user's whose
/// LoadBehavior is 3.
std::vector<std::string> addInsToLoad();

/// The file of an add-in, loaded as Word does it.
class AddInLoader {
 public:
    /// An error (429) for an add-in whose class is not registered or cannot be made.
    explicit AddInLoader(const std::string& programmaticId);
    AddInLoader(const AddInLoader&) = delete;
    AddInLoader& operator=(const AddInLoader&) = delete;
    ~AddInLoader();

    /// Makes the add-in's object, by its class.
    Pointer<Extensibility> create() const;
    /// Whether the file says that nothing of it is in use.
    bool canUnload() const;

 private:
    CLSID class_{};
    HMODULE module_ = nullptr;
};

}  // namespace huebrush::word
