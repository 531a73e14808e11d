#pragma once

#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XGraphics.hpp>

#include "forms/MenuChoice.h"
#include "ports/libreoffice/window/Geometry.h"
#include "ports/libreoffice/window/Theme.h"

namespace huebrush::libreoffice {

/// The sizes of a menu, and what its lines look like. All places are pixels of the menu.
class MenuPainter {
 public:
    using Device = com::sun::star::uno::Reference<com::sun::star::awt::XDevice>;
    using Graphics = com::sun::star::uno::Reference<com::sun::star::awt::XGraphics>;

    /// Measures with the fonts of a device. `theme` and `choice` outlive it.
    MenuPainter(const Device& device, const Theme& theme, const Scale& scale,
                const forms::MenuChoice& choice);

    com::sun::star::awt::Size size() const;
    /// The line that lies at a place; nothing for beside all.
    std::optional<std::size_t> lineAt(sal_Int32 x, sal_Int32 y) const;
    void paint(const Graphics& graphics) const;

 private:
    com::sun::star::awt::Rectangle placeOf(std::size_t line) const;
    sal_Int32 widthOf(const std::string& text) const;
    void paintLine(const Graphics& graphics, std::size_t line) const;
    void paintTick(const Graphics& graphics, const com::sun::star::awt::Rectangle& place,
                   sal_Int32 colour) const;
    void paintText(const Graphics& graphics, const forms::MenuEntry& entry,
                   const com::sun::star::awt::Rectangle& place, sal_Int32 colour) const;

    Device device_;
    const Theme& theme_;
    const forms::MenuChoice& choice_;
    com::sun::star::awt::FontDescriptor font_;
    /// The frame, what surrounds a text, a line with a text, and one between others.
    sal_Int32 edge_;
    sal_Int32 gap_;
    sal_Int32 lineHeight_;
    sal_Int32 separatorHeight_;
    sal_Int32 thickness_;
    com::sun::star::awt::Size size_{0, 0};
};

}  // namespace huebrush::libreoffice
