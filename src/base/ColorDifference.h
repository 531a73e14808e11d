// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Color.h"

namespace huebrush::base {

/// A colour in CIELAB: lightness from 0 to 100, and the axes from green to red and from blue to
/// yellow.
struct Lab {
    double lightness = 0;
    double a = 0;
    double b = 0;
};

/// The colour of a screen (sRGB, D65) in CIELAB, as an observer of 2° sees it.
Lab toLab(Rgb color);

/// The difference of two colours by CIEDE2000 (CIE 142-2001; all three weights 1): 0 for the same,
/// about 1 where an observer begins to see it, and about 100 between black and white.
double deltaE2000(const Lab& first, const Lab& second);
/// The same of two colours of a screen.
double deltaE2000(Rgb first, Rgb second);

}  // namespace huebrush::base
