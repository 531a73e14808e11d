// SPDX-License-Identifier: MPL-2.0

#include "mapping/FillMapping.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Color.h"
#include "mapping/Fields.h"

namespace huebrush::mapping {

using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;
using host::MsoTriState;

namespace {

// Gradients: one table for both directions.

constexpr std::int32_t kFullTurn = 3600;
constexpr std::int32_t kHalfTurn = 1800;
constexpr std::int32_t kEighthTurn = 450;

/// One gradient of the object model and the office's way to paint it.
struct GradientRow {
    std::int32_t style;
    std::int32_t variant;
    OfficeGradientStyle officeStyle;
    std::int32_t angle;
    std::int32_t xOffset;
    std::int32_t yOffset;
    /// Whether the office's start colour is the fore colour.
    bool startsWithFore;
};

constexpr auto kLinear = OfficeGradientStyle::linear;
constexpr auto kAxial = OfficeGradientStyle::axial;
constexpr auto kRect = OfficeGradientStyle::rect;
constexpr auto kSquare = OfficeGradientStyle::square;

constexpr std::int32_t kFromCorner = 5;
constexpr std::int32_t kFromTitle = 6;
constexpr std::int32_t kFromCentre = 7;

/// Where two rows paint the same, the first is what the office's fill is read as; the other one is
/// remembered. An axial gradient's start colour is its inner one, a rectangular one's its outer
/// one. Variant 1 begins with the fore colour at the top or left, variant 3 has it at both edges.
constexpr std::array<GradientRow, 28> kGradients = {{
    {1, 1, kLinear, 0, 50, 50, true},          {1, 2, kLinear, 1800, 50, 50, true},
    {1, 3, kAxial, 0, 50, 50, false},          {1, 4, kAxial, 1800, 50, 50, true},
    {2, 1, kLinear, 900, 50, 50, true},        {2, 2, kLinear, 2700, 50, 50, true},
    {2, 3, kAxial, 900, 50, 50, false},        {2, 4, kAxial, 2700, 50, 50, true},
    {3, 1, kLinear, 450, 50, 50, true},        {3, 2, kLinear, 2250, 50, 50, true},
    {3, 3, kAxial, 450, 50, 50, false},        {3, 4, kAxial, 2250, 50, 50, true},
    {4, 1, kLinear, 3150, 50, 50, true},       {4, 2, kLinear, 1350, 50, 50, true},
    {4, 3, kAxial, 1350, 50, 50, false},       {4, 4, kAxial, 3150, 50, 50, true},
    {kFromCorner, 1, kRect, 0, 0, 0, false},   {kFromCorner, 2, kRect, 0, 100, 0, false},
    {kFromCorner, 3, kRect, 0, 0, 100, false}, {kFromCorner, 4, kRect, 0, 100, 100, false},
    {kFromCentre, 1, kRect, 0, 50, 50, true},  {kFromCentre, 2, kRect, 1800, 50, 50, false},
    {kFromCentre, 3, kRect, 0, 50, 50, true},  {kFromCentre, 4, kRect, 1800, 50, 50, false},
    {kFromTitle, 1, kSquare, 0, 50, 50, true}, {kFromTitle, 2, kSquare, 1800, 50, 50, false},
    {kFromTitle, 3, kSquare, 0, 50, 50, true}, {kFromTitle, 4, kSquare, 1800, 50, 50, false},
}};

const GradientRow& gradientRow(std::int32_t style, std::int32_t variant) {
    const auto* const found = std::find_if(
        kGradients.begin(), kGradients.end(),
        [&](const GradientRow& row) { return row.style == style && row.variant == variant; });
    return found == kGradients.end() ? kGradients.front() : *found;
}

std::int32_t normalAngle(std::int32_t angle) {
    return (angle % kFullTurn + kFullTurn) % kFullTurn;
}

/// The multiple of an eighth turn that is nearest to the angle.
std::int32_t eighths(std::int32_t angle) {
    return normalAngle((normalAngle(angle) + kEighthTurn / 2) / kEighthTurn * kEighthTurn);
}

/// 0, 50 or 100, whichever end or middle is meant.
std::int32_t thirds(std::int32_t offset) {
    constexpr std::int32_t kLow = 25;
    constexpr std::int32_t kHigh = 75;
    if (offset <= kLow) return 0;
    return offset >= kHigh ? 100 : 50;
}

/// The row that an office's gradient is read as.
const GradientRow& gradientRowOf(const OfficeGradient& gradient) {
    const bool straight = gradient.style == kLinear || gradient.style == kAxial;
    OfficeGradientStyle style = straight ? gradient.style : kRect;
    std::int32_t angle = eighths(gradient.angle);
    std::int32_t x = 50;
    std::int32_t y = 50;
    if (!straight) {
        x = thirds(gradient.xOffset);
        y = thirds(gradient.yOffset);
        if (x == 50 || y == 50) x = y = 50;
        const bool turned = x == 50 && normalAngle(gradient.angle) >= kHalfTurn;
        angle = turned ? kHalfTurn : 0;
    }
    const auto* const found =
        std::find_if(kGradients.begin(), kGradients.end(), [&](const GradientRow& row) {
            return row.officeStyle == style && row.angle == angle && row.xOffset == x &&
                   row.yOffset == y;
        });
    return found == kGradients.end() ? kGradients.front() : *found;
}

std::int32_t withIntensity(std::int32_t color, std::int32_t intensity) {
    constexpr std::int32_t kFull = 100;
    std::int32_t result = 0;
    for (const std::int32_t shift : {16, 8, 0}) {
        const std::int32_t part = ((color >> shift) & 0xFF) * intensity / kFull;
        result |= std::clamp(part, 0, 0xFF) << shift;
    }
    return result;
}

// The colours of gradients that are not made of two given ones. All 0xRRGGBB.

/// The second colour of a one-colour gradient: black at 0, the colour itself at one half, white
/// at 1.
std::int32_t shade(std::int32_t color, float degree) {
    std::int32_t result = 0;
    for (const std::int32_t shift : {16, 8, 0}) {
        const auto part = static_cast<double>((color >> shift) & 0xFF);
        const double mixed =
            degree <= 0.5F ? part * degree * 2 : std::lerp(part, 255.0, (degree - 0.5) * 2);
        result |= static_cast<std::int32_t>(std::lround(mixed)) << shift;
    }
    return result;
}

struct ColorPair {
    std::int32_t fore;
    std::int32_t back;
};

/// Preset gradients have more colours than the office's gradients hold: two that come closest to
/// them.
constexpr std::array<ColorPair, 24> kPresetGradients = {{
    {0x1A0F6B, 0xFF7A1A},  // early sunset
    {0x0B0B2E, 0xC94A12},  // late sunset
    {0x000000, 0x0A2A9E},  // nightfall
    {0x5B8FF0, 0xF6C6E4},  // daybreak
    {0xDFE9F5, 0x7C6A4A},  // horizon
    {0xF7B36A, 0xFFE7C2},  // desert
    {0x0C4FA8, 0x9ED8F2},  // ocean
    {0xCDE6F7, 0x7A9BD1},  // calm water
    {0xFFF100, 0xC0180C},  // fire
    {0x8A93C4, 0xEEF1FA},  // fog
    {0xD9E8C7, 0x5E8F4D},  // moss
    {0x2A5BC9, 0x1BA39C},  // peacock
    {0xFBE9C2, 0xD9A05B},  // wheat
    {0xFFF2DC, 0xE3C59A},  // parchment
    {0xD9A183, 0x5A1C10},  // mahogany
    {0xE5342B, 0x7F2FD0},  // rainbow
    {0xFF4FD8, 0x1FC4F4},  // rainbow, second
    {0xE8D28A, 0x9E7B22},  // gold
    {0xFBF0B8, 0xA67A2B},  // gold, second
    {0x82570E, 0xF9E18F},  // brass
    {0xFFFFFF, 0x56606E},  // chrome
    {0xC6CAD1, 0x2F343C},  // chrome, second
    {0xF4F5F7, 0xA1A7AF},  // silver
    {0x00008A, 0x5AA3F2},  // sapphire
}};

ColorPair gradientColors(const HostFill& fill) {
    switch (fill.gradientColorType) {
        case MsoGradientColorType::msoGradientPresetColors:
            return kPresetGradients.at(static_cast<std::size_t>(fill.presetGradientType - 1));
        case MsoGradientColorType::msoGradientOneColor: {
            const std::int32_t fore = toOfficeColor(fill.foreColor);
            return {fore, shade(fore, fill.gradientDegree)};
        }
        default:
            return {toOfficeColor(fill.foreColor), toOfficeColor(fill.backColor)};
    }
}

OfficeGradient officeGradientOf(const HostFill& fill) {
    const GradientRow& row = gradientRow(fill.gradientStyle, fill.gradientVariant);
    const ColorPair colors = gradientColors(fill);
    OfficeGradient gradient;
    gradient.style = row.officeStyle;
    gradient.angle = row.angle;
    gradient.xOffset = row.xOffset;
    gradient.yOffset = row.yOffset;
    gradient.startColor = row.startsWithFore ? colors.fore : colors.back;
    gradient.endColor = row.startsWithFore ? colors.back : colors.fore;
    return gradient;
}

// Hatches: the pattern that looks most like one, by its direction and the distance of its lines.

struct HatchRow {
    OfficeHatchStyle style;
    /// Eighth turns, modulo a half turn.
    std::int32_t angle;
    std::int32_t narrow;
    std::int32_t middle;
    std::int32_t wide;
};

constexpr std::array<HatchRow, 8> kHatches = {{
    {OfficeHatchStyle::one, 0, 13, 19, 49},
    {OfficeHatchStyle::one, 450, 16, 22, 53},
    {OfficeHatchStyle::one, 900, 14, 20, 50},
    {OfficeHatchStyle::one, 1350, 15, 21, 52},
    {OfficeHatchStyle::two, 0, 23, 23, 34},
    {OfficeHatchStyle::two, 450, 18, 41, 54},
    {OfficeHatchStyle::three, 0, 42, 42, 51},
    {OfficeHatchStyle::three, 450, 44, 44, 54},
}};

std::int32_t patternOfHatch(const OfficeHatch& hatch) {
    constexpr std::int32_t kNarrow = 60;
    constexpr std::int32_t kMiddle = 120;
    const bool single = hatch.style == OfficeHatchStyle::one;
    const std::int32_t angle = eighths(hatch.angle) % (single ? kHalfTurn : kHalfTurn / 2);
    const auto* const found = std::find_if(
        kHatches.begin(), kHatches.end(),
        [&](const HatchRow& row) { return row.style == hatch.style && row.angle == angle; });
    const HatchRow& row = found == kHatches.end() ? kHatches.front() : *found;
    if (hatch.distance <= kNarrow) return row.narrow;
    return hatch.distance <= kMiddle ? row.middle : row.wide;
}

// Transparency.

constexpr float kPerCent = 100.0F;

float transparencyOf(const OfficeFill& fill) {
    if (!fill.transparenceGradient) return static_cast<float>(fill.transparence) / kPerCent;
    const OfficeGradient& gradient = *fill.transparenceGradient;
    const std::int32_t start = withIntensity(gradient.startColor, gradient.startIntensity) & 0xFF;
    const std::int32_t end = withIntensity(gradient.endColor, gradient.endIntensity) & 0xFF;
    return std::round(static_cast<float>(start + end) * kPerCent / (2 * 255.0F)) / kPerCent;
}

std::int32_t transparenceOf(float transparency) {
    return static_cast<std::int32_t>(std::lround(transparency * kPerCent));
}

// Stops.

/// FNV-1a over numbers.
class Fingerprint {
 public:
    void add(std::int32_t number) {
        constexpr std::uint32_t kPrime = 16777619;
        for (const unsigned shift : {0U, 8U, 16U, 24U}) {
            hash_ = (hash_ ^ ((static_cast<std::uint32_t>(number) >> shift) & 0xFFU)) * kPrime;
        }
    }
    void add(const std::vector<OfficeColorStop>& stops) {
        add(static_cast<std::int32_t>(stops.size()));
        for (const OfficeColorStop& stop : stops) {
            add(stop.place);
            add(stop.color);
        }
    }
    std::uint32_t value() const { return hash_; }

