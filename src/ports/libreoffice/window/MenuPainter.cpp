#include "ports/libreoffice/window/MenuPainter.h"

#include <algorithm>
#include <array>
#include <com/sun/star/awt/XFont.hpp>

#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr sal_Int32 kNothing = -1;
/// How far disabled lines, and the lines between others, fade into the background.
constexpr double kFaded = 0.55;
constexpr double kFaintLine = 0.75;
// In twips.
constexpr double kThickness = 15;
constexpr double kEdge = 45;
constexpr double kGap = 75;
constexpr double kSeparatorHeight = 120;

sal_Int32 textHeight(const MenuPainter::Device& device, const css::awt::FontDescriptor& font) {
    const css::awt::SimpleFontMetric metric = device->getFont(font)->getFontMetric();
    return metric.Ascent + metric.Descent;
}

}  // namespace

MenuPainter::MenuPainter(const Device& device, const Theme& theme, const Scale& scale,
                         const forms::MenuChoice& choice)
    : device_(device),
      theme_(theme),
      choice_(choice),
      font_(theme.fontFor({})),
      edge_(scale.toPixels(kEdge)),
      gap_(scale.toPixels(kGap)),
      lineHeight_(textHeight(device, font_) + 2 * gap_),
      separatorHeight_(scale.toPixels(kSeparatorHeight)),
      thickness_(scale.toPixels(kThickness)) {
    sal_Int32 text = 0;
    for (const forms::MenuEntry& entry : choice_.entries()) {
        text = std::max(text, widthOf(entry.text));
        size_.Height += entry.separator ? separatorHeight_ : lineHeight_;
    }
    // Before the text is the place of the tick, and behind it as much again.
    size_.Width = text + 2 * (edge_ + lineHeight_);
    size_.Height += 2 * edge_;
}

css::awt::Size MenuPainter::size() const {
    return size_;
}

sal_Int32 MenuPainter::widthOf(const std::string& text) const {
    return device_->getFont(font_)->getStringWidth(toOffice(text));
}

css::awt::Rectangle MenuPainter::placeOf(std::size_t line) const {
    sal_Int32 top = edge_;
    const auto heightOf = [&](std::size_t at) {
        return choice_.entries()[at].separator ? separatorHeight_ : lineHeight_;
    };
    for (std::size_t above = 0; above < line; ++above) top += heightOf(above);
    return {edge_, top, size_.Width - 2 * edge_, heightOf(line)};
}

std::optional<std::size_t> MenuPainter::lineAt(sal_Int32 x, sal_Int32 y) const {
    for (std::size_t line = 0; line < choice_.entries().size(); ++line) {
        const css::awt::Rectangle place = placeOf(line);
        if (x >= place.X && x < place.X + place.Width && y >= place.Y &&
            y < place.Y + place.Height) {
            return line;
        }
    }
    return std::nullopt;
}

void MenuPainter::paint(const Graphics& graphics) const {
    graphics->setLineColor(mixed(theme_.menuText, theme_.menu, kFaded));
    graphics->setFillColor(theme_.menu);
    graphics->drawRect(0, 0, size_.Width, size_.Height);
    graphics->selectFont(font_);
    for (std::size_t line = 0; line < choice_.entries().size(); ++line) paintLine(graphics, line);
}

void MenuPainter::paintLine(const Graphics& graphics, std::size_t line) const {
    const forms::MenuEntry& entry = choice_.entries()[line];
    css::awt::Rectangle place = placeOf(line);
    graphics->setLineColor(kNothing);
    if (entry.separator) {
        graphics->setFillColor(mixed(theme_.menuText, theme_.menu, kFaintLine));
        graphics->drawRect(place.X + gap_, place.Y + (place.Height - thickness_) / 2,
                           place.Width - 2 * gap_, thickness_);
        return;
    }
    sal_Int32 text = entry.enabled ? theme_.menuText : mixed(theme_.menuText, theme_.menu, kFaded);
    if (choice_.highlighted() == line) {
        graphics->setFillColor(theme_.highlight);
        graphics->drawRect(place.X, place.Y, place.Width, place.Height);
        text = theme_.highlightText;
    }
    if (entry.checked) paintTick(graphics, place, text);
    place.X += lineHeight_;
    place.Y += gap_;
    paintText(graphics, entry, place, text);
}

/// In the square before the text.
void MenuPainter::paintTick(const Graphics& graphics, const css::awt::Rectangle& place,
                            sal_Int32 colour) const {
    /// The corners, as shares of the square.
    constexpr std::array<double, 6> kX = {0.28, 0.44, 0.72, 0.78, 0.44, 0.22};
    constexpr std::array<double, 6> kY = {0.48, 0.62, 0.26, 0.32, 0.76, 0.54};
    const auto along = [&](sal_Int32 begin, const std::array<double, 6>& shares) {
        css::uno::Sequence<sal_Int32> places(static_cast<sal_Int32>(shares.size()));
        std::ranges::transform(shares, places.getArray(), [&](double share) {
            return begin + static_cast<sal_Int32>(std::lround(lineHeight_ * share));
        });
        return places;
    };
    graphics->setLineColor(colour);
    graphics->setFillColor(colour);
    graphics->drawPolygon(along(place.X, kX), along(place.Y, kY));
}

void MenuPainter::paintText(const Graphics& graphics, const forms::MenuEntry& entry,
                            const css::awt::Rectangle& place, sal_Int32 colour) const {
    graphics->setTextColor(colour);
    graphics->drawText(place.X, place.Y, toOffice(entry.text));
    if (!entry.key) return;
    const rtl::OUString text = toOffice(entry.text);
    const sal_Int32 before = toOffice(entry.beforeKey()).getLength();
    const css::uno::Reference<css::awt::XFont> font = device_->getFont(font_);
    const sal_Int32 left = font->getStringWidth(text.copy(0, before));
    const sal_Int32 right = font->getStringWidth(text.copy(0, before + 1));
    graphics->setLineColor(kNothing);
    graphics->setFillColor(colour);
    const sal_Int32 ascent = font->getFontMetric().Ascent;
    graphics->drawRect(place.X + left, place.Y + ascent + thickness_, right - left, thickness_);
}

}  // namespace huebrush::libreoffice
