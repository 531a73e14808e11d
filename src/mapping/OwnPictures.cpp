// SPDX-License-Identifier: MPL-2.0

#include "mapping/OwnPictures.h"

#include "base/Text.h"
#include "mapping/Fields.h"
#include "mapping/Textures.h"

namespace huebrush::mapping {

namespace {

constexpr std::string_view kPatternPrefix = "Huebrush pattern ";
constexpr std::string_view kTexturePrefix = "Huebrush texture ";
constexpr std::string_view kFilePrefix = "Huebrush file ";

bool isIn(std::int32_t value, std::int32_t last) {
    return value >= 1 && value <= last;
}

}  // namespace

std::string nameOf(const OwnPicture& picture) {
    FieldWriter fields;
    if (const auto* texture = std::get_if<TextureFill>(&picture)) {
        fields.add(texture->texture);
        return base::text(kTexturePrefix, fields.text());
    }
    const auto& pattern = std::get<PatternFill>(picture);
    fields.add(pattern.pattern);
    fields.add(pattern.foreColor);
    fields.add(pattern.backColor);
    return base::text(kPatternPrefix, fields.text());
}

std::string nameOfFile(const std::vector<std::uint8_t>& bytes) {
    constexpr std::uint64_t kPrime = 0x100000001B3U;
    constexpr std::uint64_t kSeed = 0xCBF29CE484222325U;
    std::uint64_t hash = kSeed;
    for (const std::uint8_t byte : bytes) hash = (hash ^ byte) * kPrime;
    FieldWriter fields;
    fields.add(static_cast<std::int32_t>(hash >> 32U));
    fields.add(static_cast<std::int32_t>(hash & 0xFFFFFFFFU));
    return base::text(kFilePrefix, fields.text());
}

Image tileOf(const OwnPicture& picture) {
    if (const auto* texture = std::get_if<TextureFill>(&picture)) {
        return textureTile(texture->texture);
    }
    return patternTile(std::get<PatternFill>(picture));
}

std::optional<OwnPicture> ownPictureNamed(const std::string& name) {
    if (name.starts_with(kPatternPrefix)) {
        FieldReader fields(std::string_view(name).substr(kPatternPrefix.size()));
        PatternFill fill;
        if (fields.read(fill.pattern) && fields.read(fill.foreColor) &&
            fields.read(fill.backColor) && fields.atEnd() && isIn(fill.pattern, kPatternCount)) {
            return fill;
        }
    }
    if (name.starts_with(kTexturePrefix)) {
        FieldReader fields(std::string_view(name).substr(kTexturePrefix.size()));
        TextureFill fill;
        if (fields.read(fill.texture) && fields.atEnd() && isIn(fill.texture, kTextureCount)) {
            return fill;
        }
    }
    return {};
}

std::optional<OwnPicture> ownPictureOf(const Image& image) {
    if (const auto pattern = patternOf(image)) return *pattern;
    if (const auto texture = textureOf(image)) return TextureFill{*texture};
    return {};
}

}  // namespace huebrush::mapping
