// SPDX-License-Identifier: MPL-2.0

#include "base/Bitmaps_test_support.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace huebrush::base {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Odd, so that rows need filling at every depth.
constexpr std::int32_t kWidth = 21;
constexpr std::int32_t kHeight = 9;
constexpr std::size_t kFileHeader = 14;

struct Form {
    std::string name;
    std::size_t header = 40;
    unsigned bits = 0;
    std::uint32_t compression = 0;
    /// Blue, green, red and alpha; all 0 where the form has none of its own.
    std::array<std::uint32_t, 4> masks{};
    bool topDown = false;
    std::uint32_t colors = 0;  ///< of the table, where it does not have all of them
};

void put(Bytes& out, std::uint32_t value, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) {
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

bool hasRuns(const Form& form) {
    return form.compression == 1 || form.compression == 2;
}

std::uint32_t colorsOf(const Form& form) {
    return form.colors != 0 ? form.colors : 1U << form.bits;
}

std::array<std::uint8_t, 4> colorOf(std::uint32_t index) {
    return {static_cast<std::uint8_t>(index * 37 + 5), static_cast<std::uint8_t>(index * 91 + 60),
            static_cast<std::uint8_t>(255 - index * 53), 255};
}

/// A picture of runs, of changing values, and of the first colour.
std::uint32_t indexAt(const Form& form, std::int32_t x, std::int32_t y) {
    const std::uint32_t count = colorsOf(form);
    if (y == 3 || (x > 4 && x < 11 && y == 5)) return 0;
    if (y % 3 == 0) return static_cast<std::uint32_t>(x / 7 + y) % count;
    return static_cast<std::uint32_t>(x * 11 + y * 5) % count;
}

/// The masks of a form that has none of its own.
std::array<std::uint32_t, 4> masksOf(const Form& form) {
    if (form.masks[0] != 0) return form.masks;
    if (form.bits == 16) return {0x1F, 0x3E0, 0x7C00, 0};
    if (form.bits == 32) return {0xFF, 0xFF00, 0xFF0000, 0xFF000000};
    return {0xFF, 0xFF00, 0xFF0000, 0};
}

/// What one channel has at a place, of what its mask can hold.
std::uint32_t channelAt(std::uint32_t mask, std::size_t channel, std::int32_t x, std::int32_t y) {
    const std::uint64_t most = mask >> std::countr_zero(mask);
    const auto part = channel == 0 ? x * 12 : channel == 1 ? y * 28 : channel == 2 ? x * y : 40 + x;
    return static_cast<std::uint32_t>(most * static_cast<std::uint64_t>(part % 256) / 255);
}

std::uint32_t pixelAt(const Form& form, std::int32_t x, std::int32_t y) {
    if (form.bits <= 8) return indexAt(form, x, y);
    std::uint32_t pixel = 0;
    const auto masks = masksOf(form);
    for (std::size_t channel = 0; channel < masks.size(); ++channel) {
        const std::uint32_t mask = masks[channel];
        if (mask != 0) pixel |= channelAt(mask, channel, x, y) << std::countr_zero(mask);
    }
    return pixel;
}

std::array<std::uint8_t, 4> shownAt(const Form& form, std::int32_t x, std::int32_t y) {
    if (form.bits <= 8) return colorOf(indexAt(form, x, y));
    std::array<std::uint8_t, 4> shown{0, 0, 0, 255};
    const auto masks = masksOf(form);
    for (std::size_t channel = 0; channel < masks.size(); ++channel) {
        if (masks[channel] == 0) continue;
        const double most = masks[channel] >> std::countr_zero(masks[channel]);
        shown[channel] = static_cast<std::uint8_t>(
            std::lround(channelAt(masks[channel], channel, x, y) * 255.0 / most));
    }
    return shown;
}

Bytes rowOf(const Form& form, std::int32_t y) {
    Bytes row;
    unsigned filled = 0;
    for (std::int32_t x = 0; x < kWidth; ++x) {
        const std::uint32_t pixel = pixelAt(form, x, y);
        if (form.bits >= 8) {
            put(row, pixel, form.bits / 8);
            continue;
        }
        if (filled == 0) row.push_back(0);
        filled += form.bits;
        row.back() = static_cast<std::uint8_t>(row.back() | pixel << (8 - filled));
        filled %= 8;
    }
    row.resize((row.size() + 3) / 4 * 4);
    return row;
}

/// Encodes one row after the other: what stays empty is skipped, what repeats is a run, and what
/// does not is a list.
class RunWriter {
 public:
    explicit RunWriter(const Form& form) : form_(form) {}

    Bytes write() {
        for (std::int32_t y = kHeight - 1; y >= 0; --y) {
            writeRow(y);
            put(out_, 0, 2);
        }
        out_.insert(out_.end(), {0, 1});
        return std::move(out_);
    }

 private:
    static constexpr std::int32_t kLeast = 3;

    std::uint8_t at(std::int32_t x, std::int32_t y) const {
        return static_cast<std::uint8_t>(indexAt(form_, x, y));
    }
    /// Of 4 bits each, two values may take turns.
    std::int32_t sameFrom(std::int32_t x, std::int32_t y) const {
        const std::int32_t apart = form_.bits == 4 ? 2 : 1;
        std::int32_t end = std::min(x + apart, kWidth);
        while (end < kWidth && at(end, y) == at(end - apart, y)) ++end;
        return end - x;
    }
    void writeRow(std::int32_t y) {
        for (std::int32_t x = 0; x < kWidth;) {
            std::int32_t empty = 0;
            while (x + empty < kWidth && at(x + empty, y) == 0) ++empty;
            if (x + empty == kWidth) return;
            if (empty > kLeast) {
                out_.insert(out_.end(), {0, 2, static_cast<std::uint8_t>(empty), 0});
                x += empty;
                continue;
            }
            std::int32_t listed = 0;
            while (x + listed < kWidth && sameFrom(x + listed, y) <= kLeast) ++listed;
            x += listed >= kLeast ? writeList(x, y, listed) : writeRun(x, y, sameFrom(x, y));
        }
    }
    std::int32_t writeRun(std::int32_t x, std::int32_t y, std::int32_t count) {
        const std::uint8_t first = at(x, y);
        const std::uint8_t second = count > 1 ? at(x + 1, y) : first;
        out_.push_back(static_cast<std::uint8_t>(count));
        out_.push_back(form_.bits == 8 ? first : static_cast<std::uint8_t>(first << 4 | second));
        return count;
    }
    std::int32_t writeList(std::int32_t x, std::int32_t y, std::int32_t count) {
        out_.insert(out_.end(), {0, static_cast<std::uint8_t>(count)});
        const std::size_t before = out_.size();
        for (std::int32_t i = 0; i < count; ++i) {
            const std::uint8_t value = at(x + i, y);
            if (form_.bits == 8) {
                out_.push_back(value);
            } else if (i % 2 == 0) {
                out_.push_back(static_cast<std::uint8_t>(value << 4));
            } else {
                out_.back() = static_cast<std::uint8_t>(out_.back() | value);
            }
        }
        if ((out_.size() - before) % 2 != 0) out_.push_back(0);
        return count;
    }

    const Form& form_;
    Bytes out_;
};

Bytes pixelsOf(const Form& form) {
    if (hasRuns(form)) return RunWriter(form).write();
    Bytes all;
    for (std::int32_t row = 0; row < kHeight; ++row) {
        const Bytes bytes = rowOf(form, form.topDown ? row : kHeight - 1 - row);
        all.insert(all.end(), bytes.begin(), bytes.end());
    }
    return all;
}

Bytes headerOf(const Form& form, std::size_t pixels) {
    Bytes header;
    put(header, static_cast<std::uint32_t>(form.header), 4);
    if (form.header == 12) {
        put(header, kWidth, 2);
        put(header, kHeight, 2);
        put(header, 1, 2);
        put(header, form.bits, 2);
        return header;
    }
    put(header, kWidth, 4);
    put(header, static_cast<std::uint32_t>(form.topDown ? -kHeight : kHeight), 4);
    put(header, 1, 2);
    put(header, form.bits, 2);
    put(header, form.compression, 4);
    put(header, static_cast<std::uint32_t>(pixels), 4);
    put(header, 2835, 4);
    put(header, 2835, 4);
    put(header, form.colors, 4);
    put(header, 0, 4);
    if (form.masks[0] != 0) {
        const auto& [blue, green, red, alpha] = form.masks;
        for (const std::uint32_t mask : {red, green, blue}) put(header, mask, 4);
        const bool takesAlpha = form.header >= 56 || form.compression == 6;
        if (takesAlpha) put(header, alpha, 4);
    }
    header.resize(std::max(header.size(), form.header));
    // The usual space of colours.
    constexpr std::size_t kSpaceField = 56;
    if (form.header >= 108) {
        const std::string usual = "BGRs";
        std::copy(usual.begin(), usual.end(), header.begin() + kSpaceField);
    }
    return header;
}

Bytes fileOf(const Form& form) {
    const Bytes pixels = pixelsOf(form);
    const Bytes header = headerOf(form, pixels.size());
    Bytes table;
    if (form.bits <= 8) {
        for (std::uint32_t i = 0; i < colorsOf(form); ++i) {
            const auto color = colorOf(i);
            table.insert(table.end(), color.begin(), color.begin() + 3);
            if (form.header != 12) table.push_back(0);
        }
    }
    Bytes file{'B', 'M'};
    const std::size_t start = kFileHeader + header.size() + table.size();
    put(file, static_cast<std::uint32_t>(start + pixels.size()), 4);
    put(file, 0, 4);
    put(file, static_cast<std::uint32_t>(start), 4);
    for (const Bytes& part : {header, table, pixels}) {
        file.insert(file.end(), part.begin(), part.end());
    }
    return file;
}

std::vector<Form> forms() {
    const std::array<std::uint32_t, 4> k565{0x1F, 0x7E0, 0xF800, 0};
    const std::array<std::uint32_t, 4> k555{0x1F, 0x3E0, 0x7C00, 0};
    const std::array<std::uint32_t, 4> k4444{0xF, 0xF0, 0xF00, 0xF000};
    const std::array<std::uint32_t, 4> kBgrx{0xFF, 0xFF00, 0xFF0000, 0};
    const std::array<std::uint32_t, 4> kBgra{0xFF, 0xFF00, 0xFF0000, 0xFF000000};
    const std::array<std::uint32_t, 4> kRgba{0xFF0000, 0xFF00, 0xFF, 0xFF000000};
    const std::array<std::uint32_t, 4> k101010{0x3FF, 0xFFC00, 0x3FF00000, 0};
    std::vector<Form> all{
        {"rle8", 40, 8, 1},
        {"rle4", 40, 4, 2},
        {"rle8-few-colours", 40, 8, 1, {}, false, 200},
        {"rle4-of-os2", 64, 4, 2},
        {"16-565", 40, 16, 3, k565},
        {"16-555-fields", 40, 16, 3, k555},
        {"16-565-top-down", 40, 16, 3, k565, true},
        {"16-565-52", 52, 16, 3, k565},
        {"16-4444-56", 56, 16, 3, k4444},
        {"16-4444-108", 108, 16, 3, k4444},
        {"32-fields", 40, 32, 3, kBgrx},
        {"32-fields-alpha", 40, 32, 6, kBgra},
        {"32-fields-56", 56, 32, 3, kBgra},
        {"32-fields-108", 108, 32, 3, kBgra},
        {"32-fields-124", 124, 32, 3, kRgba},
        {"32-fields-124-top-down", 124, 32, 3, kRgba, true},
        {"32-10-bits", 40, 32, 3, k101010},
        {"8-few-colours", 40, 8, 0, {}, false, 200},
        {"4-few-colours", 40, 4, 0, {}, false, 11},
    };
    for (const unsigned bits : {1U, 4U, 8U, 16U, 24U, 32U}) {
        for (const std::size_t header : {12U, 40U, 64U, 108U, 124U}) {
            if (header == 12 && (bits == 16 || bits == 32)) continue;
            const std::string name = std::to_string(bits) + "-" + std::to_string(header);
            all.push_back({name, header, bits});
            if (header == 12) continue;
            all.push_back({name + "-top-down", header, bits, 0, {}, true});
        }
    }
    return all;
}

Pixels shownBy(const Form& form) {
    Pixels pixels{kWidth, kHeight, {}};
    for (std::int32_t y = 0; y < kHeight; ++y) {
        for (std::int32_t x = 0; x < kWidth; ++x) {
            const auto shown = shownAt(form, x, y);
            pixels.bytes.insert(pixels.bytes.end(), shown.begin(), shown.end());
        }
    }
    return pixels;
}

std::vector<BitmapSample> makeSamples() {
    std::vector<BitmapSample> samples;
    for (const Form& form : forms()) samples.push_back({form.name, fileOf(form), shownBy(form)});
    return samples;
}

}  // namespace

