// SPDX-License-Identifier: MPL-2.0

#include "cli/JsonWriter.h"

#include <array>
#include <charconv>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kMostHeld = 1U << 16U;

}  // namespace

std::string printed(const nlohmann::ordered_json& value) {
    return value.dump(static_cast<int>(kIndent), ' ', false,
                      nlohmann::ordered_json::error_handler_t::replace);
}

void JsonWriter::newLine() {
    if (held_.size() >= kMostHeld) writeOut();
    held_ += '\n';
    held_.append(kIndent * depth_, ' ');
}

/// What precedes a key, or a value of an array.
void JsonWriter::beginValue() {
    if (!std::exchange(afterKey_, false) && depth_ > 0) {
        if (!first_) held_ += ',';
        newLine();
    }
    first_ = false;
}

void JsonWriter::begin(char bracket) {
    beginValue();
    held_ += bracket;
    ++depth_;
    first_ = true;
}

void JsonWriter::end(char bracket) {
    --depth_;
    if (!std::exchange(first_, false)) newLine();
    held_ += bracket;
}

void JsonWriter::key(std::string_view quoted) {
    beginValue();
    held_ += quoted;
    held_ += ": ";
    afterKey_ = true;
}

void JsonWriter::value(std::int32_t number) {
    beginValue();
    std::array<char, 16> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    held_.append(digits.data(), end);
}

void JsonWriter::value(const nlohmann::ordered_json& value) {
    beginValue();
    std::string text = printed(value);
    // All lines of a value but the first are indented with it.
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1)) {
        text.insert(at + 1, kIndent * depth_, ' ');
    }
    held_ += text;
}

void JsonWriter::writeOut() {
    out_.write(held_.data(), static_cast<std::streamsize>(held_.size()));
    held_.clear();
    if (!out_) throw Failure("cannot write the output");
}

void JsonWriter::finish() {
    held_ += '\n';
    writeOut();
    out_.flush();
    if (!out_) throw Failure("cannot write the output");
}

}  // namespace huebrush::cli
