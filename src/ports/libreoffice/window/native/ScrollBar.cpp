// SPDX-License-Identifier: MPL-2.0

#include <com/sun/star/awt/ScrollBarOrientation.hpp>
#include <com/sun/star/awt/XScrollBar.hpp>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class ScrollBar final : public NativeOf<forms::VScrollBar> {
 public:
    explicit ScrollBar(const NativeSite& site) : NativeOf(site, "scrollbar") {
        bar_ = as<css::awt::XScrollBar>();
        bar_->setOrientation(css::awt::ScrollBarOrientation::VERTICAL);
        setProperty("LiveScroll", css::uno::makeAny(true));
        bar_->addAdjustmentListener(listener());
    }

 private:
    /// The toolkit's bar begins at 0, and its thumb has a size: the visible part of the whole.
    void mirrorKind(const forms::VScrollBar& bar) override {
        const auto page = static_cast<sal_Int32>(bar.Height);
        first_ = bar.Min;
        if (bar_->getVisibleSize() != page || bar_->getMaximum() != bar.Max - first_ + page) {
            bar_->setValues(bar.value() - first_, page, bar.Max - first_ + page);
        }
        if (bar_->getLineIncrement() != bar.SmallChange) bar_->setLineIncrement(bar.SmallChange);
        if (bar_->getBlockIncrement() != bar.LargeChange) bar_->setBlockIncrement(bar.LargeChange);
        if (bar_->getValue() != bar.value() - first_) bar_->setValue(bar.value() - first_);
    }
    void adjusted(const css::awt::AdjustmentEvent& event) override {
        const sal_Int32 value = first_ + event.Value;
        post<forms::VScrollBar>([value](forms::VScrollBar& bar) { bar.scrollTo(value); });
    }
    bool takesFocusByMouse() const override { return false; }

    css::uno::Reference<css::awt::XScrollBar> bar_;
    sal_Int32 first_ = 0;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::VScrollBar&, const NativeSite& site) {
    return std::make_unique<ScrollBar>(site);
}

}  // namespace huebrush::libreoffice
