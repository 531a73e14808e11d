// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/DrawPage.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

DrawPage::DrawPage(const ModelReference& model)
    : page_(Reference<css::drawing::XDrawPageSupplier>(model, UNO_QUERY_THROW)->getDrawPage()),
      wrapped_(page_, UNO_QUERY),
      // A query of the wrapped page would lead back to Writer's; its own object has both.
      objects_(dynamic_cast<css::drawing::XDrawPage*>(wrapped_.get())) {
    if (objects_ == nullptr) objects_ = page_.get();
}

void DrawPage::visit(const Visitor& visitor) const {
    const std::int32_t all = count();
    for (std::int32_t index = 0; index < all; ++index) visitor(index, at(index));
}

ShapeReference DrawPage::at(std::int32_t index) const {
    return {objects_->getByIndex(index), UNO_QUERY_THROW};
}

std::int32_t DrawPage::indexOf(const ShapeReference& shape, std::int32_t last) const {
    const std::int32_t all = count();
    if (last < all && at(last) == shape) return last;
    // Writer does not count the text frames of shapes.
    sal_Int32 index = 0;
    Reference<css::beans::XPropertySet>(shape, UNO_QUERY_THROW)->getPropertyValue("ZOrder") >>=
        index;
    while (index < all - 1 && at(index) != shape) ++index;
    return index;
}

}  // namespace huebrush::libreoffice
