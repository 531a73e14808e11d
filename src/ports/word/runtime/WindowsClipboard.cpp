// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/WindowsClipboard.h"

#include <cstring>

#include "base/Error.h"
#include "ports/word/graphics/PictureFormats.h"

namespace huebrush::word {

namespace {

constexpr std::int32_t kClipboardBusy = 521;

[[noreturn]] void throwBusy() {
    throw base::Error(kClipboardBusy, "Schránku nelze otevřít.");
}

/// The bytes of a global block, for as long as this lives.
class Locked {
 public:
    explicit Locked(HGLOBAL block) : block_(block), bytes_(::GlobalLock(block)) {}
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() {
        if (bytes_ != nullptr) ::GlobalUnlock(block_);
    }

    void* get() const { return bytes_; }
    std::size_t size() const { return ::GlobalSize(block_); }

 private:
    HGLOBAL block_;
    void* bytes_;
};

base::Picture metafileOnClipboard() {
    const HANDLE block = ::GetClipboardData(CF_METAFILEPICT);
    if (block == nullptr) return {};
    const Locked locked(block);
    if (locked.get() == nullptr || locked.size() < sizeof(METAFILEPICT)) return {};
    return fromMetafile(*static_cast<const METAFILEPICT*>(locked.get()));
}

base::Picture bitmapOnClipboard() {
    const HANDLE block = ::GetClipboardData(CF_DIB);
    if (block == nullptr) return {};
    const Locked locked(block);
    if (locked.get() == nullptr) return {};
    return fromBitmapInMemory({static_cast<const std::uint8_t*>(locked.get()), locked.size()});
}

void putMetafile(const base::Picture& picture) {
    const METAFILEPICT metafile = toMetafile(picture);
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, sizeof(metafile));
    std::memcpy(Locked(block).get(), &metafile, sizeof(metafile));
    if (::SetClipboardData(CF_METAFILEPICT, block) == nullptr) {
        ::DeleteMetaFile(metafile.hMF);
        ::GlobalFree(block);
        throwBusy();
    }
}

void putBitmap(const base::Picture& picture) {
    const HBITMAP bitmap = toScreenBitmap(picture);
    if (::SetClipboardData(CF_BITMAP, bitmap) == nullptr) {
        ::DeleteObject(bitmap);
        throwBusy();
    }
}

}  // namespace

/// The clipboard, which only one program has at a time.
class WindowsClipboard::Open {
 public:
    explicit Open(HWND owner) {
        if (::OpenClipboard(owner) == FALSE) throwBusy();
    }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    ~Open() { ::CloseClipboard(); }
};

WindowsClipboard::~WindowsClipboard() {
    if (owner_ != nullptr) ::DestroyWindow(owner_);
}

HWND WindowsClipboard::owner() {
    if (owner_ == nullptr) {
        owner_ = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                   nullptr);
    }
    return owner_;
}

void WindowsClipboard::Clear() {
    const Open open(owner());
    ::EmptyClipboard();
}

base::Picture WindowsClipboard::GetData() {
    const Open open(owner());
    // In the order in which they were put there: the form that its owner knows best comes first.
    // The system makes either of two forms of the other.
    for (UINT format = ::EnumClipboardFormats(0); format != 0;
         format = ::EnumClipboardFormats(format)) {
        if (format == CF_METAFILEPICT || format == CF_ENHMETAFILE) return metafileOnClipboard();
        if (format == CF_DIB || format == CF_BITMAP) return bitmapOnClipboard();
    }
    return {};
}

void WindowsClipboard::SetData(const base::Picture& picture) {
    const Open open(owner());
    ::EmptyClipboard();
    if (picture.empty()) return;
    if (picture.format() == base::PictureFormat::metafile) {
        putMetafile(picture);
    } else {
        putBitmap(picture);
    }
}

}  // namespace huebrush::word
