// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>

#include "forms/Runtime.h"

namespace huebrush::word {

/// The user's settings where the classic forms runtime keeps them, as texts: in the user's part of
/// the registry, below "Software\VB and VBA Program Settings", by application and section.
class RegistrySettings final : public forms::Settings {
 public:
    std::optional<std::string> GetSetting(const std::string& application,
                                          const std::string& section,
                                          const std::string& key) override;
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override;
};

}  // namespace huebrush::word
