// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "KeyboardUser.h"
#include "OfficeContext.h"
#include "OfficePort.h"
#include "base/Error.h"
#include "forms/Controls.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;

namespace fs = std::filesystem;

/// Two lists with a bar to their right each, the second one inside a frame, and a list box.
class ListsForm final : public forms::Form {
 public:
    explicit ListsForm(const std::string& caption) : Form("ListsForm") {
        Caption = caption;
        Move(0, 0, 6000, 4500);
        field.Move(100, 100, 2000, 350);
        view.Move(100, 600, 1500, 1500);
        bar.Move(1600, 600, 255, 1500);
        frame.Move(2200, 600, 2500, 1800);
        frameView.Move(100, 200, 1500, 1500);
        frameBar.Move(1600, 200, 255, 1500);
        list.Move(100, 2600, 1500, 1500);
        for (int line = 0; line < 40; ++line) list.AddItem(base::text("line ", line));
        box.Move(1700, 2600, 300, 300);
        box.AccessibleName = std::string("Nothing, 3 shapes");
    }

    forms::TextBox field{*this, "field"};
    forms::PictureBox view{*this, "view"};
    forms::VScrollBar bar{*this, "bar"};
    forms::Frame frame{*this, "frame"};
    forms::PictureBox frameView{frame, "frameView"};
    forms::VScrollBar frameBar{frame, "frameBar"};
    forms::ListBox list{*this, "list"};
    forms::CheckBox box{*this, "box"};
};

using css::accessibility::XAccessible;
using css::accessibility::XAccessibleContext;

bool hasBox(const css::uno::Reference<XAccessibleContext>& context, const rtl::OUString& name) {
    if (context->getAccessibleRole() == css::accessibility::AccessibleRole::CHECK_BOX &&
        context->getAccessibleName() == name) {
        return true;
    }
    // The type of indices differs among the versions of the office.
    const auto count = context->getAccessibleChildCount();
    for (std::remove_const_t<decltype(count)> i = 0; i < count; ++i) {
        const css::uno::Reference<XAccessible> child = context->getAccessibleChild(i);
        if (child.is() && hasBox(child->getAccessibleContext(), name)) return true;
    }
    return false;
}

/// Whether readers for the blind find a box of that name in the window with the title.
bool isRead(const std::string& title, const std::string& name) {
    const auto toolkit = libreoffice::createService<css::awt::XExtendedToolkit>(
        officeContext(), "com.sun.star.awt.Toolkit");
    for (sal_Int32 i = 0; i < toolkit->getTopWindowCount(); ++i) {
        const css::uno::Reference<XAccessible> top(toolkit->getTopWindow(i), css::uno::UNO_QUERY);
        if (!top.is()) continue;
        const auto context = top->getAccessibleContext();
        if (context->getAccessibleName() == libreoffice::toOffice(title)) {
            return hasBox(context, libreoffice::toOffice(name));
        }
    }
    return false;
}

class FormsOnScreen : public testing::Test {
 protected:
    FormsOnScreen() {
        form->Show();
        port.settle();
        form->field.SetFocus();
        port.settle();
    }
    ~FormsOnScreen() override { form->Unload(); }

    /// The wheel towards the user, with the pointer to the left of a bar, until that has moved: one
    /// of the toolkits drops what comes just after the pointer.
    void turnWheelBeside(const forms::VScrollBar& bar) {
        port.pointAt(bar, -30, 30);
        port.repeatUntil("xdotool click 5", [&] { return bar.value() > 0; });
    }

    OnScreenPort port;
    forms::RuntimeScope scope{port.runtime()};
    std::shared_ptr<ListsForm> form = std::make_shared<ListsForm>("Lists");
};

TEST_F(FormsOnScreen, TheWheelScrollsTheListUnderThePointer) {
    turnWheelBeside(form->frameBar);
    EXPECT_EQ(form->bar.value(), 0);
    const std::int32_t before = form->frameBar.value();
    turnWheelBeside(form->bar);
    EXPECT_EQ(form->frameBar.value(), before);
    EXPECT_EQ(form->focused(), &form->field);
}

TEST_F(FormsOnScreen, TheWheelOverAListBoxScrollsIt) {
    port.pointAt(form->list, 30, 8);
    port.repeatUntil("xdotool click --repeat 3 5 click 1",
                     [&] { return form->list.ListIndex > 0; });
    EXPECT_EQ(form->bar.value(), 0);
    EXPECT_EQ(form->frameBar.value(), 0);
}

TEST_F(FormsOnScreen, AFileDialogIsOwnedByTheModalFormOverAnother) {
    const fs::path owner = fs::temp_directory_path() / "owner";
    const forms::FileDialog dialog{forms::FileDialog::Purpose::open, "Open what", "All (*.mdb)",
                                   "*.mdb"};
    const auto modal = std::make_shared<ListsForm>("Modal lists");
    const User user(dialog.title,
                    base::text("owner=$(xprop -id $(xdotool getactivewindow) WM_TRANSIENT_FOR | "
                               "sed 's/.*# //'); xdotool getwindowname $owner > '",
                               owner.string(), "'"),
                    kEscapeKey);
    std::int32_t error = 0;
    port.whileModal([&] {
        // As after a click on one of its buttons.
        port.waitForTheKeyboardIn(*modal);
        try {
            port.runtime().ChooseFile(dialog);
        } catch (const base::Error& cancelled) {
            error = cancelled.number();
        }
        EXPECT_FALSE(modal->isUnloaded());
        modal->Unload();
    });
    modal->Show(true);
    EXPECT_EQ(error, base::ErrorNumber::kCancelled);
    std::ifstream file(owner);
    std::string name;
    std::getline(file, name);
    EXPECT_EQ(name, "Modal lists");
}

TEST_F(FormsOnScreen, ABoxWithoutCaptionIsReadByItsAccessibleName) {
    EXPECT_TRUE(isRead(form->Caption.get(), "Nothing, 3 shapes"));
    form->box.AccessibleName = std::string("Nothing, 4 shapes");
    port.settle();
    EXPECT_FALSE(isRead(form->Caption.get(), "Nothing, 3 shapes"));
    EXPECT_TRUE(isRead(form->Caption.get(), "Nothing, 4 shapes"));
}

}  // namespace
}  // namespace huebrush::tests
