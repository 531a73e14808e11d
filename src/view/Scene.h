// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <vector>

#include "forms/Controls.h"
#include "view/Geometry.h"

namespace huebrush::view {

/// A control where it lies on a surface, and the part of its place that shows there, in twips of
/// the surface.
struct Placed {
    forms::Control* control = nullptr;
    Box place;
    Box visible;
};

/// Whether a control has a native window of its own to draw its inside on: a form, and a picture
/// box that is in no other. Everything else is drawn on one of these.
bool isSurface(const forms::Control& control);

/// Whether a control has a native one of its own (NativeKinds.h).
bool isNative(const forms::Control& control);

/// The controls inside `surface` that show in a view of this size, from the lowest to the
/// uppermost; of surfaces within it only their place.
std::vector<Placed> sceneOf(const forms::Control& surface, double width, double height);

/// Where a control lies on its surface, shown or not.
Box placeOnSurface(const forms::Control& control);

/// The bars that the wheel over a surface may scroll, usable or not: those beside it, and then
/// those further out.
std::vector<forms::VScrollBar*> barsAround(const forms::Control& surface);

/// The surface that a control is drawn on.
forms::Control& surfaceOf(forms::Control& control);

}  // namespace huebrush::view