const std::vector<BitmapSample>& bitmapSamples() {
    static const std::vector<BitmapSample> kSamples = makeSamples();
    return kSamples;
}

namespace {

/// Records of words: their size in words, their function, their parameters.
void putRecord(Bytes& out, std::uint32_t function, std::initializer_list<std::uint32_t> words) {
    put(out, static_cast<std::uint32_t>(3 + words.size()), 4);
    put(out, function, 2);
    for (const std::uint32_t word : words) put(out, word, 2);
}

}  // namespace

std::vector<std::uint8_t> plainMetafile() {
    Bytes records;
    putRecord(records, 0x20B, {0, 0});          // the window's origin
    putRecord(records, 0x20C, {100, 200});      // and extent
    putRecord(records, 0x2FC, {0, 200, 0, 0});  // a red brush
    putRecord(records, 0x12D, {0});
    putRecord(records, 0x41B, {90, 190, 10, 10});  // a rectangle
    putRecord(records, 0, {});
    Bytes file;
    put(file, 1, 2);
    put(file, 9, 2);
    put(file, 0x300, 2);
    put(file, static_cast<std::uint32_t>(9 + records.size() / 2), 4);
    put(file, 1, 2);
    put(file, 7, 4);
    put(file, 0, 2);
    file.insert(file.end(), records.begin(), records.end());
    return file;
}

