// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/FailingPeer.h"
#include "recolor/Dialog_test_support.h"

namespace huebrush::recolor {
namespace {

using base::text;

class ViewsTest : public DialogTest {
 protected:
    void chooseView(std::size_t view) { user.click(*dialog->optView.at(view)); }
    /// "1 1 1 1" when recolouring and the palette controls are enabled.
    std::string enabledByCount() const {
        const auto digit = [](const forms::Control& control) { return control.Enabled ? 1 : 0; };
        return text(digit(dialog->cmdDiscolour), digit(dialog->cmdFromDatabase),
                    digit(dialog->cmdToDatabase), digit(dialog->fData));
    }
    std::string recolourCaption() const { return dialog->cmdDiscolour.Caption.get(); }
    double areaHeight() const { return dialog->picElementGroup.Height; }
    double areaTop() const { return dialog->picElementGroup.Top; }
    /// The height of the viewport as the dialog opens.
    static constexpr double kViewport = 6170;
};

// The dialog as it opens.

TEST_F(ViewsTest, HasItsTexts) {
    EXPECT_EQ(dialog->Caption.get(), " Změna výplně grafických objektů...");
    const auto both = [](const auto& control) {
        return control.Caption.get() + " | " + control.ToolTipText.get();
    };
    EXPECT_EQ(both(dialog->fData), "Databáze výplní | ");
    EXPECT_EQ(both(dialog->cmdFromDatabase),
              "&Načíst...  | Zobrazí dialog pro výběr palety nových výplní z databáze");
    EXPECT_EQ(both(dialog->cmdToDatabase),
              "&Uložit/Editovat... | Zobrazí dialog pro možnost uložení označených výplní jako "
              "nové palety do databáze");
    EXPECT_EQ(both(dialog->cmdClose), "&Konec | Uzavře formulář");
    EXPECT_EQ(dialog->lblLoadStatus.Caption.get(), "Načitám...");
    EXPECT_EQ(both(dialog->cmdAdd),
              "&Přidat | Prohledá označené grafické objekty a přidá zástupce jejich výplní do "
              "formuláře");
    EXPECT_EQ(both(dialog->Frame1), "Zobrazit | ");
    EXPECT_EQ(both(dialog->optView0), "Vš&e | Zobrazí všechny zástupce");
    EXPECT_EQ(both(dialog->optView1), "&Označené | Zobrazí pouze označené zástupce ");
    EXPECT_EQ(both(dialog->optView2), "N&eoznačené | Zobrazí pouze neoznačené zástupce ");
    EXPECT_EQ(both(dialog->cmdDiscolour),
              "Pře&barvit | Aplikuje na grafické objekty nové (označené) výplně");
    EXPECT_EQ(both(dialog->chkSelAll), "&Vše | Označí všechny načtené zástupce");
    EXPECT_EQ(dialog->cmdRemove.ToolTipText.get(),
              "Zobrazí nabídku na odstranění zástupců výplní z formuláře");
    EXPECT_EQ(dialog->nfbUP.ToolTipText.get(), "Přesune aktivní prvek o jednu úroveň výše");
    EXPECT_EQ(dialog->nfbDown.ToolTipText.get(), "Přesune aktivní prvek o jednu úroveň níže");
    EXPECT_EQ(dialog->Label1.Caption.get(), "Pořadí");
    EXPECT_EQ(dialog->Label2.Caption.get(), "Aktuální výplň");
    EXPECT_EQ(dialog->Label3.Caption.get(), "Nová výplň");
}

TEST_F(ViewsTest, OpensTopMostAndThenTakesItsPicturesInTheirOrder) {
    test.startLog();
    const auto opened = frmEditGraphic::create();
    const auto calls = test.calls();
    ASSERT_GE(calls.size(), 5U);
    EXPECT_EQ(Names(calls.begin(), calls.begin() + 5),
              (Names{"call frmEditGraphic.Raise", "read Icon 301", "read Icon 300", "read Icon 201",
                     "read Icon 200"}));
    opened->Unload();
}

TEST_F(ViewsTest, OpensWithItsThreeFocuslessButtonsDisabled) {
    EXPECT_EQ(dialog->cmdRemove.Caption.get(), "Smazat");
    EXPECT_EQ(dialog->nfbUP.Caption.get(), "");
    EXPECT_EQ(dialog->nfbDown.Caption.get(), "");
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
    EXPECT_FALSE(dialog->nfbUP.Enabled);
    EXPECT_FALSE(dialog->nfbDown.Enabled);
    const auto& component = test.runtime.Component();
    EXPECT_EQ(dialog->nfbUP.Picture(), component.icon(301));
    EXPECT_EQ(dialog->nfbUP.DisabledPicture(), component.icon(300));
    EXPECT_EQ(dialog->nfbDown.Picture(), component.icon(201));
    EXPECT_EQ(dialog->nfbDown.DisabledPicture(), component.icon(200));
}

TEST_F(ViewsTest, OpensWithTheRowAreaOfTheTemplatesSizeAndStep) {
    EXPECT_EQ(dialog->picElementGroup.Width, 4455);
    EXPECT_EQ(areaHeight(), 630);
    EXPECT_EQ(dialog->vs.SmallChange.get(), 630);
    EXPECT_EQ(dialog->Element[0].Top, -630);
    EXPECT_FALSE(dialog->Element[0].Visible);
}

TEST_F(ViewsTest, OpensInTheViewOfAllRowsWithNothingToRecolour) {
    EXPECT_TRUE(dialog->optView0.Value);
    EXPECT_EQ(dialog->optView0.Tag.get(), "0");
    EXPECT_EQ(enabledByCount(), "0000");
    EXPECT_FALSE(dialog->picLoadStatus.Visible);
    EXPECT_FALSE(dialog->imgCL.Visible);
    EXPECT_FALSE(dialog->imgBW.Visible);
}

TEST_F(ViewsTest, OpensWithAScrollBarThatHasNothingToScroll) {
    EXPECT_FALSE(dialog->vs.Enabled);
}

TEST_F(ViewsTest, TheProgressBoxTakesTheWidthOfTheListBelowTheStripOfControls) {
    for (const double height : {7365.0, 9000.0}) {
        user.resize(dialog->Width, height);
        const forms::PictureBox& box = dialog->picLoadStatus;
        EXPECT_EQ(box.Left, dialog->picMain.Left);
        EXPECT_EQ(box.Width, dialog->picMain.Width + dialog->vs.Width);
        EXPECT_GE(dialog->chkSelAll.Top, dialog->picMain.Top + dialog->picMain.Height);
        EXPECT_GE(box.Top, dialog->chkSelAll.Top + dialog->chkSelAll.Height);
        EXPECT_GE(box.Top, dialog->nfbUP.Top + dialog->nfbUP.Height);
        EXPECT_LE(box.Top + box.Height, height);
    }
}

TEST_F(ViewsTest, AnErrorOfTheOpeningIsReported) {
    test.log().failAt("call frmEditGraphic.Raise", base::Error(7, "popis"));
    const auto opened = frmEditGraphic::create();
    EXPECT_EQ(onlyBox(), reported("7", "Form_Load"));
    opened->Unload();
}

TEST_F(ViewsTest, ShowDialogKeepsTheHostAndShowsTheFormBesideTheDocument) {
    const auto opened = frmEditGraphic::create();
    opened->ShowDialog(test.application);
    EXPECT_EQ(test.runtime.windowCalls.back(), "show frmEditGraphic");
    memory::Driver(*opened).click(opened->cmdAdd);
    EXPECT_EQ(test.runtime.boxes.at(0).style, 48);
    opened->Unload();
}

TEST_F(ViewsTest, EscapeEndsItWhileNoRowsNewFillIsChanged) {
    EXPECT_TRUE(dialog->endsByEscape());
    addRows(3);
    user.click(dialog->chkSelAll);
    EXPECT_TRUE(dialog->endsByEscape());
    row(3).FillObject().setDesTransparency(0.5F);
    EXPECT_FALSE(dialog->endsByEscape());
    tick({3});
    EXPECT_FALSE(dialog->endsByEscape());
    tick({3});
    user.click(dialog->cmdDiscolour);
    EXPECT_TRUE(dialog->endsByEscape());
}

TEST_F(ViewsTest, TheCloseButtonClosesIt) {
    user.click(dialog->cmdClose);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(test.runtime.windowCalls.back(), "close frmEditGraphic");
}

// Resizing.

TEST_F(ViewsTest, ANarrowerDialogSnapsBackToItsLoadedWidth) {
    const double width = dialog->Width;
    user.resize(1000, dialog->Height);
    EXPECT_EQ(dialog->Width, width);
    user.resize(width + 500, dialog->Height);
    EXPECT_EQ(dialog->Width, width + 500);
}

TEST_F(ViewsTest, AHigherDialogGivesItsHeightToTheRowArea) {
    dialog->setFrameSize(120, 400);
    user.resize(9000, 9400);
    EXPECT_EQ(dialog->frameMain.Height, 9000 - dialog->frameMain.Top);
    EXPECT_EQ(dialog->picMain.Height, 9000 - dialog->picMain.Top - 700);
    EXPECT_EQ(dialog->vs.Height, dialog->picMain.Height);
    EXPECT_EQ(dialog->imgHorn.Left, 8880 - dialog->imgHorn.Width);
    EXPECT_EQ(dialog->imgHorn.Top, 9000 - dialog->imgHorn.Height);
}

TEST_F(ViewsTest, AVeryLowDialogShrinksItsPartsToNothingAndNeverBelow) {
    for (const double height : {1200.0, 400.0, 0.0}) {
        user.resize(dialog->Width, height);
        EXPECT_GE(dialog->frameMain.Height, 0);
        EXPECT_GE(dialog->imgHorn.Top, 0);
    }
    EXPECT_EQ(dialog->frameMain.Height, 0);
    EXPECT_EQ(dialog->picMain.Height, 0);
    EXPECT_EQ(dialog->vs.Height, 0);
    EXPECT_EQ(dialog->imgHorn.Top, 0);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ViewsTest, NothingHappensWhileTheDialogIsMinimised) {
    const double height = dialog->picMain.Height;
    dialog->WindowState = forms::WindowState::minimized;
    user.resize(100, 100);
    EXPECT_EQ(dialog->picMain.Height, height);
    EXPECT_EQ(dialog->Width, 100);
}

TEST_F(ViewsTest, ResizingRecomputesTheScrollBarAndScrollsToTheTop) {
    addRows(12);
    user.scrollTo(dialog->vs, 500);
    user.resize(dialog->Width, dialog->Height - 1000);
    EXPECT_EQ(dialog->vs.value(), 0);
    EXPECT_EQ(dialog->vs.Max.get(), 12 * 630 - 5170);
    user.resize(dialog->Width, dialog->Height + 5000);
    EXPECT_FALSE(dialog->vs.Enabled);
}

TEST_F(ViewsTest, AnErrorOfAResizeIsReported) {
    dialog->frameMain.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Height));
    user.resize(dialog->Width, dialog->Height + 100);
    dialog->frameMain.setPeer(nullptr);
    EXPECT_EQ(onlyBox(), reported("7", "Form_Resize"));
}

