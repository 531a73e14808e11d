// SPDX-License-Identifier: MPL-2.0

#include "view/Painter.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/UserControl.h"

namespace huebrush::view {

namespace {

/// The largest size with a picture's proportions that a place has room for, in its middle.
Rectangle fitted(const Size& picture, const Rectangle& room) {
    const double fit =
        std::min(double(room.width) / picture.width, double(room.height) / picture.height);
    const auto width = static_cast<std::int32_t>(std::lround(picture.width * fit));
    const auto height = static_cast<std::int32_t>(std::lround(picture.height * fit));
    return {room.left + (room.width - width) / 2, room.top + (room.height - height) / 2, width,
            height};
}

/// A native field of several lines has no edge of its own in some of the toolkit's themes.
bool hasPaintedEdge(const forms::Control& control) {
    const auto* const field = dynamic_cast<const forms::TextBox*>(&control);
    return field != nullptr && field->MultiLine;
}

}  // namespace

/// A user control's canvas: its place on the surface.
class Painter::Face final : public forms::Canvas {
 public:
    Face(Painter& painter, const Box& place) : painter_(painter), place_(place) {}

    void Cls() override {
        painter_.canvas_.rectangle(painter_.scale_.toPixels(place_), painter_.theme_.face,
                                   painter_.theme_.shadow);
    }
    double TextWidth(const std::string& text, const forms::Font& font) override {
        return painter_.textWidth(text, font);
    }
    double TextHeight(const std::string& text, const forms::Font& font) override {
        return painter_.textHeight(text, font);
    }
    void Print(const std::string& text, double x, double y, const forms::Font& font,
               unsigned color) override {
        painter_.print(text, place_.left + x, place_.top + y, font, painter_.theme_.colour(color));
    }

