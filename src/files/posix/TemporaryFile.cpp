// SPDX-License-Identifier: MPL-2.0

#include "files/TemporaryFile.h"

#include "files/Error.h"
#include "files/posix/NativeFiles.h"

namespace huebrush::files {

class TemporaryFile::Native {
 public:
    explicit Native(std::string itsName) : name(std::move(itsName)), file(make()) {}

    std::string name;
    Descriptor file;

 private:
    /// Removes what is left there, as often as another program is faster to make its own.
    Descriptor make() const {
        constexpr int kOften = 100;
        constexpr mode_t kOnlyForUs = 0600;
        for (int i = 0; i < kOften; ++i) {
            if (::unlink(name.c_str()) != 0 && errno != ENOENT) break;
            Descriptor made(name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, kOnlyForUs);
            if (made) return made;
            if (errno != EEXIST) break;
        }
        throw Error(Problem::write, name, errno);
    }
};

TemporaryFile::TemporaryFile(const std::string& name) : native_(std::make_unique<Native>(name)) {}
TemporaryFile::~TemporaryFile() = default;

void TemporaryFile::write(std::span<const std::uint8_t> bytes) const {
    writeTo(native_->file.get(), native_->name, 0, bytes);
}

std::vector<std::uint8_t> TemporaryFile::read() const {
    const int file = native_->file.get();
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(stateOf(file, native_->name).size));
    readFrom(file, native_->name, 0, bytes);
    return bytes;
}

void TemporaryFile::remove() {
    if (::unlink(native_->name.c_str()) != 0 && errno != ENOENT) {
        throw Error(Problem::write, native_->name, errno);
    }
    native_->file.close();
}

}  // namespace huebrush::files
