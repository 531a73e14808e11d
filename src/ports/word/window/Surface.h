// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>

#include "ports/word/window/Accessible.h"
#include "ports/word/window/Site.h"
#include "ports/word/window/Window.h"
#include "view/Native.h"

namespace huebrush::word {

/// The system's window for the inside of a form or of a picture box.
class Surface final : public view::NativeSurface, public Window {
 public:
    Surface(std::shared_ptr<const Site> site, HWND parent, view::ControlReference control);
    ~Surface() override;

    void place(const view::Rectangle& place) override;
    void hide() override;
    void repaint() override;
    void setToolTip(const std::string& text) override;
    std::unique_ptr<view::NativeControl> makeControl(const forms::Control& control) override;
    std::unique_ptr<view::NativeSurface> makeSurface(const view::ControlReference& box) override;

    const view::ControlReference& control() const { return control_; }

 private:
    LRESULT answer(const Message& message) override;
    void passOnMouse(const Message& message);
    void followMouse(UINT number);
    LRESULT describe(const Message& message);
    void paint();
    void paintOn(HDC context);

    std::shared_ptr<const Site> site_;
    view::ControlReference control_;
    /// Made when a reader for the blind asks first.
    std::shared_ptr<SurfaceReading> reading_;
    view::Rectangle bounds_;
    bool visible_ = false;
    /// Whether the system has been asked to say when the mouse leaves.
    bool awaitsLeave_ = false;
};

}  // namespace huebrush::word
