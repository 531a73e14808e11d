// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "ports/libreoffice/runtime/OfficeSettings.h"

namespace huebrush::libreoffice {

/// What the office does not store of our bars, kept in the settings for a session after one that
/// did not end cleanly: the office then still has the bar of that session.
class BarNotes {
 public:
    explicit BarNotes(const ContextReference& context) : settings_(context) {}

    /// The tool tip last given to the button of a command; empty when there is none.
    std::string toolTip(const std::string& command);
    void setToolTip(const std::string& command, const std::string& text);

    /// Whether the bar of this URL was created by the add-in, not by the user.
    bool isCreatedByUs(const std::string& url);
    void setCreatedByUs(const std::string& url, bool created);

 private:
    std::string read(const char* section, const std::string& key);
    void write(const char* section, const std::string& key, const std::string& value);

    OfficeSettings settings_;
};

}  // namespace huebrush::libreoffice
