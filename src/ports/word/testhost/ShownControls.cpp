// SPDX-License-Identifier: MPL-2.0

#include "ports/word/testhost/ShownControls.h"

#include <algorithm>
#include <cstddef>

#include "base/Text.h"
#include "ports/word/com/Text.h"
#include "ports/word/graphics/Gdi.h"

namespace huebrush::word {

namespace {

using base::text;

/// A text on a surface.
struct Written {
    POINT at{};
    std::string text;
};

/// A window that is read, and what of it has been read.
struct Reading {
    HWND window = nullptr;
    std::vector<std::string> lines;
};

std::wstring classOf(HWND window) {
    wchar_t name[64]{};
    ::GetClassNameW(window, name, 64);
    return name;
}

/// In one line.
std::string captionOf(HWND window) {
    std::wstring caption(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    caption.resize(static_cast<std::size_t>(
        ::GetWindowTextW(window, caption.data(), static_cast<int>(caption.size()))));
    std::ranges::replace_if(
        caption, [](wchar_t each) { return each < L' '; }, L' ');
    return toUtf8(caption);
}

bool isControl(const std::wstring& name) {
    constexpr const wchar_t* kKinds[] = {L"Button", L"ScrollBar", L"ListBox", L"Edit", L"Static"};
    return std::ranges::any_of(
        kKinds, [&](const wchar_t* kind) { return ::lstrcmpiW(name.c_str(), kind) == 0; });
}

LONG_PTR valueOf(HWND control, const std::wstring& name) {
    if (name == L"ScrollBar") return ::GetScrollPos(control, SB_CTL);
    return name == L"Button" ? ::SendMessageW(control, BM_GETCHECK, 0, 0) : 0;
}

RECT placeIn(HWND window, HWND child) {
    RECT place{};
    ::GetWindowRect(child, &place);
    ::MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

Written writtenBy(const ENHMETARECORD* record) {
    const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
    const auto* const first = reinterpret_cast<const wchar_t*>(
        reinterpret_cast<const std::byte*>(record) + text.offString);
    return {{text.ptlReference.x, text.ptlReference.y}, toUtf8(std::wstring(first, text.nChars))};
}

/// Where a record lays a picture; nothing for any other record.
RECT coveredBy(const ENHMETARECORD* record) {
    switch (record->iType) {
        case EMR_BITBLT:
        case EMR_STRETCHBLT:
        case EMR_ALPHABLEND:
        case EMR_SETDIBITSTODEVICE:
        case EMR_STRETCHDIBITS: {
            // Their beginnings are alike.
            const RECTL& bounds = reinterpret_cast<const EMRBITBLT*>(record)->rclBounds;
            return {bounds.left, bounds.top, bounds.right, bounds.bottom};
        }
        default:
            return {};
    }
}

int CALLBACK readRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM target) {
    auto& texts = *reinterpret_cast<std::vector<Written>*>(target);
    if (record->iType == EMR_EXTTEXTOUTW) {
        texts.push_back(writtenBy(record));
    } else {
        const RECT covered = coveredBy(record);
        std::erase_if(texts,
                      [&](const Written& each) { return ::PtInRect(&covered, each.at) != FALSE; });
    }
    return TRUE;
}

/// Has a window paint itself into a metafile, and reads which texts that shows in the end.
void readPainted(Reading& reading, HWND window) {
    const HDC record = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    if (record == nullptr) return;
    ::SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(record), PRF_CLIENT);
    const EnhancedMetafile painted(::CloseEnhMetaFile(record));
    std::vector<Written> texts;
    ::EnumEnhMetaFile(nullptr, painted.get(), &readRecord, &texts, nullptr);
    for (Written& each : texts) {
        ::MapWindowPoints(window, reading.window, &each.at, 1);
        reading.lines.push_back(text("text\t", each.at.x, "\t", each.at.y, "\t", each.text));
    }
}

void readControl(Reading& reading, HWND control, const std::wstring& name) {
    const RECT place = placeIn(reading.window, control);
    const auto style = ::GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
    reading.lines.push_back(text(
        "control\t", toUtf8(name), "\t", style, "\t", ::IsWindowEnabled(control) != FALSE ? 1 : 0,
        "\t", valueOf(control, name), "\t", place.left, "\t", place.top, "\t",
        place.right - place.left, "\t", place.bottom - place.top, "\t", captionOf(control)));
}

std::string itemOf(HWND list, WPARAM index) {
    const LRESULT length = ::SendMessageW(list, LB_GETTEXTLEN, index, 0);
    std::wstring item(static_cast<std::size_t>(length) + 1, L'\0');
    ::SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(item.data()));
    item.resize(static_cast<std::size_t>(length));
    return toUtf8(item);
}

void readItems(Reading& reading, HWND list) {
    const auto count = static_cast<WPARAM>(::SendMessageW(list, LB_GETCOUNT, 0, 0));
    for (WPARAM index = 0; index < count; ++index) {
        RECT place{};
        ::SendMessageW(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&place));
        ::MapWindowPoints(list, reading.window, reinterpret_cast<POINT*>(&place), 2);
        reading.lines.push_back(text("item\t", place.left, "\t", place.top, "\t",
                                     place.right - place.left, "\t", place.bottom - place.top, "\t",
                                     itemOf(list, index)));
    }
}

BOOL CALLBACK readChild(HWND child, LPARAM target) {
    if (::IsWindowVisible(child) == FALSE) return TRUE;
    auto& reading = *reinterpret_cast<Reading*>(target);
    const std::wstring name = classOf(child);
    if (isControl(name)) {
        readControl(reading, child, name);
        if (name == L"ListBox") readItems(reading, child);
    } else {
        readPainted(reading, child);
    }
    return TRUE;
}

BOOL CALLBACK addVisible(HWND window, LPARAM target) {
    if (::IsWindowVisible(window) != FALSE) {
        reinterpret_cast<std::vector<HWND>*>(target)->push_back(window);
    }
    return TRUE;
}

}  // namespace

std::vector<std::string> shownControls(HWND host) {
    std::vector<HWND> windows;
    ::EnumThreadWindows(::GetCurrentThreadId(), &addVisible, reinterpret_cast<LPARAM>(&windows));
    Reading reading;
    for (const HWND window : windows) {
        // Tool tips are windows of their own, and nobody's children.
        if (window == host || (::GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) {
            continue;
        }
        reading.window = window;
        RECT inside{};
        ::GetClientRect(window, &inside);
        reading.lines.push_back(
            text("window\t", inside.right, "\t", inside.bottom, "\t", captionOf(window)));
        ::EnumChildWindows(window, &readChild, reinterpret_cast<LPARAM>(&reading));
    }
    return reading.lines;
}

}  // namespace huebrush::word
