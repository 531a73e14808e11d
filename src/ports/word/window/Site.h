// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "forms/Control.h"
#include "ports/word/window/Look.h"
#include "ports/word/window/ToolTips.h"
#include "ports/word/window/Window.h"
#include "view/Geometry.h"
#include "view/MouseInput.h"

namespace huebrush::word {

/// What all windows inside a form's window share.
struct Site {
    Enter enter;
    /// Replaced when the screen's resolution or colours change.
    std::shared_ptr<Look> look;
    std::shared_ptr<ToolTips> tips;
    /// Draws a surface of a size.
    std::function<void(HDC, forms::Control&, const view::Size&)> paint;
    /// Is notified of what the mouse does in one of the windows.
    std::function<void(const view::MouseInput&)> mouse;
    /// The system has taken the mouse away while a button was down.
    std::function<void()> mouseLost;
    /// Between the controls' twips and the pixels of the windows.
    std::function<view::Scale()> scale;
    /// Runs what the user did soon, from the event loop.
    std::function<void(std::function<void()>)> post;
};

}  // namespace huebrush::word
