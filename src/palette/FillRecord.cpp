// SPDX-License-Identifier: MPL-2.0

#include "palette/FillRecord.h"

#include <type_traits>

namespace huebrush::palette {

namespace {

/// The flag of an unknown texture is the one property that is not stored.
template <class Visit>
void forEveryColumn(const Visit& visit) {
    fill::forEveryProperty([&](const auto& property) {
        using Property = std::decay_t<decltype(property)>;
        if constexpr (!std::is_same_v<Property, fill::FillProperty<bool>>) visit(property);
    });
}

jet::Value valueFrom(const std::string& value) {
    return value;
}
jet::Value valueFrom(float value) {
    return jet::toLong(value);
}
template <class Number>
jet::Value valueFrom(Number value) {
    return static_cast<std::int32_t>(value);
}

template <class Number>
void assign(Number& to, const jet::Value& value) {
    to = static_cast<Number>(jet::toLong(value));
}
void assign(std::string& to, const jet::Value& value) {
    const auto* const text = std::get_if<std::string>(&value);
    to = text == nullptr ? std::string() : *text;
}

}  // namespace

jet::Table::Values valuesOf(const jet::Table& elements, const fill::FillProperties& fill) {
    jet::Table::Values values;
    forEveryColumn([&](const auto& property) {
        values.emplace_back(&elements.column(property.name), valueFrom(fill.*property.member));
    });
    return values;
}

fill::FillProperties fillOf(const Record& row) {
    fill::FillProperties fill;
    forEveryColumn(
        [&](const auto& property) { assign(fill.*property.member, valueOf(row, property.name)); });
    return fill;
}

}  // namespace huebrush::palette