// Scrolling.

TEST_F(ViewsTest, WithFewRowsTheScrollBarIsDisabledAndTheRowsStartAtTheTop) {
    addRows(9);
    EXPECT_FALSE(dialog->vs.Enabled);
    EXPECT_EQ(areaTop(), 0);
    EXPECT_EQ(dialog->picMain.Height, kViewport);
}

TEST_F(ViewsTest, WithManyRowsItCoversTheOverflow) {
    addRows(10);
    EXPECT_TRUE(dialog->vs.Enabled);
    EXPECT_EQ(dialog->vs.Max.get(), 130);
    EXPECT_EQ(dialog->vs.LargeChange.get(), 6300);
    EXPECT_EQ(dialog->vs.SmallChange.get(), 630);
}

TEST_F(ViewsTest, WhereNothingIsLeftToScrollTheRowsAreBackAtTheTop) {
    addRows(12);
    user.scrollTo(dialog->vs, 700);
    tick({12});
    user.scrollTo(dialog->vs, 700);
    chooseView(1);
    EXPECT_FALSE(dialog->vs.Enabled);
    EXPECT_EQ(dialog->vs.value(), 0);
    EXPECT_EQ(areaTop(), 0);
}

TEST_F(ViewsTest, AListThatFitsAgainIsScrolledToItsTop) {
    addRows(12);
    user.scrollTo(dialog->vs, 700);
    user.resize(dialog->Width, dialog->Height + 5000);
    EXPECT_FALSE(dialog->vs.Enabled);
    EXPECT_EQ(dialog->vs.value(), 0);
    EXPECT_EQ(areaTop(), 0);
}

