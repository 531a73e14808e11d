// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "files/Folder_test_support.h"
#include "jet/Palette_test_support.h"

namespace huebrush::jet {

namespace fs = std::filesystem;

/// A folder of the system with a palette file in it.
class SystemFolder : public ::testing::Test {
    const files::TemporaryFolder temporary_;

 protected:
    SystemFolder() { createPaletteFile(systemFiles(), file); }

    static std::int32_t errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::Error& error) {
            return error.number();
        }
        return 0;
    }
    std::string inFolder(const char* name) const { return files::nameOf(folder / name); }
    std::size_t filesInFolder() const { return files::filesIn(folder); }

    const fs::path& folder = temporary_.path();
    const std::string file = inFolder("fill.mdb");
};

}  // namespace huebrush::jet
