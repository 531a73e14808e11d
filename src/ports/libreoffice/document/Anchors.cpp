// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/Anchors.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XChild.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

/// The frame or table that a text stands in, if any.
Reference<css::text::XTextContent> holderOf(const Reference<css::text::XText>& text) {
    Reference<css::text::XTextContent> holder(text, UNO_QUERY);
    if (holder.is()) return holder;
    const Reference<css::beans::XPropertySet> cursor(text->createTextCursor(), UNO_QUERY);
    if (cursor.is() && cursor->getPropertySetInfo()->hasPropertyByName("TextTable")) {
        cursor->getPropertyValue("TextTable") >>= holder;
    }
    return holder;
}

bool isHeaderOrFooter(const Reference<css::text::XText>& text) {
    const Reference<css::lang::XServiceInfo> info(text, UNO_QUERY);
    return info.is() && info->getImplementationName() == "SwXHeadFootText";
}

}  // namespace

Parent parentOf(const ShapeReference& shape) {
    const Reference<css::container::XChild> child(shape, UNO_QUERY);
    if (!child.is()) return {};
    const Reference<css::uno::XInterface> parent(child->getParent());
    const ShapeReference group(parent, UNO_QUERY);
    return {parent.is() && !group.is(), group};
}

bool isAnchoredInHeaderOrFooter(const ShapeReference& shape) {
    Reference<css::text::XTextContent> content(shape, UNO_QUERY);
    while (content.is()) {
        const Reference<css::text::XTextRange> anchor = content->getAnchor();
        if (!anchor.is()) return false;
        const Reference<css::text::XText> text = anchor->getText();
        // A header that is on no page any more: imports leave such, and nothing saves them.
        if (!text.is()) return true;
        if (isHeaderOrFooter(text)) return true;
        content = holderOf(text);
    }
    return false;
}

}  // namespace huebrush::libreoffice
