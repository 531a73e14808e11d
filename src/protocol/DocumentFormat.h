// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <string_view>

namespace huebrush::protocol {

/// A format of text documents that hold drawing shapes.
struct DocumentFormat {
    std::string_view ending;  ///< of file names, with its dot
    std::string_view filter;  ///< the office's name of it
    bool isStored;            ///< whether the office stores the fills of shapes in it
};

/// The format that a file name's ending stands for, in any case; nullptr when there is none.
const DocumentFormat* formatOfName(std::string_view fileName);
/// The format of a document that the office has opened by a filter; nullptr for any other document.
const DocumentFormat* formatOfFilter(std::string_view filter);

/// The endings of the formats in which documents are stored, for a message.
std::string storedEndings();

}  // namespace huebrush::protocol
