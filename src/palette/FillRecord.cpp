// SPDX-License-Identifier: MPL-2.0

#include "palette/FillRecord.h"

#include <string>
#include <type_traits>
#include <variant>

#include "fill/RecordColumns.h"
#include "palette/SolidFill.h"

namespace huebrush::palette {

jet::Table::Values valuesOf(const jet::Table& elements, const fill::FillProperties& fill) {
    jet::Table::Values values;
    fill::forEachColumn([&](const auto& property) {
        jet::Value value = fill::columnValue(fill.*property.member);
        if (std::holds_alternative<float>(value)) value = jet::toLong(value);
        values.emplace_back(&elements.column(property.name), value);
    });
    values.emplace_back(&elements.column("FillPreview"), previewOf(fill));
    return values;
}

fill::FillProperties fillOf(const Record& row) {
    fill::FillProperties fill;
    fill::forEachColumn([&](const auto& property) {
        auto& member = fill.*property.member;
        using Property = std::remove_reference_t<decltype(member)>;
        const jet::Value& value = valueOf(row, property.name);
        if (std::is_same_v<Property, std::string> && jet::isNull(value)) return;
        member = fill::fromColumn<Property>(value);
    });
    return fill;
}

}  // namespace huebrush::palette
