// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <stdexcept>

namespace huebrush::documents {

/// Why a document cannot be read or changed: one line, fit for the user, that goes on after the
/// document's name ("is damaged: …").
class DocumentError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

}  // namespace huebrush::documents
