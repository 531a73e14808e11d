#pragma once

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <cstdint>
#include <functional>

#include "ports/libreoffice/document/ShapeKind.h"

namespace huebrush::libreoffice {

/// The objects on a document's draw page. The office's own ways to list them, by number and by
/// enumeration, count from the start for each object: all of a big page cost the square of its
/// size. The objects of a big page are therefore found paragraph by paragraph.
class DrawPage {
 public:
    using Model = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;
    /// Called with each object's number and the object, which is let go after the call.
    using Visitor = std::function<void(std::int32_t index, const ShapeReference& shape)>;

    explicit DrawPage(const Model& model);

    /// The number of objects of every kind.
    std::int32_t count() const { return page_->getCount(); }

    /// Visits all objects in the page's order. On a big page whose paragraphs list other objects
    /// than the page or in another order, `restart` is called in the middle, and the visits begin
    /// again. The order is compared at many places, not at every one.
    void visit(const Visitor& visitor, const std::function<void()>& restart) const;

    /// Whether numbers are the page's own, so that at() gives what a visit gave.
    bool isSmall() const { return count() <= kSmall; }
    ShapeReference at(std::int32_t index) const;

    const com::sun::star::uno::Reference<com::sun::star::drawing::XDrawPage>& page() const {
        return page_;
    }

 private:
    static constexpr std::int32_t kSmall = 1000;

    bool visitByParagraph(std::int32_t count, const Visitor& visitor) const;

    Model model_;
    com::sun::star::uno::Reference<com::sun::star::drawing::XDrawPage> page_;
};

}  // namespace huebrush::libreoffice
