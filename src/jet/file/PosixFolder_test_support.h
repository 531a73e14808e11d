#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "jet/Palette_test_support.h"

namespace huebrush::jet {

namespace fs = std::filesystem;

/// A folder of the system with a palette file in it.
class PosixFolder : public ::testing::Test {
 protected:
    PosixFolder() {
        std::string name = fs::temp_directory_path() / "huebrush-jet-XXXXXX";
        folder = ::mkdtemp(name.data());
        file = folder / "fill.mdb";
        createPaletteFile(systemFiles(), file);
    }
    ~PosixFolder() override { fs::remove_all(folder); }

    static std::int32_t errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::Error& error) {
            return error.number();
        }
        return 0;
    }
    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    fs::path folder;
    fs::path file;
};

}  // namespace huebrush::jet
