// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace huebrush::base {

/// Lengths travel in three units: dialogs are measured in twips, the object model in points,
/// documents on disk and in LibreOffice in 1/100 mm. A point is 20 twips, an inch 1440.
inline constexpr double kTwipsPerInch = 1440.0;
inline constexpr double kPointsPerInch = 72.0;
inline constexpr double kHundredthMillimetresPerInch = 2540.0;

constexpr double pointsToHundredthMillimetres(double points) {
    return points * kHundredthMillimetresPerInch / kPointsPerInch;
}

}  // namespace huebrush::base
