// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "view/ControlPeer.h"
#include "view/Geometry.h"

namespace huebrush::view {

/// What the mouse did in a native window.
struct MouseInput {
    enum class Kind { press, release, move, leave };

    Kind kind = Kind::move;
    /// Whose window it is: a surface's, or the one that a native control shows.
    ControlReference control;
    /// In pixels of that window.
    Point at;
    /// 1 left, 2 right, 0 none.
    std::int16_t button = 0;
    std::int16_t shift = 0;
    /// Whether a press is the second one of a double click.
    bool twice = false;
};

}  // namespace huebrush::view
