// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "ports/word/window/Site.h"
#include "view/ControlPeer.h"
#include "view/Geometry.h"

namespace huebrush::word {

/// What readers for the blind can ask of a surface: what is painted on it and has no window of its
/// own, and where the windows on it are. Readers hold on to it beyond the surface's end.
class SurfaceReading {
 public:
    /// A part of the surface, or the surface itself, by its number.
    struct Part {
        LONG number = 0;
        forms::Control* control = nullptr;
        /// In pixels of the surface.
        view::Rectangle place;
        /// Whether any of it can be seen.
        bool shown = false;
    };

    SurfaceReading(std::shared_ptr<const Site> site, HWND window, view::ControlReference control)
        : site_(std::move(site)), window_(window), control_(std::move(control)) {}

    /// The surface ends, and everything here with it.
    void end() { window_ = nullptr; }
    bool hasEnded() const { return window_ == nullptr || control_->control == nullptr; }

    // Of a surface that has not ended.

    const Site& site() const { return *site_; }
    HWND window() const { return window_; }
    forms::Control& surface() const { return *control_->control; }
    /// What shows now, from the lowest to the uppermost.
    std::vector<Part> parts();
    /// The surface itself (0) or any part that has been listed, shown or not; nothing for one that
    /// has ended.
    std::optional<Part> find(LONG number) const;
    /// The window that shows a part by itself; null for one that is painted.
    HWND windowOf(const Part& part) const;

 private:
    LONG numberOf(const forms::Control& control);

    std::shared_ptr<const Site> site_;
    HWND window_;
    view::ControlReference control_;
    /// A number stays with its control for as long as both live, however the list is scrolled.
    std::vector<std::pair<LONG, view::ControlReference>> numbers_;
    LONG lastNumber_ = 0;
};

/// The answer to WM_GETOBJECT, whose first parameter this is, for the inside of a surface. An error
/// of the forms runtime (7) where there is no memory for it.
LRESULT accessibleResult(std::shared_ptr<SurfaceReading> reading, WPARAM asked);

}  // namespace huebrush::word
