// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace huebrush::base {

/// The number itself when it is 0 or more, otherwise 0: for sizes and positions that a resize
/// computes, so that no control is ever given a negative one.
constexpr double NonNegative(const double& number) {
    return number >= 0 ? number : 0.0;
}

}  // namespace huebrush::base
