#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>

#include "files/Error.h"

namespace huebrush::files {

/// A folder of the system, gone at the end.
class Folder : public ::testing::Test {
 protected:
    Folder() {
        std::string name = std::filesystem::temp_directory_path() / "huebrush-files-XXXXXX";
        folder = ::mkdtemp(name.data());
    }
    ~Folder() override { std::filesystem::remove_all(folder); }

    std::filesystem::path write(const std::string& name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
        return folder / name;
    }
    static std::string read(const std::filesystem::path& name) {
        std::ifstream in(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder), {}));
    }
    /// The problem that a body meets; none when it meets none.
    static std::optional<Problem> problemOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const Error& error) {
            return error.problem();
        }
        return std::nullopt;
    }
    /// A process that runs a body and then is killed, as if by a fault in the middle of it.
    static void runAndKill(const std::function<void()>& body) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            body();
            ::raise(SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    }

    std::filesystem::path folder;
};

}  // namespace huebrush::files
