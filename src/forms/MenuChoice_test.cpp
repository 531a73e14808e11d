// SPDX-License-Identifier: MPL-2.0

#include "forms/MenuChoice.h"

#include <gtest/gtest.h>

namespace huebrush::forms {
namespace {

using Line = std::optional<std::size_t>;

class MenuChoiceTest : public ::testing::Test {
 protected:
    static constexpr std::size_t kFirst = 0, kOff = 1, kLine = 2, kSecond = 3, kLast = 4;

    MenuChoiceTest() {
        off.Enabled = false;
        last.Checked = true;
    }
    MenuChoice choice() const { return MenuChoice(menu); }

    PopupMenu menu{"menu"};
    MenuItem first{menu, "first", "&First"};
    MenuItem off{menu, "off", "&Off"};
    MenuItem line{menu, "line", "-"};
    MenuItem second{menu, "second", "Se&cond"};
    MenuItem last{menu, "last", "Čau && &Conč"};
};

TEST_F(MenuChoiceTest, ALineHasItsTextItsAccessKeyAndItsState) {
    const MenuChoice menu = choice();
    const std::vector<MenuEntry>& entries = menu.entries();
    ASSERT_EQ(entries.size(), 5U);
    EXPECT_EQ(entries[kFirst].text, "First");
    EXPECT_EQ(entries[kFirst].key, Line(0));
    EXPECT_FALSE(entries[kOff].enabled);
    EXPECT_TRUE(entries[kLine].separator);
    EXPECT_FALSE(entries[kLine].usable());
    EXPECT_EQ(entries[kSecond].beforeKey(), "Se");
    EXPECT_EQ(entries[kSecond].throughKey(), "Sec");
    EXPECT_EQ(entries[kLast].text, "Čau & Conč");
    EXPECT_EQ(entries[kLast].beforeKey(), "Čau & ");
    EXPECT_EQ(entries[kLast].throughKey(), "Čau & C");
    EXPECT_TRUE(entries[kLast].checked);
    MenuItem accented(this->menu, "accented", "Za &čárkou");
    EXPECT_EQ(MenuEntry(accented).throughKey(), "Za č");
    EXPECT_FALSE(entries[kFirst].checked);
}

TEST_F(MenuChoiceTest, ArrowsSkipWhatCannotBePickedAndWrapAround) {
    MenuChoice menu = choice();
    EXPECT_EQ(menu.highlighted(), Line());
    menu.moveDown();
    EXPECT_EQ(menu.highlighted(), Line(kFirst));
    menu.moveDown();
    EXPECT_EQ(menu.highlighted(), Line(kSecond));
    menu.moveUp();
    menu.moveUp();
    EXPECT_EQ(menu.highlighted(), Line(kLast));
    menu.moveDown();
    EXPECT_EQ(menu.highlighted(), Line(kFirst));
}

TEST_F(MenuChoiceTest, UpStartsAtTheEnd) {
    MenuChoice menu = choice();
    menu.moveUp();
    EXPECT_EQ(menu.highlighted(), Line(kLast));
}

TEST_F(MenuChoiceTest, TheEndsAreTheUsableOnes) {
    first.Enabled = false;
    last.Enabled = false;
    second.Enabled = true;
    off.Enabled = true;
    MenuChoice menu = choice();
    menu.moveToLast();
    EXPECT_EQ(menu.highlighted(), Line(kSecond));
    menu.moveToFirst();
    EXPECT_EQ(menu.highlighted(), Line(kOff));
}

TEST_F(MenuChoiceTest, TheMouseHighlightsNothingThatCannotBePicked) {
    MenuChoice menu = choice();
    EXPECT_FALSE(menu.pointAt(kOff));
    EXPECT_EQ(menu.highlighted(), Line());
    EXPECT_TRUE(menu.pointAt(kSecond));
    EXPECT_FALSE(menu.pointAt(kLine));
    EXPECT_FALSE(menu.pointAt(std::nullopt));
    EXPECT_EQ(menu.highlighted(), Line(kSecond));
}

TEST_F(MenuChoiceTest, AMenuWithNothingToPickHighlightsNothing) {
    for (MenuItem* const item : menu.items()) item->Enabled = false;
    MenuChoice menu = choice();
    menu.moveDown();
    menu.moveUp();
    menu.moveToFirst();
    menu.moveToLast();
    EXPECT_FALSE(menu.call('f'));
    EXPECT_EQ(menu.highlighted(), Line());
    PopupMenu nothing("nothing");
    MenuChoice empty(nothing);
    empty.moveDown();
    empty.moveUp();
    EXPECT_EQ(empty.highlighted(), Line());
}

TEST_F(MenuChoiceTest, ALetterPicksTheOnlyLineItSelectsOrElseMovesFromOneToTheNext) {
    MenuChoice menu = choice();
    EXPECT_FALSE(menu.call('o'));
    EXPECT_EQ(menu.highlighted(), Line());
    EXPECT_FALSE(menu.call('s'));
    EXPECT_FALSE(menu.call('c'));
    EXPECT_EQ(menu.highlighted(), Line(kSecond));
    EXPECT_FALSE(menu.call('C'));
    EXPECT_EQ(menu.highlighted(), Line(kLast));
    EXPECT_TRUE(menu.call('F'));
    EXPECT_EQ(menu.highlighted(), Line(kFirst));
    second.Caption = "Second";
    MenuChoice unmarked = choice();
    EXPECT_TRUE(unmarked.call('s'));
    EXPECT_EQ(unmarked.highlighted(), Line(kSecond));
}

}  // namespace
}  // namespace huebrush::forms
