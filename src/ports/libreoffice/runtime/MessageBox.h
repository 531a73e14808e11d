// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "forms/Runtime.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/FormWindows.h"

namespace huebrush::libreoffice {

/// Shows the office's message box over a window, or over nothing when there is none, and returns
/// the button. Closing the box without a button counts as its refusing button.
forms::MsgBoxResult showMessageBox(const ContextReference& context, const FormWindows::Owner& owner,
                                   const std::string& text, std::int32_t style,
                                   const std::string& title);

}  // namespace huebrush::libreoffice
