#include "ports/libreoffice/window/Painter.h"

#include <algorithm>
#include <com/sun/star/awt/XFont.hpp>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/UserControl.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

/// The colour of graphics that draws nothing.
constexpr sal_Int32 kNothing = -1;
/// How far disabled texts fade into their background.
constexpr double kFaded = 0.55;

/// A user control's canvas: its place on the surface.
class FaceCanvas final : public forms::Canvas {
 public:
    FaceCanvas(Painter& painter, const view::Box& place) : painter_(painter), place_(place) {}

    void Cls() override { painter_.fill(place_, painter_.theme().face, painter_.theme().shadow); }
    double TextWidth(const std::string& text, const forms::Font& font) override {
        return painter_.scale().toTwips(painter_.textSize(toOffice(text), font).Width);
    }
    double TextHeight(const std::string& text, const forms::Font& font) override {
        return painter_.scale().toTwips(painter_.textSize(toOffice(text), font).Height);
    }
    void Print(const std::string& text, double x, double y, const forms::Font& font,
               unsigned color) override {
        painter_.print(toOffice(text), place_.left + x, place_.top + y, font,
                       painter_.theme().colour(color));
    }

 private:
    Painter& painter_;
    view::Box place_;
};

}  // namespace

unsigned backgroundOf(const forms::Control& surface) {
    const auto* const box = dynamic_cast<const forms::PictureBox*>(&surface);
    return box == nullptr ? forms::SystemColor::kButtonFace : box->BackColor.get();
}

Painter::Painter(const Device& device, const Graphics& graphics, const Theme& theme,
                 const view::Scale& scale, Pictures& pictures)
    : device_(device), graphics_(graphics), theme_(theme), scale_(scale), pictures_(pictures) {}

void Painter::paint(forms::Control& surface, sal_Int32 width, sal_Int32 height) {
    background_ = backgroundOf(surface);
    graphics_->setLineColor(kNothing);
    graphics_->setFillColor(theme_.colour(background_));
    graphics_->drawRect(0, 0, width, height);
    for (const view::Placed& placed :
         view::sceneOf(surface, scale_.toTwips(width), scale_.toTwips(height))) {
        paintControl(placed);
    }
    const auto* const box = dynamic_cast<const forms::PictureBox*>(&surface);
    if (box != nullptr && box->BorderStyle != 0) {
        outline({0, 0, scale_.toTwips(width), scale_.toTwips(height)}, theme_.shadow);
    }
}

void Painter::paintControl(const view::Placed& placed) {
    forms::Control& control = *placed.control;
    if (auto* const face = dynamic_cast<forms::UserControl*>(&control)) {
        paintFace(*face, placed.place);
    } else if (const auto* const frame = dynamic_cast<const forms::Frame*>(&control)) {
        paintFrame(*frame, placed.place);
    } else if (const auto* const label = dynamic_cast<const forms::Label*>(&control)) {
        paintLabel(*label, placed.place);
    } else if (const auto* const image = dynamic_cast<const forms::Image*>(&control)) {
        paintImage(*image, placed.place);
    } else if (const auto* const line = dynamic_cast<const forms::Line*>(&control)) {
        paintLine(*line, placed.place);
    }
}

void Painter::paintFace(forms::UserControl& control, const view::Box& place) {
    FaceCanvas canvas(*this, place);
    control.paint(canvas);
}

void Painter::paintFrame(const forms::Frame& frame, const view::Box& place) {
    if (frame.BorderStyle == 0) return;
    const rtl::OUString caption = toOffice(frame.Caption.get());
    const double height = scale_.toTwips(textSize(caption, {}).Height);
    view::Box border = place;
    border.top += height / 2;
    border.height -= height / 2;
    outline(border, theme_.shadow);
    if (caption.isEmpty()) return;
    constexpr double kIndent = 120;
    constexpr double kGap = 60;
    const double width = scale_.toTwips(textSize(caption, {}).Width);
    const sal_Int32 background = theme_.colour(background_);
    fill({place.left + kIndent - kGap, place.top, width + 2 * kGap, height}, background,
         background);
    const sal_Int32 text = theme_.textOn(background_);
    print(caption, place.left + kIndent, place.top, {},
          frame.isUsable() ? text : mixed(text, background, kFaded));
}

