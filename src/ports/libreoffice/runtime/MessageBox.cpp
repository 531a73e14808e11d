// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/MessageBox.h"

#include <algorithm>
#include <com/sun/star/awt/MessageBoxButtons.hpp>
#include <com/sun/star/awt/MessageBoxResults.hpp>
#include <com/sun/star/awt/MessageBoxType.hpp>
#include <com/sun/star/awt/XMessageBoxFactory.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/lang/XComponent.hpp>

#include "base/Text.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;
namespace buttons = com::sun::star::awt::MessageBoxButtons;

namespace {

using forms::MsgBoxResult;
namespace MsgBoxStyle = forms::MsgBoxStyle;

/// A set of buttons, the first of which is the default one, and what the box answers when it is
/// closed without a button or by a button that the office has no answer of its own for.
struct ButtonSet {
    std::int32_t style;
    sal_Int32 buttons;
    MsgBoxResult otherwise;
};
constexpr ButtonSet kButtonSets[] = {
    {MsgBoxStyle::kOk, buttons::BUTTONS_OK | buttons::DEFAULT_BUTTON_OK, MsgBoxResult::ok},
    {MsgBoxStyle::kOkCancel, buttons::BUTTONS_OK_CANCEL | buttons::DEFAULT_BUTTON_OK,
     MsgBoxResult::cancel},
    {MsgBoxStyle::kAbortRetryIgnore,
     buttons::BUTTONS_ABORT_IGNORE_RETRY | buttons::DEFAULT_BUTTON_CANCEL, MsgBoxResult::abort},
    {MsgBoxStyle::kYesNoCancel, buttons::BUTTONS_YES_NO_CANCEL | buttons::DEFAULT_BUTTON_YES,
     MsgBoxResult::cancel},
    {MsgBoxStyle::kYesNo, buttons::BUTTONS_YES_NO | buttons::DEFAULT_BUTTON_YES, MsgBoxResult::no},
};

const ButtonSet& buttonSetOf(std::int32_t style) {
    const auto* const found =
        std::ranges::find(kButtonSets, style & MsgBoxStyle::kButtonsMask, &ButtonSet::style);
    if (found == std::end(kButtonSets)) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          base::text("Okno se zprávou nemá druh ", style, "."));
    }
    return *found;
}

css::awt::MessageBoxType typeOf(std::int32_t style) {
    switch (style & MsgBoxStyle::kIconMask) {
        case MsgBoxStyle::kCritical:
            return css::awt::MessageBoxType_ERRORBOX;
        case MsgBoxStyle::kQuestion:
            return css::awt::MessageBoxType_QUERYBOX;
        case MsgBoxStyle::kExclamation:
            return css::awt::MessageBoxType_WARNINGBOX;
        case MsgBoxStyle::kInformation:
            return css::awt::MessageBoxType_INFOBOX;
        default:
            return css::awt::MessageBoxType_MESSAGEBOX;
    }
}

MsgBoxResult resultOf(sal_Int16 answer, const ButtonSet& set) {
    namespace results = css::awt::MessageBoxResults;
    switch (answer) {
        case results::OK:
            return MsgBoxResult::ok;
        case results::YES:
            return MsgBoxResult::yes;
        case results::NO:
            return MsgBoxResult::no;
        case results::RETRY:
            return MsgBoxResult::retry;
        case results::IGNORE:
            return MsgBoxResult::ignore;
        default:
            return set.otherwise;
    }
}

std::string withPlainLineBreaks(std::string text) {
    std::erase(text, '\r');
    return text;
}

}  // namespace

MsgBoxResult showMessageBox(const ContextReference& context, const FormWindows::Owner& owner,
                            const std::string& text, std::int32_t style, const std::string& title) {
    const ButtonSet& set = buttonSetOf(style);
    return officeCalls([&] {
        const auto factory =
            createService<css::awt::XMessageBoxFactory>(context, "com.sun.star.awt.Toolkit");
        const css::uno::Reference<css::awt::XMessageBox> box =
            factory->createMessageBox(owner, typeOf(style), set.buttons, toOffice(title),
                                      toOffice(withPlainLineBreaks(text)));
        const sal_Int16 answer = box->execute();
        const css::uno::Reference<css::lang::XComponent> component(box, css::uno::UNO_QUERY);
        if (component.is()) component->dispose();
        return resultOf(answer, set);
    });
}

}  // namespace huebrush::libreoffice
