// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/FailingPeer.h"
#include "recolor/Dialog_test_support.h"

namespace huebrush::recolor {
namespace {

using base::Picture;
using base::PictureFormat;
using base::text;
using forms::KeyCode::kDelete;
using forms::KeyCode::kDown;
using forms::KeyCode::kUp;
using forms::Shift::kAlt;
using forms::Shift::kCtrl;
using forms::Shift::kShift;

class ElementListTest : public DialogTest {
 protected:
    void focus(std::int16_t index) { row(index).SetFocus(); }
    /// Opens the remove menu and picks an item; an empty caption picks none.
    void remove(const std::string& caption) {
        if (!caption.empty()) test.runtime.picks = {caption};
        user.click(dialog->cmdRemove);
    }
    /// The captions of the remove menu's enabled items.
    Names enabledItems() {
        remove("");
        Names captions;
        for (const auto& item : test.runtime.menus.back().items) {
            if (item.enabled) captions.push_back(item.caption);
        }
        return captions;
    }
    /// Whether the move buttons are both enabled, both disabled, or differ.
    std::string moveButtons() const {
        if (dialog->nfbUP.Enabled != dialog->nfbDown.Enabled) return "differ";
        return dialog->nfbUP.Enabled ? "enabled" : "disabled";
    }
    void drag(std::int16_t from, const std::vector<std::int16_t>& over) {
        focus(from);
        std::vector<forms::Control*> rows;
        rows.reserve(over.size());
        for (const std::int16_t index : over) rows.push_back(&row(index));
        user.drag([this, from] { row(from).grab(); }, rows);
    }
    bool isMarked(std::int16_t index) { return row(index).lineDragDes1.Visible; }
    void chooseView(std::size_t view) { user.click(*dialog->optView.at(view)); }
};

// Exchanging two rows.

TEST_F(ElementListTest, ExchangingTwoRowsExchangesTheirFiveContents) {
    addRows(2);
    const auto firstFill = row(1).fillReference();
    const auto secondFill = row(2).fillReference();
    const auto firstGroup = row(1).ElementsGroup();
    const auto secondGroup = row(2).ElementsGroup();
    const Picture source(PictureFormat::bitmap, {1});
    const Picture destination(PictureFormat::bitmap, {2});
    row(1).setSourcePicture(source);
    row(1).setDestinationPicture(destination);
    const Picture otherSource = row(2).SourcePicture();
    row(1).setSelectValue(2);
    dialog->ReplaceColorElement(row(1), row(2));
    EXPECT_EQ(row(1).fillReference(), secondFill);
    EXPECT_EQ(row(2).fillReference(), firstFill);
    EXPECT_EQ(row(1).ElementsGroup(), secondGroup);
    EXPECT_EQ(row(2).ElementsGroup(), firstGroup);
    EXPECT_EQ(row(1).SourcePicture(), otherSource);
    EXPECT_EQ(row(2).SourcePicture(), source);
    EXPECT_EQ(row(2).DestinationPicture(), destination);
    EXPECT_EQ(selectValues(), (Colors{0, 2}));
    EXPECT_EQ(row(1).Top, 0);
}

TEST_F(ElementListTest, APreviewReadFromARecordShowsInTheRowThatHoldsTheFillNow) {
    addRows(2);
    const auto fill = row(1).fillReference();
    dialog->ReplaceColorElement(row(1), row(2));
    const Picture preview(PictureFormat::bitmap, {5});
    fill->ReadFromRecordset(preview);
    EXPECT_EQ(row(2).DestinationPicture(), preview);
    EXPECT_FALSE(row(1).DestinationPicture() == preview);
}

TEST_F(ElementListTest, AFailedExchangeIsReportedAndLeavesTheRowsHalfExchanged) {
    addRows(2);
    row(2).picSource.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Picture));
    dialog->ReplaceColorElement(row(1), row(2));
    row(2).picSource.setPeer(nullptr);
    EXPECT_EQ(test.runtime.boxes.at(0).text,
              "Chyba v modulu \"Huebrush.frmEditGraphic.ReplaceColorElement\"...\r\n\r\nPři "
              "záměně dvou prvků došlo k chybě...\r\n\r\nSystémový popis výjimky:\r\npopis");
    EXPECT_EQ(order(), (Colors{2, 1}));
    EXPECT_EQ(row(1).ElementsGroup(), row(2).ElementsGroup());
}

