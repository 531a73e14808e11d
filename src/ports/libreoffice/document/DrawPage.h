// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XShapes2.hpp>
#include <cstdint>
#include <functional>

#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/document/ShapeKind.h"

namespace huebrush::libreoffice {

/// The objects on a document's draw page, in its order, from the back to the front.
///
/// Writer's own ways to list them, by number and by enumeration, count from the start for each
/// object, so that listing a page takes quadratic time. Writer's page wraps the page of the drawing
/// layer, whose objects are found at once by their number; it shows through in the one interface
/// that Writer leaves to it (XShapes2). On that page the text of a shape is an object of its own, a
/// text frame. Where it does not show through, Writer's page is used.
class DrawPage {
 public:
    /// Called with each object's number and the object, which is released after the call.
    using Visitor = std::function<void(std::int32_t index, const ShapeReference& shape)>;

    explicit DrawPage(const ModelReference& model);

    /// The number of objects of every kind.
    std::int32_t count() const { return objects_->getCount(); }
    /// Visits all objects in the page's order.
    void visit(const Visitor& visitor) const;
    ShapeReference at(std::int32_t index) const;
    /// The number of an object on the page; found at once where it is still `last`.
    std::int32_t indexOf(const ShapeReference& shape, std::int32_t last) const;

    const com::sun::star::uno::Reference<com::sun::star::drawing::XDrawPage>& page() const {
        return page_;
    }

 private:
    com::sun::star::uno::Reference<com::sun::star::drawing::XDrawPage> page_;
    /// Keeps what objects_ points into.
    com::sun::star::uno::Reference<com::sun::star::drawing::XShapes2> wrapped_;
    com::sun::star::drawing::XDrawPage* objects_;
};

}  // namespace huebrush::libreoffice
