// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/PageStyles.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <set>
#include <vector>

#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using rtl::OUString;

namespace {

Reference<css::container::XNameAccess> pageStylesOf(const ModelReference& model) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(model, UNO_QUERY_THROW);
    return {supplier->getStyleFamilies()->getByName("PageStyles"), UNO_QUERY_THROW};
}

bool isInUse(const Reference<css::container::XNameAccess>& styles, const OUString& name) {
    const Reference<css::style::XStyle> style(styles->getByName(name), UNO_QUERY_THROW);
    return style->isInUse();
}

}  // namespace

bool hasHeadersOrFooters(const ModelReference& model) {
    const auto styles = pageStylesOf(model);
    // Asking a style for a property makes it one that is saved with the document, so only those are
    // asked that have pages: named by a paragraph, or following one that is.
    std::vector<OUString> waiting;
    for (const OUString& name : styles->getElementNames()) {
        if (isInUse(styles, name)) waiting.push_back(name);
    }
    std::set<OUString> asked;
    while (!waiting.empty()) {
        const OUString name = waiting.back();
        waiting.pop_back();
        if (!styles->hasByName(name) || !asked.insert(name).second) continue;
        const Reference<css::beans::XPropertySet> style(styles->getByName(name), UNO_QUERY_THROW);
        if (propertyOf<bool>(style, "HeaderIsOn") || propertyOf<bool>(style, "FooterIsOn"))
            return true;
        waiting.push_back(propertyOf<OUString>(style, "FollowStyle"));
    }
    return false;
}

}  // namespace huebrush::libreoffice
