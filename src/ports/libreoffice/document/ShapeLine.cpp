// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/ShapeLine.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>

#include "base/Color.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using host::MsoTriState;

namespace {

const rtl::OUString& styleName() {
    static const rtl::OUString kName("LineStyle");
    return kName;
}

const rtl::OUString& colorName() {
    static const rtl::OUString kName("LineColor");
    return kName;
}

}  // namespace

ShapeLine readLine(const ShapeReference& shape) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    const auto style = propertyOf<css::drawing::LineStyle>(set, styleName());
    return {style == css::drawing::LineStyle_NONE ? MsoTriState::msoFalse : MsoTriState::msoTrue,
            base::swapRedAndBlue(propertyOf<sal_Int32>(set, colorName()))};
}

void writeLineVisible(const ShapeReference& shape, bool visible) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    set->setPropertyValue(styleName(), css::uno::Any(visible ? css::drawing::LineStyle_SOLID
                                                             : css::drawing::LineStyle_NONE));
}

void writeLineColor(const ShapeReference& shape, std::int32_t color) {
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    set->setPropertyValue(colorName(), css::uno::Any(sal_Int32{base::swapRedAndBlue(color)}));
}

ShapeLine commonLine(const ShapeLine& a, const ShapeLine& b) {
    return {a.visible == b.visible ? a.visible : MsoTriState::msoTriStateMixed,
            a.color == b.color ? a.color : host::kMixed};
}

}  // namespace huebrush::libreoffice
