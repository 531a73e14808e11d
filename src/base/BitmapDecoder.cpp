// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <array>
#include <bit>

#include "base/Bitmap.h"
#include "base/BitmapHeader.h"
#include "base/LittleEndian.h"

namespace huebrush::base {

namespace {

using File = std::span<const std::uint8_t>;
using Color = std::array<std::uint8_t, Pixels::kBytes>;

constexpr std::uint8_t kOpaque = 255;

/// The colours of a file's table, black after its end.
using Table = std::array<Color, 256>;

Table tableOf(File file, const BitmapHeader& header) {
    Table table;
    table.fill({0, 0, 0, kOpaque});
    for (std::size_t i = 0; i < header.colorCount; ++i) {
        const std::size_t at = header.colors + i * header.colorSize;
        std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(at), 3, table[i].begin());
    }
    return table;
}

/// One of the colours, or the alpha, in a pixel of bit fields.
class Channel {
 public:
    Channel(std::uint32_t mask, std::uint8_t unlessStored)
        : mask_(mask),
          shift_(mask == 0 ? 0 : std::countr_zero(mask)),
          most_(mask >> shift_),
          unlessStored_(unlessStored) {}

    std::uint8_t of(std::uint32_t pixel) const {
        const std::uint32_t value = (pixel & mask_) >> shift_;
        if (most_ == kOpaque) return static_cast<std::uint8_t>(value);
        if (most_ == 0) return unlessStored_;
        return static_cast<std::uint8_t>((std::uint64_t{value} * kOpaque + most_ / 2) / most_);
    }

 private:
    std::uint32_t mask_;
    int shift_;
    std::uint32_t most_;
    std::uint8_t unlessStored_;
};

/// Fills the pixels from a file whose headers have been checked.
class Decoder {
 public:
    Decoder(File file, const BitmapHeader& header, Pixels& out)
        : file_(file), header_(header), out_(out) {}

    void decode();

 private:
    void put(std::int32_t x, std::int32_t y, const Color& color) {
        std::ranges::copy(color,
                          out_.bytes.begin() + static_cast<std::ptrdiff_t>(out_.offset(x, y)));
    }
    /// A row's number from the top, for one from where the file begins.
    std::int32_t fromTop(std::int32_t row) const {
        return header_.topDown ? row : header_.height - 1 - row;
    }

    template <class PixelOfRow>
    void decodeRows(const PixelOfRow& pixel);
    void decodeIndexes();
    void decodeBitFields();
    void decodeRuns();

    File file_;
    const BitmapHeader& header_;
    Pixels& out_;
};

void Decoder::decode() {
    if (header_.encoding == BitmapHeader::Encoding::runs) {
        decodeRuns();
    } else if (header_.bits <= 8) {
        decodeIndexes();
    } else if (header_.bits == 24) {
        decodeRows([](File row, std::size_t x) {
            return Color{row[3 * x], row[3 * x + 1], row[3 * x + 2], kOpaque};
        });
    } else {
        decodeBitFields();
    }
}

template <class PixelOfRow>
void Decoder::decodeRows(const PixelOfRow& pixel) {
    for (std::int32_t row = 0; row < header_.height; ++row) {
        const File bytes = file_.subspan(
            header_.pixels + static_cast<std::size_t>(row) * header_.rowSize, header_.rowSize);
        for (std::int32_t x = 0; x < header_.width; ++x) {
            put(x, fromTop(row), pixel(bytes, static_cast<std::size_t>(x)));
        }
    }
}

void Decoder::decodeIndexes() {
    const Table table = tableOf(file_, header_);
    const std::size_t bits = header_.bits;
    const std::size_t inByte = 8 / bits;
    const unsigned mask = (1U << bits) - 1;
    decodeRows([&](File row, std::size_t x) {
        const std::size_t shift = 8 - bits - x % inByte * bits;
        return table[row[x / inByte] >> shift & mask];
    });
}

void Decoder::decodeBitFields() {
    const Channel blue(header_.masks[0], 0);
    const Channel green(header_.masks[1], 0);
    const Channel red(header_.masks[2], 0);
    const Channel alpha(header_.masks[3], kOpaque);
    const bool isWide = header_.bits == 32;
    decodeRows([&](File row, std::size_t x) {
        const std::uint32_t pixel =
            isWide ? littleEndian32(row, 4 * x) : littleEndian16(row, 2 * x);
        return Color{blue.of(pixel), green.of(pixel), red.of(pixel), alpha.of(pixel)};
    });
}

/// Follows the codes of a run-length encoded file. What they place outside of the picture is not
/// drawn.
class Runs {
 public:
    Runs(File codes, const BitmapHeader& header) : codes_(codes), header_(header) {}

