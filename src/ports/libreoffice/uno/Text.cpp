// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

rtl::OUString toOffice(std::string_view utf8) {
    return {utf8.data(), static_cast<sal_Int32>(utf8.size()), RTL_TEXTENCODING_UTF8};
}

std::string fromOffice(const rtl::OUString& text) {
    const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

}  // namespace huebrush::libreoffice
