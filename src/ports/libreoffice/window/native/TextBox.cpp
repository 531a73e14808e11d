// SPDX-License-Identifier: MPL-2.0

#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XTextComponent.hpp>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class TextBox final : public NativeOf<forms::TextBox> {
 public:
    explicit TextBox(const NativeSite& site)
        : NativeOf(site, "edit", css::awt::WindowAttribute::BORDER) {
        text_ = as<css::awt::XTextComponent>();
        text_->addTextListener(listener());
    }

 private:
    void mirrorKind(const forms::TextBox& box) override {
        const rtl::OUString text = toOffice(box.Text.get());
        if (text_->getText() != text) text_->setText(text);
    }
    void typed() override {
        const std::string text = fromOffice(text_->getText());
        post<forms::TextBox>([text](forms::TextBox& box) {
            if (box.Text.get() != text) box.type(text);
        });
    }

    css::uno::Reference<css::awt::XTextComponent> text_;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::TextBox&, const NativeSite& site) {
    return std::make_unique<TextBox>(site);
}

}  // namespace huebrush::libreoffice
