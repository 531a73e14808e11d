// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/native/TextLines.h"

#include <cstddef>

#include "base/Text.h"

namespace huebrush::libreoffice {

namespace {

template <class Text>
bool isLeftOut(const Text& text, std::size_t at) {
    return text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
}

}  // namespace

std::string toOfficeLines(const std::string& text) {
    std::string lines;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isLeftOut(text, at)) lines += text[at];
    }
    return lines;
}

std::string fromOfficeLines(const std::string& text) {
    std::string lines;
    for (const char each : text) {
        if (each == '\n') lines += '\r';
        lines += each;
    }
    return lines;
}

std::int32_t toOfficePlace(const std::string& text, std::int32_t place) {
    const std::u16string units = base::toUtf16(text);
    std::int32_t found = 0;
    for (std::size_t at = 0; at < units.size() && at < static_cast<std::size_t>(place); ++at) {
        if (!isLeftOut(units, at)) ++found;
    }
    return found;
}

std::int32_t fromOfficePlace(const std::string& text, std::int32_t officePlace) {
    const std::u16string units = base::toUtf16(text);
    std::size_t at = 0;
    for (std::int32_t seen = 0; at < units.size() && seen < officePlace; ++at) {
        if (!isLeftOut(units, at)) ++seen;
    }
    return static_cast<std::int32_t>(at);
}

}  // namespace huebrush::libreoffice
