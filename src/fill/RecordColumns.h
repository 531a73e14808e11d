// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "fill/FillProperties.h"
#include "jet/table/Value.h"

namespace huebrush::fill {

/// Calls `visit` for each property that has a column in the records of palettes, in the order in
/// which the columns are written and read. A column has the name of its property. Whether the
/// texture is unknown has none.
template <class Visit>
constexpr void forEachColumn(const Visit& visit) {
    using namespace property;
    forEachProperty(visit, kVisible, kForeColorRGB, kBackColorRGB, kTransparency, kGradientStyle,
                    kGradientColorType, kGradientVariant, kGradientDegree, kPresetGradientType,
                    kType, kTextureType, kPresetTexture, kTextureName, kPattern, kPictureName);
}

/// A property's value as its column is given it.
template <class Property>
jet::Value columnValue(const Property& value) {
    if constexpr (std::is_enum_v<Property>) {
        return static_cast<std::int32_t>(value);
    } else {
        return value;
    }
}

/// A property's value from its column's; the errors are those of jet::toLong and its kin.
template <class Property>
Property fromColumn(const jet::Value& value) {
    if constexpr (std::is_same_v<Property, std::string>) {
        return jet::toText(value);
    } else if constexpr (std::is_same_v<Property, float>) {
        return jet::toSingle(value);
    } else {
        return static_cast<Property>(jet::toLong(value));
    }
}

}  // namespace huebrush::fill
