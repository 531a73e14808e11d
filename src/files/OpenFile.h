// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace huebrush::files {

/// A regular file, open for reading. It does not keep anybody from replacing the file; it then goes
/// on showing the old one. Every failure is an Error.
class OpenFile {
 public:
    explicit OpenFile(const std::string& name);
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    std::uint64_t size() const;
    /// Fills `out` from the offset `at` on; reaching the end of the file first is an Error.
    void read(std::uint64_t at, std::span<std::uint8_t> out) const;
    /// Whether the name still leads to this file, and nobody has written to it since it was opened.
    bool isCurrent() const;

    /// The part of each system.
    class Native;
    explicit OpenFile(std::unique_ptr<Native> native);

 private:
    std::unique_ptr<Native> native_;
};

}  // namespace huebrush::files