TEST_F(ViewsTest, AListThatFitsAfterARemovalIsScrolledToItsTop) {
    addRows(12);
    user.scrollTo(dialog->vs, 700);
    row(5).SetFocus();
    user.key(forms::KeyCode::kDelete, forms::Shift::kShift);
    EXPECT_FALSE(dialog->vs.Enabled);
    EXPECT_EQ(dialog->vs.value(), 0);
    EXPECT_EQ(areaTop(), 0);
}

TEST_F(ViewsTest, RowsThatFitExactlyNeedNoScrollBar) {
    addRows(9);
    user.resize(dialog->Width, dialog->Height - (kViewport - 9 * 630));
    EXPECT_EQ(dialog->picMain.Height, 9 * 630);
    EXPECT_FALSE(dialog->vs.Enabled);
}

TEST_F(ViewsTest, TheOverflowIsRoundedToWholeTwips) {
    addRows(10);
    user.resize(dialog->Width, dialog->Height - 0.6);
    EXPECT_EQ(dialog->vs.Max.get(), 131);
    user.resize(dialog->Width, dialog->Height + 0.2);
    EXPECT_EQ(dialog->vs.Max.get(), 130);
}

TEST_F(ViewsTest, ScrollingMovesTheRowAreaUp) {
    addRows(12);
    user.scrollTo(dialog->vs, 700);
    EXPECT_EQ(areaTop(), -700);
    user.scrollTo(dialog->vs, 0);
    EXPECT_EQ(areaTop(), 0);
}

