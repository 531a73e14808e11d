#include "ports/libreoffice/window/FormMenu.h"

#include <chrono>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <thread>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/window/MenuWindow.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using Peer = css::uno::Reference<css::awt::XWindowPeer>;

bool isActiveWindow(const Peer& window) {
    const css::uno::Reference<css::awt::XWindow2> active(window, css::uno::UNO_QUERY);
    return active.is() && active->isActive();
}

}  // namespace

forms::MenuItem* pickFromMenu(const ContextReference& context, view::Menu& state,
                              const forms::PopupMenu& menu, const Peer& below, Look& look,
                              const view::Scale& scale, const view::Point& place) {
    /// Short enough for the menu to follow the mouse.
    constexpr std::chrono::milliseconds kPause(10);
    if (!state.mayOpen(menu)) return nullptr;
    return officeCalls([&]() -> forms::MenuItem* {
        const auto toolkit =
            createService<css::awt::XToolkitExperimental>(context, "com.sun.star.awt.Toolkit");
        MenuWindow window({toolkit, css::uno::UNO_QUERY_THROW}, below, look, scale, menu, place);
        const view::Menu::Opened opened(state, window, menu);
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

}  // namespace huebrush::libreoffice
