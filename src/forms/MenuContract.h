// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/FormsContract.h"

namespace huebrush::forms::contract {

/// The rules of pop-up menus, for ports on which forms have windows to open them over.
template <class Port>
class MenuContract : public FormsContract<Port> {};

TYPED_TEST_SUITE_P(MenuContract);

TYPED_TEST_P(MenuContract, APopupMenuRaisesItsClickThenThePickedItemsBeforeItReturns) {
    PopupMenu menu("menu");
    MenuItem pick(menu, "pick", "Pick");
    MenuItem other(menu, "other", "Other");
    menu.Click.connect([this] { this->events.push_back("opens"); });
    pick.Click.connect([this] { this->events.push_back("picked"); });
    other.Click.connect([this] { this->events.push_back("other"); });
    this->form->first.SetFocus();
    this->watchFocus(this->form->first);
    this->port.pickInNextMenu("Pick");
    Runtime::current().PopupMenu(menu, *this->form, 100, 200);
    EXPECT_EQ(this->takeEvents(), (Names{"opens", "picked"}));
    this->port.pickInNextMenu("");
    Runtime::current().PopupMenu(menu, *this->form, 100, 200);
    EXPECT_EQ(this->takeEvents(), (Names{"opens"}));
}

REGISTER_TYPED_TEST_SUITE_P(MenuContract,
                            APopupMenuRaisesItsClickThenThePickedItemsBeforeItReturns);

}  // namespace huebrush::forms::contract
