// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace huebrush::word {

struct GdiObjectDeleter {
    void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
struct ContextDeleter {
    void operator()(HDC context) const { ::DeleteDC(context); }
};
struct IconDeleter {
    void operator()(HICON icon) const { ::DestroyIcon(icon); }
};
struct EnhancedMetafileDeleter {
    void operator()(HENHMETAFILE metafile) const { ::DeleteEnhMetaFile(metafile); }
};

// What the system draws with, given back at the end of these objects.
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiObjectDeleter>;
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiObjectDeleter>;
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiObjectDeleter>;
using Pen = std::unique_ptr<std::remove_pointer_t<HPEN>, GdiObjectDeleter>;
using Context = std::unique_ptr<std::remove_pointer_t<HDC>, ContextDeleter>;
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;
using EnhancedMetafile =
    std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, EnhancedMetafileDeleter>;

/// Puts an object into a context for a lifetime, and then what was there before.
class Selected {
 public:
    Selected(HDC context, HGDIOBJ object)
        : context_(context), before_(::SelectObject(context, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { ::SelectObject(context_, before_); }

 private:
    HDC context_;
    HGDIOBJ before_;
};

/// The context of a window's inside, or of the screen, for a lifetime.
class WindowContext {
 public:
    explicit WindowContext(HWND window = nullptr) : window_(window), context_(::GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() { ::ReleaseDC(window_, context_); }

    HDC get() const { return context_; }

 private:
    HWND window_;
    HDC context_;
};

}  // namespace huebrush::word
