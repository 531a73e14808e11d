#include "ports/libreoffice/window/Theme.h"

#include <cmath>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>

#include "base/Color.h"
#include "base/Units.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr unsigned kSystemColourBit = 0x80000000U;

sal_Int32 channel(sal_Int32 colour, int shift) {
    return static_cast<sal_Int32>((static_cast<sal_uInt32>(colour) >> shift) & 0xFFU);
}

bool isDark(sal_Int32 colour) {
    constexpr sal_Int32 kHalf = 3 * 128;
    return channel(colour, 0) + channel(colour, 8) + channel(colour, 16) < kHalf;
}

sal_Int16 inPixels(sal_Int16 points, const css::uno::Reference<css::awt::XWindowPeer>& window) {
    constexpr double kPointsPerMetre = base::kPointsPerInch / 0.0254;
    const css::uno::Reference<css::awt::XDevice> device(window, css::uno::UNO_QUERY_THROW);
    const double pixelsPerPoint = device->getInfo().PixelPerMeterY / kPointsPerMetre;
    return static_cast<sal_Int16>(std::lround(points * pixelsPerPoint));
}

}  // namespace

sal_Int32 mixed(sal_Int32 first, sal_Int32 second, double share) {
    sal_Int32 result = 0;
    for (const int shift : {16, 8, 0}) {
        const double from = channel(first, shift);
        result = result * 0x100 + static_cast<sal_Int32>(
                                      std::lround(from + (channel(second, shift) - from) * share));
    }
    return result;
}

sal_Int32 Theme::colour(unsigned number) const {
    if ((number & kSystemColourBit) == 0)
        return base::swapRedAndBlue(static_cast<base::Rgb>(number));
    switch (number) {
        case forms::SystemColor::kWindowBackground:
            return field;
        case forms::SystemColor::kHighlight:
            return highlight;
        case forms::SystemColor::kHighlightText:
            return highlightText;
        case forms::SystemColor::kApplicationWorkspace:
            return workspace;
        case forms::SystemColor::kButtonShadow:
            return shadow;
        case forms::SystemColor::kButtonText:
            return buttonText;
        case forms::SystemColor::kInfoBackground:
            return info;
        default:
            return dialog;
    }
}

sal_Int32 Theme::textOn(unsigned background) const {
    if (background == forms::SystemColor::kWindowBackground) return fieldText;
    if (background == forms::SystemColor::kButtonFace) return dialogText;
    return isDark(colour(background)) ? 0xFFFFFF : 0;
}

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
        theme.dialog = style->getDialogColor();
        theme.dialogText = style->getDialogTextColor();
        theme.field = style->getFieldColor();
        theme.fieldText = style->getFieldTextColor();
        theme.face = style->getFaceColor();
        theme.buttonText = style->getButtonTextColor();
        theme.shadow = mixed(theme.dialog, theme.dialogText, 0.3);
        theme.highlight = style->getHighlightColor();
        theme.highlightText = style->getHighlightTextColor();
        theme.menu = style->getMenuColor();
        theme.menuText = style->getMenuTextColor();
        theme.workspace = mixed(theme.dialog, theme.dialogText, 0.5);
        theme.info = mixed(theme.dialog, theme.highlight, 0.15);
        theme.font = style->getLabelFont();
        theme.font.Height = inPixels(theme.font.Height, window);
    });
    return theme;
}

}  // namespace huebrush::libreoffice
