// SPDX-License-Identifier: MPL-2.0

#include "files/TemporaryFile.h"

#include "files/Error.h"
#include "files/win32/NativeFiles.h"

namespace huebrush::files {

class TemporaryFile::Native {
 public:
    /// Nobody else opens it: the system keeps them out until it is closed.
    explicit Native(std::string itsName)
        : name(std::move(itsName)),
          file(::CreateFileW(nativeName(name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                             CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY, nullptr)) {
        if (!file) throw Error(Problem::write, name, lastReason());
    }

    std::string name;
    Handle file;
};

TemporaryFile::TemporaryFile(const std::string& name) : native_(std::make_unique<Native>(name)) {}
TemporaryFile::~TemporaryFile() = default;

void TemporaryFile::write(std::span<const std::uint8_t> bytes) const {
    writeTo(native_->file, native_->name, 0, bytes);
}

std::vector<std::uint8_t> TemporaryFile::read() const {
    std::vector<std::uint8_t> bytes(
        static_cast<std::size_t>(stateOf(native_->file, native_->name).size));
    readFrom(native_->file, native_->name, 0, bytes);
    return bytes;
}

void TemporaryFile::remove() {
    native_->file.close();
    if (::DeleteFileW(nativeName(native_->name).c_str()) == 0) {
        const int reason = lastReason();
        if (causeOf(reason) != Cause::missing) throw Error(Problem::write, native_->name, reason);
    }
}

}  // namespace huebrush::files
