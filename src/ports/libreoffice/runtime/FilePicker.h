// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindow.hpp>
#include <string>

#include "forms/FileDialog.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

using FileDialogOwner = com::sun::star::uno::Reference<com::sun::star::awt::XWindow>;

/// Shows the office's file dialog above a window, which gets no input meanwhile, and returns the
/// full path chosen; an error (32755) when the user cancels it. For the main thread only.
std::string pickFile(const ContextReference& context, const FileDialogOwner& owner,
                     const forms::FileDialog& dialog);

}  // namespace huebrush::libreoffice
