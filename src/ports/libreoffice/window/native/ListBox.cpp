// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XListBox.hpp>
#include <ranges>
#include <span>
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
        const auto [firstOld, firstNew] = std::ranges::mismatch(items_, items);
        const std::span<const forms::ListItem> restOld(firstOld, items_.cend());
        const std::span<const forms::ListItem> restNew(firstNew, items.cend());
        const auto [lastOld, lastNew] =
            std::ranges::mismatch(restOld | std::views::reverse, restNew | std::views::reverse);
        auto position = static_cast<sal_Int16>(firstOld - items_.cbegin());
        const auto removed = static_cast<sal_Int16>(lastOld.base() - restOld.begin());
        if (removed > 0) list_->removeItems(position, removed);
        for (auto each = restNew.begin(); each != lastNew.base(); ++each) {
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