// Focus and the active row.

TEST_F(ElementListTest, TheFocusedRowIsTheActiveOneAndEnablesTheMoveButtons) {
    addRows(2);
    EXPECT_EQ(activeIndex(), 0);
    EXPECT_EQ(moveButtons(), "disabled");
    focus(2);
    EXPECT_EQ(activeIndex(), 2);
    EXPECT_EQ(moveButtons(), "enabled");
    focus(1);
    EXPECT_EQ(activeIndex(), 1);
    EXPECT_EQ(moveButtons(), "enabled");
    dialog->cmdAdd.SetFocus();
    EXPECT_EQ(activeIndex(), 0);
    EXPECT_EQ(moveButtons(), "disabled");
}

TEST_F(ElementListTest, AClickOnAFocuslessButtonLeavesTheActiveRow) {
    addRows(2);
    focus(1);
    user.click(dialog->nfbDown);
    EXPECT_EQ(activeIndex(), 2);
    remove("");
    EXPECT_EQ(activeIndex(), 2);
    user.click(row(2).cmdChangeDes);
    EXPECT_EQ(activeIndex(), 2);
}

TEST_F(ElementListTest, AnErrorOnGainingTheFocusIsReported) {
    addRows(12);
    dialog->vs.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Value));
    focus(12);
    dialog->vs.setPeer(nullptr);
    EXPECT_EQ(onlyBox(), reported("7", "Element_GotFocus"));
    EXPECT_EQ(activeIndex(), 0);
    EXPECT_EQ(moveButtons(), "disabled") << "they follow the scrolling";
}

// Select all.

TEST_F(ElementListTest, SelectAllGivesEveryRowItsValue) {
    addRows(3);
    user.click(dialog->chkSelAll);
    EXPECT_EQ(selectValues(), (Colors{1, 1, 1}));
    EXPECT_EQ(dialog->chkSelAll.Value, 1);
    EXPECT_EQ(dialog->selectedCount(), 3);
    user.click(dialog->chkSelAll);
    EXPECT_EQ(selectValues(), (Colors{0, 0, 0}));
    EXPECT_EQ(dialog->chkSelAll.Value, 0);
    EXPECT_EQ(dialog->selectedCount(), 0);
}

TEST_F(ElementListTest, SelectAllLeavesItsTagEmptyAndTheFirstChangeAfterItTurnsItGrey) {
    addRows(3);
    user.click(dialog->chkSelAll);
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "");
    tick({2});
    EXPECT_EQ(dialog->chkSelAll.Value, 2);
    EXPECT_EQ(selectValues(), (Colors{1, 0, 1}));
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "INTERNAL");
}

TEST_F(ElementListTest, TheTagIsInternalBeforeTheBoxTurnsGrey) {
    addRows(2);
    dialog->chkSelAll.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Value));
    tick({1});
    dialog->chkSelAll.setPeer(nullptr);
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "INTERNAL");
    EXPECT_EQ(test.unhandled.size(), 1U) << "a row's event has no trap of its own";
    test.unhandled.clear();
}

TEST_F(ElementListTest, TheTagStaysInternalUntilTheNextClickOnTheBox) {
    addRows(2);
    tick({1});
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "INTERNAL");
    tick({2});
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "INTERNAL");
    user.click(dialog->chkSelAll);
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "");
    EXPECT_EQ(dialog->chkSelAll.Value, 0);
    EXPECT_EQ(selectValues(), (Colors{0, 0}));
}

TEST_F(ElementListTest, WhileTheTagIsInternalAChangeByCodeDoesNotTurnTheBoxGreyAgain) {
    addRows(2);
    tick({1});
    dialog->chkSelAll.Value = std::int16_t{1};
    // Set by code, the box acts as clicked: rows and tag follow.
    EXPECT_EQ(selectValues(), (Colors{1, 1}));
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "");
    tick({1});
    EXPECT_EQ(dialog->chkSelAll.Value, 2);
}

TEST_F(ElementListTest, TheGreyValuesOwnClickDoesNothing) {
    addRows(2);
    row(1).setSelectValue(1);
    dialog->chkSelAll.Value = std::int16_t{2};
    EXPECT_EQ(selectValues(), (Colors{1, 0}));
}

