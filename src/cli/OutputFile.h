// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

#include "files/Lock.h"
#include "files/NewFile.h"

namespace huebrush::cli {

/// A file that is written all at once: what was there before stays until the new content is safely
/// on the disk. Without commit() nothing changes.
class OutputFile {
 public:
    /// Failure at once when nothing can be written there: what exists is not a regular file, or
    /// another program has it open for writing.
    explicit OutputFile(const std::filesystem::path& target);

    /// Takes the content of another file, keeping owner, rights and attributes of a file that is
    /// replaced. Failure, and nothing changes, when another program has it open for writing now,
    /// has changed it, or has created a file where there was none.
    void commit(const std::filesystem::path& content);
    /// The same with these bytes.
    void commit(std::span<const std::uint8_t> content);

 private:
    std::optional<files::Lock> replaced_;
    std::optional<files::NewFile> file_;
};

}  // namespace huebrush::cli
