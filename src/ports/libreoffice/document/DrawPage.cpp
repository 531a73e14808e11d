#include "ports/libreoffice/document/DrawPage.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XContentEnumerationAccess.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

/// How many objects are compared with the page's own order.
constexpr std::int32_t kSamples = 32;

/// Hands on what the paragraphs list, as long as it agrees with the page.
class Listing {
 public:
    Listing(const Reference<css::drawing::XDrawPage>& page, std::int32_t count,
            const DrawPage::Visitor& visitor)
        : page_(page), count_(count), step_(std::max(count / kSamples, 1)), visitor_(visitor) {}

    void visit(const css::uno::Any& object) {
        const ShapeReference shape(object, UNO_QUERY);
        if (!shape.is() || !agrees_) return;
        if (found_ >= count_ || !isAtItsPlace(shape)) {
            agrees_ = false;
            return;
        }
        visitor_(found_++, shape);
    }

    bool agrees() const { return agrees_; }
    bool isComplete() const { return agrees_ && found_ == count_; }

 private:
    bool isAtItsPlace(const ShapeReference& shape) const {
        if (found_ % step_ != 0 && found_ != count_ - 1) return true;
        return ShapeReference(page_->getByIndex(found_), UNO_QUERY) == shape;
    }

    const Reference<css::drawing::XDrawPage>& page_;
    std::int32_t count_;
    std::int32_t step_;
    const DrawPage::Visitor& visitor_;
    std::int32_t found_ = 0;
    bool agrees_ = true;
};

void listContents(const css::uno::Any& holder, Listing& listing) {
    const Reference<css::container::XContentEnumerationAccess> access(holder, UNO_QUERY);
    if (!access.is()) return;
    const auto contents = access->createContentEnumeration("com.sun.star.text.TextContent");
    while (contents.is() && contents->hasMoreElements() && listing.agrees()) {
        listing.visit(contents->nextElement());
    }
}

/// What is tied to characters stands in the paragraph's own portions.
void listPortions(const css::uno::Any& paragraph, Listing& listing) {
    const Reference<css::container::XEnumerationAccess> access(paragraph, UNO_QUERY);
    if (!access.is()) return;
    const auto portions = access->createEnumeration();
    while (portions->hasMoreElements() && listing.agrees()) {
        const css::uno::Any portion = portions->nextElement();
        const Reference<css::beans::XPropertySet> properties(portion, UNO_QUERY_THROW);
        rtl::OUString type;
        properties->getPropertyValue("TextPortionType") >>= type;
        if (type == "Frame") listContents(portion, listing);
    }
}

}  // namespace

DrawPage::DrawPage(const Model& model)
    : model_(model),
      page_(Reference<css::drawing::XDrawPageSupplier>(model, UNO_QUERY_THROW)->getDrawPage()) {}

void DrawPage::visit(const Visitor& visitor, const std::function<void()>& restart) const {
    const std::int32_t all = count();
    if (all > kSmall) {
        if (visitByParagraph(all, visitor)) return;
        restart();
    }
    for (std::int32_t index = 0; index < all; ++index) visitor(index, at(index));
}

ShapeReference DrawPage::at(std::int32_t index) const {
    return ShapeReference(page_->getByIndex(index), UNO_QUERY_THROW);
}

bool DrawPage::visitByParagraph(std::int32_t count, const Visitor& visitor) const {
    Listing listing(page_, count, visitor);
    const Reference<css::text::XTextDocument> document(model_, UNO_QUERY_THROW);
    const Reference<css::container::XEnumerationAccess> text(document->getText(), UNO_QUERY_THROW);
    const auto paragraphs = text->createEnumeration();
    while (paragraphs->hasMoreElements() && listing.agrees()) {
        const css::uno::Any paragraph = paragraphs->nextElement();
        listContents(paragraph, listing);
        listPortions(paragraph, listing);
    }
    return listing.isComplete();
}

}  // namespace huebrush::libreoffice
