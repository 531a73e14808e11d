// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/OfficeCanvas.h"

#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

/// The colour of graphics that draws nothing.
constexpr sal_Int32 kNothing = -1;

}  // namespace

void OfficeCanvas::rectangle(const view::Rectangle& place, Colour inside, Colour edge) {
    graphics_->setLineColor(edge.value_or(kNothing));
    graphics_->setFillColor(inside.value_or(kNothing));
    graphics_->drawRect(place.left, place.top, place.width, place.height);
}

void OfficeCanvas::line(const view::Point& from, const view::Point& to, std::int32_t colour) {
    graphics_->setLineColor(colour);
    graphics_->drawLine(from.x, from.y, to.x, to.y);
}

void OfficeCanvas::polygon(const std::vector<view::Point>& corners, std::int32_t colour) {
    const auto count = static_cast<sal_Int32>(corners.size());
    css::uno::Sequence<sal_Int32> x(count);
    css::uno::Sequence<sal_Int32> y(count);
    for (sal_Int32 at = 0; at < count; ++at) {
        x.getArray()[at] = corners[static_cast<std::size_t>(at)].x;
        y.getArray()[at] = corners[static_cast<std::size_t>(at)].y;
    }
    graphics_->setLineColor(colour);
    graphics_->setFillColor(colour);
    graphics_->drawPolygon(x, y);
}

void OfficeCanvas::text(const view::Point& at, const std::string& text, const forms::Font& font,
                        std::int32_t colour) {
    graphics_->selectFont(look_.theme.fontFor(font));
    graphics_->setTextColor(colour);
    graphics_->drawText(at.x, at.y, toOffice(text));
}

void OfficeCanvas::picture(const view::Rectangle& place, const base::Picture& picture) {
    const Pictures::Drawable drawable = look_.pictures.drawable(picture, device_);
    graphics_->draw(drawable.bitmap, 0, 0, drawable.size.Width, drawable.size.Height, place.left,
                    place.top, place.width, place.height);
}

view::Size OfficeCanvas::textSize(const std::string& text, const forms::Font& font) {
    const css::uno::Reference<css::awt::XFont> metrics = fontFor(font);
    const css::awt::SimpleFontMetric metric = metrics->getFontMetric();
    return {metrics->getStringWidth(toOffice(text)), metric.Ascent + metric.Descent};
}

std::int32_t OfficeCanvas::ascent(const forms::Font& font) {
    return fontFor(font)->getFontMetric().Ascent;
}

std::optional<view::Size> OfficeCanvas::pictureSize(const base::Picture& picture) {
    const Pictures::Drawable drawable = look_.pictures.drawable(picture, device_);
    if (!drawable.bitmap.is()) return std::nullopt;
    return view::Size{drawable.size.Width, drawable.size.Height};
}

css::uno::Reference<css::awt::XFont> OfficeCanvas::fontFor(const forms::Font& font) const {
    return device_->getFont(look_.theme.fontFor(font));
}

void paintWindow(const css::uno::Reference<css::awt::XWindowPeer>& window, const view::Size& size,
                 Look& look, const std::function<void(view::Canvas&)>& paint) {
    const css::uno::Reference<css::awt::XDevice> device(window, css::uno::UNO_QUERY_THROW);
    const css::uno::Reference<css::awt::XDevice> buffer =
        device->createDevice(size.width, size.height);
    OfficeCanvas canvas(device, buffer->createGraphics(), look);
    paint(canvas);
    device->createGraphics()->copy(buffer, 0, 0, size.width, size.height, 0, 0, size.width,
                                   size.height);
}

}  // namespace huebrush::libreoffice
