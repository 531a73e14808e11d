// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/Picture.h"
#include "forms/Font.h"

namespace huebrush::forms {

/// The saved properties of one user control, in the order in which they were written. A value that
/// equals its default is not kept, and reading a name that is not kept gives the reader's default.
class PropertyBag {
 public:
    using Value = std::variant<bool, std::int16_t, std::uint32_t, std::string, Font, base::Picture>;

    template <class T>
    void WriteProperty(const std::string& name, const T& value, const T& defaultValue) {
        written_.push_back(name);
        if (!(value == defaultValue)) kept_.emplace_back(name, value);
    }

    template <class T>
    T ReadProperty(const std::string& name, const T& defaultValue) const {
        for (const auto& [keptName, value] : kept_) {
            if (keptName == name) return std::get<T>(value);
        }
        return defaultValue;
    }

    /// The names in the order of their WriteProperty calls, kept or not.
    const std::vector<std::string>& written() const { return written_; }

 private:
    std::vector<std::string> written_;
    std::vector<std::pair<std::string, Value>> kept_;
};

}  // namespace huebrush::forms
