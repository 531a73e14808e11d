// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/FormWindows.h"

#include <algorithm>
#include <utility>

#include "ports/word/window/FormWindow.h"

namespace huebrush::word {

namespace {

BOOL CALLBACK findVisible(HWND window, LPARAM found) {
    if (::IsWindowVisible(window) == FALSE || ::GetWindow(window, GW_OWNER) != nullptr ||
        Window::of(window) != nullptr) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// The active one, or any while another program is active. Null where the thread has none.
HWND hostWindow() {
    HWND active = ::GetActiveWindow();
    while (const FormWindow* const form = FormWindow::around(active)) active = form->below();
    if (active != nullptr) return active;
    HWND found = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &findVisible, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

struct FormWindows::Held {
    Held(std::vector<std::shared_ptr<void>> pausedWindows, HWND owner)
        : paused(std::move(pausedWindows)), disabled(owner) {}

    std::vector<std::shared_ptr<void>> paused;
    DisabledWindows disabled;
};

FormWindows::FormWindows(Enter enter) : enter_(std::move(enter)) {}

FormWindows::~FormWindows() = default;

void FormWindows::show(forms::Form& form, bool modal) {
    if (const auto shown = windowOf(form)) {
        shown->toFront();
        return;
    }
    const auto paused = modal ? pauseActions() : std::vector<std::shared_ptr<void>>();
    const auto window = std::make_shared<FormWindow>(enter_, form, modal ? owner() : hostWindow());
    if (!hook_) hook_.emplace();
    shown_.push_back(window);
    try {
        window->open(modal);
    } catch (...) {
        close(form);
        throw;
    }
    if (!modal) return;
    window->waitForEnd();
    if (windowOf(form) != nullptr) form.handle([&] { form.Unload(); });
}

void FormWindows::close(forms::Form& form) {
    const auto window = windowOf(form);
    if (window == nullptr) return;
    // Whoever still needs the window itself holds it.
    window->retire();
    std::erase(shown_, window);
    if (shown_.empty()) hook_.reset();
}

void FormWindows::setTopMost(forms::Form& form, bool topMost) {
    if (const auto window = windowOf(form)) window->setTopMost(topMost);
}

std::shared_ptr<FormWindow> FormWindows::windowOf(const forms::Form& form) const {
    const auto found =
        std::ranges::find_if(shown_, [&](const auto& window) { return window->shows(form); });
    return found == shown_.end() ? nullptr : *found;
}

HWND FormWindows::owner() const {
    return shown_.empty() ? hostWindow() : shown_.back()->handle();
}

std::shared_ptr<void> FormWindows::hold() {
    return std::make_shared<Held>(pauseActions(), owner());
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

}  // namespace huebrush::word
