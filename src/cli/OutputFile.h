#pragma once

#include <filesystem>

namespace huebrush::cli {

/// A file that comes to be all at once: what is there before stays until the new content is safely
/// on the disk beside it. Without commit() nothing is left.
class OutputFile {
 public:
    /// Failure at once when nothing can be written there.
    explicit OutputFile(const std::filesystem::path& target);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    /// Takes the content of another file, keeping the rights of a file that is replaced.
    void commit(const std::filesystem::path& content);

 private:
    void copyFrom(const std::filesystem::path& content) const;

    std::filesystem::path target_;
    std::filesystem::path beside_;
    int file_ = -1;
};

}  // namespace huebrush::cli