TEST_F(ElementListTest, SelectAllTurnsGreyRowsToItsValueToo) {
    addRows(2);
    row(1).setSelectValue(2);
    user.click(dialog->chkSelAll);
    EXPECT_EQ(selectValues(), (Colors{0, 0}));
    user.click(dialog->chkSelAll);
    EXPECT_EQ(selectValues(), (Colors{1, 1}));
}

TEST_F(ElementListTest, SelectAllReachesTheRowsThatTheViewHides) {
    addRows(3);
    tick({2});
    chooseView(1);
    user.click(dialog->chkSelAll);
    user.click(dialog->chkSelAll);
    EXPECT_EQ(selectValues(), (Colors{1, 1, 1}));
    EXPECT_EQ(shown(), (Colors{1, 2, 3}));
}

TEST_F(ElementListTest, AnErrorOfSelectAllIsReportedAndLeavesTheTag) {
    addRows(2);
    row(2).chkSelect.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Value));
    user.click(dialog->chkSelAll);
    row(2).chkSelect.setPeer(nullptr);
    EXPECT_EQ(onlyBox(), reported("7", "chkSelAll_Click"));
    EXPECT_EQ(dialog->chkSelAll.Tag.get(), "INTERNAL");
    EXPECT_EQ(row(1).SelectValue(), 1);
}

// Moving by buttons and keys.

TEST_F(ElementListTest, TheButtonsMoveTheActiveRowsContentAndTheFocusFollows) {
    addRows(3);
    focus(1);
    user.click(dialog->nfbDown);
    EXPECT_EQ(order(), (Colors{2, 1, 3}));
    EXPECT_EQ(activeIndex(), 2);
    user.click(dialog->nfbDown);
    EXPECT_EQ(order(), (Colors{2, 3, 1}));
    user.click(dialog->nfbUP);
    EXPECT_EQ(order(), (Colors{2, 1, 3}));
    EXPECT_EQ(activeIndex(), 2);
    EXPECT_EQ(moveButtons(), "enabled");
}

TEST_F(ElementListTest, ShiftUpAndShiftDownMoveTheRow) {
    addRows(3);
    focus(2);
    user.key(kUp, kShift);
    EXPECT_EQ(order(), (Colors{2, 1, 3}));
    EXPECT_EQ(activeIndex(), 1);
    user.key(kDown, kCtrl);
    EXPECT_EQ(order(), (Colors{1, 2, 3}));
    EXPECT_EQ(activeIndex(), 2);
}

TEST_F(ElementListTest, MovingTheTopRowUpOrTheBottomRowDownDoesNothing) {
    addRows(3);
    focus(1);
    user.click(dialog->nfbUP);
    EXPECT_EQ(order(), (Colors{1, 2, 3}));
    EXPECT_EQ(activeIndex(), 1);
    focus(3);
    user.click(dialog->nfbDown);
    EXPECT_EQ(order(), (Colors{1, 2, 3}));
    EXPECT_EQ(activeIndex(), 3);
}

TEST_F(ElementListTest, WithoutAnActiveRowMovingDoesNothing) {
    addRows(2);
    dialog->nfbUP.Enabled = true;
    dialog->nfbDown.Enabled = true;
    user.click(dialog->nfbUP);
    user.click(dialog->nfbDown);
    EXPECT_EQ(order(), (Colors{1, 2}));
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ElementListTest, InAFilteredViewMovingSkipsTheHiddenRows) {
    addRows(5);
    tick({1, 4, 5});
    chooseView(1);
    EXPECT_EQ(shown(), (Colors{1, 4, 5}));
    focus(4);
    user.click(dialog->nfbUP);
    EXPECT_EQ(order(), (Colors{4, 2, 3, 1, 5}));
    EXPECT_EQ(activeIndex(), 1);
    user.click(dialog->nfbDown);
    EXPECT_EQ(order(), (Colors{1, 2, 3, 4, 5}));
    EXPECT_EQ(activeIndex(), 4);
}

TEST_F(ElementListTest, TheTopShownRowOfAFilteredViewDoesNotMoveUp) {
    addRows(3);
    tick({2, 3});
    chooseView(1);
    focus(2);
    user.click(dialog->nfbUP);
    EXPECT_EQ(order(), (Colors{1, 2, 3}));
    EXPECT_EQ(activeIndex(), 2);
}

