// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>

#include "files/Error.h"
#include "files/TemporaryFolder_test_support.h"

namespace huebrush::files {

/// A path of the system for a name in UTF-8, and the name for a path.
inline std::filesystem::path pathOf(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}
inline std::string nameOf(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

inline std::size_t filesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

/// A temporary folder, and what tests do with its files.
class Folder : public ::testing::Test {
    const TemporaryFolder temporary_;

 protected:
    std::string inFolder(const std::string& name) const { return nameOf(folder / pathOf(name)); }
    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream(folder / pathOf(name), std::ios::binary) << content;
        return inFolder(name);
    }
    static std::string read(const std::string& name) {
        std::ifstream in(pathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    std::size_t filesInFolder() const { return filesIn(folder); }
    /// The problem that a body runs into, if any.
    static std::optional<Problem> problemOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const Error& error) {
            return error.problem();
        }
        return std::nullopt;
    }

    const std::filesystem::path& folder = temporary_.path();
};

}  // namespace huebrush::files
