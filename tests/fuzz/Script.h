// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

#include "jet/file/Bytes.h"

namespace huebrush::fuzz {

/// What the fuzzer gives, read as a list of numbers. It never runs out: after its end there are
/// zeros.
class Script {
 public:
    explicit Script(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool atEnd() const { return bytes_.empty(); }
    std::uint8_t u8() {
        if (bytes_.empty()) return 0;
        const std::uint8_t value = bytes_[0];
        bytes_ = bytes_.subspan(1);
        return value;
    }
    std::uint16_t u16() {
        const std::uint8_t low = u8();
        return static_cast<std::uint16_t>(low | u8() << 8U);
    }
    std::int32_t i32() {
        const std::uint32_t low = u16();
        return static_cast<std::int32_t>(low | std::uint32_t{u16()} << 16U);
    }
    /// A number below `limit`. REQUIRES: limit > 0.
    std::size_t below(std::size_t limit) { return (limit > 256 ? u16() : u8()) % limit; }
    /// Bytes of any length up to 65535, of which only the first few are the fuzzer's own.
    jet::Bytes bytes(std::size_t length) {
        jet::Bytes out(length, 0);
        const std::size_t given = std::min<std::size_t>(length, 4);
        std::generate_n(out.begin(), given, [&] { return u8(); });
        return out;
    }
    /// A text of letters, Czech ones among them, or of any characters.
    std::string text(std::size_t length) {
        static constexpr const char* kPieces[] = {"a", "B",  "ř", "Ž", " ", "1",
                                                  "€", "文", "🎨", "-", "'", "\u00AD"};
        const std::uint8_t kind = u8();
        std::string out;
        for (std::size_t i = 0; i < length; ++i) {
            out += kPieces[(kind + i * (kind / 16U)) % std::size(kPieces)];
        }
        return out;
    }

 private:
    std::span<const std::uint8_t> bytes_;
};

}  // namespace huebrush::fuzz
