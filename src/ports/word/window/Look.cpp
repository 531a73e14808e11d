// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Look.h"

#include <algorithm>
#include <cmath>

#include "base/Color.h"
#include "base/Units.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

std::int32_t systemColour(int number) {
    return base::swapRedAndBlue(static_cast<base::Rgb>(::GetSysColor(number)));
}

/// Where screens differ in their resolution, the system has this function (Windows 10).
using GetDpiForWindow = UINT(WINAPI*)(HWND);

GetDpiForWindow findGetDpiForWindow() {
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
    return reinterpret_cast<GetDpiForWindow>(reinterpret_cast<void*>(found));
}

}  // namespace

int resolutionOf(HWND window) {
    static const GetDpiForWindow ofWindow = findGetDpiForWindow();
    if (window != nullptr && ofWindow != nullptr) {
        if (const UINT dots = ofWindow(window); dots != 0) return static_cast<int>(dots);
    }
    return ::GetDeviceCaps(WindowContext().get(), LOGPIXELSX);
}

view::Theme systemTheme() {
    view::Theme theme;
    theme.dialog = systemColour(COLOR_3DFACE);
    theme.dialogText = systemColour(COLOR_BTNTEXT);
    theme.field = systemColour(COLOR_WINDOW);
    theme.fieldText = systemColour(COLOR_WINDOWTEXT);
    theme.face = systemColour(COLOR_3DFACE);
    theme.buttonText = systemColour(COLOR_BTNTEXT);
    theme.shadow = systemColour(COLOR_3DSHADOW);
    theme.highlight = systemColour(COLOR_HIGHLIGHT);
    theme.highlightText = systemColour(COLOR_HIGHLIGHTTEXT);
    theme.menu = systemColour(COLOR_MENU);
    theme.menuText = systemColour(COLOR_MENUTEXT);
    theme.workspace = systemColour(COLOR_APPWORKSPACE);
    theme.info = systemColour(COLOR_INFOBK);
    return theme;
}

COLORREF toSystem(std::int32_t colour) {
    return static_cast<COLORREF>(base::swapRedAndBlue(colour));
}

HFONT Look::font(const forms::Font& wanted) {
    FontHandle& known = fonts_[{wanted.Name, {wanted.Size, wanted.Bold}}];
    if (known) return known.get();
    LOGFONTW description{};
    description.lfHeight =
        -static_cast<LONG>(std::lround(wanted.Size * resolution_ / base::kPointsPerInch));
    description.lfWeight = wanted.Bold ? FW_BOLD : FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = toWide(wanted.Name);
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1),
                description.lfFaceName);
    known.reset(::CreateFontIndirectW(&description));
    return known.get();
}

HBRUSH Look::brush(std::int32_t colour) {
    Brush& known = brushes_[colour];
    if (!known) known.reset(::CreateSolidBrush(toSystem(colour)));
    return known.get();
}

}  // namespace huebrush::word
