// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/Theme.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "documents/ooxml/NamedColors.h"
#include "documents/ooxml/Words.h"

namespace huebrush::documents::ooxml {

namespace {

/// One, and one turn of a hue, in the files' numbers.
constexpr double kWhole = 100'000;
constexpr double kTurn = 21'600'000;

constexpr std::array<std::string_view, 12> kOwnNames = {
    "dk1",     "lt1",     "dk2",     "lt2",     "accent1", "accent2",
    "accent3", "accent4", "accent5", "accent6", "hlink",   "folHlink"};
constexpr std::array<std::string_view, 12> kSettingsNames = {
    "dark1",   "light1",  "dark2",   "light2",  "accent1",   "accent2",
    "accent3", "accent4", "accent5", "accent6", "hyperlink", "followedHyperlink"};

template <std::size_t Count>
std::size_t placeIn(const std::array<std::string_view, Count>& names, std::string_view name) {
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

/// A whole number, or one with a per cent sign, which is then in thousandths, too.
double numberOf(std::string_view text, double otherwise) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !std::isfinite(number)) return otherwise;
    const bool isPercent = end != text.data() + text.size() && *end == '%';
    return isPercent ? number * 1000 : number;
}

double valueOf(const Outline& outline, ElementId element, std::string_view name, double otherwise) {
    const auto text = outline.attribute(element, name);
    return text ? numberOf(*text, otherwise) : otherwise;
}

std::optional<std::int32_t> hexColor(std::string_view text) {
    std::int32_t color = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), color, 16);
    if (error != std::errc() || text.size() != 6 || end != text.data() + text.size()) return {};
    return color;
}

struct Parts {
    double red;
    double green;
    double blue;
};

Parts partsOf(std::int32_t rgb) {
    return {static_cast<double>(rgb >> 16 & 0xFF) / 255, static_cast<double>(rgb >> 8 & 0xFF) / 255,
            static_cast<double>(rgb & 0xFF) / 255};
}

