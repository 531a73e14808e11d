// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/TextWindows.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

bool showsTextDocument(const css::uno::Reference<css::frame::XFrame>& frame) {
    const css::uno::Reference<css::frame::XController> controller = frame->getController();
    if (!controller.is()) return false;
    const css::uno::Reference<css::lang::XServiceInfo> document(controller->getModel(),
                                                                css::uno::UNO_QUERY);
    return document.is() && document->supportsService("com.sun.star.text.TextDocument");
}

}  // namespace

std::vector<LayoutManager> layoutsOfTextWindows(const ContextReference& context) {
    return officeCalls([&] {
        const css::uno::Reference<css::frame::XFrames> frames =
            createService<css::frame::XDesktop2>(context, "com.sun.star.frame.Desktop")
                ->getFrames();
        std::vector<LayoutManager> layouts;
        for (sal_Int32 i = 0; i < frames->getCount(); ++i) {
            const css::uno::Reference<css::frame::XFrame> frame(frames->getByIndex(i),
                                                                css::uno::UNO_QUERY_THROW);
            if (!showsTextDocument(frame)) continue;
            const css::uno::Reference<css::beans::XPropertySet> values(frame,
                                                                       css::uno::UNO_QUERY_THROW);
            const LayoutManager layout(values->getPropertyValue("LayoutManager"),
                                       css::uno::UNO_QUERY);
            if (layout.is()) layouts.push_back(layout);
        }
        return layouts;
    });
}

}  // namespace huebrush::libreoffice
