// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "ports/word/runtime/WindowsRuntime.h"
#include "ports/word/window/FormWindow.h"

namespace huebrush::word {

/// The forms runtime on Windows with a user at the mouse and the keyboard, whose input goes the way
/// of a real one's. The user is as fast as the program: nothing waits for a time.
class WindowsPort {
 public:
    WindowsPort();
    WindowsPort(const WindowsPort&) = delete;
    WindowsPort& operator=(const WindowsPort&) = delete;
    ~WindowsPort();

    WindowsRuntime& runtime() { return runtime_; }
    void settle() { runtime_.DoEvents(); }
    /// Lets events run until something holds; a failure of the test after ten seconds.
    void waitUntil(const std::function<bool()>& holds, const std::string& what);

    HWND windowOf(const forms::Form& form);
    /// The native control that shows a control; null where none does.
    static HWND nativeOf(const forms::Control& control);
    /// Where a control is on the screen, in pixels, or the part of it that lies on its surface.
    RECT placeOf(forms::Control& control);

    // The mouse.
    void pointAt(POINT at);
    void pointAt(forms::Control& control);
    void button(DWORD what);
    void click(forms::Control& control);
    void clickAt(POINT at);
    void turnWheel(int notches);
    void pick(forms::ListBox& list, std::int16_t line);

    // The keyboard.
    void key(forms::Form& form, const std::string& name);
    void keyDown(WORD code);
    void keyUp(WORD code);
    void press(WORD code);
    void type(forms::TextBox& box, const std::string& text);

    // Windows.
    void deactivate(forms::Form& form);
    void activate(forms::Form& form);
    void closeWindow(forms::Form& form);

    // What happens later.
    void inNextPump(std::function<void()> happening);
    void whileModal(std::function<void()> happening) { inNextPump(std::move(happening)); }
    void answerNextBox(forms::MsgBoxResult answer);
    void pickInNextMenu(const std::string& caption);
    /// When a menu is open, from its own loop.
    void whenMenuIsOpen(std::function<void()> happening);

    /// A window of the host's, which another program's could be.
    HWND host() const { return host_; }

 private:
    struct Waiting {
        std::function<bool()> holds;
        std::function<void()> happening;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT number, WPARAM first, LPARAM second);
    HWND makeWindow(HWND parent, DWORD style);
    void when(std::function<bool()> holds, std::function<void()> happening);
    void look();
    void waitUntilActive(HWND window);

    WindowsRuntime runtime_;
    HWND host_ = nullptr;
    HWND helper_ = nullptr;
    std::vector<std::function<void()>> pumped_;
    std::vector<Waiting> waiting_;
};

}  // namespace huebrush::word
