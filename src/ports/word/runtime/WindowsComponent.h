// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "forms/Runtime.h"

namespace huebrush::word {

/// The full name of the file of the module that this code is in.
std::string moduleFile();

/// The module, and its user.
class WindowsComponent final : public forms::Component {
 public:
    std::string version() const override;
    std::string name() const override;
    std::string folder() const override;
    /// The module's own folder: palettes lie beside it.
    std::string userFolder() const override { return folder(); }
    std::string temporaryFolder() const override;
    base::Picture icon(std::int32_t number) const override;
    char decimalSeparator() const override;
};

}  // namespace huebrush::word
