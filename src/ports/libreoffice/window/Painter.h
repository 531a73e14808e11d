#pragma once

#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XGraphics.hpp>
#include <vector>

#include "ports/libreoffice/window/Pictures.h"
#include "ports/libreoffice/window/Theme.h"
#include "view/Scene.h"

namespace huebrush::forms {
class Frame;
class Image;
class Label;
class Line;
class UserControl;
}  // namespace huebrush::forms

namespace huebrush::libreoffice {

/// The number of the colour that a surface has where nothing lies on it.
unsigned backgroundOf(const forms::Control& surface);

/// Draws on a surface what has no native window there: labels, images, lines, frames and the faces
/// of user controls.
class Painter {
 public:
    using Device = com::sun::star::uno::Reference<com::sun::star::awt::XDevice>;
    using Graphics = com::sun::star::uno::Reference<com::sun::star::awt::XGraphics>;

    Painter(const Device& device, const Graphics& graphics, const Theme& theme,
            const view::Scale& scale, Pictures& pictures);

    /// Draws a surface of a size in pixels and all that shows on it.
    void paint(forms::Control& surface, sal_Int32 width, sal_Int32 height);

    // For canvases, in twips of the surface.
    void fill(const view::Box& box, sal_Int32 colour, sal_Int32 edge);
    void print(const rtl::OUString& text, double x, double y, const forms::Font& font,
               sal_Int32 colour);
    com::sun::star::awt::Size textSize(const rtl::OUString& text, const forms::Font& font);
    const Theme& theme() const { return theme_; }
    const view::Scale& scale() const { return scale_; }

 private:
    void paintControl(const view::Placed& placed);
    void paintFrame(const forms::Frame& frame, const view::Box& place);
    void paintLabel(const forms::Label& label, const view::Box& place);
    std::vector<rtl::OUString> linesOf(const forms::Label& label, double lineHeight);
    void paintImage(const forms::Image& image, const view::Box& place);
    void paintLine(const forms::Line& line, const view::Box& place);
    void paintFace(forms::UserControl& control, const view::Box& place);
    void outline(const view::Box& box, sal_Int32 edge);

    Device device_;
    Graphics graphics_;
    const Theme& theme_;
    const view::Scale& scale_;
    Pictures& pictures_;
    unsigned background_ = forms::SystemColor::kButtonFace;
};

}  // namespace huebrush::libreoffice