void Painter::paintLabel(const forms::Label& label, const view::Box& place) {
    const double lineHeight = scale_.toTwips(textSize({}, {}).Height);
    double top = place.top;
    for (const rtl::OUString& line : linesOf(label, lineHeight)) {
        double left = place.left;
        if (label.Alignment != forms::Alignment::kLeft) {
            const double room = label.Width - scale_.toTwips(textSize(line, {}).Width);
            left += label.Alignment == forms::Alignment::kCentre ? room / 2 : room;
        }
        print(line, left, top, {}, theme_.textOn(background_));
        top += lineHeight;
    }
}

/// The label's text as lines that its width takes, where it has the height for several.
std::vector<rtl::OUString> Painter::linesOf(const forms::Label& label, double lineHeight) {
    const rtl::OUString caption = toOffice(label.Caption.get());
    if (label.Height < 2 * lineHeight) return {caption};
    std::vector<rtl::OUString> lines{{}};
    for (sal_Int32 at = 0; at >= 0;) {
        const rtl::OUString word = caption.getToken(0, ' ', at);
        rtl::OUString& line = lines.back();
        const rtl::OUString longer = line.isEmpty() ? word : line + " " + word;
        if (line.isEmpty() || scale_.toTwips(textSize(longer, {}).Width) <= label.Width) {
            line = longer;
        } else {
            lines.push_back(word);
        }
    }
    return lines;
}

void Painter::paintImage(const forms::Image& image, const view::Box& place) {
    const Pictures::Drawable picture = pictures_.drawable(image.Picture.get(), device_);
    const view::Rectangle room = scale_.toPixels(place);
    if (picture.bitmap.is() && picture.size.Width > 0 && picture.size.Height > 0) {
        const double fit = std::min(double(room.width) / picture.size.Width,
                                    double(room.height) / picture.size.Height);
        const auto width = static_cast<sal_Int32>(std::lround(picture.size.Width * fit));
        const auto height = static_cast<sal_Int32>(std::lround(picture.size.Height * fit));
        graphics_->draw(picture.bitmap, 0, 0, picture.size.Width, picture.size.Height,
                        room.left + (room.width - width) / 2, room.top + (room.height - height) / 2,
                        width, height);
    }
    if (image.BorderStyle != 0) outline(place, theme_.shadow);
}

void Painter::paintLine(const forms::Line& line, const view::Box& place) {
    graphics_->setLineColor(theme_.colour(line.BorderColor));
    const sal_Int32 left = scale_.toPixels(place.left);
    const sal_Int32 top = scale_.toPixels(place.top);
    graphics_->drawLine(left, top, scale_.toPixels(place.left + line.Width),
                        scale_.toPixels(place.top + line.Height));
}

void Painter::fill(const view::Box& box, sal_Int32 colour, sal_Int32 edge) {
    const view::Rectangle place = scale_.toPixels(box);
    graphics_->setLineColor(edge);
    graphics_->setFillColor(colour);
    graphics_->drawRect(place.left, place.top, place.width, place.height);
}

void Painter::outline(const view::Box& box, sal_Int32 edge) {
    fill(box, kNothing, edge);
}

void Painter::print(const rtl::OUString& text, double x, double y, const forms::Font& font,
                    sal_Int32 colour) {
    graphics_->selectFont(theme_.fontFor(font));
    graphics_->setTextColor(colour);
    graphics_->drawText(scale_.toPixels(x), scale_.toPixels(y), text);
}

css::awt::Size Painter::textSize(const rtl::OUString& text, const forms::Font& font) {
    const css::uno::Reference<css::awt::XFont> metrics = device_->getFont(theme_.fontFor(font));
    const css::awt::SimpleFontMetric metric = metrics->getFontMetric();
    return {metrics->getStringWidth(text), metric.Ascent + metric.Descent};
}

}  // namespace huebrush::libreoffice
