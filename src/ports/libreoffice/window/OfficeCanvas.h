// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XFont.hpp>
#include <com/sun/star/awt/XGraphics.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <functional>

#include "ports/libreoffice/window/Pictures.h"
#include "ports/libreoffice/window/Theme.h"
#include "view/Canvas.h"

namespace huebrush::libreoffice {

/// What all windows of a form are drawn with.
struct Look {
    explicit Look(const ContextReference& context) : pictures(context) {}

    Theme theme;
    Pictures pictures;
};

/// Draws with the office's toolkit. The office's exceptions pass to the caller.
class OfficeCanvas final : public view::Canvas {
 public:
    using Device = com::sun::star::uno::Reference<com::sun::star::awt::XDevice>;
    using Graphics = com::sun::star::uno::Reference<com::sun::star::awt::XGraphics>;

    /// Without graphics it only measures, with the fonts of the device. `look`
    /// outlives it.
    OfficeCanvas(const Device& device, const Graphics& graphics, Look& look)
        : device_(device), graphics_(graphics), look_(look) {}

    void rectangle(const view::Rectangle& place, Colour inside, Colour edge) override;
    void line(const view::Point& from, const view::Point& to, std::int32_t colour) override;
    void polygon(const std::vector<view::Point>& corners, std::int32_t colour) override;
    void text(const view::Point& at, const std::string& text, const forms::Font& font,
              std::int32_t colour) override;
    void picture(const view::Rectangle& place, const base::Picture& picture) override;

    view::Size textSize(const std::string& text, const forms::Font& font) override;
    std::int32_t ascent(const forms::Font& font) override;
    std::optional<view::Size> pictureSize(const base::Picture& picture) override;

 private:
    com::sun::star::uno::Reference<com::sun::star::awt::XFont> fontFor(
        const forms::Font& font) const;

    Device device_;
    Graphics graphics_;
    Look& look_;
};

/// Draws the whole of a window of that size, on a canvas that then shows all at once.
void paintWindow(const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& window,
                 const view::Size& size, Look& look,
                 const std::function<void(view::Canvas&)>& paint);

}  // namespace huebrush::libreoffice
