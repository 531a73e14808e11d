// SPDX-License-Identifier: MPL-2.0

#include "jet/file/Bytes.h"

#include <algorithm>
#include <bit>

namespace huebrush::jet {

namespace {

template <class Number>
Number little(ByteView bytes) {
    Number value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i) {
        value = static_cast<Number>(static_cast<Number>(value << 8U) | bytes[i - 1]);
    }
    return value;
}

std::uint32_t big(ByteView bytes) {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes) value = (value << 8U) | byte;
    return value;
}

void appendLittle(Bytes& out, std::uint64_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
        out.push_back(static_cast<std::uint8_t>(value >> (8U * i)));
    }
}

}  // namespace

std::uint16_t Reader::u16(std::size_t at) const {
    return little<std::uint16_t>(bytes(at, 2));
}
std::uint32_t Reader::u32(std::size_t at) const {
    return little<std::uint32_t>(bytes(at, 4));
}
std::uint64_t Reader::u64(std::size_t at) const {
    return little<std::uint64_t>(bytes(at, 8));
}
double Reader::f64(std::size_t at) const {
    return std::bit_cast<double>(u64(at));
}
float Reader::f32(std::size_t at) const {
    return std::bit_cast<float>(u32(at));
}
std::uint32_t Reader::u24Big(std::size_t at) const {
    return big(bytes(at, 3));
}
std::uint32_t Reader::u32Big(std::size_t at) const {
    return big(bytes(at, 4));
}

std::span<std::uint8_t> Writer::stretch(std::size_t at, std::size_t count) const {
    if (at > bytes_.size() || count > bytes_.size() - at) {
        throw Error(base::ErrorNumber::kInternal, "Zápis mimo stranu databáze.",
                    "something was to be written beyond the end of a page");
    }
    return bytes_.subspan(at, count);
}

void Writer::u16(std::size_t at, std::size_t value) const {
    const auto out = stretch(at, 2);
    out[0] = static_cast<std::uint8_t>(value);
    out[1] = static_cast<std::uint8_t>(value >> 8U);
}

void Writer::u32(std::size_t at, std::uint32_t value) const {
    const auto out = stretch(at, 4);
    for (unsigned i = 0; i < 4; ++i) out[i] = static_cast<std::uint8_t>(value >> (8U * i));
}

void Writer::u32Big(std::size_t at, std::uint32_t value) const {
    const auto out = stretch(at, 4);
    for (unsigned i = 0; i < 4; ++i) out[i] = static_cast<std::uint8_t>(value >> (24 - 8U * i));
}

void Writer::bytes(std::size_t at, ByteView values) const {
    std::copy(values.begin(), values.end(), stretch(at, values.size()).begin());
}

void append(Bytes& out, ByteView bytes) {
    out.insert(out.end(), bytes.begin(), bytes.end());
}
void append8(Bytes& out, std::size_t value) {
    appendLittle(out, value, 1);
}
void append16(Bytes& out, std::size_t value) {
    appendLittle(out, value, 2);
}
void append32(Bytes& out, std::uint32_t value) {
    appendLittle(out, value, 4);
}
void append64(Bytes& out, std::uint64_t value) {
    appendLittle(out, value, 8);
}
void appendBig(Bytes& out, std::uint64_t value, unsigned count) {
    for (unsigned i = count; i > 0; --i) {
        out.push_back(static_cast<std::uint8_t>(value >> (8U * (i - 1))));
    }
}

}  // namespace huebrush::jet
