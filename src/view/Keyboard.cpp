// SPDX-License-Identifier: MPL-2.0

#include "view/Keyboard.h"

#include <functional>
#include <utility>

#include "view/FormKeys.h"
#include "view/Menu.h"

namespace huebrush::view {

bool Keyboard::press(const Key& key) {
    pressed_ = key;
    menuKey_.reset();
    if (target_.menu().press(key)) {
        menuKey_ = key.code;
        return true;
    }
    if (const FormAction report = reportOfKey(target_.form(), key)) {
        target_.post([&target = target_, report] { report(target.form()); });
    }
    const FormAction action = actionOfKey(target_.form(), key);
    if (!action) return false;
    target_.post([&target = target_, action] {
        target.cancelDrag();
        action(target.form());
    });
    return true;
}

bool Keyboard::release(const Key& key) {
    if (target_.menu().isOpen()) return true;
    if (std::exchange(menuKey_, std::nullopt) == key.code) return true;
    // Alt counts by itself only, not as the shift key of another one.
    if (key.code == forms::KeyCode::kAlt && pressed_.code != key.code) return false;
    // Releasing a shift key first does not cancel it.
    Key released = key;
    if (pressed_.code == key.code) {
        released.shift = static_cast<std::int16_t>(key.shift | pressed_.shift);
    }
    if (const FormAction action = actionOfReleasedKey(target_.form(), released)) {
        target_.post([&target = target_, action] { action(target.form()); });
    }
    return false;
}

}  // namespace huebrush::view
