// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace huebrush::cli {

/// A named pipe on which the program and its office send each other lines.
class Channel {
 public:
    /// Creates the pipe. Failure when it cannot be created.
    explicit Channel(const std::filesystem::path& path);
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel();

    /// The next line, waiting for it for a moment only; nothing when none has come.
    std::optional<std::string> readLine();

    /// Sends a line, which must be shorter than what a pipe takes at once (PIPE_BUF).
    void writeLine(const std::string& line);

 private:
    std::optional<std::string> takeLine();

    int file_ = -1;
    std::string received_;
};

}  // namespace huebrush::cli
