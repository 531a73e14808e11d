// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "jet/file/Error.h"

namespace huebrush::jet {

/// A number beyond the range of its column's type.
[[noreturn]] inline void throwOverflow() {
    throw Error(base::ErrorNumber::kOverflow, "Přetečení.", "a number is out of range");
}

}  // namespace huebrush::jet
