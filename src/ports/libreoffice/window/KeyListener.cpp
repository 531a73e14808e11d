// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/KeyListener.h"

#include <com/sun/star/awt/XKeyHandler.hpp>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/Input.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

class KeyListener::Handler final : public WeakImplHelper<css::awt::XKeyHandler> {
 public:
    Handler(view::Keyboard& keyboard, std::function<bool(const Window&)> takesKeysOf)
        : keyboard_(&keyboard), takesKeysOf_(std::move(takesKeysOf)) {}
    void forget() { keyboard_ = nullptr; }

    sal_Bool SAL_CALL keyPressed(const css::awt::KeyEvent& event) override {
        return takes(event) && keyboard_->press(keyOf(event));
    }
    sal_Bool SAL_CALL keyReleased(const css::awt::KeyEvent& event) override {
        return takes(event) && keyboard_->release(keyOf(event));
    }
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    bool takes(const css::awt::KeyEvent& event) const {
        return keyboard_ != nullptr && takesKeysOf_(event.Source);
    }

    view::Keyboard* keyboard_;
    std::function<bool(const Window&)> takesKeysOf_;
};

KeyListener::KeyListener(const Toolkit& toolkit, view::Keyboard& keyboard,
                         std::function<bool(const Window&)> takesKeysOf)
    : toolkit_(toolkit), handler_(new Handler(keyboard, std::move(takesKeysOf))) {
    toolkit_->addKeyHandler(handler_.get());
}

KeyListener::~KeyListener() {
    handler_->forget();
    ignoringOffice([&] { toolkit_->removeKeyHandler(handler_.get()); });
}

}  // namespace huebrush::libreoffice
