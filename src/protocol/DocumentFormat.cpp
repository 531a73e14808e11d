// SPDX-License-Identifier: MPL-2.0

#include "protocol/DocumentFormat.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/Text.h"

namespace huebrush::protocol {

namespace {

/// Where several filters share an ending, the first one stores.
constexpr std::array kFormats{
    DocumentFormat{".odt", "writer8", true},
    DocumentFormat{".ott", "writer8_template", true},
    DocumentFormat{".fodt", "OpenDocument Text Flat XML", true},
    DocumentFormat{".docx", "MS Word 2007 XML", true},
    DocumentFormat{".docx", "Office Open XML Text", true},
    DocumentFormat{".docm", "MS Word 2007 XML VBA", true},
    DocumentFormat{".dotx", "MS Word 2007 XML Template", true},
    DocumentFormat{".dotx", "Office Open XML Text Template", true},
    DocumentFormat{".doc", "MS Word 97", true},
    DocumentFormat{".doc", "MS Word 95", false},
    DocumentFormat{".doc", "MS WinWord 6.0", false},
    DocumentFormat{".dot", "MS Word 97 Vorlage", true},
    DocumentFormat{".dot", "MS Word 95 Vorlage", false},
    DocumentFormat{".rtf", "Rich Text Format", false},
};

template <class Test>
const DocumentFormat* find(const Test& test) {
    const auto* const found = std::find_if(kFormats.begin(), kFormats.end(), test);
    return found == kFormats.end() ? nullptr : found;
}

}  // namespace

const DocumentFormat* formatOfName(std::string_view fileName) {
    const std::string_view name = fileName.substr(fileName.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return nullptr;
    const std::string ending = base::lowerCase(name.substr(dot));
    return find([&](const DocumentFormat& format) { return format.ending == ending; });
}

const DocumentFormat* formatOfFilter(std::string_view filter) {
    return find([&](const DocumentFormat& format) { return format.filter == filter; });
}

std::string storedEndings() {
    std::string endings;
    for (const DocumentFormat& format : kFormats) {
        // Each ending is listed once.
        if (!format.isStored || formatOfName("x" + std::string(format.ending)) != &format) continue;
        endings.append(endings.empty() ? "" : ", ").append(format.ending);
    }
    return endings;
}

}  // namespace huebrush::protocol
