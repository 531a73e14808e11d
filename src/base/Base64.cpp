// SPDX-License-Identifier: MPL-2.0

#include "base/Base64.h"

#include <algorithm>

namespace huebrush::base {

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Three bytes as four digits of six bits; missing bytes count as 0.
void appendFour(std::span<const std::uint8_t> three, std::string& out) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 3; ++i) bits = bits << 8U | (i < three.size() ? three[i] : 0U);
    for (std::size_t i = 0; i < 4; ++i) {
        out += i > three.size() ? '=' : kAlphabet[bits >> (18U - 6U * i) & 63U];
    }
}

/// The bits of four digits, the last `missing` of which are absent. None for other
/// characters.
std::optional<std::uint32_t> bitsOf(std::string_view four, std::size_t missing) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t digit = i < 4 - missing ? kAlphabet.find(four[i]) : 0;
        if (digit == std::string_view::npos) return std::nullopt;
        bits = bits << 6U | static_cast<std::uint32_t>(digit);
    }
    return bits;
}

}  // namespace

std::string toBase64(std::span<const std::uint8_t> bytes) {
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (; !bytes.empty(); bytes = bytes.subspan(std::min<std::size_t>(3, bytes.size()))) {
        appendFour(bytes.first(std::min<std::size_t>(3, bytes.size())), out);
    }
    return out;
}

std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    std::vector<std::uint8_t> out;
    out.reserve(text.size() / 4 * 3);
    for (; !text.empty(); text.remove_prefix(4)) {
        const bool isLast = text.size() == 4;
        const std::size_t missing =
            !isLast || text[3] != '=' ? 0 : static_cast<std::size_t>(text[2] == '=' ? 2 : 1);
        const auto bits = bitsOf(text.substr(0, 4), missing);
        // The bits of an absent byte are 0.
        if (!bits || (*bits & ((1U << (8U * missing)) - 1U)) != 0) return std::nullopt;
        for (std::size_t i = 0; i < 3 - missing; ++i) {
            out.push_back(static_cast<std::uint8_t>(*bits >> (16U - 8U * i)));
        }
    }
    return out;
}

}  // namespace huebrush::base
