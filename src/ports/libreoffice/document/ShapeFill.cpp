// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/ShapeFill.h"

#include <array>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/drawing/BitmapMode.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/Hatch.hpp>
#include <com/sun/star/xml/AttributeData.hpp>

#include "ports/libreoffice/document/Gradients.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using rtl::OUString;

namespace {

/// The office's names of the properties, made once: constructing one costs as much as a read.
struct Names {
    OUString style{"FillStyle"};
    OUString color{"FillColor"};
    OUString transparence{"FillTransparence"};
    OUString transparenceGradient{"FillTransparenceGradient"};
    OUString transparenceGradientName{"FillTransparenceGradientName"};
    OUString gradient{"FillGradient"};
    OUString hatch{"FillHatch"};
    OUString background{"FillBackground"};
    OUString bitmap{"FillBitmap"};
    OUString bitmapName{"FillBitmapName"};
    OUString bitmapMode{"FillBitmapMode"};
    OUString attributes{"UserDefinedAttributes"};
    /// The attribute that holds the memory, and its XML namespace.
    OUString memory{"huebrush:fill"};
    OUString space{"urn:huebrush:fill:1.0"};
    /// Most shapes have none of these.
    std::array<OUString, 3> rare{transparence, transparenceGradientName, attributes};
};

const Names& names() {
    static const Names kNames;
    return kNames;
}

mapping::OfficeHatch hatchOf(const css::drawing::Hatch& hatch) {
    return {static_cast<mapping::OfficeHatchStyle>(hatch.Style), hatch.Color, hatch.Distance,
            hatch.Angle};
}

css::drawing::Hatch hatchOf(const mapping::OfficeHatch& hatch) {
    return {static_cast<css::drawing::HatchStyle>(hatch.style), hatch.color, hatch.distance,
            hatch.angle};
}

mapping::OfficeFillStyle styleOf(css::drawing::FillStyle style) {
    switch (style) {
        case css::drawing::FillStyle_SOLID:
            return mapping::OfficeFillStyle::solid;
        case css::drawing::FillStyle_GRADIENT:
            return mapping::OfficeFillStyle::gradient;
        case css::drawing::FillStyle_HATCH:
            return mapping::OfficeFillStyle::hatch;
        case css::drawing::FillStyle_BITMAP:
            return mapping::OfficeFillStyle::bitmap;
        default:
            return mapping::OfficeFillStyle::none;
    }
}

void readBody(const Reference<css::beans::XPropertySet>& set, mapping::OfficeFill& fill) {
    switch (fill.style) {
        case mapping::OfficeFillStyle::none:
        case mapping::OfficeFillStyle::solid:
            fill.color = propertyOf<sal_Int32>(set, names().color);
            break;
        case mapping::OfficeFillStyle::gradient:
            fill.gradient = gradientOf(set->getPropertyValue(names().gradient));
            break;
        case mapping::OfficeFillStyle::hatch:
            fill.hatch = hatchOf(propertyOf<css::drawing::Hatch>(set, names().hatch));
            fill.background = propertyOf<bool>(set, names().background);
            if (fill.background) fill.color = propertyOf<sal_Int32>(set, names().color);
            break;
        case mapping::OfficeFillStyle::bitmap:
            fill.bitmapName = fromOffice(propertyOf<OUString>(set, names().bitmapName));
            fill.bitmapMode = static_cast<mapping::OfficeBitmapMode>(
                propertyOf<css::drawing::BitmapMode>(set, names().bitmapMode));
            break;
    }
}

std::string memoryIn(const Any& value) {
    const Reference<css::container::XNameContainer> attributes(value, UNO_QUERY);
    if (!attributes.is() || !attributes->hasByName(names().memory)) return {};
    css::xml::AttributeData data;
    attributes->getByName(names().memory) >>= data;
    return fromOffice(data.Value);
}

/// What few shapes have is read only from those that do: the office says faster which ones these
/// are than it answers a value. Its defaults are no transparency and no attributes, and no document
/// has others.
void readRare(const ShapeReference& shape, const Reference<css::beans::XPropertySet>& set,
              ShapeFill& fill) {
    const auto& rare = names().rare;
    const css::uno::Sequence<css::beans::PropertyState> states =
        Reference<css::beans::XPropertyState>(shape, UNO_QUERY_THROW)
            ->getPropertyStates({rare.data(), static_cast<sal_Int32>(rare.size())});
    const auto has = [&](std::size_t at) {
        return states[static_cast<sal_Int32>(at)] != css::beans::PropertyState_DEFAULT_VALUE;
    };
    if (has(0)) fill.office.transparence = propertyOf<sal_Int16>(set, names().transparence);
    if (has(1) && !propertyOf<OUString>(set, names().transparenceGradientName).isEmpty()) {
        fill.office.transparenceGradient =
            gradientOf(set->getPropertyValue(names().transparenceGradient));
    }
    if (has(2)) fill.memory = memoryIn(set->getPropertyValue(names().attributes));
}

Any readBitmap(const ShapeReference& shape) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    return set->getPropertyValue(names().bitmap);
}

/// The shape's attributes with another memory among them.
Any attributesWith(const Reference<css::beans::XPropertySet>& set, const std::string& memory) {
    const Any value = set->getPropertyValue(names().attributes);
    const Reference<css::container::XNameContainer> attributes(value, UNO_QUERY_THROW);
    if (attributes->hasByName(names().memory)) attributes->removeByName(names().memory);
    if (!memory.empty()) {
        const css::xml::AttributeData data(names().space, "CDATA", toOffice(memory));
        attributes->insertByName(names().memory, Any(data));
    }
    return value;
}

