// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "view/Canvas.h"
#include "view/Scene.h"
#include "view/Theme.h"

namespace huebrush::forms {
class Frame;
class Image;
class Label;
class Line;
class PictureBox;
class UserControl;
}  // namespace huebrush::forms

namespace huebrush::view {

/// The number of the colour that a surface has where nothing lies on it.
unsigned backgroundOf(const forms::Control& surface);

/// The number of the colour that lies under a control.
unsigned backgroundUnder(const forms::Control& control);

/// Draws on a surface what has no native control there: labels, images, lines, frames, picture
/// boxes that are no surfaces themselves, and the faces of user controls.
class Painter {
 public:
    /// All outlive it.
    Painter(Canvas& canvas, const Theme& theme, const Scale& scale)
        : canvas_(canvas), theme_(theme), scale_(scale) {}

    /// Draws a surface of that size and all that shows on it.
    void paint(forms::Control& surface, const Size& size);

 private:
    class Face;

    void paintControl(const Placed& placed);
    void paintBox(const forms::PictureBox& box, const Box& place);
    void paintFrame(const forms::Frame& frame, const Box& place);
    void paintLabel(const forms::Label& label, const Box& place);
    std::vector<std::string> linesOf(const forms::Label& label, double lineHeight);
    void paintImage(const forms::Image& image, const Box& place);
    void paintPicture(const base::Picture& picture, const Box& place);
    void paintLine(const forms::Line& line, const Box& place);
    void outline(const Box& box);
    /// In twips of the surface.
    void print(const std::string& text, double x, double y, const forms::Font& font,
               std::int32_t colour);
    double textWidth(const std::string& text, const forms::Font& font = {});
    double textHeight(const std::string& text, const forms::Font& font = {});

    Canvas& canvas_;
    const Theme& theme_;
    const Scale& scale_;
};

}  // namespace huebrush::view
