// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/FormWindows.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "forms/PopupMenu.h"
#include "ports/word/WindowsPort_test_support.h"
#include "ports/word/com/Text.h"
#include "ports/word/window/native/Native.h"

namespace huebrush::word {
namespace {

using Names = std::vector<std::string>;

/// A list with a bar beside it, and one control of each native kind.
class SampleForm final : public forms::Form {
 public:
    SampleForm() : Form("SampleForm") {
        Caption = std::string("Žluťoučký kůň");
        Move(0, 0, 6000, 4500);
        view.Move(100, 100, 1500, 1500);
        image.Move(150, 150, 600, 600);
        target.Move(150, 800, 600, 600);
        bar.Move(1600, 100, 255, 1500);
        bar.Max = 1000;
        bar.SmallChange = 10;
        box.Move(2200, 100, 1500, 300);
        box.Caption = std::string("&Box");
        ok.Move(2200, 500, 1500, 400);
        ok.Caption = std::string("&OK");
        field.Move(2200, 1000, 1500, 350);
        list.Move(2200, 1500, 1500, 1500);
        for (int line = 0; line < 40; ++line) list.AddItem("line " + std::to_string(line));
    }

    forms::PictureBox view{*this, "view"};
    forms::Image image{view, "image"};
    forms::Image target{view, "target"};
    forms::VScrollBar bar{*this, "bar"};
    forms::CheckBox box{*this, "box"};
    forms::CommandButton ok{*this, "ok"};
    forms::TextBox field{*this, "field"};
    forms::ListBox list{*this, "list"};
};

class FormWindowsTest : public testing::Test {
 protected:
    FormWindowsTest() {
        port.runtime().UnhandledError.connect(
            [this](const base::Error& error) { unhandled.push_back(error.number()); });
    }
    ~FormWindowsTest() override {
        if (form) form->Unload();
        EXPECT_TRUE(unhandled.empty());
    }
    void show() {
        form->Show();
        port.settle();
    }
    HWND window() { return port.windowOf(*form); }
    void focus(forms::Control& control) {
        control.SetFocus();
        port.settle();
    }

