// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/Sequence.hxx>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

using PropertyValues = com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue>;

/// A named value, as most of the office's calls take their arguments.
inline com::sun::star::beans::PropertyValue property(std::string_view name,
                                                     const com::sun::star::uno::Any& value) {
    return {toOffice(name), -1, value, com::sun::star::beans::PropertyState_DIRECT_VALUE};
}

inline PropertyValues properties(
    std::initializer_list<com::sun::star::beans::PropertyValue> values) {
    return {values.begin(), static_cast<sal_Int32>(values.size())};
}

inline PropertyValues properties(const std::vector<com::sun::star::beans::PropertyValue>& values) {
    return {values.data(), static_cast<sal_Int32>(values.size())};
}

/// The value named `name`, or an empty Any.
inline com::sun::star::uno::Any valueOf(const PropertyValues& values, std::string_view name) {
    const rtl::OUString wanted = toOffice(name);
    for (const com::sun::star::beans::PropertyValue& value : values) {
        if (value.Name == wanted) return value.Value;
    }
    return {};
}

/// An object's property of that name; Value's own beginning where it holds something else.
template <class Value>
Value propertyOf(const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>& object,
                 const rtl::OUString& name) {
    Value value{};
    object->getPropertyValue(name) >>= value;
    return value;
}

}  // namespace huebrush::libreoffice