TEST_F(ViewsTest, ManyRowsScrollBeyondSixteenBits) {
    addRows(80);
    EXPECT_EQ(dialog->vs.Max.get(), 80 * 630 - 6170);
    user.scrollTo(dialog->vs, 40000);
    EXPECT_EQ(areaTop(), -40000);
}

TEST_F(ViewsTest, ARowBelowTheViewportIsScrolledUntilItsBottomMeetsTheViewports) {
    addRows(12);
    row(12).SetFocus();
    EXPECT_EQ(dialog->vs.value(), 12 * 630 - 6170);
    EXPECT_EQ(row(12).Top + row(12).Height + areaTop(), kViewport);
}

TEST_F(ViewsTest, ARowAboveTheViewportIsScrolledUntilItsTopMeetsTheViewports) {
    addRows(20);
    row(20).SetFocus();
    row(3).SetFocus();
    EXPECT_EQ(dialog->vs.value(), 2 * 630);
    EXPECT_EQ(row(3).Top + areaTop(), 0);
}

TEST_F(ViewsTest, ARowInsideTheViewportIsNotScrolled) {
    addRows(20);
    user.scrollTo(dialog->vs, 700);
    row(4).SetFocus();
    EXPECT_EQ(dialog->vs.value(), 700);
}

TEST_F(ViewsTest, ARowWhoseBottomJustReachesTheViewportsIsScrolledToThere) {
    addRows(12);
    const std::int32_t touching = 10 * 630 - 6170;
    user.scrollTo(dialog->vs, touching);
    row(10).SetFocus();
    EXPECT_EQ(dialog->vs.value(), touching);
}

TEST_F(ViewsTest, ARowHigherThanTheViewportIsScrolledToItsBottomUnlessItsTopIsAbove) {
    addRows(3);
    user.resize(dialog->Width, dialog->Height - (kViewport - 400));
    ASSERT_EQ(dialog->picMain.Height, 400);
    row(1).SetFocus();
    EXPECT_EQ(dialog->vs.value(), 630 - 400);
    row(3).SetFocus();
    EXPECT_EQ(dialog->vs.value(), 3 * 630 - 400);
    row(2).SetFocus();
    EXPECT_EQ(dialog->vs.value(), 630);
}

TEST_F(ViewsTest, AMovedRowIsBroughtIntoViewWithItsFocus) {
    addRows(12);
    row(10).SetFocus();
    user.click(dialog->nfbDown);
    EXPECT_EQ(activeIndex(), 11);
    EXPECT_EQ(dialog->vs.value(), 11 * 630 - 6170);
}

TEST_F(ViewsTest, AnErrorOfTheScrollBarIsReported) {
    addRows(10);
    dialog->vs.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Enabled));
    user.resize(dialog->Width, dialog->Height + 5000);
    dialog->vs.setPeer(nullptr);
    EXPECT_EQ(onlyBox(), reported("7", "SetScroll"));
}