TEST_F(ElementListTest, TheBottomShownRowOfAFilteredViewDoesNotMoveDown) {
    addRows(4);
    tick({1, 2});
    chooseView(1);
    focus(2);
    user.click(dialog->nfbDown);
    EXPECT_EQ(order(), (Colors{1, 2, 3, 4}));
    EXPECT_EQ(activeIndex(), 2);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ElementListTest, AMoveThatExchangesTicksRefreshesTheView) {
    addRows(2);
    tick({1});
    user.click(dialog->chkSelAll);
    tick({1});
    EXPECT_EQ(dialog->selectedCount(), 1);
    focus(1);
    user.click(dialog->nfbDown);
    EXPECT_EQ(selectValues(), (Colors{0, 1}));
    EXPECT_EQ(dialog->selectedCount(), 1);
    EXPECT_EQ(dialog->cmdDiscolour.Caption.get(), "Pře&barvit (1)");
}

TEST_F(ElementListTest, AnErrorOfAMoveIsReportedUnderItsButtonsName) {
    addRows(3);
    focus(2);
    row(1).Enabled = false;
    user.click(dialog->nfbUP);
    EXPECT_EQ(onlyBox(), reported("5", "nfbUP_Click"));
    test.runtime.boxes.clear();
    row(3).Enabled = false;
    user.click(dialog->nfbDown);
    EXPECT_EQ(onlyBox(), reported("5", "nfbDown_Click"));
}

// Drag and drop.

TEST_F(ElementListTest, ADropDownwardsShiftsTheRowsBetweenUp) {
    addRows(5);
    drag(2, {3, 4});
    EXPECT_EQ(order(), (Colors{1, 3, 4, 2, 5}));
    EXPECT_EQ(activeIndex(), 4);
}

TEST_F(ElementListTest, ADropUpwardsShiftsTheRowsBetweenDown) {
    addRows(5);
    drag(5, {4, 3, 2});
    EXPECT_EQ(order(), (Colors{1, 5, 2, 3, 4}));
    EXPECT_EQ(activeIndex(), 2);
}

TEST_F(ElementListTest, ARowDroppedOnItselfChangesNothing) {
    addRows(3);
    drag(2, {2});
    EXPECT_EQ(order(), (Colors{1, 2, 3}));
    EXPECT_EQ(activeIndex(), 2);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ElementListTest, ARowUnderTheDraggedOneShowsItsMarkUntilItIsLeft) {
    addRows(3);
    focus(1);
    const auto grab = [this] { row(1).grab(); };
    user.dragWithoutDrop(grab, {&row(2)});
    EXPECT_TRUE(isMarked(2));
    user.dragWithoutDrop(grab, {&row(2), &row(3)});
    EXPECT_FALSE(isMarked(2));
    EXPECT_TRUE(isMarked(3));
    user.drop(&row(3));
    EXPECT_FALSE(isMarked(3));
}

TEST_F(ElementListTest, EnteringAloneShowsNoMark) {
    addRows(2);
    focus(1);
    row(1).grab();
    dialog->handle([this] { dialog->dragOver(row(2), 0, 0, forms::DragState::enter); });
    EXPECT_FALSE(isMarked(2));
    dialog->handle([this] { dialog->dragOver(row(2), 0, 0, forms::DragState::over); });
    EXPECT_TRUE(isMarked(2));
    user.drop(nullptr);
}

TEST_F(ElementListTest, TheDraggedRowItselfShowsNoMark) {
    addRows(2);
    focus(1);
    user.dragWithoutDrop([this] { row(1).grab(); }, {&row(1)});
    EXPECT_FALSE(isMarked(1));
    user.drop(nullptr);
    EXPECT_EQ(order(), (Colors{1, 2}));
}

TEST_F(ElementListTest, WhatIsNoRowNeitherMarksNorMoves) {
    addRows(2);
    user.drag([this] { dialog->imgHorn.Drag(); }, {&row(1)});
    EXPECT_FALSE(isMarked(1));
    EXPECT_EQ(order(), (Colors{1, 2}));
    EXPECT_EQ(activeIndex(), 0);
}

TEST_F(ElementListTest, ADropCarriesTheTicksAlong) {
    addRows(4);
    tick({1});
    drag(1, {4});
    EXPECT_EQ(order(), (Colors{2, 3, 4, 1}));
    EXPECT_EQ(selectValues(), (Colors{0, 0, 0, 1}));
    EXPECT_EQ(dialog->selectedCount(), 1);
}

