// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/WindowsRuntime.h"

#include <windows.h>

#include <commdlg.h>

#include "base/Error.h"
#include "forms/PopupMenu.h"
#include "ports/word/com/Text.h"
#include "ports/word/graphics/Icons.h"
#include "ports/word/window/FormWindow.h"

namespace huebrush::word {

WindowsRuntime::WindowsRuntime()
    : windows_([this](const std::function<void()>& handler) {
          const forms::RuntimeScope scope(*this);
          base::ignoring([&] {
              try {
                  handler();
              } catch (...) {
                  UnhandledError(base::currentError());
              }
          });
      }) {}

forms::MsgBoxResult WindowsRuntime::MsgBox(const std::string& text, std::int32_t style,
                                           const std::string& title) {
    windows_.flush();
    const auto held = windows_.hold();
    // Styles and answers have the system's numbers.
    const int answer = ::MessageBoxW(windows_.owner(), toWide(text).c_str(), toWide(title).c_str(),
                                     static_cast<UINT>(style) | MB_TASKMODAL);
    if (answer == 0) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          "Okno se zprávou nelze zobrazit.");
    }
    return static_cast<forms::MsgBoxResult>(answer);
}

std::string WindowsRuntime::ChooseFile(const forms::FileDialog& dialog) {
    windows_.flush();
    const auto held = windows_.hold();
    const std::wstring title = toWide(dialog.title);
    // Two texts, and an empty one that ends the list.
    const std::wstring kinds = toWide(dialog.description) + L'\0' + toWide(dialog.pattern) + L'\0';
    const std::wstring extension = toWide(dialog.pattern.substr(dialog.pattern.rfind('.') + 1));
    std::wstring file(32768, L'\0');
    OPENFILENAMEW choice{};
    choice.lStructSize = sizeof(choice);
    choice.hwndOwner = windows_.owner();
    choice.lpstrFilter = kinds.c_str();
    choice.lpstrFile = file.data();
    choice.nMaxFile = static_cast<DWORD>(file.size());
    choice.lpstrTitle = title.c_str();
    choice.lpstrDefExt = extension.c_str();
    choice.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR;
    const bool opens = dialog.purpose == forms::FileDialog::Purpose::open;
    choice.Flags |= opens ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT;
    if ((opens ? ::GetOpenFileNameW(&choice) : ::GetSaveFileNameW(&choice)) == FALSE) {
        base::throwCancelled();
    }
    file.resize(file.find(L'\0'));
    return toUtf8(file);
}

base::Picture WindowsRuntime::DrawIcon(const base::Picture& icon, const base::Picture& canvas) {
    base::Picture drawn = canvas;
    base::ignoring([&] { drawn = drawIconOn(icon, canvas); });
    return drawn;
}

void WindowsRuntime::DoEvents() {
    windows_.flush();
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            // It is meant for the host's own loop.
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void WindowsRuntime::PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) {
    const forms::Form& form = owner.form();
    const auto window = windows_.windowOf(form);
    if (window == nullptr) {
        throw base::Error(base::ErrorNumber::kInternal,
                          "Nabídka nemá okno, nad kterým by se otevřela.");
    }
    menu.Click();
    windows_.flush();
    forms::MenuItem* const item = window->pickFrom(menu, owner, x, y);
    if (item != nullptr && !form.isUnloaded()) item->Click();
}

void WindowsRuntime::showForm(forms::Form& form, bool modal) {
    windows_.show(form, modal);
}

}  // namespace huebrush::word
