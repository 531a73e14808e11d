// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/WindowsRuntime.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {
namespace {

using forms::MsgBoxResult;

/// What a user sees of a box, and the button that he then presses.
struct User {
    int button = IDOK;
    std::string title;
    std::string text;
    std::vector<int> buttons;
};

User* atTheBox = nullptr;

std::string textOfWindow(HWND window) {
    wchar_t text[512]{};
    ::GetWindowTextW(window, text, 512);
    return toUtf8(text);
}

BOOL CALLBACK noteButton(HWND child, LPARAM) {
    wchar_t kind[32]{};
    ::GetClassNameW(child, kind, 32);
    if (std::wstring(kind) == L"Button") atTheBox->buttons.push_back(::GetDlgCtrlID(child));
    return TRUE;
}

/// Looks for the box until it is there.
void CALLBACK answer(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = ::FindWindowW(L"#32770", nullptr);
    if (box == nullptr) return;
    ::KillTimer(nullptr, timer);
    constexpr int kText = 0xFFFF;
    atTheBox->title = textOfWindow(box);
    atTheBox->text = textOfWindow(::GetDlgItem(box, kText));
    ::EnumChildWindows(box, &noteButton, 0);
    ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(atTheBox->button), 0);
}

int messages = 0;

LRESULT CALLBACK countMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP) ++messages;
    return ::DefWindowProcW(window, message, wParam, lParam);
}

class WindowsRuntimeTest : public testing::Test {
 protected:
    MsgBoxResult show(std::int32_t style, User& user) {
        atTheBox = &user;
        ::SetTimer(nullptr, 0, 10, &answer);
        return runtime.MsgBox("Zpracování je dokončeno...", style, "Chyba č. 6");
    }

    WindowsRuntime runtime;
};

TEST_F(WindowsRuntimeTest, ABoxHasTheTextsAndButtonsOfItsStyle) {
    for (const auto& [style, buttons] :
         {std::pair(16, std::vector<int>{IDOK}), std::pair(48, std::vector<int>{IDOK}),
          std::pair(64, std::vector<int>{IDOK}),
          std::pair(50, std::vector<int>{IDABORT, IDRETRY, IDIGNORE}),
          std::pair(36, std::vector<int>{IDYES, IDNO})}) {
        User user{buttons.back(), {}, {}, {}};
        EXPECT_EQ(static_cast<int>(show(style, user)), buttons.back());
        EXPECT_EQ(user.title, "Chyba č. 6");
        EXPECT_EQ(user.text, "Zpracování je dokončeno...");
        EXPECT_EQ(user.buttons, buttons);
    }
}

TEST_F(WindowsRuntimeTest, PendingEventsRun) {
    const HWND window = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                          nullptr, nullptr);
    ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&countMessage));
    messages = 0;
    ::PostMessageW(window, WM_APP, 0, 0);
    ::PostMessageW(window, WM_APP, 0, 0);
    runtime.DoEvents();
    EXPECT_EQ(messages, 2);
    ::DestroyWindow(window);
}

TEST_F(WindowsRuntimeTest, TheHostsEndIsLeftToTheHost) {
    ::PostQuitMessage(7);
    runtime.DoEvents();
    MSG message{};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(WindowsRuntimeTest, TheComponentKnowsWhereItIs) {
    const forms::Component& component = runtime.Component();
    EXPECT_EQ(component.name(), "word_runtime_test");
    EXPECT_TRUE(component.folder().ends_with("\\bin"));
    EXPECT_EQ(component.userFolder(), component.folder());
    EXPECT_FALSE(component.temporaryFolder().ends_with("\\"));
    EXPECT_TRUE(runtime.System().fileExists(component.temporaryFolder()));
}

TEST_F(WindowsRuntimeTest, TheDecimalSeparatorIsTheUsers) {
    wchar_t before[8]{};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before, 8);
    for (const auto& [stored, read] : {std::pair(L",", ','), std::pair(L".", '.')}) {
        ASSERT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, stored));
        EXPECT_EQ(runtime.Component().decimalSeparator(), read);
    }
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before);
}

}  // namespace
}  // namespace huebrush::word
