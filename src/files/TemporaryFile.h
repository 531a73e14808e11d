// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace huebrush::files {

/// A file that passes bytes on and is removed at once: made under its name in place of what is left
/// there, for this user only, and not brought to the medium. Where others take the name meanwhile,
/// what is read here is still what was written here. Every failure is an Error.
class TemporaryFile {
 public:
    explicit TemporaryFile(const std::string& name);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    /// Leaves the file behind if it was not removed.
    ~TemporaryFile();

    /// Writes from the beginning on.
    void write(std::span<const std::uint8_t> bytes) const;
    std::vector<std::uint8_t> read() const;
    /// After that, nothing more is written or read.
    void remove();

 private:
    class Native;

    std::unique_ptr<Native> native_;
};

}  // namespace huebrush::files