/// Whether a gradient or hatch is replaced by another one.
bool replacesNamed(const ShapeFill& now, const ShapeFill& wanted) {
    if (now.office.style != wanted.office.style) return false;
    switch (wanted.office.style) {
        case mapping::OfficeFillStyle::gradient:
            return wanted.gradient.hasValue() ? wanted.gradient != now.gradient
                                              : !(wanted.office.gradient == now.office.gradient);
        case mapping::OfficeFillStyle::hatch:
            return !(wanted.office.hatch == now.office.hatch);
        default:
            return false;
    }
}

void addBody(const mapping::OfficeFill& now, const ShapeFill& target, PropertyChanges& changes) {
    const mapping::OfficeFill& wanted = target.office;
    // A change of the style drops what belongs to other styles, so all of the new one is written.
    const bool fresh = now.style != wanted.style;
    if (fresh) changes.add(names().style, Any(static_cast<css::drawing::FillStyle>(wanted.style)));
    switch (wanted.style) {
        case mapping::OfficeFillStyle::none:
        case mapping::OfficeFillStyle::solid:
            if (fresh || now.color != wanted.color) changes.add(names().color, Any(wanted.color));
            break;
        case mapping::OfficeFillStyle::gradient:
            if (fresh) {
                changes.add(names().gradient, target.gradient.hasValue()
                                                  ? target.gradient
                                                  : officeValueOf(wanted.gradient));
            }
            break;
        case mapping::OfficeFillStyle::hatch:
            if (fresh) changes.add(names().hatch, Any(hatchOf(wanted.hatch)));
            changes.add(names().background, Any(wanted.background));
            if (wanted.background) changes.add(names().color, Any(wanted.color));
            break;
        case mapping::OfficeFillStyle::bitmap:
            if (fresh || now.bitmapName != wanted.bitmapName) {
                changes.add(names().bitmapName, Any(toOffice(wanted.bitmapName)));
            }
            if (fresh || now.bitmapMode != wanted.bitmapMode) {
                changes.add(names().bitmapMode,
                            Any(static_cast<css::drawing::BitmapMode>(wanted.bitmapMode)));
            }
            break;
    }
}

void addTransparence(const mapping::OfficeFill& now, const ShapeFill& target, FillTables& tables,
                     PropertyChanges& changes) {
    const mapping::OfficeFill& wanted = target.office;
    if (now.transparenceGradient && !wanted.transparenceGradient) {
        changes.add(names().transparenceGradientName, Any(OUString()));
    }
    if (wanted.transparenceGradient) {
        if (now.transparenceGradient != wanted.transparenceGradient) {
            const Any gradient = target.transparenceGradient.hasValue()
                                     ? target.transparenceGradient
                                     : officeValueOf(*wanted.transparenceGradient);
            changes.add(names().transparenceGradientName, Any(tables.addTransparence(gradient)));
        }
    } else if (now.transparence != wanted.transparence || now.transparenceGradient) {
        changes.add(names().transparence, Any(static_cast<sal_Int16>(wanted.transparence)));
    }
}

}  // namespace

ShapeFill readFill(const ShapeReference& shape) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    ShapeFill fill;
    fill.office.style = styleOf(propertyOf<css::drawing::FillStyle>(set, names().style));
    readBody(set, fill.office);
    readRare(shape, set, fill);
    return fill;
}

void prepareWrite(ShapeFill& now, const ShapeReference& shape, FillTables& tables) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    now.origin = tables.originProperties(shape).read(set);
    if (now.office.style == mapping::OfficeFillStyle::gradient) {
        now.gradient = set->getPropertyValue(names().gradient);
    }
    if (now.office.transparenceGradient) {
        now.transparenceGradient = set->getPropertyValue(names().transparenceGradient);
    }
    if (now.office.style != mapping::OfficeFillStyle::bitmap) return;
    if (!tables.keeps(now.office.bitmapName)) {
        tables.keep(now.office.bitmapName, readBitmap(shape));
    }
}

mapping::KnownFill knownFillOf(const ShapeFill& fill, const ShapeReference& shape,
                               FillTables& tables) {
    std::optional<mapping::OwnPicture> picture;
    if (fill.office.style == mapping::OfficeFillStyle::bitmap) {
        picture = mapping::ownPictureNamed(fill.office.bitmapName);
        if (!picture && fill.office.bitmapMode == mapping::OfficeBitmapMode::repeat) {
            picture = tables.recognise(fill.office.bitmapName, readBitmap(shape));
        }
    }
    std::optional<mapping::RememberedFill> remembered;
    if (!fill.memory.empty()) remembered = mapping::rememberedFillOf(fill.memory);
    return knownFillOf(fill.office, picture, remembered);
}

void writeFill(const ShapeReference& shape, const ShapeFill& now, const ShapeFill& wanted,
               FillTables& tables) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    mapping::OfficeFill from = now.office;
    if (replacesNamed(now, wanted)) {
        // Newer offices may leave the new one under the old one's name, and store either for both.
        // Another style drops the old one.
        set->setPropertyValue(names().style, Any(css::drawing::FillStyle_SOLID));
        from.style = mapping::OfficeFillStyle::solid;
    }
    PropertyChanges changes;
    addBody(from, wanted, changes);
    addTransparence(now.office, wanted, tables, changes);
    if (now.memory != wanted.memory) {
        changes.add(names().attributes, attributesWith(set, wanted.memory));
    }
    if (changes.empty()) return;
    addOriginChange(set, now.origin, wanted.origin, changes);
    if (wanted.office.style == mapping::OfficeFillStyle::bitmap)
        tables.restore(wanted.office.bitmapName);
    changes.apply(shape);
}

}  // namespace huebrush::libreoffice
