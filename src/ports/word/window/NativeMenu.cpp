// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/NativeMenu.h"

#include <memory>
#include <type_traits>

#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

struct MenuDeleter {
    void operator()(HMENU menu) const { ::DestroyMenu(menu); }
};
using MenuHandle = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDeleter>;

UINT stateOf(const forms::MenuItem& item) {
    if (item.isSeparator()) return MF_SEPARATOR;
    UINT state = MF_STRING;
    if (!item.Enabled) state |= MF_GRAYED;
    if (item.Checked) state |= MF_CHECKED;
    return state;
}

/// The lines are numbered from 1: no number is what the system gives for no pick.
MenuHandle makeMenu(const forms::PopupMenu& menu) {
    MenuHandle made(::CreatePopupMenu());
    UINT_PTR number = 0;
    for (const forms::MenuItem* const item : menu.items()) {
        ::AppendMenuW(made.get(), stateOf(*item), ++number, toWide(item->Caption).c_str());
    }
    return made;
}

/// The system's own menu, which reads the keyboard itself.
class SystemMenu final : public view::NativeMenu {
 public:
    void press(const view::Key&) override {}
    void end() override { ::EndMenu(); }
};

/// A press beside the menu closes it, and is then what the window below gets next.
bool isPressPending() {
    MSG next{};
    if (::PeekMessageW(&next, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_NOREMOVE) == FALSE) {
        return false;
    }
    return next.message == WM_LBUTTONDOWN || next.message == WM_LBUTTONDBLCLK ||
           next.message == WM_RBUTTONDOWN || next.message == WM_RBUTTONDBLCLK;
}

}  // namespace

forms::MenuItem* pickFromMenu(view::Menu& state, const forms::PopupMenu& menu, HWND below,
                              const view::Point& place) {
    if (!state.mayOpen(menu)) return nullptr;
    const MenuHandle handle = makeMenu(menu);
    SystemMenu window;
    const view::Menu::Opened opened(state, window, menu);
    const int picked = static_cast<int>(::TrackPopupMenuEx(
        handle.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON,
        place.x, place.y, below, nullptr));
    if (picked > 0) return menu.items().at(static_cast<std::size_t>(picked) - 1);
    if (isPressPending()) state.closedByPressToCome();
    return nullptr;
}

}  // namespace huebrush::word
