#pragma once

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::tests {

/// The component context of the office that the tests run in.
libreoffice::ContextReference officeContext();

}  // namespace huebrush::tests
