// SPDX-License-Identifier: MPL-2.0

#include "cli/exchange/SwatchExchange.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "base/Text.h"
#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

using base::text;
using std::string_view;

static_assert(sizeof(float) == 4 && std::numeric_limits<float>::is_iec559);

constexpr string_view kSignature = "ASEF";
constexpr std::uint16_t kGroupStart = 0xC001;
constexpr std::uint16_t kGroupEnd = 0xC002;
constexpr std::uint16_t kColor = 0x0001;
/// A swatch that does not change where it is edited, as opposed to global and spot colours.
constexpr std::uint16_t kNormalSwatch = 2;

/// Numbers, highest byte first, from a part of the file.
class BigEndianReader {
 public:
    BigEndianReader(string_view bytes, std::size_t at) : rest_(bytes), at_(at) {}

    bool atEnd() const { return rest_.empty(); }
    std::size_t at() const { return at_; }
    std::size_t left() const { return rest_.size(); }

    string_view take(std::size_t count) {
        if (count > rest_.size()) fail("the data ends too early");
        const string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        at_ += count;
        return taken;
    }
    BigEndianReader part(std::size_t count) {
        const std::size_t begin = at_;
        return {take(count), begin};
    }
    std::uint16_t u16() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t u32() { return number(4); }
    float real() { return std::bit_cast<float>(number(4)); }

    [[noreturn]] void fail(const char* problem) const {
        throw Failure(text("byte ", at_, ": ", problem));
    }

 private:
    std::uint32_t number(std::size_t size) {
        std::uint32_t value = 0;
        for (const char byte : take(size)) value = value << 8U | static_cast<unsigned char>(byte);
        return value;
    }

    string_view rest_;
    std::size_t at_;
};

/// Text with its length in front, which counts the null at its end.
std::string takeText(BigEndianReader& block) {
    std::u16string units;
    for (std::size_t left = block.u16(); left > 0; --left) {
        units += static_cast<char16_t>(block.u16());
    }
    const std::size_t end = std::min(units.find(u'\0'), units.size());
    return base::toUtf8(std::u16string_view(units).substr(0, end));
}

std::uint8_t byteOf(double part) {
    constexpr double kMost = 255;
    return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * kMost));
}

base::Rgb rgbOf(double red, double green, double blue) {
    return base::rgb(byteOf(red), byteOf(green), byteOf(blue));
}

using Parts = std::array<double, 4>;

base::Rgb fromCmyk(const Parts& cmyk) {
    const double light = 1 - std::clamp(cmyk[3], 0.0, 1.0);
    const auto part = [&](double ink) { return (1 - std::clamp(ink, 0.0, 1.0)) * light; };
    return rgbOf(part(cmyk[0]), part(cmyk[1]), part(cmyk[2]));
}

/// The inverse of the cube root with a straight beginning that CIE Lab is defined by.
double labPart(double value) {
    constexpr double kKnee = 6.0 / 29;
    return value > kKnee ? value * value * value : 3 * kKnee * kKnee * (value - 4.0 / 29);
}

