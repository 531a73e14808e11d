// SPDX-License-Identifier: MPL-2.0

#include "view/Menu.h"

#include <gtest/gtest.h>

#include <optional>

#include "forms/Control.h"
#include "view/MenuLayout.h"
#include "view/MenuPick.h"

namespace huebrush::view {
namespace {

namespace KeyCode = forms::KeyCode;
using Line = MenuPick::Line;

class EndingMenu final : public NativeMenu {
 public:
    void press(const Key&) override { ++keys; }
    void end() override { ++ends; }

    int keys = 0;
    int ends = 0;
};

class MenuTest : public ::testing::Test {
 protected:
    static constexpr std::size_t kFirst = 0, kOff = 1, kRule = 2, kLast = 3;

    MenuPick opened() {
        off.Enabled = false;
        return MenuPick(menu);
    }

    forms::PopupMenu menu{"menu"};
    forms::MenuItem first{menu, "first", "&First"};
    forms::MenuItem off{menu, "off", "&Off"};
    forms::MenuItem rule{menu, "rule", "-"};
    forms::MenuItem last{menu, "last", "&Last"};
    EndingMenu window;
    Menu state;
    MenuPick pick = opened();
};

// Opening.

TEST_F(MenuTest, OneMenuIsOpenAtATime) {
    EXPECT_TRUE(state.mayOpen(menu));
    const Menu::Opened opened(state, window, menu);
    EXPECT_TRUE(state.isOpen());
    EXPECT_FALSE(state.mayOpen(forms::PopupMenu("other")));
}

TEST_F(MenuTest, ThePressThatClosesAMenuDoesNotOpenItAgain) {
    {
        const Menu::Opened opened(state, window, menu);
        state.pressBeside();
        EXPECT_EQ(window.ends, 1);
    }
    EXPECT_FALSE(state.mayOpen(menu)) << "the release of that click";
    EXPECT_TRUE(state.mayOpen(menu)) << "the next click";
}

TEST_F(MenuTest, ThePressThatClosesAMenuOpensAnother) {
    {
        const Menu::Opened opened(state, window, menu);
        state.pressBeside();
    }
    EXPECT_TRUE(state.mayOpen(forms::PopupMenu("other")));
}

TEST_F(MenuTest, AfterAKeyAMenuClosedByTheMouseOpensAgain) {
    {
        const Menu::Opened opened(state, window, menu);
        state.pressBeside();
    }
    EXPECT_FALSE(state.press({KeyCode::kSpace})) << "no menu is open";
    EXPECT_TRUE(state.mayOpen(menu));
}

TEST_F(MenuTest, WithoutAMenuNothingIsClosed) {
    state.close();
    state.pressBeside();
    EXPECT_FALSE(state.isOpen());
    EXPECT_TRUE(state.mayOpen(menu));
}

// Picking.

TEST_F(MenuTest, ArrowsPassOverWhatCannotBePicked) {
    pick.press({KeyCode::kDown});
    pick.press({KeyCode::kDown});
    EXPECT_EQ(pick.choice().highlighted(), Line(kLast));
    pick.press({KeyCode::kUp});
    EXPECT_EQ(pick.choice().highlighted(), Line(kFirst));
    pick.press({KeyCode::kEnd});
    EXPECT_EQ(pick.choice().highlighted(), Line(kLast));
    pick.press({KeyCode::kHome});
    EXPECT_EQ(pick.choice().highlighted(), Line(kFirst));
    EXPECT_TRUE(pick.isOpen());
}

TEST_F(MenuTest, ReturnAndSpacePickWhatIsHighlighted) {
    for (const std::int16_t code : {KeyCode::kReturn, KeyCode::kSpace}) {
        MenuPick one = opened();
        one.press({KeyCode::kEnd});
        one.press({code});
        EXPECT_FALSE(one.isOpen());
        EXPECT_EQ(one.picked(), Line(kLast));
    }
}

TEST_F(MenuTest, ReturnWithoutAHighlightClosesWithoutAPick) {
    pick.press({KeyCode::kReturn});
    EXPECT_FALSE(pick.isOpen());
    EXPECT_EQ(pick.picked(), std::nullopt);
}

TEST_F(MenuTest, ThePressThatHasClosedAMenuMayComeAfterIt) {
    {
        const Menu::Opened opened(state, window, menu);
        state.closedByPressToCome();
    }
    state.pressBeside();
    EXPECT_FALSE(state.mayOpen(menu)) << "the release of that click";
    EXPECT_TRUE(state.mayOpen(menu)) << "the next click";
    state.pressBeside();
    EXPECT_TRUE(state.mayOpen(menu));
}

TEST_F(MenuTest, EscapeClosesWithoutAPick) {
    pick.press({KeyCode::kEnd});
    pick.press({KeyCode::kEscape});
    EXPECT_FALSE(pick.isOpen());
    EXPECT_EQ(pick.picked(), std::nullopt);
}

TEST_F(MenuTest, AnAccessKeyPicksItsLine) {
    pick.press({'O'});
    EXPECT_TRUE(pick.isOpen()) << "disabled";
    pick.press({KeyCode::kTab});
    EXPECT_TRUE(pick.isOpen()) << "means nothing here";
    pick.press({'L'});
    EXPECT_EQ(pick.picked(), Line(kLast));
}

TEST_F(MenuTest, TheMouseHighlightsAndPicks) {
    EXPECT_TRUE(pick.pointAt(kLast));
    EXPECT_FALSE(pick.pointAt(kLast)) << "nothing new";
    pick.pressAt(kFirst);
    EXPECT_EQ(pick.choice().highlighted(), Line(kFirst));
    EXPECT_TRUE(pick.isOpen());
    pick.releaseAt(kOff);
    pick.releaseAt(kRule);
    EXPECT_TRUE(pick.isOpen()) << "cannot be picked";
    pick.releaseAt(kLast);
    EXPECT_EQ(pick.picked(), Line(kLast));
}

TEST_F(MenuTest, APressBesideAllLinesCloses) {
    pick.pressAt(std::nullopt);
    EXPECT_FALSE(pick.isOpen());
    pick.releaseAt(kLast);
    EXPECT_EQ(pick.picked(), std::nullopt) << "too late";
}

// The layout.

TEST_F(MenuTest, LinesLieBelowEachOtherInsideTheEdges) {
    const MenuLayout layout(pick.choice().entries(), Scale(), 80, 14);
    // 3 pixels of edge, 5 around a text, 8 for a separator.
    EXPECT_EQ(layout.placeOf(kFirst), (Rectangle{3, 3, 128, 24}));
    EXPECT_EQ(layout.placeOf(kRule), (Rectangle{3, 51, 128, 8}));
    EXPECT_EQ(layout.placeOf(kLast), (Rectangle{3, 59, 128, 24}));
    EXPECT_EQ(layout.size(), (Size{134, 86}));
    EXPECT_EQ(layout.tickOf(kFirst), (Rectangle{3, 3, 24, 24}));
    EXPECT_EQ(layout.textOf(kFirst), (Point{27, 8}));
    EXPECT_EQ(layout.ruleOf(kRule), (Rectangle{8, 54, 118, 1}));
}

TEST_F(MenuTest, ALineIsFoundAtAPlace) {
    const MenuLayout layout(pick.choice().entries(), Scale(), 80, 14);
    EXPECT_EQ(layout.lineAt({3, 3}), Line(kFirst));
    EXPECT_EQ(layout.lineAt({130, 26}), Line(kFirst));
    EXPECT_EQ(layout.lineAt({60, 55}), Line(kRule));
    EXPECT_EQ(layout.lineAt({60, 82}), Line(kLast));
    EXPECT_EQ(layout.lineAt({2, 3}), std::nullopt);
    EXPECT_EQ(layout.lineAt({60, 83}), std::nullopt);
    EXPECT_EQ(layout.lineAt({131, 30}), std::nullopt);
}

}  // namespace
}  // namespace huebrush::view
