// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include "forms/Runtime.h"

namespace huebrush::word {

/// The system's clipboard, which Word's CopyFace, PasteFace and Copy use. A picture comes from it
/// as the file of a bitmap or, with the header that gives its place, of a metafile, whatever form
/// it has there; a bitmap goes onto it in the format of the screen, as PasteFace wants it.
class WindowsClipboard final : public forms::Clipboard {
 public:
    WindowsClipboard() = default;
    WindowsClipboard(const WindowsClipboard&) = delete;
    WindowsClipboard& operator=(const WindowsClipboard&) = delete;
    ~WindowsClipboard() override;

    void Clear() override;
    base::Picture GetData() override;
    void SetData(const base::Picture& picture) override;

 private:
    class Open;
    /// The window that owns what we put there: without one nothing can be put there.
    HWND owner();

    HWND owner_ = nullptr;
};

}  // namespace huebrush::word
