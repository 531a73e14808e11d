// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace huebrush::files {

/// A regular file, open for reading. It does not stop anybody from replacing the file, and shows
/// what it was when that happens. Every failure is an Error.
class OpenFile {
 public:
    explicit OpenFile(const std::string& name);
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    std::uint64_t size() const;
    /// Fills `out` from the place `at` on; the file's end before that is an Error.
    void read(std::uint64_t at, std::span<std::uint8_t> out) const;
    /// Whether the name still leads to this file, and nobody has written it since it was opened.
    bool isCurrent() const;

    /// What the system has of it.
    class Native;
    explicit OpenFile(std::unique_ptr<Native> native);

 private:
    std::unique_ptr<Native> native_;
};

}  // namespace huebrush::files
