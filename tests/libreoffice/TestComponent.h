// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "OfficeContext.h"
#include "ports/libreoffice/runtime/IconFiles.h"
#include "ports/libreoffice/runtime/OfficeComponent.h"

namespace huebrush::tests {

/// The folder of the extension that holds these tests; it has the component's icons and settings.
inline std::string testFolder() {
    return libreoffice::extensionFolder(officeContext(), "cz.huebrush.tests");
}

}  // namespace huebrush::tests
