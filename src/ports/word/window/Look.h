// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <utility>

#include "forms/Font.h"
#include "ports/word/graphics/Gdi.h"
#include "ports/word/window/Pictures.h"
#include "view/Theme.h"

namespace huebrush::word {

/// The resolution of the screen that a window is on, in dots per inch; without one that of the
/// system.
int resolutionOf(HWND window);

/// The colours of the user's desktop.
view::Theme systemTheme();

/// A colour as the system takes it.
COLORREF toSystem(std::int32_t colour);

/// What all windows of a form are drawn with.
class Look {
 public:
    explicit Look(int resolution) : resolution_(resolution) {}

    /// A font of the forms runtime on this screen.
    HFONT font(const forms::Font& wanted);
    /// A brush of one colour, as 0xRRGGBB.
    HBRUSH brush(std::int32_t colour);

    view::Theme theme = systemTheme();
    Pictures pictures;

 private:
    using FontKey = std::pair<std::string, std::pair<double, bool>>;

    int resolution_;
    std::map<FontKey, FontHandle> fonts_;
    std::map<std::int32_t, Brush> brushes_;
};

}  // namespace huebrush::word
