// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <com/sun/star/awt/Selection.hpp>
#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XTextComponent.hpp>
#include <memory>
#include <string>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"
#include "ports/libreoffice/window/native/TextLines.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

/// The bar shows only while there is something to scroll. The edge is painted around the window.
constexpr sal_Int32 kSeveralLines = css::awt::VclWindowPeerAttribute::AUTOVSCROLL;
constexpr sal_Int32 kOneLine = css::awt::WindowAttribute::BORDER;

class TextBox final : public Native {
 public:
    TextBox(const NativeSite& site, bool multiLine)
        : Native(site, multiLine ? "multilineedit" : "edit", multiLine ? kSeveralLines : kOneLine),
          multiLine_(multiLine) {
        text_ = as<css::awt::XTextComponent>();
        text_->addTextListener(listener());
    }

    bool fits(const forms::Control& control) const override {
        const auto* const box = dynamic_cast<const forms::TextBox*>(&control);
        return box != nullptr && box->MultiLine == multiLine_;
    }
    void collect() override {
        forms::Control* const shown = control();
        auto* const box = dynamic_cast<forms::TextBox*>(shown);
        // What the program has selected since is still to be shown.
        if (box == nullptr || !(box->selection() == agreed_->selection)) return;
        box->select(selectionIn(box->Text));
        agreed_->selection = box->selection();
    }

 private:
    /// What the control and the native one both had when they were last in step. What the user has
    /// typed since comes as an action; a control that is as it was then leaves it alone.
    struct Agreed {
        std::string text;
        forms::TextSelection selection;
    };

    void adopted() override { agreed_.reset(); }
    view::Rectangle insideOf(const view::Rectangle& place) const override {
        if (!multiLine_) return place;
        return {place.left + 1, place.top + 1, std::max(place.width - 2, 0),
                std::max(place.height - 2, 0)};
    }
    void mirror(const forms::Control& control) override {
        const auto& box = dynamic_cast<const forms::TextBox&>(control);
        if (text_->isEditable() == box.Locked.get()) text_->setEditable(!box.Locked);
        const bool isNew = agreed_ == nullptr;
        if (isNew) agreed_ = std::make_shared<Agreed>();
        const bool hasOtherText = isNew || agreed_->text != box.Text.get();
        if (hasOtherText) {
            agreed_->text = box.Text;
            text_->setText(toOffice(toOfficeLines(agreed_->text)));
            reported_ = fromOffice(text_->getText());
        }
        if (!hasOtherText && agreed_->selection == box.selection()) return;
        agreed_->selection = box.selection();
        const std::int32_t end = agreed_->selection.start + agreed_->selection.length;
        text_->setSelection({toOfficePlace(agreed_->text, agreed_->selection.start),
                             toOfficePlace(agreed_->text, end)});
    }
    void typed() override {
        std::string text = fromOffice(text_->getText());
        if (text == reported_) return;
        reported_ = text;
        if (multiLine_) text = fromOfficeLines(text);
        const forms::TextSelection selection = selectionIn(text);
        post<forms::TextBox>([agreed = agreed_, text, selection](forms::TextBox& box) {
            *agreed = {text, selection};
            box.type(text, selection);
        });
    }
    /// What is selected, counted in the text as the control has it.
    forms::TextSelection selectionIn(const std::string& text) const {
        const css::awt::Selection selected = text_->getSelection();
        const std::int32_t first = fromOfficePlace(text, std::min(selected.Min, selected.Max));
        return {first, fromOfficePlace(text, std::max(selected.Min, selected.Max)) - first};
    }

    css::uno::Reference<css::awt::XTextComponent> text_;
    bool multiLine_;
    std::shared_ptr<Agreed> agreed_;
    /// The toolkit reports some changes twice.
    std::string reported_;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::TextBox& control, const NativeSite& site) {
    return std::make_unique<TextBox>(site, control.MultiLine);
}

}  // namespace huebrush::libreoffice