TEST_F(ElementListTest, ADropInAFilteredViewPassesTheHiddenRows) {
    addRows(5);
    tick({1, 3, 5});
    chooseView(1);
    drag(1, {5});
    EXPECT_EQ(order(), (Colors{2, 3, 4, 5, 1}));
    EXPECT_EQ(selectValues(), (Colors{0, 1, 0, 1, 1}));
    EXPECT_EQ(shown(), (Colors{2, 4, 5}));
    EXPECT_EQ(activeIndex(), 5);
}

TEST_F(ElementListTest, ADropOnARowThatTakesNoFocusIsReported) {
    addRows(3);
    focus(1);
    row(1).grab();
    row(3).Enabled = false;
    user.drop(&row(3));
    EXPECT_EQ(onlyBox(), reported("5", "Element_DragDrop"));
    EXPECT_EQ(order(), (Colors{2, 3, 1}));
}

TEST_F(ElementListTest, AnErrorOfTheMarkIsReported) {
    addRows(2);
    focus(1);
    row(2).lineDragDes1.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Visible));
    user.dragWithoutDrop([this] { row(1).grab(); }, {&row(2)});
    row(2).lineDragDes1.setPeer(nullptr);
    EXPECT_EQ(onlyBox(), reported("7", "Element_DragOver"));
}

TEST_F(ElementListTest, ARowRemovedWhileItIsDraggedIsNotDropped) {
    addRows(3);
    focus(3);
    user.dragWithoutDrop([this] { row(3).grab(); }, {&row(1)});
    user.key(kDelete);
    EXPECT_EQ(dialog->dragged(), nullptr);
    user.drop(&row(1));
    EXPECT_EQ(order(), (Colors{1, 2}));
}

// The remove menu.

TEST_F(ElementListTest, TheRemoveMenuHasItsItemsInTheirOrder) {
    EXPECT_EQ(dialog->mnuRemove.Caption, "Ostranit");
    Names items;
    for (const forms::MenuItem* const item : dialog->mnuRemove.items()) {
        items.push_back(item->name() + " " + item->Caption);
    }
    EXPECT_EQ(items, (Names{"mnuRemoveActive &Aktuální", "mnuRemoveNoSelect &Neoznačené",
                            "mnuRemoveSelect &Označené", "mnuRemoveAll &Vše"}));
}

TEST_F(ElementListTest, TheRemoveMenuOpensAtTheButtonsLowerLeftCorner) {
    addRows(1);
    remove("");
    ASSERT_EQ(test.runtime.menus.size(), 1U);
    EXPECT_EQ(test.runtime.menus[0].owner, "frmEditGraphic");
    EXPECT_EQ(test.runtime.menus[0].x, dialog->cmdRemove.Left);
    EXPECT_EQ(test.runtime.menus[0].y, dialog->cmdRemove.Top + dialog->cmdRemove.Height);
}

TEST_F(ElementListTest, ItsItemsAreEnabledByRowsTicksAndTheActiveRow) {
    addRows(2);
    EXPECT_EQ(enabledItems(), (Names{"&Neoznačené", "&Vše"}));
    tick({1});
    EXPECT_EQ(enabledItems(), (Names{"&Aktuální", "&Neoznačené", "&Označené", "&Vše"}));
    tick({2});
    dialog->cmdAdd.SetFocus();
    EXPECT_EQ(enabledItems(), (Names{"&Označené", "&Vše"}));
    row(1).setSelectValue(2);
    row(2).setSelectValue(2);
    EXPECT_EQ(enabledItems(), (Names{"&Označené", "&Vše"}));
}

TEST_F(ElementListTest, WithoutRowsEveryItemIsDisabled) {
    dialog->cmdRemove.Enabled = true;
    EXPECT_TRUE(enabledItems().empty());
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
}

// Removal.

TEST_F(ElementListTest, RemovingTheActiveRowClosesTheGap) {
    addRows(4);
    focus(2);
    remove("&Aktuální");
    EXPECT_EQ(order(), (Colors{1, 3, 4}));
    EXPECT_EQ(activeIndex(), 2);
    EXPECT_EQ(moveButtons(), "enabled");
    EXPECT_EQ(dialog->picElementGroup.Height, 3 * 630);
}

