// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

namespace huebrush::host {

// The enumerations of the object model whose values carry meaning here, with the host's values.
// A host may answer with a value that is not listed; it is carried along and compared as it is.
// All other enumerations (gradient styles, textures, patterns …) travel as opaque integers.

enum class MsoTriState : std::int32_t { msoTrue = -1, msoFalse = 0, msoTriStateMixed = -2 };

enum class MsoFillType : std::int32_t {
    msoFillMixed = -2,
    msoFillSolid = 1,
    msoFillPatterned = 2,
    msoFillGradient = 3,
    msoFillTextured = 4,
    msoFillBackground = 5,
    msoFillPicture = 6,
};

enum class MsoGradientColorType : std::int32_t {
    msoGradientColorMixed = -2,
    msoGradientOneColor = 1,
    msoGradientTwoColors = 2,
    msoGradientPresetColors = 3,
};

enum class MsoTextureType : std::int32_t {
    msoTextureTypeMixed = -2,
    msoTexturePreset = 1,
    msoTextureUserDefined = 2,
};

enum class MsoShapeType : std::int32_t {
    msoAutoShape = 1,
    msoFreeform = 5,
    msoGroup = 6,
    msoFormControl = 8,
    msoLine = 9,
    msoTextBox = 17,
};

enum class MsoAutoShapeType : std::int32_t { msoShapeRectangle = 1 };

enum class WdCursorType : std::int32_t { wdCursorWait = 0, wdCursorNormal = 2 };

/// Any property whose members differ in a group or range reads as this value.
inline constexpr std::int32_t kMixed = -2;

}  // namespace huebrush::host
