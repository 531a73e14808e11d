// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

namespace huebrush::word {

std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

/// A text as COM passes it on, freed at the end of this object.
class Text {
 public:
    Text() = default;
    explicit Text(std::string_view utf8);
    Text(Text&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Text& operator=(Text other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    Text(const Text&) = delete;
    ~Text() { ::SysFreeString(text_); }

    /// The text, which the caller has to free.
    BSTR release() { return std::exchange(text_, nullptr); }

 private:
    BSTR text_ = nullptr;
};

/// A text of COM, with its own length, as UTF-8; none is the empty one. It has a name of its own
/// because any wide text would be taken for such a one.
std::string textOf(BSTR text);

}  // namespace huebrush::word
