// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "forms/Controls.h"

/// What the designs of the dialogs of palettes share; sizes and places are in twips.
namespace huebrush::palette::design {

constexpr double kMargin = 210;
constexpr double kGap = 150;
constexpr double kLabelHeight = 240;
/// The tallest toolkit draws fields 34 pixels high, whatever their height is: over what is near
/// them.
constexpr double kFieldHeight = 510;
constexpr double kButtonHeight = 420;
constexpr double kButtonWidth = 1500;
/// The row with the file at the top: its label, and its field with the buttons beside it.
constexpr double kFileLabelTop = 195;
constexpr double kFileTop = 450;
/// The labels and tops of what lies below the row with the file.
constexpr double kLabelTop = 1080;
constexpr double kTop = 1335;

/// The number of the component's icon for the lower right corner.
constexpr std::int32_t kHornIcon = 402;

template <class Captioned>
void setUp(Captioned& control, const char* caption, const char* toolTip = "") {
    control.Caption = std::string(caption);
    control.ToolTipText = std::string(toolTip);
}

/// Places a button of the row with the file beside its field.
inline void placeFileButton(forms::CommandButton& button, double left) {
    button.Move(left, kFileTop - (kButtonHeight - kFieldHeight) / 2, kButtonWidth, kButtonHeight);
}

}  // namespace huebrush::palette::design
