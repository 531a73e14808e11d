#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files/Descriptor.h"
#include "files/FileState.h"

namespace huebrush::files {

/// A regular file, open for reading. Every failure is an Error.
class OpenFile {
 public:
    explicit OpenFile(const std::string& name);
    /// Of a file that is open already.
    OpenFile(std::string name, Descriptor file);

    std::uint64_t size() const;
    /// See readFrom.
    void read(std::uint64_t at, std::span<std::uint8_t> out) const;
    /// Whether the name still leads to this file, and nobody has written it since it was opened.
    bool isCurrent() const;

 private:
    std::string name_;
    Descriptor file_;
    FileState opened_;
};

/// Fills `out` from an open file's place `at` on; the file's end before that is an Error.
void readFrom(int file, const std::string& name, std::uint64_t at, std::span<std::uint8_t> out);

/// A name with all symbolic links followed, the last one even where it leads to nothing.
std::string resolve(const std::string& name);
/// Whether the name is taken, be it by a link that leads to nothing.
bool exists(const std::string& name);

}  // namespace huebrush::files
