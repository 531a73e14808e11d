// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/FormWindows.h"

#include <algorithm>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Snapshot.h"
#include "ports/libreoffice/window/FormWindow.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

FormWindows::FormWindows(const ContextReference& context, const ActiveWindow& window,
                         std::shared_ptr<Snapshot> snapshot)
    : context_(context), window_(window), snapshot_(std::move(snapshot)) {}

FormWindows::~FormWindows() = default;

void FormWindows::show(forms::Form& form, bool modal) {
    if (const auto shown = windowOf(form)) {
        officeCalls([&] { shown->toFront(); });
        return;
    }
    const auto window = std::make_shared<FormWindow>(context_, form, snapshot_);
    const Owner parent = modal ? owner() : documentWindow();
    const auto paused = modal ? pauseActions() : std::vector<std::shared_ptr<void>>();
    shown_.push_back(window);
    try {
        officeCalls([&] { window->open(parent); });
    } catch (...) {
        close(form);
        throw;
    }
    if (!modal) return;
    {
        const EventsRun running(snapshot_);
        window->waitForEnd();
    }
    if (windowOf(form) != nullptr) form.handle([&] { form.Unload(); });
    window->close();
}

void FormWindows::close(forms::Form& form) {
    const auto window = windowOf(form);
    if (window == nullptr) return;
    std::erase(shown_, window);
    if (window->isWaiting()) {
        window->retire();
    } else if (const auto held = held_.lock()) {
        window->retire();
        held->closed.push_back(window);
    } else {
        window->close();
    }
}

std::shared_ptr<FormWindow> FormWindows::windowOf(const forms::Form& form) const {
    const auto found =
        std::ranges::find_if(shown_, [&](const auto& window) { return window->shows(form); });
    return found == shown_.end() ? nullptr : *found;
}

FormWindows::Owner FormWindows::documentWindow() const {
    const ActiveWindow::Frame frame = window_.frame();
    if (!frame.is()) return {};
    return {frame->getContainerWindow(), css::uno::UNO_QUERY};
}

FormWindows::Owner FormWindows::owner() const {
    return shown_.empty() ? documentWindow() : shown_.back()->peer();
}

std::shared_ptr<void> FormWindows::hold() {
    std::shared_ptr<Held> held = held_.lock();
    if (held == nullptr) held_ = held = std::make_shared<Held>(Held{{}, pauseActions()});
    return held;
}

std::vector<std::shared_ptr<void>> FormWindows::pauseActions() const {
    std::vector<std::shared_ptr<void>> paused;
    for (const auto& window : shown_) paused.push_back(window->pauseActions());
    return paused;
}

void FormWindows::flush() {
    // A flush may close a window.
    const auto windows = shown_;
    for (const auto& window : windows) window->flush();
}

}  // namespace huebrush::libreoffice
