// SPDX-License-Identifier: MPL-2.0

#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/XButton.hpp>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class Button final : public NativeOf<forms::CommandButton> {
 public:
    explicit Button(const NativeSite& site) : NativeOf(site, "pushbutton") {
        as<css::awt::XButton>()->addActionListener(listener());
    }

 private:
    void mirrorKind(const forms::CommandButton& button) override {
        setCaption(button.Caption);
        if (button.Default != default_) {
            default_ = button.Default;
            setProperty("DefaultButton", css::uno::makeAny(default_));
        }
    }
    void acted(const css::awt::ActionEvent&) override {
        post<forms::CommandButton>([](forms::CommandButton& button) { button.press(); });
    }

    bool default_ = false;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::CommandButton&, const NativeSite& site) {
    return std::make_unique<Button>(site);
}

}  // namespace huebrush::libreoffice
