// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::documents {

/// The bytes of a document without its signatures, which no longer hold once it has changed; all
/// else is as it is. The same bytes where it has none, and where they are no package. DocumentError
/// where the package is damaged.
std::string withoutSignatures(std::string bytes);

}  // namespace huebrush::documents
