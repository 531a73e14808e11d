// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "jet/file/Error.h"

namespace huebrush::jet {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

/// Reads numbers out of a stretch of a page. Everything is little-endian but the *Big functions,
/// which serve index entries. What lies outside the stretch is damage, reported with its place.
class Reader {
 public:
    /// `origin` is the place of the first byte on its page.
    Reader(ByteView bytes, PageNumber page, std::size_t origin = 0)
        : bytes_(bytes), page_(page), origin_(origin) {}

    std::size_t size() const { return bytes_.size(); }
    PageNumber page() const { return page_; }
    std::size_t origin() const { return origin_; }
    ByteView all() const { return bytes_; }

    std::uint8_t u8(std::size_t at) const { return bytes(at, 1)[0]; }
    std::uint16_t u16(std::size_t at) const;
    std::uint32_t u32(std::size_t at) const;
    std::int32_t i32(std::size_t at) const { return static_cast<std::int32_t>(u32(at)); }
    std::uint64_t u64(std::size_t at) const;
    double f64(std::size_t at) const;
    float f32(std::size_t at) const;
    std::uint32_t u24Big(std::size_t at) const;
    std::uint32_t u32Big(std::size_t at) const;

    ByteView bytes(std::size_t at, std::size_t count) const {
        if (at > bytes_.size() || count > bytes_.size() - at) fail(at, rule::kWithinBytes);
        return bytes_.subspan(at, count);
    }
    Reader part(std::size_t at, std::size_t count) const {
        return {bytes(at, count), page_, origin_ + at};
    }
    Reader from(std::size_t at) const { return part(at, at > size() ? 0 : size() - at); }

    [[noreturn]] void fail(std::size_t at, const Rule& broken) const {
        throwDamage(page_, origin_ + at, broken);
    }
    void require(bool holds, std::size_t at, const Rule& broken) const {
        if (!holds) fail(at, broken);
    }

 private:
    ByteView bytes_;
    PageNumber page_;
    std::size_t origin_;
};

/// Writes numbers into a stretch of a page. A place outside it is an internal error.
class Writer {
 public:
    explicit Writer(std::span<std::uint8_t> bytes) : bytes_(bytes) {}

    void u8(std::size_t at, std::uint8_t value) const { stretch(at, 1)[0] = value; }
    void u16(std::size_t at, std::size_t value) const;
    void u32(std::size_t at, std::uint32_t value) const;
    void u32Big(std::size_t at, std::uint32_t value) const;
    void bytes(std::size_t at, ByteView values) const;

 private:
    std::span<std::uint8_t> stretch(std::size_t at, std::size_t count) const;
    std::span<std::uint8_t> bytes_;
};

/// Appends numbers and bytes to a growing buffer.
void append(Bytes& out, ByteView bytes);
void append8(Bytes& out, std::size_t value);
void append16(Bytes& out, std::size_t value);
void append32(Bytes& out, std::uint32_t value);
void append64(Bytes& out, std::uint64_t value);
/// The last `count` bytes of the number, the most significant one first.
void appendBig(Bytes& out, std::uint64_t value, unsigned count);

}  // namespace huebrush::jet
