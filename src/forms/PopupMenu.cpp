#include "forms/PopupMenu.h"

#include <utility>

namespace huebrush::forms {

MenuItem::MenuItem(PopupMenu& menu, std::string name, std::string caption)
    : Caption(std::move(caption)), name_(std::move(name)) {
    menu.items_.push_back(this);
}

}  // namespace huebrush::forms
