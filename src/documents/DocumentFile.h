// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "documents/model/ShapeFile.h"

namespace huebrush::documents {

/// Whether files with this ending (with its dot, in any case) are of a format that can be worked on
/// here.
bool isKnownEnding(std::string_view ending);

/// Whether a file with these bytes and this ending (with its dot, in any case) is one of a format
/// that can be worked on here. It may still be damaged.
bool isKnownFormat(std::string_view bytes, std::string_view ending);

/// Whether these are the bytes of a package whose parts are encrypted, as OpenDocument does it.
bool isEncrypted(std::string bytes);

/// Reads a document. DocumentError when it is none of a known format, or damaged.
std::unique_ptr<ShapeFile> openDocument(std::string bytes);

}  // namespace huebrush::documents
