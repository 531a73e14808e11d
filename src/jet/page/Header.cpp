// SPDX-License-Identifier: MPL-2.0

#include "jet/page/Header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <string_view>

#include "base/Text.h"

namespace huebrush::jet {

namespace {

using namespace HeaderLayout;
using base::text;

constexpr std::string_view kSignature = "Standard Jet DB";
constexpr std::string_view kNewerSignature = "Standard ACE DB";
constexpr std::size_t kSignatureAt = 4;
constexpr std::size_t kVersionAt = 0x14;
constexpr std::array<std::uint8_t, 4> kMaskKey{0xC7, 0xDA, 0x39, 0x6B};

bool hasText(const Page& page, std::size_t at, std::string_view wanted) {
    return std::equal(wanted.begin(), wanted.end(), page.begin() + static_cast<std::ptrdiff_t>(at),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

[[noreturn]] void refuse(std::int32_t number, const std::string& name, std::string_view czech,
                         std::string_view english) {
    throw Error(number, text("Databázi „", name, "“ nelze otevřít: ", czech, "."),
                text("cannot open \"", name, "\": ", english));
}

[[noreturn]] void refuseNewer(const std::string& name) {
    refuse(ErrorNumber::kNotSupported, name, "má novější formát než Access 2000",
           "its format is newer than that of Access 2000");
}

/// The password is masked once more, with the whole days of the date of creation.
bool hasPassword(const Reader& in) {
    const double created = in.f64(kCreated);
    std::uint32_t days = 0;
    if (std::isfinite(created) && std::abs(created) < 1e9) {
        days = static_cast<std::uint32_t>(static_cast<std::int32_t>(created));
    }
    for (std::size_t i = 0; i < kPasswordSize; i += 4) {
        if (in.u32(kPassword + i) != days) return true;
    }
    return false;
}

}  // namespace

void applyHeaderMask(std::span<std::uint8_t> region) {
    // The stream of the RC4 cipher.
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + kMaskKey[i % kMaskKey.size()]);
        std::swap(state[i], state[j]);
    }
    std::uint8_t i = 0;
    j = 0;
    for (std::uint8_t& byte : region) {
        ++i;
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        byte ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
}

Header readHeader(File& file, const std::string& name) {
    Page page{};
    const std::uint64_t size = file.size();
    file.read(0, std::span(page).first(
                     static_cast<std::size_t>(std::min<std::uint64_t>(size, kPageSize))));
    if (hasText(page, kSignatureAt, kNewerSignature)) refuseNewer(name);
    if (!hasText(page, kSignatureAt, kSignature)) {
        refuse(ErrorNumber::kNotADatabase, name, "není to databáze Accessu",
               "it is not an Access database");
    }
    if (page[kVersionAt] == 0) {
        refuse(ErrorNumber::kNotSupported, name, "má starší formát než Access 2000",
               "its format is older than that of Access 2000");
    }
    if (page[kVersionAt] != 1) refuseNewer(name);
    if (size < kPageSize) {
        refuse(ErrorNumber::kDamaged, name, "soubor není celý", "the file is truncated");
    }
    applyHeaderMask(std::span(page).subspan(kRegion, kRegionSize));
    const Reader in(page, 0);
    if (in.u32(kPageKey) != 0) {
        refuse(ErrorNumber::kNotSupported, name, "je zašifrovaná", "it is encrypted");
    }
    if (hasPassword(in)) {
        refuse(ErrorNumber::kPassword, name, "je chráněná heslem", "it is protected by a password");
    }
    return {RowId::of(in.u32(kFreeMap)), in.u32(kSystemTables), in.u32(kSystemTables + 4),
            in.u32(kSystemTables + 8), in.u32(kSystemTables + 12)};
}

}  // namespace huebrush::jet
