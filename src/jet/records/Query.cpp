// SPDX-License-Identifier: MPL-2.0

#include "jet/records/Query.h"

#include <charconv>
#include <string_view>

#include "base/Text.h"
#include "jet/file/Error.h"

namespace huebrush::jet {

namespace {

constexpr std::string_view kGroups = "SELECT TFillGroup.* From TFillGroup ORDER BY Name";
constexpr std::string_view kElements = "SELECT TFillElementParameter.* From TFillElementParameter";
constexpr std::string_view kElementsOfGroup =
    "SELECT TFillElementParameter.* From TFillElementParameter Where (GroupID =";
constexpr std::string_view kByOrderNumber = ")ORDER BY OrderNumber";
constexpr std::string_view kDeleteOfGroup = "DELETE FROM TFillElementParameter WHERE (GroupID = ";

/// The number between two texts; none when there is anything else.
std::optional<std::int32_t> numberBetween(std::string_view text, std::string_view before,
                                          std::string_view after) {
    if (!text.starts_with(before)) return std::nullopt;
    text.remove_prefix(before.size());
    if (!text.ends_with(after)) return std::nullopt;
    text.remove_suffix(after.size());
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    if (error != std::errc() || end != text.end()) return std::nullopt;
    return number;
}

[[noreturn]] void throwSyntax(const std::string& text) {
    throw Error(ErrorNumber::kSyntax, base::text("Dotazu „", text, "“ databáze nerozumí."),
                base::text("the database does not understand the query ", text));
}

}  // namespace

Query parseQuery(const std::string& text) {
    if (text == kGroups) return {"TFillGroup", std::nullopt, "Name"};
    if (text == kElements) return {"TFillElementParameter", std::nullopt, ""};
    const auto group = numberBetween(text, kElementsOfGroup, kByOrderNumber);
    if (!group) throwSyntax(text);
    return {"TFillElementParameter", group, "OrderNumber"};
}

std::int32_t parseDelete(const std::string& text) {
    const auto group = numberBetween(text, kDeleteOfGroup, ")");
    if (!group) throwSyntax(text);
    return *group;
}

std::int32_t parseFind(const std::string& text) {
    const auto id = numberBetween(text, "ID=", "");
    if (!id) throwSyntax(text);
    return *id;
}

}  // namespace huebrush::jet
