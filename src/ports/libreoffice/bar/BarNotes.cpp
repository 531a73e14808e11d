// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/BarNotes.h"

namespace huebrush::libreoffice {

namespace {

/// Kept apart from the add-in's own settings.
constexpr const char* kApplication = "Huebrush.LibreOffice";
constexpr const char* kToolTips = "ToolTips";
constexpr const char* kCreatedBars = "CreatedBars";
constexpr const char* kYes = "1";

}  // namespace

std::string BarNotes::toolTip(const std::string& command) {
    return read(kToolTips, command);
}

void BarNotes::setToolTip(const std::string& command, const std::string& text) {
    write(kToolTips, command, text);
}

bool BarNotes::isCreatedByUs(const std::string& url) {
    return read(kCreatedBars, url) == kYes;
}

void BarNotes::setCreatedByUs(const std::string& url, bool created) {
    write(kCreatedBars, url, created ? kYes : "");
}

std::string BarNotes::read(const char* section, const std::string& key) {
    return settings_.GetSetting(kApplication, section, key).value_or("");
}

/// Most values stay the same from session to session.
void BarNotes::write(const char* section, const std::string& key, const std::string& value) {
    if (read(section, key) != value) settings_.SaveSetting(kApplication, section, key, value);
}

}  // namespace huebrush::libreoffice
