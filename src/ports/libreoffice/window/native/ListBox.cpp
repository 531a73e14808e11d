// SPDX-License-Identifier: MPL-2.0

#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XListBox.hpp>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class ListBox final : public NativeOf<forms::ListBox> {
 public:
    explicit ListBox(const NativeSite& site)
        : NativeOf(site, "listbox", css::awt::WindowAttribute::BORDER) {
        list_ = as<css::awt::XListBox>();
        list_->addItemListener(listener());
    }

 private:
    void mirrorKind(const forms::ListBox& list) override {
        if (items_ != list.items()) {
            items_ = list.items();
            list_->removeItems(0, list_->getItemCount());
            sal_Int16 position = 0;
            for (const forms::ListItem& each : items_) {
                list_->addItem(toOffice(each.text), position++);
            }
        }
        const sal_Int16 current = list_->getSelectedItemPos();
        if (current == list.ListIndex) return;
        if (list.ListIndex < 0) {
            list_->selectItemPos(current, false);
        } else {
            list_->selectItemPos(list.ListIndex, true);
        }
    }
    void chosen(const css::awt::ItemEvent& event) override {
        const auto line = static_cast<std::int16_t>(event.Selected);
        post<forms::ListBox>([line](forms::ListBox& list) {
            if (list.ListIndex != line) list.pick(line);
        });
    }

    css::uno::Reference<css::awt::XListBox> list_;
    std::vector<forms::ListItem> items_;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::ListBox&, const NativeSite& site) {
    return std::make_unique<ListBox>(site);
}

}  // namespace huebrush::libreoffice