 private:
    std::uint32_t hash_ = 2166136261;
};

std::int32_t stopsMarkOf(const OfficeFill& fill) {
    constexpr std::uint32_t kBeyondEnumerations = 0x40000000;
    static const std::vector<OfficeColorStop> kNone;
    const auto& colors = fill.style == OfficeFillStyle::gradient ? fill.gradient.stops : kNone;
    const auto& clear = fill.transparenceGradient ? fill.transparenceGradient->stops : kNone;
    if (colors.empty() && clear.empty()) return 0;
    Fingerprint fingerprint;
    fingerprint.add(colors);
    fingerprint.add(clear);
    return static_cast<std::int32_t>(fingerprint.value() % kBeyondEnumerations +
                                     kBeyondEnumerations);
}

// From the office.

void readGradient(const OfficeGradient& gradient, HostFill& fill) {
    const GradientRow& row = gradientRowOf(gradient);
    const std::int32_t start =
        toHostColor(withIntensity(gradient.startColor, gradient.startIntensity));
    const std::int32_t end = toHostColor(withIntensity(gradient.endColor, gradient.endIntensity));
    fill.type = MsoFillType::msoFillGradient;
    fill.gradientColorType = MsoGradientColorType::msoGradientTwoColors;
    fill.gradientStyle = row.style;
    fill.gradientVariant = row.variant;
    fill.foreColor = row.startsWithFore ? start : end;
    fill.backColor = row.startsWithFore ? end : start;
}

void readPattern(const PatternFill& pattern, HostFill& fill) {
    fill.type = MsoFillType::msoFillPatterned;
    fill.pattern = pattern.pattern;
    fill.foreColor = toHostColor(pattern.foreColor);
    fill.backColor = toHostColor(pattern.backColor);
}

void readBitmap(const OfficeFill& office, const std::optional<OwnPicture>& picture,
                HostFill& fill) {
    if (picture) {
        if (const auto* pattern = std::get_if<PatternFill>(&*picture)) {
            readPattern(*pattern, fill);
            return;
        }
        fill.type = MsoFillType::msoFillTextured;
        fill.textureType = MsoTextureType::msoTexturePreset;
        fill.presetTexture = std::get<TextureFill>(*picture).texture;
        return;
    }
    if (office.bitmapMode != OfficeBitmapMode::repeat) {
        fill.type = MsoFillType::msoFillPicture;
        return;
    }
    fill.type = MsoFillType::msoFillTextured;
    fill.textureType = MsoTextureType::msoTextureUserDefined;
    fill.textureName.reset();
}

// To the office.

/// Whether both differ at most in colours, transparency and visibility.
bool hasSameBody(HostFill a, const HostFill& b) {
    a.visible = b.visible;
    a.foreColor = b.foreColor;
    a.backColor = b.backColor;
    a.transparency = b.transparency;
    a.stopsMark = b.stopsMark;
    return a == b;
}

void buildBody(const HostFill& wanted, const std::string& userPicture, OfficeFill& office) {
    switch (wanted.type) {
        case MsoFillType::msoFillPatterned:
            office.style = OfficeFillStyle::bitmap;
            office.bitmapMode = OfficeBitmapMode::repeat;
            office.bitmapName = nameOf(PatternFill{wanted.pattern, toOfficeColor(wanted.foreColor),
                                                   toOfficeColor(wanted.backColor)});
            break;
        case MsoFillType::msoFillGradient:
            office.style = OfficeFillStyle::gradient;
            office.gradient = officeGradientOf(wanted);
            break;
        case MsoFillType::msoFillTextured:
            office.style = OfficeFillStyle::bitmap;
            office.bitmapMode = OfficeBitmapMode::repeat;
            office.bitmapName = wanted.textureType == MsoTextureType::msoTexturePreset
                                    ? nameOf(TextureFill{wanted.presetTexture})
                                    : userPicture;
            break;
        default:
            office.style = OfficeFillStyle::solid;
            office.color = toOfficeColor(wanted.foreColor);
            break;
    }
}

/// Gives the body that the shape has the wanted colours.
void recolorBody(const HostFill& wanted, OfficeFill& office) {
    switch (office.style) {
        case OfficeFillStyle::solid:
            office.color = toOfficeColor(wanted.foreColor);
            break;
        case OfficeFillStyle::gradient: {
            const OfficeGradient fresh = officeGradientOf(wanted);
            const bool sameSide =
                gradientRowOf(office.gradient).startsWithFore ==
                gradientRow(wanted.gradientStyle, wanted.gradientVariant).startsWithFore;
            office.gradient.startColor = sameSide ? fresh.startColor : fresh.endColor;
            office.gradient.endColor = sameSide ? fresh.endColor : fresh.startColor;
            office.gradient.startIntensity = office.gradient.endIntensity = 100;
            office.gradient.stops.clear();
            break;
        }
        case OfficeFillStyle::hatch:
            office.hatch.color = toOfficeColor(wanted.foreColor);
            office.color = toOfficeColor(wanted.backColor);
            office.background = true;
            break;
        case OfficeFillStyle::bitmap:
            if (wanted.type == MsoFillType::msoFillPatterned) buildBody(wanted, {}, office);
            break;
        case OfficeFillStyle::none:
            break;
    }
}

bool hasSameColors(const HostFill& a, const HostFill& b) {
    return a.foreColor == b.foreColor && a.backColor == b.backColor;
}

/// The office's fill that shows `wanted`, whether it is to be shown or not.
OfficeFill shownFill(const HostFill& wanted, const KnownFill& now, const std::string& userPicture) {
    OfficeFill office = now.hidden ? *now.hidden : now.office;
    const bool hasBody = office.style != OfficeFillStyle::none;
    if (hasBody && hasSameBody(wanted, now.host)) {
        if (!hasSameColors(wanted, now.host)) recolorBody(wanted, office);
    } else {
        buildBody(wanted, userPicture, office);
    }
    if (wanted.transparency != now.host.transparency) {
        office.transparence = transparenceOf(wanted.transparency);
        office.transparenceGradient.reset();
    }
    return office;
}

OfficeFill hiddenFill(const HostFill& wanted, const OfficeFill& shown) {
    OfficeFill office = shown;
    office.style = OfficeFillStyle::none;
    if (wanted.type == MsoFillType::msoFillSolid) office.color = toOfficeColor(wanted.foreColor);
    office.transparence = transparenceOf(wanted.transparency);
    office.transparenceGradient.reset();
    return office;
}

std::optional<OwnPicture> pictureOf(const OfficeFill& office) {
    if (office.style != OfficeFillStyle::bitmap) return {};
    return ownPictureNamed(office.bitmapName);
}

void add(FieldWriter& fields, const HostFill& fill) {
    fields.add(static_cast<std::int32_t>(fill.visible));
    fields.add(fill.foreColor);
    fields.add(fill.backColor);
    fields.add(fill.transparency);
    fields.add(static_cast<std::int32_t>(fill.type));
    fields.add(fill.gradientStyle);
    fields.add(static_cast<std::int32_t>(fill.gradientColorType));
    fields.add(fill.gradientVariant);
    fields.add(fill.gradientDegree);
    fields.add(fill.presetGradientType);
    fields.add(static_cast<std::int32_t>(fill.textureType));
    fields.add(fill.presetTexture);
    fields.add(fill.pattern);
    fields.add(fill.textureName ? 1 : 0);
    fields.add(fill.textureName.value_or(std::string()));
}

/// Whether every value is one that a fill can be built from: the text may come from anywhere.
bool isSound(const HostFill& fill) {
    const auto isIn = [](std::int32_t value, std::int32_t last) {
        return value >= 1 && value <= last;
    };
    if (!(fill.transparency >= 0 && fill.transparency <= 1)) return false;
    if (fill.type == MsoFillType::msoFillPatterned) return isIn(fill.pattern, kPatternCount);
    if (fill.type == MsoFillType::msoFillGradient) {
        const bool preset = fill.gradientColorType == MsoGradientColorType::msoGradientPresetColors;
        return isIn(fill.gradientStyle, kFromCentre) && isIn(fill.gradientVariant, 4) &&
               fill.gradientDegree >= 0 && fill.gradientDegree <= 1 &&
               (!preset || isIn(fill.presetGradientType, kPresetGradients.size()));
    }
    if (fill.textureType == MsoTextureType::msoTexturePreset) return isIn(fill.presetTexture, 24);
    return true;
}

bool read(FieldReader& fields, HostFill& fill) {
    bool named = false;
    std::string name;
    const bool complete =
        fields.readEnumeration(fill.visible, -1, 0) && fields.read(fill.foreColor) &&
        fields.read(fill.backColor) && fields.read(fill.transparency) &&
        fields.readEnumeration(fill.type, 1, 6) && fields.read(fill.gradientStyle) &&
        fields.readEnumeration(fill.gradientColorType, host::kMixed, 3) &&
        fields.read(fill.gradientVariant) && fields.read(fill.gradientDegree) &&
        fields.read(fill.presetGradientType) &&
        fields.readEnumeration(fill.textureType, host::kMixed, 2) &&
        fields.read(fill.presetTexture) && fields.read(fill.pattern) &&
        fields.readEnumeration(named, 0, 1) && fields.read(name) && fields.atEnd();
    if (!complete) return false;
    fill.textureName = named ? std::optional(name) : std::nullopt;
    return isSound(fill);
}

constexpr char kPartSeparator = ';';

}  // namespace

std::int32_t toOfficeColor(std::int32_t color) {
    return base::swapRedAndBlue(color);
}

std::int32_t toHostColor(std::int32_t color) {
    return base::swapRedAndBlue(color);
}

HostFill hostFillOf(const OfficeFill& office, const std::optional<OwnPicture>& picture) {
    HostFill fill;
    fill.visible =
        office.style == OfficeFillStyle::none ? MsoTriState::msoFalse : MsoTriState::msoTrue;
    fill.transparency = transparencyOf(office);
    fill.stopsMark = stopsMarkOf(office);
    switch (office.style) {
        case OfficeFillStyle::none:
        case OfficeFillStyle::solid:
            fill.foreColor = toHostColor(office.color);
            break;
        case OfficeFillStyle::gradient:
            readGradient(office.gradient, fill);
            break;
        case OfficeFillStyle::hatch:
            readPattern({patternOfHatch(office.hatch), office.hatch.color,
                         office.background ? office.color : toOfficeColor(Unused::kColor)},
                        fill);
            break;
        case OfficeFillStyle::bitmap:
            readBitmap(office, picture, fill);
            break;
    }
    return fill;
}

std::string toText(const RememberedFill& fill) {
    FieldWriter fields;
    add(fields, fill.host);
    std::string text = fields.text() + kPartSeparator + toText(fill.written);
    if (fill.hidden) text += kPartSeparator + toText(*fill.hidden);
    return text;
}

std::optional<RememberedFill> rememberedFillOf(const std::string& text) {
    const std::size_t first = text.find(kPartSeparator);
    if (first == std::string::npos) return {};
    const std::size_t second = text.find(kPartSeparator, first + 1);
    RememberedFill fill;
    const std::string host = text.substr(0, first);
    FieldReader fields(host);
    if (!read(fields, fill.host)) return {};
    const auto written = officeFillOf(text.substr(first + 1, second - first - 1));
    if (!written) return {};
    fill.written = *written;
    if (second != std::string::npos) {
        fill.hidden = officeFillOf(text.substr(second + 1));
        if (!fill.hidden) return {};
    }
    return fill;
}

KnownFill knownFillOf(const OfficeFill& fill, const std::optional<OwnPicture>& picture,
                      const std::optional<RememberedFill>& remembered) {
    if (remembered && isSameOfficeFill(remembered->written, fill)) {
        KnownFill known{remembered->host, fill, remembered->hidden};
        known.host.stopsMark = stopsMarkOf(fill);
        return known;
    }
    return {hostFillOf(fill, picture), fill, std::nullopt};
}

FillTarget targetFor(const HostFill& wanted, const KnownFill& now, const std::string& userPicture) {
    FillTarget target;
    const OfficeFill shown = shownFill(wanted, now, userPicture);
    target.office = wanted.shown() ? shown : hiddenFill(wanted, shown);
    target.picture = pictureOf(shown);
    target.host = wanted;
    target.host.stopsMark = stopsMarkOf(target.office);
    const bool isToldByOffice = hostFillOf(target.office, pictureOf(target.office)) == target.host;
    if (!isToldByOffice) {
        target.remembered = RememberedFill{target.host, target.office, std::nullopt};
        if (!wanted.shown()) target.remembered->hidden = shown;
    }
    return target;
}

std::vector<std::int32_t> stopColorsOf(const OfficeFill& office) {
    std::vector<std::int32_t> colors;
    if (office.style != OfficeFillStyle::gradient) return colors;
    for (const OfficeColorStop& each : office.gradient.stops) {
        colors.push_back(toHostColor(each.color));
    }
    return colors;
}

KnownFill withStopColors(const KnownFill& fill, const std::vector<std::int32_t>& colors) {
    KnownFill result = fill;
    OfficeGradient& gradient = result.office.gradient;
    if (colors.empty() || colors.size() != gradient.stops.size()) return result;
    const bool startsWithFirst = gradient.startColor == gradient.stops.front().color;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        gradient.stops[i].color = toOfficeColor(colors[i]);
    }
    gradient.startColor = (startsWithFirst ? gradient.stops.front() : gradient.stops.back()).color;
    gradient.endColor = (startsWithFirst ? gradient.stops.back() : gradient.stops.front()).color;
    result.host = hostFillOf(result.office, {});
    result.host.transparency = fill.host.transparency;
    return result;
}

}  // namespace huebrush::mapping
