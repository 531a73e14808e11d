#include "view/Keyboard.h"

#include <functional>
#include <utility>

#include "view/FormKeys.h"
#include "view/FormView.h"

namespace huebrush::view {

bool Keyboard::press(const Key& key) {
    pressed_ = key;
    menuKey_.reset();
    if (view_.menu().press(key)) {
        menuKey_ = key.code;
        return true;
    }
    const FormAction action = actionOfKey(view_.form(), key);
    if (!action) return false;
    view_.post([&view = view_, action] {
        view.cancelDrag();
        action(view.form());
    });
    return true;
}

bool Keyboard::release(const Key& key) {
    if (view_.menu().isOpen()) return true;
    if (std::exchange(menuKey_, std::nullopt) == key.code) return true;
    // Releasing a shift key first does not cancel it.
    Key released = key;
    if (pressed_.code == key.code) {
        released.shift = static_cast<std::int16_t>(key.shift | pressed_.shift);
    }
    if (const FormAction action = actionOfReleasedKey(view_.form(), released)) {
        view_.post([&view = view_, action] { action(view.form()); });
    }
    return false;
}

}  // namespace huebrush::view
