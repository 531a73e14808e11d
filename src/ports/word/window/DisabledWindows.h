// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <vector>

namespace huebrush::word {

/// While it lives, the windows of this thread other than one take no input: the user has to finish
/// with that one first.
class DisabledWindows {
 public:
    explicit DisabledWindows(HWND other);
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;
    ~DisabledWindows();

 private:
    static BOOL CALLBACK disable(HWND window, LPARAM self);

    HWND other_;
    std::vector<HWND> disabled_;
};

}  // namespace huebrush::word
