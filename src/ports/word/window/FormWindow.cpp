// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/FormWindow.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "ports/word/com/Text.h"
#include "ports/word/window/GdiCanvas.h"
#include "ports/word/window/Input.h"
#include "ports/word/window/NativeMenu.h"
#include "ports/word/window/Surface.h"
#include "ports/word/window/native/Native.h"
#include "view/Painter.h"

namespace huebrush::word {

namespace {

/// Messages of our own to a form's window: what the user did is to run, and a key has come.
constexpr UINT kTurn = WM_APP + 1;
constexpr UINT kKey = WM_APP + 2;

// Newer than the oldest system that this runs on.
constexpr UINT kResolutionChanged = 0x02E0;
constexpr UINT kThemeChanged = 0x031A;

/// A form that listens to its size can be resized.
bool isResizable(const forms::Form& form) {
    return form.Resize.connected();
}

WindowKind kindOf(const forms::Form& form, HWND below) {
    // Without an icon in its caption, as dialogs are.
    WindowKind kind{WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN,
                    WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME, below, toWide(form.Caption.get())};
    if (isResizable(form)) kind.style |= WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    if (form.TopMost) kind.extendedStyle |= WS_EX_TOPMOST;
    return kind;
}

RECT workAreaAround(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

/// Where something of a length begins to be in the middle of a room, and to lie on the screen.
LONG centred(LONG length, LONG from, LONG to, LONG screenFrom, LONG screenTo) {
    const LONG middle = from + (to - from - length) / 2;
    return std::max(screenFrom, std::min(middle, screenTo - length));
}

bool isDown(const MSG& key) {
    return key.message == WM_KEYDOWN || key.message == WM_SYSKEYDOWN;
}

/// The characters that a key types, which wait in the queue behind a translation. Dead keys and
/// those of other alphabets come out right only this way.
std::vector<MSG> charactersOf(const MSG& key) {
    std::vector<MSG> characters;
    ::TranslateMessage(&key);
    const UINT first = key.message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
    MSG next{};
    while (::PeekMessageW(&next, key.hwnd, first, first + 1, PM_REMOVE) != FALSE) {
        if (next.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(next.wParam));
            break;
        }
        characters.push_back(next);
    }
    return characters;
}

char16_t firstCharacter(const std::vector<MSG>& characters) {
    const auto found =
        std::ranges::find_if(characters, [](const MSG& each) { return each.message == WM_CHAR; });
    return found == characters.end() ? u'\0' : static_cast<char16_t>(found->wParam);
}

}  // namespace

/// Something that is done again and again, by a timer of the window.
class FormWindow::Repeated {
 public:
    Repeated(HWND window, UINT_PTR number, std::chrono::milliseconds interval,
             std::function<void()> work)
        : window_(window), number_(number), work_(std::move(work)) {
        ::SetTimer(window_, number_, static_cast<UINT>(interval.count()), nullptr);
    }
    Repeated(const Repeated&) = delete;
    Repeated& operator=(const Repeated&) = delete;
    ~Repeated() { ::KillTimer(window_, number_); }

    void run() const { work_(); }

