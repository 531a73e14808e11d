// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/GdiCanvas.h"

#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

RECT toRect(const view::Rectangle& place) {
    return {place.left, place.top, place.left + place.width, place.top + place.height};
}

Pen makePen(std::int32_t colour) {
    return Pen(::CreatePen(PS_SOLID, 1, toSystem(colour)));
}

}  // namespace

void GdiCanvas::rectangle(const view::Rectangle& place, Colour inside, Colour edge) {
    const RECT bounds = toRect(place);
    if (inside) ::FillRect(context_, &bounds, look_.brush(*inside));
    if (edge) ::FrameRect(context_, &bounds, look_.brush(*edge));
}

void GdiCanvas::line(const view::Point& from, const view::Point& to, std::int32_t colour) {
    const Pen pen = makePen(colour);
    const Selected selected(context_, pen.get());
    ::MoveToEx(context_, from.x, from.y, nullptr);
    ::LineTo(context_, to.x, to.y);
    // A line ends before its last point.
    ::SetPixel(context_, to.x, to.y, toSystem(colour));
}

void GdiCanvas::polygon(const std::vector<view::Point>& corners, std::int32_t colour) {
    std::vector<POINT> points;
    for (const view::Point& each : corners) points.push_back({each.x, each.y});
    const Pen pen = makePen(colour);
    const Selected edge(context_, pen.get());
    const Selected inside(context_, look_.brush(colour));
    ::Polygon(context_, points.data(), static_cast<int>(points.size()));
}

void GdiCanvas::text(const view::Point& at, const std::string& text, const forms::Font& font,
                     std::int32_t colour) {
    const std::wstring wide = toWide(text);
    const Selected selected(context_, look_.font(font));
    ::SetBkMode(context_, TRANSPARENT);
    ::SetTextColor(context_, toSystem(colour));
    ::ExtTextOutW(context_, at.x, at.y, 0, nullptr, wide.c_str(), static_cast<UINT>(wide.size()),
                  nullptr);
}

void GdiCanvas::picture(const view::Rectangle& place, const base::Picture& picture) {
    look_.pictures.draw(context_, place, picture);
}

view::Size GdiCanvas::textSize(const std::string& text, const forms::Font& font) {
    const std::wstring wide = toWide(text);
    const Selected selected(context_, look_.font(font));
    SIZE size{};
    ::GetTextExtentPoint32W(context_, wide.c_str(), static_cast<int>(wide.size()), &size);
    return {static_cast<std::int32_t>(size.cx),
            static_cast<std::int32_t>(metricsOf(font).tmHeight)};
}

std::int32_t GdiCanvas::ascent(const forms::Font& font) {
    return static_cast<std::int32_t>(metricsOf(font).tmAscent);
}

std::optional<view::Size> GdiCanvas::pictureSize(const base::Picture& picture) {
    return look_.pictures.sizeOf(picture);
}

TEXTMETRICW GdiCanvas::metricsOf(const forms::Font& font) {
    const Selected selected(context_, look_.font(font));
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(context_, &metrics);
    return metrics;
}

}  // namespace huebrush::word
