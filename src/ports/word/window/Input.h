// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>

#include "ports/word/window/Window.h"
#include "view/Key.h"
#include "view/MouseInput.h"

namespace huebrush::word {

/// The shift state as of the message that is being answered.
std::int16_t shiftState();

/// A key of WM_KEYDOWN and its kin, by its virtual code, which is the classic one.
view::Key keyOf(const Message& message, char16_t character);

/// What the mouse did in the window of a control; nothing for a message of another kind.
std::optional<view::MouseInput> mouseInput(const Message& message,
                                           const view::ControlReference& control);

}  // namespace huebrush::word
