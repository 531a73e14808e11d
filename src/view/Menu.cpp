// SPDX-License-Identifier: MPL-2.0

#include "view/Menu.h"

#include <utility>

namespace huebrush::view {

bool Menu::mayOpen(const forms::PopupMenu& menu) {
    return open_ == nullptr && std::exchange(closedByPress_, nullptr) != &menu;
}

void Menu::close() {
    if (open_ != nullptr) open_->end();
}

bool Menu::press(const Key& key) {
    closedByPress_ = nullptr;
    if (open_ == nullptr) return false;
    open_->press(key);
    return true;
}

void Menu::pressBeside() {
    const forms::PopupMenu* const closedBefore = std::exchange(pressToCome_, nullptr);
    closedByPress_ = open_ == nullptr ? closedBefore : menu_;
    close();
}

Menu::Opened::Opened(Menu& owner, NativeMenu& window, const forms::PopupMenu& menu)
    : owner_(owner) {
    owner_.open_ = &window;
    owner_.menu_ = &menu;
}

Menu::Opened::~Opened() {
    owner_.open_ = nullptr;
    owner_.menu_ = nullptr;
}

}  // namespace huebrush::view
