// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>
#include <variant>

#include "mapping/Image.h"
#include "mapping/Patterns.h"

namespace huebrush::mapping {

/// The picture of a preset texture.
struct TextureFill {
    std::int32_t texture = 1;
    friend bool operator==(const TextureFill&, const TextureFill&) = default;
};

/// A picture of ours: it stands for a pattern or a preset texture.
using OwnPicture = std::variant<PatternFill, TextureFill>;

/// The name of our picture in a document's table of bitmaps: the same for the same picture.
std::string nameOf(const OwnPicture& picture);
/// The name of a user's picture file with these bytes.
std::string nameOfFile(const std::vector<std::uint8_t>& bytes);

Image tileOf(const OwnPicture& picture);

/// Recognises a picture of ours by its name, or by its pixels where a format has renamed it.
std::optional<OwnPicture> ownPictureNamed(const std::string& name);
std::optional<OwnPicture> ownPictureOf(const Image& image);

}  // namespace huebrush::mapping
