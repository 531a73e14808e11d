// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>

#include "base/Text.h"
#include "files/Error.h"

namespace huebrush::files {

/// A path of the system for a name in UTF-8, and the name for a path.
inline std::filesystem::path pathOf(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}
inline std::string nameOf(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

/// Makes a folder in that for temporary files, under a name that nobody else has.
inline std::filesystem::path makeTemporaryFolder() {
    const std::filesystem::path all = std::filesystem::temp_directory_path();
    for (int number = 0;; ++number) {
        std::filesystem::path folder = all / base::text("huebrush-test-", number);
        if (std::filesystem::create_directory(folder)) return folder;
    }
}

inline std::size_t filesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

/// A folder of the system, gone at the end.
class Folder : public ::testing::Test {
 protected:
    ~Folder() override { std::filesystem::remove_all(folder); }

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
    /// The problem that a body meets; none when it meets none.
    static std::optional<Problem> problemOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const Error& error) {
            return error.problem();
        }
        return std::nullopt;
    }

    const std::filesystem::path folder = makeTemporaryFolder();
};

}  // namespace huebrush::files
