// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/Runtime.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Settings in the user's configuration of the office, in a set of our own schema.
class OfficeSettings final : public forms::Settings {
 public:
    explicit OfficeSettings(const ContextReference& context) : context_(context) {}

    std::optional<std::string> GetSetting(const std::string& application,
                                          const std::string& section,
                                          const std::string& key) override;
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override;

 private:
    ContextReference context_;
};

}  // namespace huebrush::libreoffice
