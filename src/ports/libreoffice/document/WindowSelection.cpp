// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/WindowSelection.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include "ports/libreoffice/document/Anchors.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

Reference<css::view::XSelectionSupplier> selectionOf(const ModelReference& model) {
    return {model->getCurrentController(), UNO_QUERY};
}

std::size_t countSelected(const Reference<css::view::XSelectionSupplier>& supplier) {
    const Reference<css::container::XIndexAccess> several(supplier->getSelection(), UNO_QUERY);
    return several.is() ? static_cast<std::size_t>(several->getCount()) : 0;
}

/// The office lays out a newly opened document bit by bit, in its idle time, and silently leaves a
/// shape that has no place yet out of a selection. To count the pages it has to lay out everything.
void layOutAll(const Reference<css::view::XSelectionSupplier>& controller) {
    const Reference<css::beans::XPropertySet> properties(controller, UNO_QUERY);
    if (properties.is()) properties->getPropertyValue("PageCount");
}

bool isInBody(const ShapeReference& shape) {
    return !parentOf(shape).isPage || !isAnchoredInHeaderOrFooter(shape);
}

void add(const ShapeReference& shape, std::vector<ShapeReference>& shapes) {
    if (shape.is() && kindOf(shape).isShape && isInBody(shape)) shapes.push_back(shape);
}

}  // namespace

bool isHidden(const ModelReference& model) {
    bool hidden = false;
    valueOf(model->getArgs(), "Hidden") >>= hidden;
    return hidden;
}

std::vector<ShapeReference> selectionInWindow(const ModelReference& model) {
    std::vector<ShapeReference> shapes;
    const auto supplier = selectionOf(model);
    if (!supplier.is()) return shapes;
    const Any selection = supplier->getSelection();
    const Reference<css::drawing::XShapes> several(selection, UNO_QUERY);
    if (!several.is()) {
        add(ShapeReference(selection, UNO_QUERY), shapes);
        return shapes;
    }
    const std::int32_t count = several->getCount();
    for (std::int32_t index = 0; index < count; ++index) {
        add(ShapeReference(several->getByIndex(index), UNO_QUERY), shapes);
    }
    return shapes;
}

bool selectInWindow(const ContextReference& context, const ModelReference& model,
                    const std::vector<ShapeReference>& shapes) {
    const auto supplier = selectionOf(model);
    if (!supplier.is()) return false;
    const auto collection =
        createService<css::drawing::XShapes>(context, "com.sun.star.drawing.ShapeCollection");
    for (const ShapeReference& shape : shapes) collection->add(shape);
    supplier->select(Any(collection));
    if (isHidden(model)) return false;
    const bool complete = countSelected(supplier) >= shapes.size();
    if (!complete) {
        layOutAll(supplier);
        supplier->select(Any(collection));
    }
    return !complete;
}

}  // namespace huebrush::libreoffice
