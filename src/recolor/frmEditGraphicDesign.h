// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "recolor/ColorElement.h"

/// The recolour dialog's design; sizes and places are in twips.
namespace huebrush::recolor::design {
/// Followed by the number of selected rows where there are any.
constexpr const char* kRecolour = "Pře&barvit";
constexpr double kWidth = 8400;
constexpr double kHeight = 7365;
constexpr double kMargin = 210;
constexpr double kHeadingTop = 225;
constexpr double kHeadingHeight = 240;
constexpr double kListTop = 495;
constexpr double kListWidth = ColorElement::kWidth;
constexpr double kScrollBarWidth = 255;
/// What stays free under the list.
constexpr double kBelowList = 700;
/// The strip of controls under the list, and the progress box under that: their heights, and from
/// the bottom of the dialog to their tops.
constexpr double kStripHeight = 330;
constexpr double kStripFromBottom = 670;
constexpr double kProgressHeight = 300;
constexpr double kProgressFromBottom = 320;
constexpr double kRightLeft = 5190;
constexpr double kRightWidth = 2985;
constexpr double kButtonHeight = 420;
constexpr double kLogoWidth = 2090;
constexpr double kLogoHeight = 900;
constexpr double kLogoMargin = 200;
}  // namespace huebrush::recolor::design