TEST_F(ElementListTest, RemovingTheLastRowWhileItIsActiveTakesTheFocusAwayFromIt) {
    addRows(3);
    focus(3);
    remove("&Aktuální");
    EXPECT_EQ(order(), (Colors{1, 2}));
    EXPECT_EQ(activeIndex(), 0);
    EXPECT_EQ(moveButtons(), "disabled");
    ASSERT_NE(dialog->focused(), nullptr);
    EXPECT_TRUE(dialog->focused()->isUsable());
}

TEST_F(ElementListTest, RemovingAllLeavesTheTemplateAlone) {
    addRows(3);
    focus(2);
    remove("&Vše");
    EXPECT_EQ(rowCount(), 0);
    EXPECT_EQ(activeIndex(), 0);
    EXPECT_EQ(moveButtons(), "disabled");
    EXPECT_EQ(dialog->picElementGroup.Height, 0);
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
    EXPECT_FALSE(dialog->cmdDiscolour.Enabled);
}

TEST_F(ElementListTest, RemovingTheUntickedKeepsTheOthersInTheirOrder) {
    addRows(6);
    tick({2, 5, 6});
    remove("&Neoznačené");
    EXPECT_EQ(order(), (Colors{2, 5, 6}));
    EXPECT_EQ(selectValues(), (Colors{1, 1, 1}));
}

TEST_F(ElementListTest, RemovingTheTickedKeepsTheOthersInTheirOrder) {
    addRows(6);
    tick({1, 2, 5});
    remove("&Označené");
    EXPECT_EQ(order(), (Colors{3, 4, 6}));
    EXPECT_EQ(selectValues(), (Colors{0, 0, 0}));
    EXPECT_EQ(dialog->selectedCount(), 0);
}

TEST_F(ElementListTest, AGreyRowIsRemovedNeitherWithTheTickedNorWithTheUnticked) {
    addRows(3);
    row(2).setSelectValue(2);
    tick({3});
    remove("&Označené");
    EXPECT_EQ(order(), (Colors{1, 2}));
    remove("&Neoznačené");
    EXPECT_EQ(order(), Colors{2});
    EXPECT_EQ(row(1).SelectValue(), 2);
}

TEST_F(ElementListTest, AGreyRowIsRemovedAsTheActiveOneAndWithAll) {
    addRows(2);
    row(2).setSelectValue(2);
    focus(2);
    remove("&Aktuální");
    EXPECT_EQ(order(), Colors{1});
    row(1).setSelectValue(2);
    remove("&Vše");
    EXPECT_EQ(rowCount(), 0);
}

TEST_F(ElementListTest, RemainingRowsArePackedWithTheirContents) {
    addRows(4);
    focus(1);
    remove("&Aktuální");
    for (std::int16_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(row(i).Top, 630 * (i - 1));
        ASSERT_TRUE(row(i).ElementsGroup());
        EXPECT_EQ(row(i).ElementsGroup()->at(0)->Name(), text("Shape ", i + 1));
    }
}

TEST_F(ElementListTest, ARemovedGroupsFillGoesWithItsRow) {
    addRows(3);
    const std::weak_ptr<fill::CFill> fill = row(1).fillReference();
    focus(1);
    remove("&Aktuální");
    EXPECT_TRUE(fill.expired());
}

TEST_F(ElementListTest, DeleteRemovesTheActiveRow) {
    addRows(3);
    focus(2);
    user.key(kDelete);
    EXPECT_EQ(order(), (Colors{1, 3}));
    EXPECT_EQ(activeIndex(), 2);
    user.key(kDelete, kCtrl);
    EXPECT_EQ(order(), Colors{1});
}

TEST_F(ElementListTest, ShiftDeleteRemovesEveryRowWithoutAQuestion) {
    addRows(3);
    focus(2);
    user.key(kDelete, kShift);
    EXPECT_EQ(rowCount(), 0);
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(moveButtons(), "disabled");
}

TEST_F(ElementListTest, ShiftWithAnotherKeyRemovesTheActiveRowOnly) {
    for (const int more : {kCtrl + 0, kAlt + 0, kCtrl | kAlt}) {
        addRows(3);
        focus(2);
        user.key(kDelete, static_cast<std::int16_t>(kShift | more));
        EXPECT_EQ(order(), (Colors{1, 3})) << more;
        user.key(kDelete, kShift);
        EXPECT_EQ(rowCount(), 0);
    }
}

