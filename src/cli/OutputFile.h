#pragma once

#include <filesystem>
#include <optional>

#include "files/Lock.h"
#include "files/NewFile.h"

namespace huebrush::cli {

/// A file that comes to be all at once: what is there before stays until the new content is safely
/// on the disk. Without commit() nothing is left.
class OutputFile {
 public:
    /// Failure at once when nothing can be written there: what is there is no regular file, or
    /// another program has it open for writing.
    explicit OutputFile(const std::filesystem::path& target);

    /// Takes the content of another file, keeping owner, rights and attributes of a file that is
    /// replaced. Failure, and everything stays, when another program has it open for writing now,
    /// has changed it, or has put a file where there was none.
    void commit(const std::filesystem::path& content);

 private:
    std::optional<files::Lock> replaced_;
    std::optional<files::NewFile> file_;
};

}  // namespace huebrush::cli
