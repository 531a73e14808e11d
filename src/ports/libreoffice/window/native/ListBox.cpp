// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XListBox.hpp>
#include <iterator>
#include <vector>

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
        mirrorItems(list.items());
        const sal_Int16 current = list_->getSelectedItemPos();
        if (current == list.ListIndex) return;
        if (list.ListIndex < 0) {
            list_->selectItemPos(current, false);
        } else {
            list_->selectItemPos(list.ListIndex, true);
        }
    }
    /// Touches only the lines between those that are the same at both ends: the rest of the list
    /// stays where it is scrolled to.
    void mirrorItems(const std::vector<forms::ListItem>& items) {
        if (items == items_) return;
        const std::vector<forms::ListItem>& shown = items_;
        const auto first = std::ranges::mismatch(shown, items);
        const auto last = std::mismatch(shown.crbegin(), std::make_reverse_iterator(first.in1),
                                        items.crbegin(), std::make_reverse_iterator(first.in2));
        auto position = static_cast<sal_Int16>(first.in1 - shown.cbegin());
        const auto removed = static_cast<sal_Int16>(last.first.base() - first.in1);
        if (removed > 0) list_->removeItems(position, removed);
        for (auto each = first.in2; each != last.second.base(); ++each) {
            list_->addItem(toOffice(each->text), position++);
        }
        items_ = items;
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
