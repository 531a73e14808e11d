// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace huebrush::base {

/// How the bytes of a picture are to be read.
enum class PictureFormat : std::int32_t { bitmap, icon, metafile, png };

/// An immutable picture: the bytes of a picture file and what they are. Copies share the bytes, so
/// a picture is as cheap to pass on as a pointer. A default picture is "no picture".
/// Two pictures are equal when they are the same bytes of the same format.
class Picture {
 public:
    Picture() = default;
    Picture(PictureFormat format, std::vector<std::uint8_t> bytes)
        : format_(format),
          bytes_(std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes))) {}

    bool empty() const { return bytes_ == nullptr; }
    PictureFormat format() const { return format_; }
    /// The file's bytes; none for no picture.
    const std::vector<std::uint8_t>& bytes() const {
        static const std::vector<std::uint8_t> kNone;
        return bytes_ ? *bytes_ : kNone;
    }

    friend bool operator==(const Picture& a, const Picture& b) {
        if (a.bytes_ == b.bytes_) return true;
        return !a.empty() && !b.empty() && a.format_ == b.format_ && *a.bytes_ == *b.bytes_;
    }

 private:
    PictureFormat format_ = PictureFormat::bitmap;
    std::shared_ptr<const std::vector<std::uint8_t>> bytes_;
};

}  // namespace huebrush::base
