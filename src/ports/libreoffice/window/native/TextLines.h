// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

/// Lines of a text box end with CR LF, those of the office's fields with LF alone; places are
/// counted in UTF-16 units of either text.
namespace huebrush::libreoffice {

/// Leaves out each CR before an LF.
std::string toOfficeLines(const std::string& text);
/// Puts a CR before each LF.
std::string fromOfficeLines(const std::string& text);

/// The place in the office's text for one in `text`, and the reverse.
std::int32_t toOfficePlace(const std::string& text, std::int32_t place);
std::int32_t fromOfficePlace(const std::string& text, std::int32_t officePlace);

}  // namespace huebrush::libreoffice