 private:
    Painter& painter_;
    Box place_;
};

unsigned backgroundOf(const forms::Control& surface) {
    const auto* const box = dynamic_cast<const forms::PictureBox*>(&surface);
    return box == nullptr ? forms::SystemColor::kButtonFace : box->BackColor.get();
}

unsigned backgroundUnder(const forms::Control& control) {
    for (const forms::Control* at = control.container(); at != nullptr; at = at->container()) {
        if (dynamic_cast<const forms::PictureBox*>(at) != nullptr) return backgroundOf(*at);
    }
    return forms::SystemColor::kButtonFace;
}

void Painter::paint(forms::Control& surface, const Size& size) {
    canvas_.rectangle({0, 0, size.width, size.height}, theme_.colour(backgroundOf(surface)), {});
    const Box whole{0, 0, scale_.toTwips(size.width), scale_.toTwips(size.height)};
    const auto* const box = dynamic_cast<const forms::PictureBox*>(&surface);
    if (box != nullptr) paintPicture(box->Picture, whole);
    for (const Placed& placed : sceneOf(surface, whole.width, whole.height)) paintControl(placed);
    if (box != nullptr && box->BorderStyle != 0) outline(whole);
}

void Painter::paintControl(const Placed& placed) {
    forms::Control& control = *placed.control;
    if (auto* const face = dynamic_cast<forms::UserControl*>(&control)) {
        Face canvas(*this, placed.place);
        face->paint(canvas);
    } else if (const auto* const frame = dynamic_cast<const forms::Frame*>(&control)) {
        paintFrame(*frame, placed.place);
    } else if (const auto* const label = dynamic_cast<const forms::Label*>(&control)) {
        paintLabel(*label, placed.place);
    } else if (const auto* const image = dynamic_cast<const forms::Image*>(&control)) {
        paintImage(*image, placed.place);
    } else if (const auto* const line = dynamic_cast<const forms::Line*>(&control)) {
        paintLine(*line, placed.place);
    } else if (const auto* const box = dynamic_cast<const forms::PictureBox*>(&control)) {
        if (!isSurface(control)) paintBox(*box, placed.place);
    } else if (hasPaintedEdge(control)) {
        outline(placed.place);
    }
}

void Painter::paintBox(const forms::PictureBox& box, const Box& place) {
    canvas_.rectangle(scale_.toPixels(place), theme_.colour(box.BackColor), {});
    paintPicture(box.Picture, place);
    if (box.BorderStyle != 0) outline(place);
}

void Painter::paintFrame(const forms::Frame& frame, const Box& place) {
    if (frame.BorderStyle == 0) return;
    const std::string& caption = frame.Caption.get();
    const double height = textHeight(caption);
    Box border = place;
    border.top += height / 2;
    border.height -= height / 2;
    outline(border);
    if (caption.empty()) return;
    constexpr double kIndent = 120;
    constexpr double kGap = 60;
    const unsigned under = backgroundUnder(frame);
    const std::int32_t background = theme_.colour(under);
    const Box gap{place.left + kIndent - kGap, place.top, textWidth(caption) + 2 * kGap, height};
    canvas_.rectangle(scale_.toPixels(gap), background, background);
    const std::int32_t text = theme_.textOn(under);
    print(caption, place.left + kIndent, place.top, {},
          frame.isUsable() ? text : disabledText(text, background));
}

void Painter::paintLabel(const forms::Label& label, const Box& place) {
    const double lineHeight = textHeight({});
    double top = place.top;
    for (const std::string& line : linesOf(label, lineHeight)) {
        double left = place.left;
        if (label.Alignment != forms::Alignment::kLeft) {
            const double room = label.Width - textWidth(line);
            left += label.Alignment == forms::Alignment::kCentre ? room / 2 : room;
        }
        print(line, left, top, {}, theme_.textOn(backgroundUnder(label)));
        top += lineHeight;
    }
}

/// The label's text broken into lines that fit its width, where it has the height for several.
std::vector<std::string> Painter::linesOf(const forms::Label& label, double lineHeight) {
    const std::string& caption = label.Caption.get();
    if (label.Height < 2 * lineHeight) return {caption};
    std::vector<std::string> lines{{}};
    for (std::size_t begin = 0; begin <= caption.size();) {
        const std::size_t end = std::min(caption.find(' ', begin), caption.size());
        const std::string word = caption.substr(begin, end - begin);
        std::string& line = lines.back();
        const std::string longer = line.empty() ? word : base::text(line, " ", word);
        if (line.empty() || textWidth(longer) <= label.Width) {
            line = longer;
        } else {
            lines.push_back(word);
        }
        begin = end + 1;
    }
    return lines;
}

void Painter::paintImage(const forms::Image& image, const Box& place) {
    paintPicture(image.Picture, place);
    if (image.BorderStyle != 0) outline(place);
}

void Painter::paintPicture(const base::Picture& picture, const Box& place) {
    if (picture.empty()) return;
    const std::optional<Size> size = canvas_.pictureSize(picture);
    if (!size || size->width <= 0 || size->height <= 0) return;
    canvas_.picture(fitted(*size, scale_.toPixels(place)), picture);
}

void Painter::paintLine(const forms::Line& line, const Box& place) {
    canvas_.line(
        {scale_.toPixels(place.left), scale_.toPixels(place.top)},
        {scale_.toPixels(place.left + line.Width), scale_.toPixels(place.top + line.Height)},
        theme_.colour(line.BorderColor));
}

void Painter::outline(const Box& box) {
    canvas_.rectangle(scale_.toPixels(box), {}, theme_.shadow);
}

void Painter::print(const std::string& text, double x, double y, const forms::Font& font,
                    std::int32_t colour) {
    canvas_.text({scale_.toPixels(x), scale_.toPixels(y)}, text, font, colour);
}

double Painter::textWidth(const std::string& text, const forms::Font& font) {
    return scale_.toTwips(canvas_.textSize(text, font).width);
}

double Painter::textHeight(const std::string& text, const forms::Font& font) {
    return scale_.toTwips(canvas_.textSize(text, font).height);
}

}  // namespace huebrush::view
