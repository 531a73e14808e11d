// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include "ports/word/window/Look.h"
#include "view/Canvas.h"

namespace huebrush::word {

/// Draws on a device context of Windows.
class GdiCanvas final : public view::Canvas {
 public:
    /// Both outlive it.
    GdiCanvas(HDC context, Look& look) : context_(context), look_(look) {}

    void rectangle(const view::Rectangle& place, Colour inside, Colour edge) override;
    void line(const view::Point& from, const view::Point& to, std::int32_t colour) override;
    void polygon(const std::vector<view::Point>& corners, std::int32_t colour) override;
    void text(const view::Point& at, const std::string& text, const forms::Font& font,
              std::int32_t colour) override;
    void picture(const view::Rectangle& place, const base::Picture& picture) override;

    view::Size textSize(const std::string& text, const forms::Font& font) override;
    std::int32_t ascent(const forms::Font& font) override;
    std::optional<view::Size> pictureSize(const base::Picture& picture) override;

 private:
    TEXTMETRICW metricsOf(const forms::Font& font);

    HDC context_;
    Look& look_;
};

}  // namespace huebrush::word