// Views.

TEST_F(ViewsTest, TheViewsShowAllTickedOrUntickedRowsPackedWithoutAGap) {
    addRows(5);
    tick({2, 4});
    const auto tops = [this] {
        Colors found;
        for (const std::int32_t index : shown()) {
            found.push_back(static_cast<std::int32_t>(row(static_cast<std::int16_t>(index)).Top));
        }
        return found;
    };
    chooseView(1);
    EXPECT_EQ(shown(), (Colors{2, 4}));
    EXPECT_EQ(tops(), (Colors{0, 630}));
    EXPECT_EQ(areaHeight(), 2 * 630);
    chooseView(2);
    EXPECT_EQ(shown(), (Colors{1, 3, 5}));
    EXPECT_EQ(tops(), (Colors{0, 630, 1260}));
    EXPECT_EQ(areaHeight(), 3 * 630);
    chooseView(0);
    EXPECT_EQ(shown(), (Colors{1, 2, 3, 4, 5}));
    EXPECT_EQ(tops(), (Colors{0, 630, 1260, 1890, 2520}));
}

TEST_F(ViewsTest, TheChosenViewIsKeptInTheTagOfTheFirstOption) {
    addRows(1);
    for (const std::size_t view : {1U, 2U, 0U}) {
        chooseView(view);
        EXPECT_EQ(dialog->optView0.Tag.get(), text(view));
    }
}

TEST_F(ViewsTest, AGreyRowCountsAsTicked) {
    addRows(2);
    row(1).setSelectValue(2);
    chooseView(1);
    EXPECT_EQ(shown(), Colors{1});
    EXPECT_EQ(dialog->selectedCount(), 1);
}

TEST_F(ViewsTest, TheTickedViewWithoutATickedRowIsEmptyAndNothingCanBeRecoloured) {
    addRows(3);
    chooseView(1);
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(areaHeight(), 0);
    EXPECT_EQ(recolourCaption(), "Pře&barvit");
    EXPECT_EQ(enabledByCount(), "0000");
}

TEST_F(ViewsTest, ARowTickedInTheUntickedViewVanishesAtOnceAndTheRowsBelowCloseUp) {
    addRows(3);
    chooseView(2);
    tick({2});
    EXPECT_EQ(shown(), (Colors{1, 3}));
    EXPECT_EQ(row(3).Top, 630);
    EXPECT_EQ(areaHeight(), 2 * 630);
    EXPECT_EQ(activeIndex(), 3) << "the focus has moved on to the next row";
}

TEST_F(ViewsTest, TheRecolourButtonCountsTheTickedRowsHiddenOnesIncluded) {
    addRows(4);
    tick({1, 2, 4});
    EXPECT_EQ(recolourCaption(), "Pře&barvit (3)");
    chooseView(2);
    EXPECT_EQ(shown(), Colors{3});
    EXPECT_EQ(recolourCaption(), "Pře&barvit (3)");
    EXPECT_EQ(enabledByCount(), "1111");
    EXPECT_EQ(dialog->selectedCount(), 3);
}

TEST_F(ViewsTest, TheLastUntickedRowDisablesRecolouringAndPalettes) {
    addRows(2);
    tick({1});
    EXPECT_EQ(enabledByCount(), "1111");
    tick({1});
    EXPECT_EQ(enabledByCount(), "0000");
    EXPECT_EQ(recolourCaption(), "Pře&barvit");
}

TEST_F(ViewsTest, TickingARowWhileTheListIsScrolledReturnsItToItsTop) {
    addRows(12);
    user.scrollTo(dialog->vs, 700);
    tick({5});
    EXPECT_EQ(dialog->vs.value(), 0);
    EXPECT_EQ(areaTop(), 0);
}

TEST_F(ViewsTest, ChoosingTheCurrentViewAgainRefreshesIt) {
    addRows(12);
    user.scrollTo(dialog->vs, 700);
    chooseView(0);
    EXPECT_EQ(dialog->vs.value(), 0);
}

TEST_F(ViewsTest, AScanInAFilteredViewShowsItsRowsUntilTheNextRefresh) {
    addRows(1);
    tick({1});
    chooseView(1);
    addRows(Colors{9});
    EXPECT_EQ(shown(), (Colors{1, 2}));
    chooseView(1);
    EXPECT_EQ(shown(), Colors{1});
}