    WindowsPort port;
    forms::RuntimeScope scope{port.runtime()};
    std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
    Names events;
    std::vector<std::int32_t> unhandled;
};

std::string captionOf(HWND window) {
    wchar_t text[128]{};
    ::GetWindowTextW(window, text, 128);
    return toUtf8(text);
}

// The window.

TEST_F(FormWindowsTest, AWindowHasTheFormsCaptionAndInnerSizeAndTheHostsWindowBelow) {
    show();
    EXPECT_EQ(captionOf(window()), "Žluťoučký kůň");
    RECT inside{};
    ::GetClientRect(window(), &inside);
    const view::Scale scale(resolutionOf(window()));
    EXPECT_EQ(inside.right, scale.toPixels(6000));
    EXPECT_EQ(inside.bottom, scale.toPixels(4500));
    EXPECT_EQ(::GetWindow(window(), GW_OWNER), port.host());
    EXPECT_NE(::IsWindowEnabled(port.host()), FALSE);
    form->Caption = std::string("Other");
    form->Width = 3000.0;
    port.settle();
    EXPECT_EQ(captionOf(window()), "Other");
    ::GetClientRect(window(), &inside);
    EXPECT_EQ(inside.right, scale.toPixels(3000));
}

TEST_F(FormWindowsTest, OnlyAFormThatListensToItsSizeCanBeResized) {
    show();
    EXPECT_EQ(::GetWindowLongPtrW(window(), GWL_STYLE) & WS_THICKFRAME, 0);
    form->Unload();
    form = std::make_shared<SampleForm>();
    form->Resize.connect([this] { events.push_back("resized"); });
    show();
    EXPECT_NE(::GetWindowLongPtrW(window(), GWL_STYLE) & WS_THICKFRAME, 0);
    events.clear();
    RECT outside{};
    ::GetWindowRect(window(), &outside);
    ::SetWindowPos(window(), nullptr, 0, 0, outside.right - outside.left + 60,
                   outside.bottom - outside.top, SWP_NOMOVE | SWP_NOZORDER);
    port.settle();
    EXPECT_EQ(events, Names{"resized"});
    const view::Scale scale(resolutionOf(window()));
    EXPECT_EQ(scale.toPixels(form->Width), scale.toPixels(6000) + 60);
    ::ShowWindow(window(), SW_MINIMIZE);
    port.settle();
    EXPECT_EQ(form->WindowState, forms::WindowState::minimized);
    EXPECT_EQ(scale.toPixels(form->Width), scale.toPixels(6000) + 60);
    ::ShowWindow(window(), SW_RESTORE);
    port.settle();
    EXPECT_EQ(form->WindowState, forms::WindowState::normal);
}

TEST_F(FormWindowsTest, AModalFormTakesAllInputOfTheThreadUntilItEnds) {
    port.whileModal([&] {
        EXPECT_EQ(::IsWindowEnabled(port.host()), FALSE);
        EXPECT_NE(::IsWindowEnabled(window()), FALSE);
        events.push_back("open");
        port.closeWindow(*form);
    });
    form->Show(true);
    EXPECT_EQ(events, Names{"open"});
    EXPECT_TRUE(form->isUnloaded());
    EXPECT_NE(::IsWindowEnabled(port.host()), FALSE);
    EXPECT_EQ(::GetActiveWindow(), port.host());
}

TEST_F(FormWindowsTest, ABoxOverAFormTakesTheInputOfTheHostToo) {
    show();
    port.inNextPump([&] {
        EXPECT_EQ(::IsWindowEnabled(port.host()), FALSE);
        EXPECT_EQ(::IsWindowEnabled(window()), FALSE);
        EXPECT_EQ(::GetWindow(::FindWindowW(L"#32770", nullptr), GW_OWNER), window());
        port.answerNextBox(forms::MsgBoxResult::ok);
    });
    port.runtime().MsgBox("text", forms::MsgBoxStyle::kInformation, "title");
    EXPECT_NE(::IsWindowEnabled(port.host()), FALSE);
    EXPECT_NE(::IsWindowEnabled(window()), FALSE);
    EXPECT_EQ(::GetActiveWindow(), window());
}

TEST_F(FormWindowsTest, AFormThatEndsUnderABoxLeavesTheBoxOpen) {
    show();
    port.inNextPump([&] {
        form->Unload();
        form.reset();
        EXPECT_NE(::FindWindowW(L"#32770", nullptr), nullptr);
        port.answerNextBox(forms::MsgBoxResult::cancel);
    });
    EXPECT_EQ(port.runtime().MsgBox("text", forms::MsgBoxStyle::kOkCancel, "title"),
              forms::MsgBoxResult::cancel);
}

TEST_F(FormWindowsTest, TheEndOfTheHostsWindowEndsTheFormFirst) {
    show();
    form->Unloaded.connect(
        [&] { events.push_back(::IsWindow(port.host()) != FALSE ? "before" : "after"); });
    ::DestroyWindow(port.host());
    EXPECT_EQ(events, Names{"before"});
    EXPECT_TRUE(form->isUnloaded());
    EXPECT_EQ(window(), nullptr);
}

TEST_F(FormWindowsTest, AFormIsAboveAllOthersOnceItIsTopMost) {
    const auto isTopMost = [&] {
        return (::GetWindowLongPtrW(window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    };
    show();
    EXPECT_FALSE(isTopMost());
    form->TopMost = true;
    port.settle();
    EXPECT_TRUE(isTopMost());
    form->Unload();
    form = std::make_shared<SampleForm>();
    form->TopMost = true;
    show();
    EXPECT_TRUE(isTopMost());
}

TEST_F(FormWindowsTest, ThePointerShowsThatTheUserHasToWait) {
    show();
    const auto cursor = [&] {
        ::SendMessageW(window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window()),
                       MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return ::GetCursor();
    };
    form->MousePointer = forms::MousePointerShape::hourglass;
    port.settle();
    EXPECT_EQ(cursor(), ::LoadCursorW(nullptr, IDC_WAIT));
    form->MousePointer = forms::MousePointerShape::standard;
    port.settle();
    EXPECT_EQ(cursor(), ::LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(FormWindowsTest, OnAScreenOfAnotherResolutionEverythingGrowsWithIt) {
    show();
    RECT before{};
    ::GetClientRect(WindowsPort::nativeOf(form->ok), &before);
    const int resolution = resolutionOf(window());
    const RECT place{30, 40, 1000, 900};
    ::SendMessageW(window(), 0x02E0, MAKEWPARAM(2 * resolution, 2 * resolution),
                   reinterpret_cast<LPARAM>(&place));
    port.settle();
    RECT inside{};
    ::GetClientRect(window(), &inside);
    EXPECT_EQ(inside.right, view::Scale(2 * resolution).toPixels(6000));
    RECT after{};
    ::GetClientRect(WindowsPort::nativeOf(form->ok), &after);
    EXPECT_NEAR(after.bottom, 2 * before.bottom, 1);
    LOGFONTW font{};
    ::GetObjectW(
        reinterpret_cast<HFONT>(::SendMessageW(WindowsPort::nativeOf(form->ok), WM_GETFONT, 0, 0)),
        sizeof(font), &font);
    EXPECT_EQ(font.lfHeight, -::MulDiv(11, 2 * resolution, 96));
    EXPECT_EQ(form->Width, 6000);
}

TEST_F(FormWindowsTest, OtherColoursOfTheDesktopShowAtOnce) {
    show();
    const int what = COLOR_3DFACE;
    const COLORREF before = ::GetSysColor(what);
    const COLORREF other = RGB(1, 2, 3);
    const auto painted = [&] {
        const WindowContext screen;
        const Context memory(::CreateCompatibleDC(screen.get()));
        const Bitmap bitmap(::CreateCompatibleBitmap(screen.get(), 400, 300));
        const Selected selected(memory.get(), bitmap.get());
        ::SendMessageW(::GetWindow(window(), GW_CHILD), WM_PRINTCLIENT,
                       reinterpret_cast<WPARAM>(memory.get()), PRF_CLIENT);
        return ::GetPixel(memory.get(), 2, 2);
    };
    EXPECT_EQ(painted(), before);
    ::SetSysColors(1, &what, &other);
    ::SendMessageW(window(), WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(painted(), other);
    ::SetSysColors(1, &what, &before);
}

// The keyboard.

TEST_F(FormWindowsTest, TheHostsMessageLoopNeverSeesAKeyOfAForm) {
    show();
    focus(form->field);
    INPUT keys[2]{};
    keys[0].type = keys[1].type = INPUT_KEYBOARD;
    keys[0].ki.wVk = keys[1].ki.wVk = 'K';
    keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
    ::SendInput(2, keys, sizeof(INPUT));
    int seen = 0;
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ++seen;
        ::DispatchMessageW(&message);
    }
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(form->field.Text.get(), "k");
}

TEST_F(FormWindowsTest, KeysOfTheHostsOwnWindowAreTheHosts) {
    show();
    port.deactivate(*form);
    INPUT key{};
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = 'K';
    ::SendInput(1, &key, sizeof(key));
    bool seen = false;
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        seen = seen || (message.message == WM_KEYDOWN && message.wParam == 'K');
        ::DispatchMessageW(&message);
    }
    port.keyUp('K');
    EXPECT_TRUE(seen);
}

TEST_F(FormWindowsTest, AltAloneIsHeardByABoxAndOpensNoMenuOfTheWindow) {
    show();
    form->box.KeyUp.connect([this](std::int16_t code, std::int16_t) {
        events.push_back("up " + std::to_string(code));
    });
    focus(form->box);
    port.press(VK_MENU);
    EXPECT_EQ(events, Names{"up 18"});
    GUITHREADINFO state{};
    state.cbSize = sizeof(state);
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &state);
    EXPECT_EQ(state.flags & GUI_INMENUMODE, 0U);
    EXPECT_EQ(form->focused(), &form->box);
}

TEST_F(FormWindowsTest, AltWithALetterInvokesItsControlAndIsNotHeardAsAltAlone) {
    show();
    form->box.KeyUp.connect([this](std::int16_t code, std::int16_t) {
        events.push_back("up " + std::to_string(code));
    });
    focus(form->field);
    port.keyDown(VK_MENU);
    port.press('B');
    port.keyUp(VK_MENU);
    EXPECT_EQ(form->focused(), &form->box);
    EXPECT_EQ(form->box.Value, forms::CheckValue::kTicked);
    EXPECT_TRUE(events.empty());
}

TEST_F(FormWindowsTest, SpacePressesWhatHasTheFocus) {
    show();
    focus(form->box);
    port.press(VK_SPACE);
    EXPECT_EQ(form->box.Value, forms::CheckValue::kTicked);
    form->ok.Click.connect([this] { events.push_back("ok"); });
    focus(form->ok);
    port.press(VK_SPACE);
    EXPECT_EQ(events, Names{"ok"});
}

TEST_F(FormWindowsTest, TextsOfAnyLanguageAreTyped) {
    show();
    port.type(form->field, "žluť 🖌 ď");
    EXPECT_EQ(form->field.Text.get(), "žluť 🖌 ď");
}

// The mouse.

TEST_F(FormWindowsTest, AnImageGetsAPressAndAReleaseOutsideOfItButNoClick) {
    show();
    const auto note = [this](const char* what) { events.push_back(what); };
    form->image.MouseDown.connect([=](const forms::MouseEvent&) { note("down"); });
    form->image.MouseUp.connect([=](const forms::MouseEvent&) { note("up"); });
    form->image.Click.connect([=] { note("click"); });
    form->image.DblClick.connect([=] { note("double"); });
    port.click(form->image);
    EXPECT_EQ(events, (Names{"down", "up", "click"}));
    port.click(form->image);
    EXPECT_EQ(events, (Names{"down", "up", "click", "down", "up", "click", "double"}));
    events.clear();
    port.pointAt(form->image);
    port.button(MOUSEEVENTF_LEFTDOWN);
    port.pointAt(form->ok);
    port.button(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(events, (Names{"down", "up"}));
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(FormWindowsTest, ADraggedControlIsDroppedWhereTheButtonComesUp) {
    show();
    form->image.MouseDown.connect([this](const forms::MouseEvent&) { form->image.Drag(); });
    form->target.DragOver.connect([this](forms::Control&, float, float, forms::DragState state) {
        if (state == forms::DragState::enter) events.push_back("enter");
        if (state == forms::DragState::leave) events.push_back("leave");
    });
    form->target.DragDrop.connect(
        [this](forms::Control& dragged, float, float) { events.push_back(dragged.name()); });
    port.pointAt(form->image);
    port.button(MOUSEEVENTF_LEFTDOWN);
    EXPECT_EQ(form->dragged(), &form->image);
    port.pointAt(form->target);
    port.pointAt(form->ok);
    port.pointAt(form->target);
    port.button(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(events, (Names{"enter", "leave", "enter", "image"}));
    EXPECT_EQ(form->dragged(), nullptr);
}

TEST_F(FormWindowsTest, AMouseTakenAwayByTheSystemEndsADrag) {
    show();
    form->image.MouseDown.connect([this](const forms::MouseEvent&) { form->image.Drag(); });
    port.pointAt(form->image);
    port.button(MOUSEEVENTF_LEFTDOWN);
    ASSERT_EQ(form->dragged(), &form->image);
    ::ReleaseCapture();
    port.settle();
    EXPECT_EQ(form->dragged(), nullptr);
    port.button(MOUSEEVENTF_LEFTUP);
}

TEST_F(FormWindowsTest, ADragBeyondTheEdgeScrollsUntilItEnds) {
    show();
    form->image.MouseDown.connect([this](const forms::MouseEvent&) { form->image.Drag(); });
    port.pointAt(form->image);
    port.button(MOUSEEVENTF_LEFTDOWN);
    const RECT view = port.placeOf(form->view);
    port.pointAt({view.left + 20, view.bottom + 20});
    port.waitUntil([&] { return form->bar.value() >= 20; }, "two steps");
    port.button(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(form->dragged(), nullptr);
}

TEST_F(FormWindowsTest, AnErrorInAStepOfScrollingIsReportedAndTheNextStepComes) {
    constexpr std::int32_t kInHandler = 91;
    show();
    form->image.MouseDown.connect([this](const forms::MouseEvent&) { form->image.Drag(); });
    form->bar.Change.connect([&] { throw base::Error(kInHandler, "x"); });
    port.pointAt(form->image);
    port.button(MOUSEEVENTF_LEFTDOWN);
    const RECT view = port.placeOf(form->view);
    port.pointAt({view.left + 20, view.bottom + 20});
    port.waitUntil([&] { return unhandled.size() >= 2; }, "the errors of two steps");
    port.button(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(std::ranges::all_of(unhandled, [](auto each) { return each == kInHandler; }));
    EXPECT_GE(form->bar.value(), 20);
    EXPECT_EQ(form->dragged(), nullptr);
    unhandled.clear();
}

TEST_F(FormWindowsTest, TheWheelScrollsWhatIsUnderThePointerWhereverTheFocusIs) {
    show();
    focus(form->field);
    port.pointAt(form->view);
    port.turnWheel(-2);
    EXPECT_EQ(form->bar.value(), 20);
    port.turnWheel(1);
    EXPECT_EQ(form->bar.value(), 10);
    port.deactivate(*form);
    port.turnWheel(-1);
    EXPECT_EQ(form->bar.value(), 20);
    const auto top = [&] {
        return ::SendMessageW(WindowsPort::nativeOf(form->list), LB_GETTOPINDEX, 0, 0);
    };
    port.pointAt(form->list);
    port.turnWheel(-1);
    EXPECT_GT(top(), 0);
    EXPECT_EQ(form->bar.value(), 20);
}

TEST_F(FormWindowsTest, ABarScrollsByItsArrows) {
    show();
    const RECT bar = port.placeOf(form->bar);
    port.clickAt({(bar.left + bar.right) / 2, bar.bottom - 4});
    EXPECT_EQ(form->bar.value(), 10);
    port.clickAt({(bar.left + bar.right) / 2, bar.top + 4});
    EXPECT_EQ(form->bar.value(), 0);
}

TEST_F(FormWindowsTest, ABarThatIsDisabledStaysSoWhenItsRangeChanges) {
    form->bar.Enabled = false;
    show();
    form->bar.Max = 500;
    form->bar.Height = 1200;
    port.settle();
    const HWND bar = WindowsPort::nativeOf(form->bar);
    EXPECT_EQ(::IsWindowEnabled(bar), FALSE);
    form->bar.Enabled = true;
    form->bar.Max = 700;
    port.settle();
    EXPECT_NE(::IsWindowEnabled(bar), FALSE);
}

TEST_F(FormWindowsTest, ATipShowsWhereTheMouseRests) {
    form->image.ToolTipText = std::string("Popisek č. 1");
    show();
    port.pointAt(form->image);
    HWND tip = nullptr;
    port.waitUntil(
        [&] {
            tip = ::FindWindowW(TOOLTIPS_CLASSW, nullptr);
            return tip != nullptr && ::IsWindowVisible(tip) != FALSE;
        },
        "the tip");
    EXPECT_EQ(captionOf(tip), "Popisek č. 1");
    form->Unload();
    EXPECT_EQ(::IsWindow(tip), FALSE);
}

// Menus.

class MenuTest : public FormWindowsTest {
 protected:
    MenuTest() {
        grey.Enabled = false;
        ticked.Checked = true;
        plain.Click.connect([this] { events.push_back("plain"); });
        form->image.Click.connect([this] {
            events.push_back("open");
            port.runtime().PopupMenu(menu, form->image, 0, 0);
        });
        show();
    }

    forms::PopupMenu menu{"menu"};
    forms::MenuItem plain{menu, "plain", "&První"};
    forms::MenuItem grey{menu, "grey", "Druhá"};
    forms::MenuItem line{menu, "line", "-"};
    forms::MenuItem ticked{menu, "ticked", "Třetí"};
};

TEST_F(MenuTest, LinesAreDisabledTickedAndSeparatedAsTheItemsSay) {
    port.whenMenuIsOpen([&] {
        const auto shown = reinterpret_cast<HMENU>(
            ::SendMessageW(::FindWindowW(L"#32768", nullptr), 0x01E1, 0, 0));
        const auto state = [&](UINT at) { return ::GetMenuState(shown, at, MF_BYPOSITION); };
        EXPECT_EQ(::GetMenuItemCount(shown), 4);
        EXPECT_EQ(state(0) & (MF_GRAYED | MF_CHECKED | MF_SEPARATOR), 0U);
        EXPECT_NE(state(1) & MF_GRAYED, 0U);
        EXPECT_NE(state(2) & MF_SEPARATOR, 0U);
        EXPECT_NE(state(3) & MF_CHECKED, 0U);
        ::EndMenu();
    });
    port.runtime().PopupMenu(menu, *form, 0, 0);
    EXPECT_TRUE(events.empty());
}

TEST_F(MenuTest, AKeyPicksOnceAndOnlyAfterTheMenuHasClosed) {
    plain.Click.connect([this] {
        events.push_back(::FindWindowW(L"#32768", nullptr) == nullptr ? "closed" : "open");
    });
    port.whenMenuIsOpen([] {
        INPUT keys[2]{};
        keys[0].type = keys[1].type = INPUT_KEYBOARD;
        keys[0].ki.wVk = keys[1].ki.wVk = 'P';
        keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
        ::SendInput(2, keys, sizeof(INPUT));
    });
    focus(form->field);
    port.runtime().PopupMenu(menu, *form, 0, 0);
    port.settle();
    EXPECT_EQ(events, (Names{"plain", "closed"}));
    EXPECT_EQ(form->field.Text.get(), "");
}

TEST_F(MenuTest, TheEndOfTheFormClosesItsMenu) {
    port.whenMenuIsOpen([&] { form->Unload(); });
    port.runtime().PopupMenu(menu, *form, 0, 0);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(::FindWindowW(L"#32768", nullptr), nullptr);
}

TEST_F(MenuTest, ThePressThatClosesAMenuDoesNotOpenItAgain) {
    const RECT image = port.placeOf(form->image);
    // The menu covers what is below and to the right of its place.
    const POINT at{image.left + 2, image.top + 2};
    form->image.Click = {};
    form->image.Click.connect([this] {
        events.push_back("open");
        port.runtime().PopupMenu(menu, form->image, 200, 200);
    });
    port.whenMenuIsOpen([at] {
        ::SetCursorPos(at.x, at.y);
        INPUT buttons[2]{};
        buttons[0].type = buttons[1].type = INPUT_MOUSE;
        buttons[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
        buttons[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
        ::SendInput(2, buttons, sizeof(INPUT));
    });
    port.clickAt(at);
    port.settle();
    EXPECT_EQ(::FindWindowW(L"#32768", nullptr), nullptr);
    EXPECT_EQ(events, (Names{"open", "open"})) << "the click is heard, and nothing opens";
}

// Robustness.

TEST_F(FormWindowsTest, AHundredFormsLeaveNeitherWindowsNorObjectsBehind) {
    const auto round = [this] {
        form = std::make_shared<SampleForm>();
        show();
        port.pointAt(form->image);
        for (int notch = 0; notch < 5; ++notch) port.turnWheel(-1);
        form->Unload();
        port.settle();
    };
    const auto inUse = [] {
        return std::pair(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS),
                         ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS));
    };
    round();
    const auto before = inUse();
    for (int i = 0; i < 100; ++i) round();
    EXPECT_EQ(inUse(), before);
}

TEST(FormWindowsEnd, TheRuntimeMayEndInsideAHandler) {
    WindowsPort port;
    struct Session {
        std::unique_ptr<WindowsRuntime> runtime;
    };
    auto session = std::make_shared<Session>();
    const std::weak_ptr<Session> watched = session;
    int inside = 0;
    session->runtime =
        std::make_unique<WindowsRuntime>([watched, &inside](const std::function<void()>& handler) {
            const std::shared_ptr<Session> alive = watched.lock();
            ASSERT_NE(alive, nullptr);
            const forms::RuntimeScope scope(*alive->runtime);
            ++inside;
            handler();
            --inside;
        });
    auto form = std::make_shared<SampleForm>();
    bool clicked = false;
    form->ok.Click.connect([&] {
        clicked = true;
        form->Unload();
        form.reset();
        session.reset();
        EXPECT_FALSE(watched.expired()) << "the handler keeps it";
        EXPECT_GT(inside, 0);
    });
    HWND button = nullptr;
    {
        const forms::RuntimeScope scope(*session->runtime);
        form->Show();
        session->runtime->DoEvents();
        button = WindowsPort::nativeOf(form->ok);
    }
    ::SendMessageW(button, BM_CLICK, 0, 0);
    port.settle();
    EXPECT_TRUE(clicked);
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(inside, 0);
}

TEST(FormWindowsErrors, WhatIsThrownOnTheWayFromTheSystemIsReportedAndGoesNoFurther) {
    WindowsPort port;
    const forms::RuntimeScope scope(port.runtime());
    std::vector<std::int32_t> unhandled;
    port.runtime().UnhandledError.connect(
        [&](const base::Error& error) { unhandled.push_back(error.number()); });
    port.runtime().windows().enter()([] { throw base::Error(91, "x"); });
    EXPECT_EQ(unhandled, std::vector<std::int32_t>{91});
}

}  // namespace
}  // namespace huebrush::word
