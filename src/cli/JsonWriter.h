// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

namespace huebrush::cli {

/// JSON as the program prints it, indented by two. Names of files may consist of bytes that are not
/// text; each such byte becomes U+FFFD.
std::string printed(const nlohmann::ordered_json& value);

/// Writes JSON piece by piece, so that it need not be in memory as a whole; the result is that
/// of `printed`.
class JsonWriter {
 public:
    explicit JsonWriter(std::ostream& out) : out_(out) {}
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    /// In an array, values, objects and arrays follow each other; in an object, each follows a
    /// key.
    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    /// A key as returned by `quoted`.
    void key(std::string_view quoted);
    void value(std::int32_t number);
    /// A scalar, or a value that is small enough to be in memory.
    void value(const nlohmann::ordered_json& value);

    /// Writes what is still buffered, and a newline. Failure when it cannot be written, here and
    /// as soon as that is noticed.
    void finish();

    static std::string quoted(const std::string& text) { return printed(text); }

 private:
    void begin(char bracket);
    void end(char bracket);
    void beginValue();
    void newLine();
    void writeOut();

    std::ostream& out_;
    std::string held_;
    std::size_t depth_ = 0;
    bool first_ = true;  ///< the innermost object or array is still empty
    bool afterKey_ = false;
};

}  // namespace huebrush::cli
