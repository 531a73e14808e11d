// SPDX-License-Identifier: MPL-2.0

#include "cli/FillText.h"

#include <cmath>

#include "base/Color.h"
#include "base/Text.h"

namespace huebrush::cli {

namespace {

using base::text;
using base::toHex;
using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;

std::string describeGradient(const fill::FillProperties& fill) {
    const std::string shape =
        text(" (style ", fill.GradientStyle, ", variant ", fill.GradientVariant, ")");
    switch (fill.GradientColorType) {
        case MsoGradientColorType::msoGradientOneColor:
            return text("one-colour gradient ", toHex(fill.ForeColorRGB), shape);
        case MsoGradientColorType::msoGradientTwoColors:
            return text("two-colour gradient ", toHex(fill.ForeColorRGB), " to ",
                        toHex(fill.BackColorRGB), shape);
        case MsoGradientColorType::msoGradientPresetColors:
            return text("preset gradient ", fill.PresetGradientType, shape);
        default:
            return "gradient";
    }
}

std::string describeTexture(const fill::FillProperties& fill) {
    if (fill.TextureType == MsoTextureType::msoTexturePreset) {
        return text("preset texture ", fill.PresetTexture);
    }
    return fill.TextureName.empty() ? "texture" : text("texture ", fill.TextureName);
}

std::string describeType(const fill::FillProperties& fill) {
    switch (fill.Type) {
        case MsoFillType::msoFillSolid:
            return toHex(fill.ForeColorRGB);
        case MsoFillType::msoFillPatterned:
            return text("pattern ", fill.Pattern, " ", toHex(fill.ForeColorRGB), " on ",
                        toHex(fill.BackColorRGB));
        case MsoFillType::msoFillGradient:
            return describeGradient(fill);
        case MsoFillType::msoFillTextured:
            return describeTexture(fill);
        case MsoFillType::msoFillPicture:
            return "picture";
        case MsoFillType::msoFillBackground:
            return "background";
        default:
            return "mixed";
    }
}

/// How many bytes the control character has that stands there in UTF-8; 0 for any other.
std::size_t controlAt(const std::string& text, std::size_t at) {
    const auto byteAt = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    constexpr unsigned char kDelete = 0x7F;
    if (byteAt(at) < ' ' || byteAt(at) == kDelete) return 1;
    // U+0080 to U+009F, some of which terminals take for commands, too.
    const bool isSecondSet = byteAt(at) == 0xC2 && at + 1 < text.size() && byteAt(at + 1) >= 0x80 &&
                             byteAt(at + 1) < 0xA0;
    return isSecondSet ? 2 : 0;
}

}  // namespace

std::string percentText(float fraction) {
    constexpr std::int64_t kParts = 100;
    const std::int64_t parts = std::llround(fraction * static_cast<float>(kParts * kParts));
    std::string words = text(parts / kParts);
    if (parts % kParts == 0) return words;
    words += text(".", parts % kParts < 10 ? "0" : "", parts % kParts);
    if (words.back() == '0') words.pop_back();
    return words;
}

std::string describe(const fill::FillProperties& fill) {
    if (fill.Visible == host::MsoTriState::msoFalse) return "none";
    std::string words = describeType(fill);
    if (fill.Transparency != 0) {
        words += text(", ", percentText(fill.Transparency), "% transparent");
    }
    return words;
}

std::string oneLine(const std::string& text) {
    constexpr const char* kReplacement = "\xEF\xBF\xBD";
    std::string line;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char character = text[at];
        if (character == '\r' || character == '\n') {
            if (!line.empty() && line.back() != ' ') line += ' ';
        } else if (const std::size_t size = controlAt(text, at); size > 0) {
            line += kReplacement;
            at += size - 1;
        } else {
            line += character;
        }
    }
    return line;
}

std::string countOf(std::size_t count, const char* one, const char* many) {
    return base::text(count, " ", count == 1 ? one : many);
}

std::string swatch(const fill::FillProperties& fill) {
    if (fill.Visible == host::MsoTriState::msoFalse) return "    ";
    const base::Rgb color = fill.ForeColorRGB;
    return text("\x1b[48;2;", base::red(color), ";", base::green(color), ";", base::blue(color),
                "m    \x1b[0m");
}

}  // namespace huebrush::cli
