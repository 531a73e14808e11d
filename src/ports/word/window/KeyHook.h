// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

namespace huebrush::word {

/// While it lives, the keys of our forms' windows come to the forms before anything that the host's
/// message loop makes of them, and the wheel comes to the window under the pointer. Nothing of what
/// they do happens in the hook itself.
class KeyHook {
 public:
    KeyHook();
    KeyHook(const KeyHook&) = delete;
    KeyHook& operator=(const KeyHook&) = delete;
    ~KeyHook();

 private:
    static LRESULT CALLBACK procedure(int code, WPARAM removal, LPARAM message);

    HHOOK hook_;
};

}  // namespace huebrush::word
