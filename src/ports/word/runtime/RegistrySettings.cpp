// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/RegistrySettings.h"

#include "base/Text.h"
#include "ports/word/runtime/RegistryKey.h"

namespace huebrush::word {

namespace {

std::string pathOf(const std::string& application, const std::string& section) {
    return base::text(R"(Software\VB and VBA Program Settings\)", application, "\\", section);
}

}  // namespace

std::optional<std::string> RegistrySettings::GetSetting(const std::string& application,
                                                        const std::string& section,
                                                        const std::string& key) {
    return RegistryKey::open(HKEY_CURRENT_USER, pathOf(application, section)).text(key);
}

void RegistrySettings::SaveSetting(const std::string& application, const std::string& section,
                                   const std::string& key, const std::string& value) {
    RegistryKey::make(HKEY_CURRENT_USER, pathOf(application, section)).setText(key, value);
}

}  // namespace huebrush::word
