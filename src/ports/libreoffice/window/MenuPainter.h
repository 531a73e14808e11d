#pragma once

#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XGraphics.hpp>
#include <optional>

#include "forms/MenuChoice.h"
#include "ports/libreoffice/window/Theme.h"
#include "view/MenuLayout.h"

namespace huebrush::libreoffice {

/// The sizes of a menu, and what its lines look like. All places are pixels of the menu.
class MenuPainter {
 public:
    using Device = com::sun::star::uno::Reference<com::sun::star::awt::XDevice>;
    using Graphics = com::sun::star::uno::Reference<com::sun::star::awt::XGraphics>;

    /// Measures with the fonts of a device. `theme` and `choice` outlive it.
    MenuPainter(const Device& device, const Theme& theme, const view::Scale& scale,
                const forms::MenuChoice& choice);

    const view::Size& size() const { return layout_.size(); }
    /// The line that lies at a place; nothing for beside all.
    std::optional<std::size_t> lineAt(const view::Point& at) const { return layout_.lineAt(at); }
    void paint(const Graphics& graphics) const;

 private:
    view::MenuLayout layoutOf(const view::Scale& scale) const;
    std::int32_t widthOf(const rtl::OUString& text) const;
    void paintLine(const Graphics& graphics, std::size_t line) const;
    void paintTick(const Graphics& graphics, const view::Rectangle& place, sal_Int32 colour) const;
    void paintText(const Graphics& graphics, std::size_t line, sal_Int32 colour) const;

    Device device_;
    const Theme& theme_;
    const forms::MenuChoice& choice_;
    com::sun::star::awt::FontDescriptor font_;
    view::MenuLayout layout_;
};

}  // namespace huebrush::libreoffice