/// A part of linear light as sRGB encodes it.
double encoded(double light) {
    constexpr double kKnee = 0.0031308;
    if (light <= kKnee) return 12.92 * light;
    return 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

base::Rgb fromLab(const Parts& lab) {
    // L is kept as a part of 1, a and b as they are.
    const double y = (100 * lab[0] + 16) / 116;
    const double lightX = 0.96422 * labPart(y + lab[1] / 500);
    const double lightY = labPart(y);
    const double lightZ = 0.82521 * labPart(y - lab[2] / 200);
    // From D50 to the primaries of sRGB, adapted to its white D65 after Bradford.
    return rgbOf(encoded(3.1338561 * lightX - 1.6168667 * lightY - 0.4906146 * lightZ),
                 encoded(-0.9787684 * lightX + 1.9161415 * lightY + 0.0334540 * lightZ),
                 encoded(0.0719453 * lightX - 0.2289914 * lightY + 1.4052427 * lightZ));
}

class SwatchReader {
 public:
    explicit SwatchReader(string_view bytes) : file_(bytes, 0) {}

    ReadColors read() {
        if (file_.left() < kSignature.size() || file_.take(kSignature.size()) != kSignature) {
            throw Failure("byte 0: \"ASEF\" is expected here");
        }
        // The version is 1.0 in all files, but not all programs write it as that.
        file_.take(4);
        // Some programs do not count the ends of groups: what is there counts.
        const std::uint32_t announced = file_.u32();
        for (std::uint32_t i = 0; i < announced || !file_.atEnd(); ++i) {
            if (i >= announced && file_.left() < kSmallestBlock) break;
            takeBlock();
        }
        // Swatches outside of groups come first, whatever their place.
        if (!loose_.colors.empty()) {
            result_.palettes.insert(result_.palettes.begin(), std::move(loose_));
        }
        return std::move(result_);
    }

 private:
    static constexpr std::size_t kSmallestBlock = 6;

    void takeBlock() {
        const std::uint16_t type = file_.u16();
        const std::uint32_t length = file_.u32();
        BigEndianReader block = file_.part(length);
        if (type == kGroupStart) {
            result_.palettes.push_back({takeText(block), {}});
            isInGroup_ = true;
        } else if (type == kGroupEnd) {
            isInGroup_ = false;
        } else if (type == kColor) {
            takeColor(block);
        }
    }

    void takeColor(BigEndianReader& block) {
        if (!takeText(block).empty()) ++result_.named;
        ColorPalette& palette = isInGroup_ ? result_.palettes.back() : loose_;
        const string_view model = block.take(4);
        if (model == "RGB ") {
            const Parts rgb = takeParts(block, 3);
            addColor(palette, rgbOf(rgb[0], rgb[1], rgb[2]));
        } else if (model == "Gray" || model == "GRAY") {
            const Parts gray = takeParts(block, 1);
            addColor(palette, rgbOf(gray[0], gray[0], gray[0]));
        } else if (model == "CMYK") {
            addColor(palette, fromCmyk(takeParts(block, 4)));
            ++result_.approximated;
        } else if (model == "LAB " || model == "Lab ") {
            addColor(palette, fromLab(takeParts(block, 3)));
            ++result_.approximated;
        } else {
            block.fail("the colour model is unknown");
        }
    }

    static Parts takeParts(BigEndianReader& block, std::size_t count) {
        Parts parts{};
        for (std::size_t i = 0; i < count; ++i) {
            parts[i] = block.real();
            if (!std::isfinite(parts[i])) block.fail("a part of a colour is not a number");
        }
        return parts;
    }

    BigEndianReader file_;
    ReadColors result_;
    ColorPalette loose_;
    bool isInGroup_ = false;
};

class BigEndianWriter {
 public:
    void u16(std::uint16_t value) { number(value, 2); }
    void u32(std::uint32_t value) { number(value, 4); }
    void real(float value) { number(std::bit_cast<std::uint32_t>(value), 4); }
    void bytes(string_view value) { out_ += value; }
    void utf16(const std::string& utf8) {
        const std::u16string units = base::toUtf16(utf8);
        u16(static_cast<std::uint16_t>(units.size() + 1));
        for (const char16_t unit : units) u16(unit);
        u16(0);
    }
    void block(std::uint16_t type, const BigEndianWriter& content) {
        u16(type);
        u32(static_cast<std::uint32_t>(content.out_.size()));
        out_ += content.out_;
    }
    const std::string& out() const { return out_; }

 private:
    void number(std::uint32_t value, std::size_t size) {
        for (std::size_t i = size; i > 0; --i) out_ += static_cast<char>(value >> (8 * (i - 1)));
    }

    std::string out_;
};

BigEndianWriter swatch(base::Rgb color) {
    constexpr float kMost = 255;
    BigEndianWriter block;
    block.utf16(base::toHex(color));
    block.bytes("RGB ");
    for (const std::uint8_t part : {base::red(color), base::green(color), base::blue(color)}) {
        block.real(static_cast<float>(part) / kMost);
    }
    block.u16(kNormalSwatch);
    return block;
}

}  // namespace

ReadColors readSwatchExchange(string_view bytes) {
    return SwatchReader(bytes).read();
}

std::string writeSwatchExchange(const ColorPalette& palette) {
    BigEndianWriter out;
    out.bytes(kSignature);
    out.u16(1);
    out.u16(0);
    out.u32(static_cast<std::uint32_t>(palette.colors.size() + 2));
    BigEndianWriter group;
    group.utf16(palette.name);
    out.block(kGroupStart, group);
    for (const base::Rgb color : palette.colors) out.block(kColor, swatch(color));
    out.block(kGroupEnd, {});
    return out.out();
}

}  // namespace huebrush::cli