TEST_F(ElementListTest, ARowOfAnyOtherValueIsSelectedButRemovedWithNeitherSelection) {
    for (const std::int16_t value : {std::int16_t{-1}, std::int16_t{2}, std::int16_t{3}}) {
        addRows(1);
        row(1).setSelectValue(value);
        EXPECT_EQ(enabledItems(), (Names{"&Označené", "&Vše"})) << value;
        remove("&Označené");
        EXPECT_EQ(rowCount(), 1) << value;
        remove("&Vše");
        EXPECT_EQ(rowCount(), 0);
    }
}

TEST_F(ElementListTest, TheMoveButtonsFollowTheFocusAfterEachRemoval) {
    addRows(4);
    focus(1);
    remove("&Označené");
    EXPECT_EQ(moveButtons(), "enabled") << "a disabled item removes nothing";
    tick({2});
    focus(1);
    remove("&Označené");
    EXPECT_EQ(moveButtons(), "enabled");
    dialog->cmdAdd.SetFocus();
    remove("&Neoznačené");
    EXPECT_EQ(moveButtons(), "disabled");
}

TEST_F(ElementListTest, AfterTheRemoveMenuTheRecolourButtonIsEnabledWhileAnyRowRemains) {
    addRows(3);
    focus(1);
    EXPECT_FALSE(dialog->cmdDiscolour.Enabled);
    remove("&Aktuální");
    EXPECT_EQ(dialog->selectedCount(), 0);
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
    EXPECT_TRUE(dialog->cmdRemove.Enabled);
    EXPECT_EQ(dialog->cmdDiscolour.Caption.get(), "Pře&barvit");
}

TEST_F(ElementListTest, SoItIsEvenWhenNoItemWasPicked) {
    addRows(1);
    remove("");
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
}

TEST_F(ElementListTest, TheNextRefreshDisablesItAgain) {
    addRows(2);
    remove("");
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
    tick({1, 1});
    EXPECT_FALSE(dialog->cmdDiscolour.Enabled);
}

TEST_F(ElementListTest, ARemovalByKeyDoesNotEnableIt) {
    addRows(2);
    focus(1);
    user.key(kDelete);
    EXPECT_FALSE(dialog->cmdDiscolour.Enabled);
}

TEST_F(ElementListTest, AnErrorOfARemovalIsReportedUnderItsItemsName) {
    const auto failing = [this](const std::string& caption) {
        test.runtime.boxes.clear();
        row(rowCount()).setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Visible));
        remove(caption);
        row(rowCount()).setPeer(nullptr);
        row(rowCount()).Visible = true;
        return onlyBox();
    };
    addRows(4);
    focus(1);
    EXPECT_EQ(failing("&Aktuální"), reported("7", "mnuRemoveActive_Click"));
    EXPECT_EQ(failing("&Vše"), reported("7", "mnuRemoveAll_Click"));
    EXPECT_EQ(failing("&Neoznačené"), reported("7", "mnuRemoveNoSelect_Click"));
    user.click(dialog->chkSelAll);
    EXPECT_EQ(failing("&Označené"), reported("7", "mnuRemoveSelect_Click"));
}

TEST_F(ElementListTest, TheDialogMayBeClosedUnderTheRemoveMenu) {
    addRows(2);
    test.runtime.onMenu = [this] { user.close(); };
    user.click(dialog->cmdRemove);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_TRUE(test.runtime.boxes.empty());
    test.runtime.onMenu = nullptr;
}

TEST_F(ElementListTest, TheDialogMayBeClosedUnderTheFillMenuOfARow) {
    addRows(2);
    test.runtime.onMenu = [this] { user.close(); };
    test.runtime.picks = {"&Obnovit původní"};
    user.click(row(2).cmdChangeDes);
    EXPECT_TRUE(dialog->isUnloaded());
    test.runtime.onMenu = nullptr;
}

TEST_F(ElementListTest, ARowMayBeRemovedUnderItsOwnFillMenu) {
    addRows(2);
    focus(2);
    test.runtime.onMenu = [this] { user.key(kDelete); };
    test.runtime.picks = {"&Obnovit původní"};
    user.click(row(2).cmdChangeDes);
    EXPECT_EQ(rowCount(), 1);
    EXPECT_TRUE(test.runtime.boxes.empty());
    test.runtime.onMenu = nullptr;
}

