#include "ports/libreoffice/window/Keyboard.h"

#include <com/sun/star/awt/XKeyHandler.hpp>
#include <functional>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/FormKeys.h"
#include "ports/libreoffice/window/FormWindow.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

class Keyboard::Handler final : public WeakImplHelper<css::awt::XKeyHandler> {
 public:
    explicit Handler(FormWindow& window) : window_(&window) {}
    void forget() { window_ = nullptr; }

    sal_Bool SAL_CALL keyPressed(const css::awt::KeyEvent& event) override {
        if (window_ == nullptr || !window_->takesKeysOf(event.Source)) return false;
        pressed_ = event;
        menuKey_ = window_->menu().press(event) ? event.KeyCode : kNoKey;
        if (menuKey_ != kNoKey) return true;
        const std::function<void(forms::Form&)> deed = deedOfKey(window_->form(), event);
        if (!deed) return false;
        window_->post([window = window_, deed] {
            if (window->form().dragged() != nullptr) window->pointing().cancelDrag(window->form());
            deed(window->form());
        });
        return true;
    }

    sal_Bool SAL_CALL keyReleased(const css::awt::KeyEvent& event) override {
        if (window_ == nullptr || !window_->takesKeysOf(event.Source)) return false;
        if (window_->menu().isOpen()) return true;
        if (event.KeyCode == std::exchange(menuKey_, kNoKey)) return true;
        // Whoever lets go of a shift key first means it no less.
        css::awt::KeyEvent released = event;
        if (pressed_.KeyCode == event.KeyCode) {
            released.Modifiers = static_cast<sal_Int16>(event.Modifiers | pressed_.Modifiers);
        }
        if (const auto deed = deedOfReleasedKey(window_->form(), released)) {
            window_->post([window = window_, deed] { deed(window->form()); });
        }
        return false;
    }
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    static constexpr sal_Int16 kNoKey = -1;

    FormWindow* window_;
    /// The key that went down last, if an open menu has had it: its release is the menu's, too.
    sal_Int16 menuKey_ = kNoKey;
    /// The last key that went down.
    css::awt::KeyEvent pressed_;
};

Keyboard::Keyboard(FormWindow& window,
                   const css::uno::Reference<css::awt::XExtendedToolkit>& toolkit)
    : toolkit_(toolkit), handler_(new Handler(window)) {
    toolkit_->addKeyHandler(handler_.get());
}

Keyboard::~Keyboard() {
    handler_->forget();
    ignoringOffice([&] { toolkit_->removeKeyHandler(handler_.get()); });
}

}  // namespace huebrush::libreoffice
