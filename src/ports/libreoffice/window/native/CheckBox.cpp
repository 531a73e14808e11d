// SPDX-License-Identifier: MPL-2.0

#include <com/sun/star/awt/XCheckBox.hpp>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class CheckBox final : public NativeOf<forms::CheckBox> {
 public:
    explicit CheckBox(const NativeSite& site) : NativeOf(site, "checkbox") {
        box_ = as<css::awt::XCheckBox>();
        centreVertically();
        box_->addItemListener(listener());
    }

 private:
    void mirrorKind(const forms::CheckBox& box) override {
        setCaption(box.Caption);
        if (box.Value == state_) return;
        // The toolkit reports this change, too, and only a change to another state is the user's.
        state_ = box.Value;
        const bool grey = state_ == forms::CheckValue::kGrey;
        if (grey) box_->enableTriState(true);
        box_->setState(state_);
        // A user's click never makes a box grey.
        if (!grey) box_->enableTriState(false);
    }
    void chosen(const css::awt::ItemEvent& event) override {
        if (event.Selected == state_) return;
        state_ = static_cast<std::int16_t>(event.Selected);
        post<forms::CheckBox>([](forms::CheckBox& box) { box.toggle(); });
    }

    css::uno::Reference<css::awt::XCheckBox> box_;
    /// What the toolkit's box shows.
    std::int16_t state_ = forms::CheckValue::kClear;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::CheckBox&, const NativeSite& site) {
    return std::make_unique<CheckBox>(site);
}

}  // namespace huebrush::libreoffice
