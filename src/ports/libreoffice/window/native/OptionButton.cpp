// SPDX-License-Identifier: MPL-2.0

#include <com/sun/star/awt/XButton.hpp>
#include <com/sun/star/awt/XRadioButton.hpp>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class OptionButton final : public NativeOf<forms::OptionButton> {
 public:
    explicit OptionButton(const NativeSite& site) : NativeOf(site, "radiobutton") {
        option_ = as<css::awt::XRadioButton>();
        centreVertically();
        // A click is reported even when the option is already selected.
        as<css::awt::XButton>()->addActionListener(listener());
    }

 private:
    void mirrorKind(const forms::OptionButton& option) override {
        setCaption(option.Caption);
        // What the toolkit's own grouping has done is ignored.
        if (bool(option_->getState()) != option.Value) option_->setState(option.Value);
    }
    void acted(const css::awt::ActionEvent&) override {
        post<forms::OptionButton>([](forms::OptionButton& option) { option.choose(); });
    }

    css::uno::Reference<css::awt::XRadioButton> option_;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::OptionButton&, const NativeSite& site) {
    return std::make_unique<OptionButton>(site);
}

}  // namespace huebrush::libreoffice
