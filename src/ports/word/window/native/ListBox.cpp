// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "ports/word/com/Text.h"
#include "ports/word/window/native/Kinds.h"

namespace huebrush::word {

namespace {

class ListBox final : public NativeOf<forms::ListBox> {
 public:
    ListBox(NativeSite site, HWND parent)
        : NativeOf(std::move(site), parent,
                   {L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, WS_EX_CLIENTEDGE}) {
    }

    bool takesWheel() const override { return true; }

 private:
    void mirrorKind(const forms::ListBox& list) override {
        mirrorItems(list.items());
        if (current() != list.ListIndex) {
            send(LB_SETCURSEL, static_cast<WPARAM>(static_cast<INT_PTR>(list.ListIndex.get())));
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
        auto position = static_cast<WPARAM>(first.in1 - shown.cbegin());
        for (auto removed = last.first.base() - first.in1; removed > 0; --removed) {
            send(LB_DELETESTRING, position);
        }
        for (auto each = first.in2; each != last.second.base(); ++each) {
            const std::wstring text = toWide(each->text);
            send(LB_INSERTSTRING, position++, reinterpret_cast<LPARAM>(text.c_str()));
        }
        items_ = items;
    }
    std::int16_t current() const { return static_cast<std::int16_t>(send(LB_GETCURSEL)); }
    void acted(WORD code) override {
        if (code != LBN_SELCHANGE) return;
        post<forms::ListBox>([line = current()](forms::ListBox& list) {
            if (line < list.ListCount() && list.ListIndex != line) list.pick(line);
        });
    }

    std::vector<forms::ListItem> items_;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::ListBox&, NativeSite site, HWND parent) {
    return std::make_unique<ListBox>(std::move(site), parent);
}

}  // namespace huebrush::word
