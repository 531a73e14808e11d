// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Text.h"

#include <new>

#include "base/Text.h"

namespace huebrush::word {

std::wstring toWide(std::string_view utf8) {
    const std::u16string units = base::toUtf16(utf8);
    return {units.begin(), units.end()};
}

std::string toUtf8(std::wstring_view wide) {
    return base::toUtf8(std::u16string(wide.begin(), wide.end()));
}

Text::Text(std::string_view utf8) {
    const std::wstring wide = toWide(utf8);
    text_ = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (text_ == nullptr) throw std::bad_alloc();
}

std::string textOf(BSTR text) {
    return text == nullptr ? std::string() : toUtf8(std::wstring_view(text, ::SysStringLen(text)));
}

}  // namespace huebrush::word
