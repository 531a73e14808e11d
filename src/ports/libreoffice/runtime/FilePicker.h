// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "forms/FileDialog.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Shows the office's file dialog and returns the full path chosen; an error (32755) when the user
/// cancels it. For the main thread only.
std::string pickFile(const ContextReference& context, const forms::FileDialog& dialog);

}  // namespace huebrush::libreoffice
