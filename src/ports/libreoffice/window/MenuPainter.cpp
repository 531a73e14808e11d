#include "ports/libreoffice/window/MenuPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <com/sun/star/awt/XFont.hpp>

#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr sal_Int32 kNothing = -1;
/// How far disabled lines, and the lines between others, fade into the background.
constexpr double kFaded = 0.55;
constexpr double kFaintLine = 0.75;

void drawRect(const MenuPainter::Graphics& graphics, const view::Rectangle& place) {
    graphics->drawRect(place.left, place.top, place.width, place.height);
}

}  // namespace

MenuPainter::MenuPainter(const Device& device, const Theme& theme, const view::Scale& scale,
                         const forms::MenuChoice& choice)
    : device_(device),
      theme_(theme),
      choice_(choice),
      font_(theme.fontFor({})),
      layout_(layoutOf(scale)) {}

view::MenuLayout MenuPainter::layoutOf(const view::Scale& scale) const {
    std::int32_t widest = 0;
    for (const forms::MenuEntry& entry : choice_.entries()) {
        widest = std::max(widest, widthOf(toOffice(entry.text)));
    }
    const css::awt::SimpleFontMetric metric = device_->getFont(font_)->getFontMetric();
    return {choice_.entries(), scale, widest, metric.Ascent + metric.Descent};
}

std::int32_t MenuPainter::widthOf(const rtl::OUString& text) const {
    return device_->getFont(font_)->getStringWidth(text);
}

void MenuPainter::paint(const Graphics& graphics) const {
    graphics->setLineColor(mixed(theme_.menuText, theme_.menu, kFaded));
    graphics->setFillColor(theme_.menu);
    drawRect(graphics, {0, 0, size().width, size().height});
    graphics->selectFont(font_);
    for (std::size_t line = 0; line < choice_.entries().size(); ++line) paintLine(graphics, line);
}

void MenuPainter::paintLine(const Graphics& graphics, std::size_t line) const {
    const forms::MenuEntry& entry = choice_.entries()[line];
    graphics->setLineColor(kNothing);
    if (entry.separator) {
        graphics->setFillColor(mixed(theme_.menuText, theme_.menu, kFaintLine));
        drawRect(graphics, layout_.ruleOf(line));
        return;
    }
    sal_Int32 text = entry.enabled ? theme_.menuText : mixed(theme_.menuText, theme_.menu, kFaded);
    if (choice_.highlighted() == line) {
        graphics->setFillColor(theme_.highlight);
        drawRect(graphics, layout_.placeOf(line));
        text = theme_.highlightText;
    }
    if (entry.checked) paintTick(graphics, layout_.tickOf(line), text);
    paintText(graphics, line, text);
}

void MenuPainter::paintTick(const Graphics& graphics, const view::Rectangle& place,
                            sal_Int32 colour) const {
    /// The corners, as shares of the square.
    constexpr std::array<double, 6> kX = {0.28, 0.44, 0.72, 0.78, 0.44, 0.22};
    constexpr std::array<double, 6> kY = {0.48, 0.62, 0.26, 0.32, 0.76, 0.54};
    const auto along = [&](std::int32_t begin, const std::array<double, 6>& shares) {
        css::uno::Sequence<sal_Int32> places(static_cast<sal_Int32>(shares.size()));
        std::ranges::transform(shares, places.getArray(), [&](double share) {
            return begin + static_cast<sal_Int32>(std::lround(place.width * share));
        });
        return places;
    };
    graphics->setLineColor(colour);
    graphics->setFillColor(colour);
    graphics->drawPolygon(along(place.left, kX), along(place.top, kY));
}

void MenuPainter::paintText(const Graphics& graphics, std::size_t line, sal_Int32 colour) const {
    const forms::MenuEntry& entry = choice_.entries()[line];
    const view::Point at = layout_.textOf(line);
    const rtl::OUString text = toOffice(entry.text);
    graphics->setTextColor(colour);
    graphics->drawText(at.x, at.y, text);
    if (!entry.key) return;
    const sal_Int32 before = toOffice(entry.beforeKey()).getLength();
    const std::int32_t left = widthOf(text.copy(0, before));
    const std::int32_t right = widthOf(text.copy(0, before + 1));
    const sal_Int32 ascent = device_->getFont(font_)->getFontMetric().Ascent;
    graphics->setLineColor(kNothing);
    graphics->setFillColor(colour);
    drawRect(graphics,
             {at.x + left, at.y + ascent + layout_.thickness(), right - left, layout_.thickness()});
}

}  // namespace huebrush::libreoffice