std::int32_t byteOf(double part) {
    return static_cast<std::int32_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

std::int32_t rgbOf(const Parts& parts) {
    return byteOf(parts.red) << 16 | byteOf(parts.green) << 8 | byteOf(parts.blue);
}

struct Hsl {
    double hue;  ///< in turns
    double saturation;
    double light;
};

Hsl hslOf(std::int32_t rgb) {
    const auto [red, green, blue] = partsOf(rgb);
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double range = most - least;
    Hsl hsl{0, 0, (most + least) / 2};
    if (range <= 0) return hsl;
    hsl.saturation = hsl.light <= 0.5 ? range / (most + least) : range / (2 - most - least);
    if (most == red) hsl.hue = (green - blue) / range;
    if (most == green && most != red) hsl.hue = 2 + (blue - red) / range;
    if (most == blue && most != red && most != green) hsl.hue = 4 + (red - green) / range;
    hsl.hue = hsl.hue / 6 - std::floor(hsl.hue / 6);
    return hsl;
}

double partOfHue(double low, double high, double hue) {
    hue -= std::floor(hue);
    if (hue < 1.0 / 6) return low + (high - low) * 6 * hue;
    if (hue < 0.5) return high;
    if (hue < 2.0 / 3) return low + (high - low) * 6 * (2.0 / 3 - hue);
    return low;
}

std::int32_t rgbOf(Hsl hsl) {
    hsl.saturation = std::clamp(hsl.saturation, 0.0, 1.0);
    hsl.light = std::clamp(hsl.light, 0.0, 1.0);
    const double high = hsl.light <= 0.5 ? hsl.light * (1 + hsl.saturation)
                                         : hsl.light + hsl.saturation * (1 - hsl.light);
    const double low = 2 * hsl.light - high;
    return rgbOf(Parts{partOfHue(low, high, hsl.hue + 1.0 / 3), partOfHue(low, high, hsl.hue),
                       partOfHue(low, high, hsl.hue - 1.0 / 3)});
}

/// Parts of linear light, as whole numbers up to 100000: other programs cut off at each step, and a
/// colour computed more exactly would be another one.
constexpr double kGamma = 2.3;

std::int32_t toLinear(std::int32_t byte) {
    const std::int32_t part = byte * 100'000 / 255;
    return static_cast<std::int32_t>(std::lround(std::pow(part / kWhole, kGamma) * kWhole));
}

std::int32_t fromLinear(std::int32_t linear) {
    const auto part = static_cast<std::int32_t>(
        std::lround(std::pow(std::clamp(linear, 0, 100'000) / kWhole, 1 / kGamma) * kWhole));
    return static_cast<std::int32_t>(std::int64_t{part} * 255 / 100'000);
}

template <class Change>
std::int32_t changedLinear(std::int32_t rgb, const Change& change) {
    std::int32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        result |= fromLinear(change(toLinear(rgb >> shift & 0xFF))) << shift;
    }
    return result;
}

/// Changes one part of a colour that may be scaled, moved or set.
enum class How { scale, move, set };

void change(double& part, How how, double value) {
    if (how == How::scale) part *= value;
    if (how == How::move) part += value;
    if (how == How::set) part = value;
}

struct Step {
    NameId name;
    double Hsl::*part;
    How how;
    double unit;
};

constexpr Step kSteps[] = {
    {kLightMod, &Hsl::light, How::scale, kWhole},
    {kLightOff, &Hsl::light, How::move, kWhole},
    {kLight, &Hsl::light, How::set, kWhole},
    {kSaturationMod, &Hsl::saturation, How::scale, kWhole},
    {kSaturationOff, &Hsl::saturation, How::move, kWhole},
    {kSaturation, &Hsl::saturation, How::set, kWhole},
    {kHueMod, &Hsl::hue, How::scale, kWhole},
    {kHueOff, &Hsl::hue, How::move, kTurn},
    {kHue, &Hsl::hue, How::set, kTurn},
};

/// Whether the change is one of hue, saturation and light, and then carries it out.
bool changeHsl(NameId name, double value, Color& color) {
    const auto* const step = std::find_if(std::begin(kSteps), std::end(kSteps),
                                          [&](const Step& each) { return each.name == name; });
    if (step == std::end(kSteps)) return false;
    Hsl hsl = hslOf(color.rgb);
    change(hsl.*step->part, step->how, value / step->unit);
    color.rgb = rgbOf(hsl);
    return true;
}

std::int32_t grayOf(std::int32_t rgb) {
    const auto [red, green, blue] = partsOf(rgb);
    const double gray = red * 0.22 + green * 0.72 + blue * 0.06;
    return rgbOf(Parts{gray, gray, gray});
}

std::int32_t withPart(std::int32_t rgb, int shift, double value) {
    return (rgb & ~(0xFF << shift)) | byteOf(value / kWhole) << shift;
}

void apply(NameId name, double value, Color& color) {
    // Anything beyond is a mistake of the file.
    value = std::clamp(value, -1e9, 1e9);
    const auto share = static_cast<std::int64_t>(std::clamp(value, 0.0, kWhole));
    if (changeHsl(name, value, color)) return;
    switch (name) {
        case kAlpha:
            color.alpha = static_cast<std::int32_t>(share);
            break;
        case kAlphaMod:
            color.alpha =
                static_cast<std::int32_t>(std::clamp(color.alpha * (value / kWhole), 0.0, kWhole));
            break;
        case kAlphaOff:
            color.alpha = static_cast<std::int32_t>(std::clamp(color.alpha + value, 0.0, kWhole));
            break;
        case kTint:
            color.rgb = changedLinear(color.rgb, [share](std::int32_t part) {
                return static_cast<std::int32_t>(100'000 - (100'000 - part) * share / 100'000);
            });
            break;
        case kShade:
            color.rgb = changedLinear(color.rgb, [share](std::int32_t part) {
                return static_cast<std::int32_t>(part * share / 100'000);
            });
            break;
        case kInverse:
            color.rgb = ~color.rgb & 0xFFFFFF;
            break;
        case kComplement: {
            Hsl hsl = hslOf(color.rgb);
            hsl.hue += 0.5;
            color.rgb = rgbOf(hsl);
            break;
        }
        case kGray:
            color.rgb = grayOf(color.rgb);
            break;
        case kRedOf:
            color.rgb = withPart(color.rgb, 16, value);
            break;
        case kGreenOf:
            color.rgb = withPart(color.rgb, 8, value);
            break;
        case kBlueOf:
            color.rgb = withPart(color.rgb, 0, value);
            break;
        default:
            break;
    }
}

std::optional<Color> baseColor(const Outline& outline, ElementId element, const Theme& theme,
                               const std::optional<Color>& placeholder) {
    const auto named = [&](std::optional<std::int32_t> rgb) -> std::optional<Color> {
        if (!rgb) return {};
        return Color{*rgb};
    };
    const auto part = [&](std::string_view name) { return valueOf(outline, element, name, 0); };
    const std::string value = outline.attribute(element, "val").value_or("");
    switch (outline.nameOf(element)) {
        case kRgbColor:
            return named(hexColor(value));
        case kSchemeColor:
            if (value == "phClr") return placeholder;
            return named(theme.color(value));
        case kSystemColor:
            if (const auto last = outline.attribute(element, "lastClr")) {
                if (const auto rgb = hexColor(*last)) return Color{*rgb};
            }
            return named(namedColor(value));
        case kPresetColor:
            return named(namedColor(value));
        case kHslColor:
            return Color{
                rgbOf(Hsl{part("hue") / kTurn, part("sat") / kWhole, part("lum") / kWhole})};
        case kLinearColor: {
            std::int32_t rgb = 0;
            int shift = 16;
            for (const char* const each : {"r", "g", "b"}) {
                const double linear = std::clamp(part(each), 0.0, kWhole);
                rgb |= fromLinear(static_cast<std::int32_t>(linear)) << shift;
                shift -= 8;
            }
            return Color{rgb};
        }
        default:
            return {};
    }
}

bool isColor(NameId name) {
    return name >= kRgbColor && name <= kLinearColor;
}

}  // namespace

ElementId colorElementIn(const Outline& outline, ElementId holder) {
    ElementId each = outline.firstChild(holder);
    while (each != kNoElement && !isColor(outline.nameOf(each))) each = outline.nextSibling(each);
    return each;
}

std::optional<Color> colorIn(const Outline& outline, ElementId holder, const Theme& theme,
                             const std::optional<Color>& placeholder) {
    const ElementId element = colorElementIn(outline, holder);
    if (element == kNoElement) return {};
    std::optional<Color> color = baseColor(outline, element, theme, placeholder);
    if (!color) return {};
    for (ElementId each = outline.firstChild(element); each != kNoElement;
         each = outline.nextSibling(each)) {
        apply(outline.nameOf(each), valueOf(outline, each, "val", kWhole), *color);
    }
    return color;
}

Theme::Theme(std::unique_ptr<Outline> part) : part_(std::move(part)) {
    const ElementId elements = part_->child(Outline::root(), kThemeElements);
    if (elements == kNoElement) return;
    const ElementId scheme = part_->child(elements, kColorScheme);
    if (scheme != kNoElement) readColors(scheme);
}

void Theme::readColors(ElementId scheme) {
    for (ElementId each = part_->firstChild(scheme); each != kNoElement;
         each = part_->nextSibling(each)) {
        const NameId name = part_->nameOf(each);
        if (name < kSchemeFirst || name > kSchemeLast) continue;
        if (const auto color = colorIn(*part_, each, *this, {})) {
            colors_[static_cast<std::size_t>(name - kSchemeFirst)] = color->rgb;
        }
    }
}

void Theme::map(std::string_view mapped, std::string_view name) {
    std::size_t place = placeIn(kSettingsNames, name);
    if (place == kColors) place = placeIn(kOwnNames, name);
    if (place != kColors) mapped_[std::string(mapped)] = place;
}

std::optional<std::int32_t> Theme::color(std::string_view name) const {
    if (const auto found = mapped_.find(name); found != mapped_.end()) {
        return colors_[found->second];
    }
    const std::size_t place = placeIn(kOwnNames, name);
    if (place == kColors) return {};
    return colors_[place];
}

std::optional<ThemeStyle> Theme::styleIn(NameId list, std::size_t index) const {
    if (!part_ || index == 0) return {};
    ElementId element = part_->child(Outline::root(), kThemeElements);
    if (element != kNoElement) element = part_->child(element, kFormatScheme);
    if (element != kNoElement) element = part_->child(element, list);
    if (element != kNoElement) element = part_->firstChild(element);
    for (std::size_t i = 1; i < index && element != kNoElement; ++i) {
        element = part_->nextSibling(element);
    }
    if (element == kNoElement) return {};
    return ThemeStyle{part_.get(), element};
}

std::optional<ThemeStyle> Theme::fillStyle(std::size_t index) const {
    constexpr std::size_t kBackgrounds = 1000;
    if (index > kBackgrounds) return styleIn(kBackgroundFillStyles, index - kBackgrounds);
    return styleIn(kFillStyles, index);
}

std::optional<ThemeStyle> Theme::lineStyle(std::size_t index) const {
    return styleIn(kLineStyles, index);
}

}  // namespace huebrush::documents::ooxml
