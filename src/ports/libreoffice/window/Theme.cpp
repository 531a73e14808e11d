// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/Theme.h"

#include <cmath>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>

#include "base/Units.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

sal_Int16 inPixels(sal_Int16 points, const css::uno::Reference<css::awt::XWindowPeer>& window) {
    constexpr double kPointsPerMetre = base::kPointsPerInch / 0.0254;
    const css::uno::Reference<css::awt::XDevice> device(window, css::uno::UNO_QUERY_THROW);
    const double pixelsPerPoint = device->getInfo().PixelPerMeterY / kPointsPerMetre;
    return static_cast<sal_Int16>(std::lround(points * pixelsPerPoint));
}

}  // namespace

css::awt::FontDescriptor Theme::fontFor(const forms::Font& wanted) const {
    const double common = forms::Font{}.Size;
    css::awt::FontDescriptor descriptor = font;
    descriptor.Height = static_cast<sal_Int16>(std::lround(font.Height * wanted.Size / common));
    if (wanted.Bold) descriptor.Weight = css::awt::FontWeight::BOLD;
    return descriptor;
}

Theme themeOf(const css::uno::Reference<css::awt::XWindowPeer>& window) {
    Theme theme;
    ignoringOffice([&] {
        const css::uno::Reference<css::awt::XStyleSettingsSupplier> supplier(
            window, css::uno::UNO_QUERY_THROW);
        const css::uno::Reference<css::awt::XStyleSettings> style = supplier->getStyleSettings();
        view::Theme& colours = theme.colours;
        colours.dialog = style->getDialogColor();
        colours.dialogText = style->getDialogTextColor();
        colours.field = style->getFieldColor();
        colours.fieldText = style->getFieldTextColor();
        colours.face = style->getFaceColor();
        colours.buttonText = style->getButtonTextColor();
        colours.shadow = view::mixed(colours.dialog, colours.dialogText, 0.3);
        colours.highlight = style->getHighlightColor();
        colours.highlightText = style->getHighlightTextColor();
        colours.menu = style->getMenuColor();
        colours.menuText = style->getMenuTextColor();
        colours.workspace = view::mixed(colours.dialog, colours.dialogText, 0.5);
        colours.info = view::mixed(colours.dialog, colours.highlight, 0.15);
        theme.font = style->getLabelFont();
        theme.font.Height = inPixels(theme.font.Height, window);
    });
    return theme;
}

}  // namespace huebrush::libreoffice