 private:
    HWND window_;
    UINT_PTR number_;
    std::function<void()> work_;
};

FormWindow::FormWindow(Enter enter, forms::Form& form, HWND below)
    : Window(std::move(enter), kindOf(form, below)),
      below_(below),
      site_(std::make_shared<Site>()),
      view_(std::make_shared<view::FormView>(form, static_cast<view::NativeFrame&>(*this))) {
    site_->enter = this->enter();
    site_->look = std::make_shared<Look>(resolutionOf(handle()));
    // Wine changes nothing about the level of a window that a tip belongs to.
    site_->tips = std::make_shared<ToolTips>(below);
    site_->paint = [this](HDC context, forms::Control& control, const view::Size& size) {
        GdiCanvas canvas(context, *site_->look);
        view::Painter(canvas, site_->look->theme, view_->scale()).paint(control, size);
    };
    site_->mouse = [this](const view::MouseInput& input) { view_->mouse(input); };
    site_->mouseLost = [this] { view_->post([this] { view_->cancelDrag(); }); };
    site_->scale = [this] { return view_->scale(); };
    site_->post = [this](std::function<void()> action) { view_->post(std::move(action)); };
}

FormWindow::~FormWindow() {
    retire();
}

// Opening and closing.

void FormWindow::open(bool modal) {
    view_->open(view::Scale(resolutionOf(handle())));
    flush();
    centre();
    if (modal) disabled_.emplace(handle());
    ::ShowWindow(handle(), SW_SHOW);
    ::UpdateWindow(handle());
}

void FormWindow::centre() {
    RECT own{};
    ::GetWindowRect(handle(), &own);
    const RECT screen = workAreaAround(below_ == nullptr ? handle() : below_);
    RECT room = screen;
    if (below_ != nullptr && ::IsIconic(below_) == FALSE) ::GetWindowRect(below_, &room);
    ::SetWindowPos(handle(), nullptr,
                   centred(own.right - own.left, room.left, room.right, screen.left, screen.right),
                   centred(own.bottom - own.top, room.top, room.bottom, screen.top, screen.bottom),
                   0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::waitForEnd() {
    MSG message{};
    while (!retired_) {
        const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            // The host's own end, which is left to the host.
            if (got == 0) ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void FormWindow::retire() {
    if (std::exchange(retired_, true)) return;
    view_->close();
    keys_.clear();
    // Before the window goes, so that the one below gets the keyboard back.
    disabled_.reset();
    ::ShowWindow(handle(), SW_HIDE);
    // Whoever waits for the end looks once more.
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

/// With the window below. The form ends before that.
void FormWindow::systemEndsWindow() {
    if (!retired_) {
        forms::Form& form = view_->form();
        form.handle([&] { form.Unload(); });
        retire();
    }
    abandon();
}

void FormWindow::toFront() {
    if (::IsIconic(handle()) != FALSE) ::ShowWindow(handle(), SW_RESTORE);
    ::SetForegroundWindow(handle());
}

void FormWindow::setTopMost(bool topMost) {
    ::SetWindowPos(handle(), topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

std::shared_ptr<void> FormWindow::pauseActions() {
    struct Paused {
        explicit Paused(std::shared_ptr<FormWindow> paused)
            : window(std::move(paused)), pause(window->view_->actions()) {}
        std::shared_ptr<FormWindow> window;
        view::ActionQueue::Pause pause;
    };
    return std::make_shared<Paused>(shared_from_this());
}

void FormWindow::flush() {
    base::ignoring([this] { view_->flush(); });
}

forms::MenuItem* FormWindow::pickFrom(const forms::PopupMenu& menu, forms::Control& owner, double x,
                                      double y) {
    const auto place = view_->placeInWindow(owner, x, y);
    if (!place) return nullptr;
    const std::shared_ptr<void> paused = pauseActions();
    POINT at{place->x, place->y};
    ::ClientToScreen(handle(), &at);
    return pickFromMenu(view_->menu(), menu, handle(),
                        {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)});
}

// The keyboard and the wheel.

FormWindow* FormWindow::around(HWND window) {
    auto* const form = dynamic_cast<FormWindow*>(Window::of(::GetAncestor(window, GA_ROOT)));
    return form == nullptr || form->retired_ ? nullptr : form;
}

bool FormWindow::takeKey(const MSG& key) {
    if (view_->menu().isOpen()) {
        // The menu reads it itself.
        const view::Key noted = keyOf({key.hwnd, key.message, key.wParam, key.lParam}, u'\0');
        if (isDown(key)) {
            view_->keyboard().press(noted);
        } else {
            view_->keyboard().release(noted);
        }
        return false;
    }
    keys_.push_back(key);
    return ::PostMessageW(handle(), kKey, 0, 0) != FALSE;
}

void FormWindow::handleKey() {
    if (keys_.empty()) return;
    const MSG key = keys_.front();
    keys_.pop_front();
    const Message message{key.hwnd, key.message, key.wParam, key.lParam};
    if (!isDown(key)) {
        // Alt alone would open the window's own menu.
        const bool used = view_->keyboard().release(keyOf(message, u'\0'));
        if (!used && key.wParam != VK_MENU) passOnKey(key, {});
        return;
    }
    const std::vector<MSG> characters = charactersOf(key);
    if (!view_->keyboard().press(keyOf(message, firstCharacter(characters)))) {
        passOnKey(key, characters);
    }
}

void FormWindow::passOnKey(const MSG& key, const std::vector<MSG>& characters) const {
    const auto send = [](const MSG& each) {
        if (around(each.hwnd) == nullptr) return;
        ::SendMessageW(each.hwnd, each.message, each.wParam, each.lParam);
    };
    send(key);
    std::ranges::for_each(characters, send);
}

bool FormWindow::takeWheel(HWND under, MSG& wheel) {
    if (::IsWindowEnabled(handle()) == FALSE) return false;
    if (const Native* const native = Native::of(under)) {
        if (native->takesWheel()) {
            wheel.hwnd = under;
            return false;
        }
        under = ::GetParent(under);
    }
    const auto* const surface = dynamic_cast<const Surface*>(Window::of(under));
    if (surface == nullptr) return false;
    wheelRest_ += GET_WHEEL_DELTA_WPARAM(wheel.wParam);
    const int notches = wheelRest_ / WHEEL_DELTA;
    wheelRest_ -= notches * WHEEL_DELTA;
    if (notches != 0) view_->turnWheel(surface->control(), -notches);
    return true;
}

// Messages.

LRESULT FormWindow::answer(const Message& message) {
    switch (message.number) {
        case kTurn:
            takeTurn();
            return 0;
        case kKey:
            handleKey();
            return 0;
        case WM_CLOSE:
            userCloses();
            return 0;
        case WM_SIZE:
            resized(message);
            return 0;
        case WM_TIMER:
            if (const auto work = repeated_[message.first].lock()) work->run();
            return 0;
        case WM_ACTIVATE:
        case WM_SETFOCUS:
            // The focus goes where the controls say.
            view_->actions().wake();
            return answerAsUsual(message);
        case WM_SETCURSOR:
            return showsWaitPointer(message) ? TRUE : answerAsUsual(message);
        case WM_SYSCOMMAND:
            // What Alt, or Alt with a letter that nobody has, would do.
            if ((message.first & 0xFFF0) == SC_KEYMENU && message.second != ' ') return 0;
            return answerAsUsual(message);
        case WM_ERASEBKGND:
            return 1;
        case kResolutionChanged:
            changeResolution(message);
            return 0;
        case kThemeChanged:
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            refreshLook(resolutionOf(handle()));
            return answerAsUsual(message);
        case WM_DESTROY:
            systemEndsWindow();
            return 0;
        default:
            return answerAsUsual(message);
    }
}

void FormWindow::takeTurn() {
    if (view_->runActions()) flush();
}

void FormWindow::userCloses() {
    if (retired_) return;
    view_->menu().close();
    view_->post([this] {
        forms::Form& form = view_->form();
        form.handle([&] { form.Unload(); });
    });
}

void FormWindow::resized(const Message& message) {
    if (retired_ || !view_->isOpen()) return;
    const view::Size inside = {LOWORD(message.second), HIWORD(message.second)};
    view_->post([this, inside, how = message.first] {
        forms::Form& form = view_->form();
        const bool minimised = how == SIZE_MINIMIZED;
        form.WindowState = minimised               ? forms::WindowState::minimized
                           : how == SIZE_MAXIMIZED ? forms::WindowState::maximized
                                                   : forms::WindowState::normal;
        if (!minimised) view_->resized(inside);
    });
}

void FormWindow::changeResolution(const Message& message) {
    const auto& place = *reinterpret_cast<const RECT*>(message.second);
    ::SetWindowPos(handle(), nullptr, place.left, place.top, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const int resolution = HIWORD(message.first);
    view_->rescale(view::Scale(resolution));
    refreshLook(resolution);
}

void FormWindow::refreshLook(int resolution) {
    // What is being drawn keeps the former one.
    site_->look = std::make_shared<Look>(resolution);
    view_->touch(forms::PropertyId::Font);
    ::RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

bool FormWindow::showsWaitPointer(const Message& message) const {
    if (!waits_ || LOWORD(message.second) != HTCLIENT) return false;
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    return true;
}

// What the view asks for.

void FormWindow::setCaption(const std::string& caption) {
    ::SetWindowTextW(handle(), toWide(caption).c_str());
}

void FormWindow::setSize(const view::Size& size) {
    RECT frame{0, 0, size.width, size.height};
    ::AdjustWindowRectEx(&frame, static_cast<DWORD>(::GetWindowLongPtrW(handle(), GWL_STYLE)),
                         FALSE, static_cast<DWORD>(::GetWindowLongPtrW(handle(), GWL_EXSTYLE)));
    ::SetWindowPos(handle(), nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

std::unique_ptr<view::NativeSurface> FormWindow::makeSurface(const view::ControlReference& form) {
    return std::make_unique<Surface>(site_, handle(), form);
}

void FormWindow::askForTurn() {
    ::PostMessageW(handle(), kTurn, 0, 0);
}

std::shared_ptr<void> FormWindow::repeat(std::chrono::milliseconds interval,
                                         std::function<void()> work) {
    std::erase_if(repeated_, [](const auto& each) { return each.second.expired(); });
    const UINT_PTR number = ++lastTimer_;
    const auto made = std::make_shared<Repeated>(handle(), number, interval, std::move(work));
    repeated_[number] = made;
    return made;
}

}  // namespace huebrush::word
