// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace huebrush::documents {

/// Why a document cannot be read or changed: one line, fit for the user, that goes on after the
/// document's name ("is damaged: …").
class DocumentError : public std::runtime_error {
 public:
    /// Names that documents have may hold any bytes: control characters become question marks.
    explicit DocumentError(std::string line) : std::runtime_error(inOneLine(std::move(line))) {}

 private:
    static std::string inOneLine(std::string line) {
        constexpr char kDelete = 0x7F;
        std::replace_if(
            line.begin(), line.end(),
            [](char each) { return (each >= 0 && each < ' ') || each == kDelete; }, '?');
        return line;
    }
};

}  // namespace huebrush::documents