TEST_F(ElementListTest, ClosingTheDialogTakesItsRowsAndTheActiveOneAway) {
    addRows(3);
    focus(2);
    user.close();
    EXPECT_EQ(rowCount(), 0);
    EXPECT_EQ(dialog->ActiveElement(), nullptr);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

// The list by itself, on a form that is no dialog.

class RowsTest : public ::testing::Test {
 protected:
    using Colors = std::vector<std::int32_t>;

    /// Rows that are changed to the colours 1 … count.
    void add(std::int32_t count) {
        for (std::int32_t color = 1; color <= count; ++color) {
            const auto index = static_cast<std::int16_t>(rows.ubound() + 1);
            rows.Load(index);
            rows[index].Visible = true;
            fill::FillProperties fill;
            fill.ForeColorRGB = color;
            rows[index].FillObject().setDestination(fill);
        }
    }
    Colors order() const {
        Colors colors;
        for (std::int16_t i = 1; i <= rows.ubound(); ++i) {
            colors.push_back(rows[i].FillObject().destination().ForeColorRGB);
        }
        return colors;
    }

    memory::TestHost test;
    std::shared_ptr<forms::Form> form = std::make_shared<forms::Form>("form");
    ElementList::Rows rows{*form, [this](std::int16_t index) {
                               return std::make_shared<ColorElement>(*form, text("row", index),
                                                                     index);
                           }};
    std::vector<std::pair<std::int16_t, std::int16_t>> exchanged;
    ElementList list{rows, [this](ColorElement& first, ColorElement& second) {
                         exchanged.emplace_back(first.index(), second.index());
                         ElementList::exchangeContents(first, second);
                     }};
};

TEST_F(RowsTest, MoveByOneVisiblePlace) {
    add(4);
    rows[3].Visible = false;
    EXPECT_EQ(list.moveBy(4, -1), &rows[2]);
    EXPECT_EQ(order(), (Colors{1, 4, 3, 2}));
    EXPECT_EQ(list.moveBy(2, 1), &rows[4]);
    EXPECT_EQ(order(), (Colors{1, 2, 3, 4}));
    EXPECT_EQ(list.moveBy(1, -1), nullptr);
    EXPECT_EQ(list.moveBy(4, 1), nullptr);
    EXPECT_EQ(exchanged.size(), 2U);
}

TEST_F(RowsTest, MoveThroughAllPlacesBetween) {
    add(4);
    list.moveTo(1, 3);
    EXPECT_EQ(order(), (Colors{2, 3, 1, 4}));
    list.moveTo(4, 2);
    EXPECT_EQ(order(), (Colors{2, 4, 3, 1}));
    list.moveTo(2, 2);
    EXPECT_EQ(exchanged,
              (std::vector<std::pair<std::int16_t, std::int16_t>>{{1, 2}, {2, 3}, {4, 3}, {3, 2}}));
}

TEST_F(RowsTest, LeaveWithoutAGap) {
    add(5);
    list.remove(2);
    EXPECT_EQ(order(), (Colors{1, 3, 4, 5}));
    rows[1].setSelectValue(forms::CheckValue::kTicked);
    rows[2].setSelectValue(forms::CheckValue::kGrey);
    rows[4].setSelectValue(forms::CheckValue::kTicked);
    EXPECT_EQ(list.selectedCount(), 3);
    list.removeWith(forms::CheckValue::kTicked);
    EXPECT_EQ(order(), (Colors{3, 4}));
    list.removeAll();
    EXPECT_EQ(rows.ubound(), 0);
    EXPECT_EQ(list.selectedCount(), 0);
}

TEST_F(RowsTest, AreSelectedTogetherAndSayWhetherAnyIsChanged) {
    EXPECT_FALSE(list.anyChanged());
    add(2);
    list.select(forms::CheckValue::kTicked);
    EXPECT_EQ(list.selectedCount(), 2);
    rows[1].FillObject().Restore();
    EXPECT_TRUE(list.anyChanged());
    rows[2].FillObject().Restore();
    EXPECT_FALSE(list.anyChanged());
}

}  // namespace
}  // namespace huebrush::recolor