    /// Calls `put` with the place of each pixel, x and the number of the row, and its index.
    template <class Put>
    void follow(const Put& put);

 private:
    enum Escape : std::uint8_t { endOfRow, endOfPicture, move };

    std::uint8_t next() { return codes_[at_++]; }
    bool has(std::size_t bytes) const { return codes_.size() - at_ >= bytes; }
    /// Moves on in the row; there is nothing to find far beyond its end.
    void advance(std::int32_t pixels) { x_ = std::min(x_ + pixels, header_.width); }

    template <class Put>
    void run(std::int32_t count, std::uint8_t value, const Put& put);
    template <class Put>
    bool listed(std::int32_t count, const Put& put);
    template <class Put>
    bool escape(std::uint8_t code, const Put& put);

    File codes_;
    const BitmapHeader& header_;
    std::size_t at_ = 0;
    std::int32_t x_ = 0;
    std::int32_t row_ = 0;
};

template <class Put>
void Runs::follow(const Put& put) {
    while (has(2) && row_ < header_.height) {
        const std::uint8_t count = next();
        const std::uint8_t value = next();
        if (count > 0) {
            run(count, value, put);
        } else if (!escape(value, put)) {
            return;
        }
    }
}

/// One value again and again; of 4 bits each, two in turn.
template <class Put>
void Runs::run(std::int32_t count, std::uint8_t value, const Put& put) {
    const std::int32_t visible = std::min(count, header_.width - x_);
    for (std::int32_t i = 0; i < visible; ++i) {
        const unsigned nibble = i % 2 == 0 ? value >> 4U : value & 0xFU;
        put(x_ + i, row_, header_.bits == 8 ? value : static_cast<std::uint8_t>(nibble));
    }
    advance(count);
}

/// A list of values, filled up to a multiple of two bytes. Whether it is there.
template <class Put>
bool Runs::listed(std::int32_t count, const Put& put) {
    const std::size_t bytes = header_.bits == 8 ? static_cast<std::size_t>(count)
                                                : (static_cast<std::size_t>(count) + 1) / 2;
    if (!has(bytes)) return false;
    const File values = codes_.subspan(at_, bytes);
    at_ = std::min(at_ + bytes + bytes % 2, codes_.size());
    const std::int32_t visible = std::min(count, header_.width - x_);
    for (std::int32_t i = 0; i < visible; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const unsigned nibble =
            values[header_.bits == 8 ? place : place / 2] >> (i % 2 == 0 ? 4U : 0U);
        put(x_ + i, row_,
            header_.bits == 8 ? values[place] : static_cast<std::uint8_t>(nibble & 0xFU));
    }
    advance(count);
    return true;
}

/// Whether the codes go on.
template <class Put>
bool Runs::escape(std::uint8_t code, const Put& put) {
    switch (code) {
        case endOfRow:
            x_ = 0;
            ++row_;
            return true;
        case endOfPicture:
            return false;
        case move:
            if (!has(2)) return false;
            advance(next());
            row_ += next();
            return true;
        default:
            return listed(code, put);
    }
}

void Decoder::decodeRuns() {
    const Table table = tableOf(file_, header_);
    for (std::size_t at = 0; at < out_.bytes.size(); at += Pixels::kBytes) {
        std::ranges::copy(table[0], out_.bytes.begin() + static_cast<std::ptrdiff_t>(at));
    }
    const File codes = file_.subspan(header_.pixels, header_.pixelsEnd - header_.pixels);
    Runs(codes, header_).follow([&](std::int32_t x, std::int32_t row, std::uint8_t index) {
        put(x, fromTop(row), table[index]);
    });
}

}  // namespace

Pixels decodeBitmap(File file) {
    const BitmapHeader header = readBitmapHeader(file);
    Pixels pixels{header.width, header.height, {}};
    pixels.bytes.resize(pixels.offset(0, pixels.height));
    Decoder(file, header, pixels).decode();
    return pixels;
}

void requireBitmap(File file) {
    readBitmapHeader(file);
}

void ignoreUnusedAlpha(Pixels& pixels) {
    std::vector<std::uint8_t>& bytes = pixels.bytes;
    for (std::size_t at = 3; at < bytes.size(); at += Pixels::kBytes) {
        if (bytes[at] != 0) return;
    }
    for (std::size_t at = 3; at < bytes.size(); at += Pixels::kBytes) bytes[at] = kOpaque;
}

}  // namespace huebrush::base