std::vector<std::uint8_t> placeableMetafile() {
    Bytes file;
    put(file, 0x9AC6CDD7, 4);
    for (const std::uint32_t word : {0U, 0U, 0U, 200U, 100U, 96U, 0U, 0U}) put(file, word, 2);
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < file.size(); at += 2) {
        sum ^= static_cast<std::uint32_t>(file[at] | file[at + 1] << 8);
    }
    put(file, sum, 2);
    const Bytes plain = plainMetafile();
    file.insert(file.end(), plain.begin(), plain.end());
    return file;
}

std::vector<std::uint8_t> enhancedMetafile() {
    Bytes records;
    const auto record = [&](std::uint32_t type, std::initializer_list<std::uint32_t> numbers) {
        put(records, type, 4);
        put(records, static_cast<std::uint32_t>(8 + 4 * numbers.size()), 4);
        for (const std::uint32_t number : numbers) put(records, number, 4);
    };
    record(39, {1, 0, 0x0000C8, 0});  // a red brush
    record(37, {1});
    record(43, {10, 10, 190, 90});  // a rectangle
    record(14, {0, 16, 20});
    constexpr std::uint32_t kHeader = 88;
    Bytes file;
    for (const std::uint32_t number :
         {1U, kHeader, 0U, 0U, 199U, 99U, 0U, 0U, 5292U, 2646U, 0x464D4520U, 0x10000U,
          static_cast<std::uint32_t>(kHeader + records.size()), 5U}) {
        put(file, number, 4);
    }
    put(file, 2, 2);
    put(file, 0, 2);
    for (const std::uint32_t number : {0U, 0U, 0U, 1024U, 768U, 271U, 203U}) put(file, number, 4);
    file.insert(file.end(), records.begin(), records.end());
    return file;
}

}  // namespace huebrush::base
