// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <utility>
#include <vector>

#include "ports/libreoffice/document/PropertyChanges.h"

namespace huebrush::libreoffice {

/// Where a shape's fill has come from: a colour of the document's theme, and what the filters
/// remember from the file that the shape was loaded from. The office's filters write these instead
/// of the fill that the shape has, so whoever gives it another fill removes them.
struct FillOrigin {
    /// The properties that tie the fill's colour to the theme; none for a colour of its own.
    std::vector<std::pair<rtl::OUString, com::sun::star::uno::Any>> theme;
    /// The entries about the fill in the filters' memory.
    std::vector<com::sun::star::beans::PropertyValue> remembered;
};

/// The properties of this kind that shapes of one type have: which they are depends on the type (a
/// text shape has no filters' memory) and on the office's version.
class OriginProperties {
 public:
    /// Asks a shape of the type.
    explicit OriginProperties(
        const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>& shape);

    /// The office's exceptions pass to the caller.
    FillOrigin read(
        const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>& shape) const;

 private:
    bool hasTheme_ = false;
    bool hasMemory_ = false;
    /// What belongs to a theme's colour beside its number there.
    std::vector<rtl::OUString> themeDetails_;
};

/// Adds what makes the shape's origin, which is `now`, the `wanted` one.
void addOriginChange(
    const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>& shape,
    const FillOrigin& now, const FillOrigin& wanted, PropertyChanges& changes);

}  // namespace huebrush::libreoffice
