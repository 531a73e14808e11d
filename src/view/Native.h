// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "forms/Control.h"
#include "view/ControlPeer.h"
#include "view/Geometry.h"

namespace huebrush::view {

/// A control of a toolkit that shows a control of a form and passes on what the user does with it.
/// It may show another one of the same kind later.
class NativeControl {
 public:
    NativeControl() = default;
    NativeControl(const NativeControl&) = delete;
    NativeControl& operator=(const NativeControl&) = delete;
    virtual ~NativeControl() = default;

    /// Whether this could show the control.
    virtual bool fits(const forms::Control& control) const = 0;
    /// Shows the control as it is now, at a place of the surface.
    virtual void show(const ControlReference& control, const Rectangle& place) = 0;
    virtual void hide() = 0;
    virtual bool hasFocus() const = 0;
    virtual void takeFocus() = 0;
    /// Gives the control what the user has changed without a word of the toolkit: where the caret
    /// is.
    virtual void collect() = 0;
};

/// A toolkit's window for the inside of a form or of a picture box: what has no native control is
/// drawn on it, and native controls lie on it. Hidden at first.
class NativeSurface {
 public:
    NativeSurface() = default;
    NativeSurface(const NativeSurface&) = delete;
    NativeSurface& operator=(const NativeSurface&) = delete;
    virtual ~NativeSurface() = default;

    /// Shows it at a place of the window around it.
    virtual void place(const Rectangle& place) = 0;
    virtual void hide() = 0;
    /// Has it redrawn soon.
    virtual void repaint() = 0;
    /// The tool tip that the mouse brings up where it rests on the surface; empty for none.
    virtual void setToolTip(const std::string& text) = 0;

    /// A native control on it for controls like this one, hidden.
    virtual std::unique_ptr<NativeControl> makeControl(const forms::Control& control) = 0;
    /// A surface on it for a picture box.
    virtual std::unique_ptr<NativeSurface> makeSurface(const ControlReference& box) = 0;
};

/// What a form's view needs of the toolkit's window around it.
class NativeFrame {
 public:
    NativeFrame() = default;
    NativeFrame(const NativeFrame&) = delete;
    NativeFrame& operator=(const NativeFrame&) = delete;
    virtual ~NativeFrame() = default;

    virtual void setCaption(const std::string& caption) = 0;
    /// The size of the inside.
    virtual void setSize(const Size& size) = 0;
    /// Whether the pointer shows that the user has to wait.
    virtual void setWaitPointer(bool waits) = 0;
    /// Whether the user's keys go to this window.
    virtual bool isActive() const = 0;
    /// The surface of the form itself.
    virtual std::unique_ptr<NativeSurface> makeSurface(const ControlReference& form) = 0;

    /// Arranges one call of FormView::takeTurn from the event loop.
    virtual void askForTurn() = 0;
    /// Runs what the user did as a handler.
    virtual void runAction(const std::function<void()>& action) = 0;
    /// Calls `work` from the event loop again and again for as long as what it returns lives.
    virtual std::shared_ptr<void> repeat(std::chrono::milliseconds interval,
                                         std::function<void()> work) = 0;
};

}  // namespace huebrush::view
