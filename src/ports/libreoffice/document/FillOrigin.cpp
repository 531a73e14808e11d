// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/FillOrigin.h"

#include <algorithm>
#include <array>

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::beans::PropertyValue;
using css::uno::Any;
using css::uno::Reference;
using rtl::OUString;

namespace {

constexpr sal_Int16 kNoTheme = -1;

/// The office's names of the properties, made once.
struct Names {
    OUString theme{"FillColorTheme"};
    /// In the order in which they are restored: the last one holds all of it, in newer offices.
    std::array<OUString, 3> themeDetails{OUString("FillColorLumMod"), OUString("FillColorLumOff"),
                                         OUString("FillComplexColor")};
    OUString memory{"InteropGrabBag"};
    /// The entries of the memory that are written instead of the shape's own fill. Others give the
    /// style that the shape refers to: its own fill overrides that.
    std::array<OUString, 4> entries{OUString("SpPrSolidFillSchemeClr"),
                                    OUString("SpPrSolidFillSchemeClrTransformations"),
                                    OUString("GradFillDefinition"), OUString("OriginalGradFill")};
};

const Names& names() {
    static const Names kNames;
    return kNames;
}

bool isAboutFill(const PropertyValue& entry) {
    const auto& entries = names().entries;
    return std::find(entries.begin(), entries.end(), entry.Name) != entries.end();
}

css::uno::Sequence<PropertyValue> memoryOf(const Reference<css::beans::XPropertySet>& shape) {
    css::uno::Sequence<PropertyValue> memory;
    shape->getPropertyValue(names().memory) >>= memory;
    return memory;
}

}  // namespace

OriginProperties::OriginProperties(const Reference<css::beans::XPropertySet>& shape) {
    const Reference<css::beans::XPropertySetInfo> info = shape->getPropertySetInfo();
    const auto has = [&](const OUString& name) { return info->hasPropertyByName(name) != 0; };
    hasTheme_ = has(names().theme);
    hasMemory_ = has(names().memory);
    const auto& details = names().themeDetails;
    std::copy_if(details.begin(), details.end(), std::back_inserter(themeDetails_), has);
}

FillOrigin OriginProperties::read(const Reference<css::beans::XPropertySet>& shape) const {
    FillOrigin origin;
    if (hasTheme_) {
        const Any theme = shape->getPropertyValue(names().theme);
        sal_Int16 number = kNoTheme;
        if ((theme >>= number) && number != kNoTheme) {
            origin.theme.emplace_back(names().theme, theme);
            for (const OUString& detail : themeDetails_) {
                origin.theme.emplace_back(detail, shape->getPropertyValue(detail));
            }
        }
    }
    if (hasMemory_) {
        const css::uno::Sequence<PropertyValue> memory = memoryOf(shape);
        std::copy_if(memory.begin(), memory.end(), std::back_inserter(origin.remembered),
                     isAboutFill);
    }
    return origin;
}

void addOriginChange(const Reference<css::beans::XPropertySet>& shape, const FillOrigin& now,
                     const FillOrigin& wanted, PropertyChanges& changes) {
    for (const auto& [name, value] : wanted.theme) changes.add(name, value);
    if (wanted.theme.empty() && !now.theme.empty()) changes.add(names().theme, Any(kNoTheme));
    if (now.remembered.empty() && wanted.remembered.empty()) return;
    std::vector<PropertyValue> entries = wanted.remembered;
    const css::uno::Sequence<PropertyValue> memory = memoryOf(shape);
    std::copy_if(memory.begin(), memory.end(), std::back_inserter(entries),
                 [](const PropertyValue& entry) { return !isAboutFill(entry); });
    changes.add(names().memory, Any(css::uno::Sequence<PropertyValue>(
                                    entries.data(), static_cast<sal_Int32>(entries.size()))));
}

}  // namespace huebrush::libreoffice
