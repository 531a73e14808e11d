#include "ports/libreoffice/window/PopupMenus.h"

#include <com/sun/star/awt/MenuItemStyle.hpp>
#include <com/sun/star/awt/PopupMenuDirection.hpp>
#include <com/sun/star/awt/XPopupMenu.hpp>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

void addItems(const css::uno::Reference<css::awt::XPopupMenu>& popup,
              const forms::PopupMenu& menu) {
    sal_Int16 id = 0;
    for (const forms::MenuItem* const item : menu.items()) {
        const sal_Int16 position = id++;
        if (item->isSeparator()) {
            popup->insertSeparator(position);
            continue;
        }
        popup->insertItem(id, toOffice(item->Caption).replace('&', '~'),
                          item->Checked ? css::awt::MenuItemStyle::CHECKABLE : sal_Int16(0),
                          position);
        popup->enableItem(id, item->Enabled);
        if (item->Checked) popup->checkItem(id, true);
    }
}

}  // namespace

forms::MenuItem* pickFromMenu(const ContextReference& context, const forms::PopupMenu& menu,
                              const css::uno::Reference<css::awt::XWindowPeer>& window,
                              const css::awt::Rectangle& place) {
    return officeCalls([&]() -> forms::MenuItem* {
        const auto popup =
            createService<css::awt::XPopupMenu>(context, "com.sun.star.awt.PopupMenu");
        popup->hideDisabledEntries(false);
        addItems(popup, menu);
        const sal_Int16 id =
            popup->execute(window, place, css::awt::PopupMenuDirection::EXECUTE_DOWN);
        if (id <= 0 || id > static_cast<sal_Int16>(menu.items().size())) return nullptr;
        return menu.items()[static_cast<std::size_t>(id - 1)];
    });
}

}  // namespace huebrush::libreoffice
