// SPDX-License-Identifier: MPL-2.0

#include "cli/JsonWriter.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/Failure.h"

namespace huebrush::cli {
namespace {

using nlohmann::ordered_json;

/// Writes a value piece by piece.
void write(JsonWriter& out, const ordered_json& value) {
    if (value.is_object()) {
        out.beginObject();
        for (const auto& [key, each] : value.items()) {
            out.key(JsonWriter::quoted(key));
            write(out, each);
        }
        out.endObject();
    } else if (value.is_array()) {
        out.beginArray();
        for (const auto& each : value) write(out, each);
        out.endArray();
    } else if (value.is_number_integer()) {
        out.value(value.get<std::int32_t>());
    } else {
        out.value(value);
    }
}

TEST(JsonWriter, WritesWhatTheLibraryDumps) {
    for (const char* const text :
         {"3", "null", "[]", "{}", R"("ž\"\n")", "[1]", R"({"a":1})", "[[],{},[[]]]",
          R"({"a":[],"b":{},"c":[1,-2147483648,2147483647,0.1,true,null,"x"],"d":{"e":{"f":[3]}}})",
          R"([{"a":1,"ž\t":[{"b":2},{"b":3}]},4])"}) {
        const auto value = ordered_json::parse(text);
        std::ostringstream out;
        JsonWriter writer(out);
        write(writer, value);
        writer.finish();
        EXPECT_EQ(out.str(), value.dump(2) + "\n");
    }
}

TEST(JsonWriter, IndentsAValueThatItGetsAsAWhole) {
    const auto value = ordered_json::parse(R"({"a":[{"b":[1,2],"c":{}}]})");
    std::ostringstream out;
    JsonWriter writer(out);
    writer.beginObject();
    writer.key(JsonWriter::quoted("a"));
    writer.beginArray();
    writer.value(value["a"][0]);
    writer.endArray();
    writer.endObject();
    writer.finish();
    EXPECT_EQ(out.str(), value.dump(2) + "\n");
}

TEST(JsonWriter, ReplacesBytesThatAreNotText) {
    std::ostringstream out;
    JsonWriter writer(out);
    writer.beginObject();
    writer.key(JsonWriter::quoted("a\xFF"));
    writer.value(ordered_json("b\xC5"));
    writer.endObject();
    writer.finish();
    EXPECT_EQ(out.str(), "{\n  \"a\uFFFD\": \"b\uFFFD\"\n}\n");
    EXPECT_EQ(printed({{"a", "\xFE"}}), "{\n  \"a\": \"\uFFFD\"\n}");
}

TEST(JsonWriter, WritesEarlyAndReportsWhenItCannot) {
    std::ostringstream out;
    JsonWriter writer(out);
    writer.beginArray();
    for (std::int32_t i = 0; i < 100000; ++i) writer.value(i);
    EXPECT_GT(out.str().size(), 500000U);
    out.setstate(std::ios::badbit);
    EXPECT_THROW(
        for (std::int32_t i = 0; i < 100000; ++i) { writer.value(i); }, Failure);
}

}  // namespace
}  // namespace huebrush::cli
