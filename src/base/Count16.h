// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "base/Error.h"

namespace huebrush::base {

/// A 16-bit signed counter of shapes or rows. Passing 32767 is the overflow error (number 6), as
/// in the object model, whose own counts are 16 bits wide.
class Count16 {
 public:
    constexpr Count16() = default;
    constexpr Count16(std::int16_t value) : value_(value) {}  // NOLINT: a counter is a number
    static constexpr Count16 of(std::size_t count) {
        if (count > kLargest) throwCountOverflow();
        return {static_cast<std::int16_t>(count)};
    }

    constexpr operator std::int16_t() const { return value_; }  // NOLINT: as above

    constexpr Count16& operator++() {
        if (value_ == kLargest) throwCountOverflow();
        ++value_;
        return *this;
    }
    constexpr Count16& operator--() {
        if (value_ == std::numeric_limits<std::int16_t>::min()) throwCountOverflow();
        --value_;
        return *this;
    }

    static constexpr std::int16_t kLargest = std::numeric_limits<std::int16_t>::max();

 private:
    std::int16_t value_ = 0;
};

}  // namespace huebrush::base
