// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "forms/System.h"

namespace huebrush::libreoffice {

/// The system under the office. There is no registry here; what it would say of the classic tool
/// for information about the system, it says of the first such tool of the desktops that is
/// installed.
class OfficeSystem final : public forms::System {
 public:
    std::optional<forms::RegistryValue> registryValue(forms::RegistryRoot root,
                                                      const std::string& key,
                                                      const std::string& name) override;
    bool fileExists(const std::string& path) override;
    void start(const std::string& path) override;
};

}  // namespace huebrush::libreoffice
