// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <compare>
#include <cstdint>

#include "jet/file/Error.h"

namespace huebrush::jet {

/// Where a row is: its page and its place in the page's slot table. A row keeps both for life.
struct RowId {
    PageNumber page = 0;
    std::uint8_t slot = 0;

    static RowId of(std::uint32_t pointer) {
        return {pointer >> 8U, static_cast<std::uint8_t>(pointer)};
    }
    std::uint32_t pointer() const { return (page << 8U) | slot; }
    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy mistakes the 0 that the operator returns
    friend auto operator<=>(const RowId&, const RowId&) = default;
};

}  // namespace huebrush::jet
