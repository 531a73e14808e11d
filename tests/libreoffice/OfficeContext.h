// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::tests {

/// The component context of the office that the tests run in.
libreoffice::ContextReference officeContext();

/// Lets the office do what waits to be done; on the main thread only.
void processEvents();

}  // namespace huebrush::tests
