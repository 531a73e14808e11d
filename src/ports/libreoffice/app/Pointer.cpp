// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/app/Pointer.h"

#include <com/sun/star/awt/SystemPointer.hpp>
#include <com/sun/star/awt/XPointer.hpp>
#include <com/sun/star/awt/XTextComponent.hpp>
#include <com/sun/star/awt/XVclContainer.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using Window = css::uno::Reference<css::awt::XWindow>;
using PointerShape = css::uno::Reference<css::awt::XPointer>;

/// A window inside another has a pointer of its own, so each one's is set; except those with a text
/// to edit, which would keep the arrow afterwards.
void setPointerInside(const Window& window, const PointerShape& pointer) {
    if (css::uno::Reference<css::awt::XTextComponent>(window, css::uno::UNO_QUERY).is()) return;
    const css::uno::Reference<css::awt::XWindowPeer> peer(window, css::uno::UNO_QUERY);
    if (peer.is()) peer->setPointer(pointer);
    const css::uno::Reference<css::awt::XVclContainer> container(window, css::uno::UNO_QUERY);
    if (!container.is()) return;
    for (const Window& child : container->getWindows()) setPointerInside(child, pointer);
}

}  // namespace

void setPointer(const ContextReference& context, const ActiveWindow::Frame& frame,
                host::WdCursorType cursor) {
    ignoringOffice([&] {
        setPointerInside(context, {frame->getContainerWindow(), css::uno::UNO_QUERY},
                         cursor == host::WdCursorType::wdCursorWait);
    });
}

void setPointerInside(const ContextReference& context,
                      const css::uno::Reference<css::awt::XWindowPeer>& window, bool wait) {
    ignoringOffice([&] {
        const auto pointer = createService<css::awt::XPointer>(context, "com.sun.star.awt.Pointer");
        pointer->setType(wait ? css::awt::SystemPointer::WAIT : css::awt::SystemPointer::ARROW);
        setPointerInside(Window(window, css::uno::UNO_QUERY), pointer);
    });
}

}  // namespace huebrush::libreoffice
