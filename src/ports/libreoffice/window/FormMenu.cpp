#include "ports/libreoffice/window/FormMenu.h"

#include <chrono>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <thread>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/window/MenuWindow.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

bool isActiveWindow(const FormMenu::Peer& window) {
    const css::uno::Reference<css::awt::XWindow2> active(window, css::uno::UNO_QUERY);
    return active.is() && active->isActive();
}

}  // namespace

/// While it lives, a menu is open.
class FormMenu::Opened {
 public:
    Opened(FormMenu& owner, MenuWindow& window, const forms::PopupMenu& menu) : owner_(owner) {
        owner_.open_ = &window;
        owner_.menu_ = &menu;
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() {
        owner_.open_ = nullptr;
        owner_.menu_ = nullptr;
    }

 private:
    FormMenu& owner_;
};

forms::MenuItem* FormMenu::pick(const forms::PopupMenu& menu, const Peer& below, const Theme& theme,
                                const Scale& scale, const css::awt::Point& place) {
    /// Short enough for the menu to follow the mouse.
    constexpr std::chrono::milliseconds kPause(10);
    if (open_ != nullptr || std::exchange(closedByPress_, nullptr) == &menu) return nullptr;
    return officeCalls([&]() -> forms::MenuItem* {
        const auto toolkit =
            createService<css::awt::XToolkitExperimental>(context_, "com.sun.star.awt.Toolkit");
        MenuWindow window({toolkit, css::uno::UNO_QUERY_THROW}, below, theme, scale, menu, place);
        const Opened opened(*this, window, menu);
        // The window may lose the keyboard to its own menu for a moment, while events run.
        bool wasActive = false;
        while (window.isOpen()) {
            toolkit->processEventsToIdle();
            const bool isActive = window.isOpen() && isActiveWindow(below);
            if (wasActive && !isActive) break;
            wasActive = isActive;
            std::this_thread::sleep_for(kPause);
        }
        const auto line = window.picked();
        return line ? menu.items().at(*line) : nullptr;
    });
}

void FormMenu::close() {
    if (open_ != nullptr) open_->end();
}

bool FormMenu::press(const css::awt::KeyEvent& key) {
    closedByPress_ = nullptr;
    if (open_ == nullptr) return false;
    open_->press(key);
    return true;
}

void FormMenu::pressBeside() {
    closedByPress_ = menu_;
    close();
}

}  // namespace huebrush::libreoffice
