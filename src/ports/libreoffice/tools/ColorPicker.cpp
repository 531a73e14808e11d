// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/tools/ColorPicker.h"

#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/beans/XPropertyAccess.hpp>
#include <com/sun/star/ui/dialogs/ExecutableDialogResults.hpp>
#include <com/sun/star/ui/dialogs/XExecutableDialog.hpp>

#include "base/Color.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr const char* kColor = "Color";
/// The dialog's mode in which it shows the colour that it starts from beside the new one.
constexpr std::int16_t kModify = 2;

Reference<css::beans::XPropertyAccess> makePicker(const ContextReference& context,
                                                  const Reference<css::awt::XWindow>& parent) {
    const Any argument(parent);
    return {
        context->getServiceManager()->createInstanceWithArgumentsAndContext(
            "com.sun.star.ui.dialogs.ColorPicker", css::uno::Sequence<Any>(&argument, 1), context),
        UNO_QUERY_THROW};
}

}  // namespace

std::optional<std::int32_t> pickColor(const ContextReference& context,
                                      const Reference<css::awt::XWindowPeer>& owner,
                                      std::int32_t color) {
    return officeCalls([&]() -> std::optional<std::int32_t> {
        const auto picker = makePicker(context, Reference<css::awt::XWindow>(owner, UNO_QUERY));
        const sal_Int32 start = base::swapRedAndBlue(color);
        picker->setPropertyValues(
            properties({property(kColor, Any(start)), property("Mode", Any(kModify))}));
        const sal_Int16 result =
            Reference<css::ui::dialogs::XExecutableDialog>(picker, UNO_QUERY_THROW)->execute();
        if (result != css::ui::dialogs::ExecutableDialogResults::OK) return std::nullopt;
        sal_Int32 chosen = start;
        valueOf(picker->getPropertyValues(), kColor) >>= chosen;
        return base::swapRedAndBlue(chosen);
    });
}

}  // namespace huebrush::libreoffice