TEST_F(ViewsTest, AScanInAFilteredViewPlacesItsRowUnderTheLastOneHiddenOrNot) {
    addRows(4);
    tick({2});
    chooseView(1);
    EXPECT_EQ(row(2).Top, 0);
    EXPECT_EQ(row(4).Top, 3 * 630);
    addRows(Colors{9});
    EXPECT_EQ(row(5).Top, 4 * 630);
    EXPECT_EQ(areaHeight(), 5 * 630);
    chooseView(2);
    EXPECT_EQ(row(5).Top, 3 * 630);
    chooseView(1);
    chooseView(2);
    addRows(Colors{10});
    EXPECT_EQ(row(6).Top, 4 * 630);
    EXPECT_EQ(areaHeight(), 5 * 630);
}

TEST_F(ViewsTest, EveryValueButZeroCountsAsTicked) {
    for (const std::int16_t value : {std::int16_t{-1}, std::int16_t{1}, std::int16_t{2}}) {
        addRows(2);
        row(2).setSelectValue(value);
        EXPECT_EQ(dialog->selectedCount(), 1) << value;
        chooseView(1);
        EXPECT_EQ(shown(), Colors{2}) << value;
        chooseView(2);
        EXPECT_EQ(shown(), Colors{1}) << value;
        chooseView(0);
        row(1).SetFocus();
        user.key(forms::KeyCode::kDelete, forms::Shift::kShift);
        EXPECT_EQ(rowCount(), 0);
    }
}

TEST_F(ViewsTest, AnErrorOfAViewIsReported) {
    addRows(2);
    row(1).setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Visible));
    chooseView(1);
    row(1).setPeer(nullptr);
    EXPECT_EQ(onlyBox(), reported("7", "optView_Click"));
}

// The logo.

TEST_F(ViewsTest, TheLogoShowsItsColoursInsideItsBorderOf200Twips) {
    const auto& component = test.runtime.Component();
    const auto width = static_cast<float>(dialog->imgQXLogo.Width.get());
    const auto height = static_cast<float>(dialog->imgQXLogo.Height.get());
    const auto isColoured = [&](float x, float y) {
        user.moveMouse(dialog->imgQXLogo, x, y);
        return dialog->imgQXLogo.Picture.get() == component.icon(401);
    };
    EXPECT_EQ(dialog->imgQXLogo.Picture.get(), component.icon(400));
    EXPECT_TRUE(isColoured(width / 2, height / 2));
    EXPECT_TRUE(isColoured(201, 201));
    EXPECT_FALSE(isColoured(200, 210));
    EXPECT_FALSE(isColoured(210, 200));
    EXPECT_FALSE(isColoured(width - 200, height / 2));
    EXPECT_FALSE(isColoured(width / 2, height - 200));
    // A band that the mouse finds.
    EXPECT_TRUE(isColoured(width / 2, 230));
    EXPECT_TRUE(isColoured(width / 2, 600));
    EXPECT_FALSE(isColoured(10, height / 2));
    EXPECT_EQ(dialog->imgQXLogo.Picture.get(), component.icon(400));
}

TEST_F(ViewsTest, TheLogoIsInBlackAndWhiteAfterTheAboutBoxWhateverThePointerDidMeanwhile) {
    const auto& component = test.runtime.Component();
    onAbout = [&] {
        user.moveMouse(dialog->imgQXLogo, static_cast<float>(dialog->imgQXLogo.Width / 2),
                       static_cast<float>(dialog->imgQXLogo.Height / 2));
        EXPECT_EQ(dialog->imgQXLogo.Picture.get(), component.icon(401));
    };
    user.click(dialog->imgQXLogo);
    EXPECT_EQ(abouts, 1);
    EXPECT_EQ(dialog->imgQXLogo.Picture.get(), component.icon(400));
}

TEST_F(ViewsTest, AClickOnTheLogoOpensTheAboutBoxAndThenShowsItInBlackAndWhite) {
    user.moveMouse(dialog->imgQXLogo, 300, 210);
    user.click(dialog->imgQXLogo);
    EXPECT_EQ(abouts, 1);
    EXPECT_EQ(dialog->imgQXLogo.Picture.get(), test.runtime.Component().icon(400));
}

}  // namespace
}  // namespace huebrush::recolor
