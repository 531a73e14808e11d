// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace huebrush::mapping {

/// Writes values as one line of text, a blank between them. Floats keep their exact value; in a
/// text everything but letters, digits and a few signs is escaped.
class FieldWriter {
 public:
    void add(std::int32_t value);
    void add(float value);
    void add(std::string_view value);
    const std::string& text() const { return text_; }

 private:
    void separate();
    std::string text_;
};

/// Reads them back in the same order. Once a value cannot be read, nothing more can.
class FieldReader {
 public:
    explicit FieldReader(std::string_view text) : rest_(text) {}

    bool read(std::int32_t& value);
    bool read(float& value);
    bool read(std::string& value);
    /// An enumeration with values from 0 to `last`, or kMixed where `first` is that.
    template <class Enumeration>
    bool readEnumeration(Enumeration& value, std::int32_t first, std::int32_t last) {
        std::int32_t number = 0;
        if (!read(number) || number < first || number > last) return false;
        value = static_cast<Enumeration>(number);
        return true;
    }
    bool atEnd() const { return rest_.empty(); }

 private:
    std::optional<std::string_view> next();
    std::string_view rest_;
};

}  // namespace huebrush::mapping
