// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>

#include "forms/System.h"

namespace huebrush::word {

class WindowsSystem final : public forms::System {
 public:
    std::optional<forms::RegistryValue> registryValue(forms::RegistryRoot root,
                                                      const std::string& key,
                                                      const std::string& name) override;
    bool fileExists(const std::string& path) override;
    void start(const std::string& path) override;
};

}  // namespace huebrush::word
