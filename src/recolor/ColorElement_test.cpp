// SPDX-License-Identifier: MPL-2.0

#include "recolor/ColorElement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "ports/memory/Driver.h"
#include "ports/memory/FailingPeer.h"
#include "ports/memory/TestHost.h"

namespace huebrush::recolor {
namespace {

using base::Picture;
using base::PictureFormat;
using base::text;
using forms::KeyCode::kAlt;
using forms::KeyCode::kBack;
using forms::KeyCode::kContextMenu;
using forms::KeyCode::kDelete;
using forms::KeyCode::kDown;
using forms::KeyCode::kUp;
using host::MsoTriState;
using Names = std::vector<std::string>;

class RowForm final : public forms::Form {
 public:
    RowForm() : Form("RowForm") {}
    forms::CheckBox other{*this, "other"};
    ColorElement row{*this, "row", 1};
};

class ColorElementTest : public ::testing::Test {
 protected:
    ColorElementTest() {
        row.mnuChDNoFill.connect([this](bool& value) { raise(text("NoFill ", value ? 1 : 0)); });
        row.mnuChDTransparency.connect(
            [this](float& value) { raise(text("Transparency ", static_cast<int>(value * 100))); });
        row.mnuChDColor.connect([this] { raise("Color"); });
        row.mnuChDFill.connect([this] { raise("Fill"); });
        row.mnuChDFormat.connect([this] { raise("Format"); });
        row.ChangeSelect.connect([this] { raise("ChangeSelect"); });
        row.MoveUp.connect([this] { raise("MoveUp"); });
        row.MoveDown.connect([this] { raise("MoveDown"); });
        row.DragMouseDown.connect([this] { raise("DragMouseDown"); });
        row.KeyDel.connect([this](std::int16_t& shift) { raise(text("KeyDel ", shift)); });
    }
    void raise(const std::string& event) { events.push_back(event); }
    /// The row stands for two shapes and is ready to be recoloured.
    void prepareGroup() {
        const ShapeGroup shapes{test.document->addSolid("A", 1), test.document->addSolid("B", 1)};
        row.setElementsGroup(std::make_shared<ShapeGroup>(shapes));
        row.FillObject().SaveOriginalFormat(shapes[0]->Fill());
        row.FillObject().setDesTransparency(0.5F);
        row.setSelectValue(1);
        events.clear();
    }
    Names callsOfDiscolour() {
        test.startLog();
        row.Discolour(*test.document);
        return test.calls();
    }

    memory::TestHost test;
    std::shared_ptr<RowForm> form = std::make_shared<RowForm>();
    ColorElement& row = form->row;
    memory::Driver user{*form};
    Names events;
    const Picture first{PictureFormat::bitmap, {1}};
    const Picture second{PictureFormat::bitmap, {2}};
};

// What it says.

TEST_F(ColorElementTest, SaysWhatItStandsForInItsTipAndToReaders) {
    EXPECT_EQ(row.ToolTipText.get(), "");
    prepareGroup();
    row.FillObject().Restore();
    row.setDestinationPicture(first);
    EXPECT_EQ(row.ToolTipText.get(), "#010000, 2 objekty");
    EXPECT_EQ(row.chkSelect.AccessibleName.get(), "#010000, 2 objekty");
    row.FillObject().setDesVisible(MsoTriState::msoFalse);
    row.setDestinationPicture({});
    EXPECT_EQ(row.ToolTipText.get(), "#010000, 2 objekty, nově bez výplně");
    EXPECT_EQ(row.chkSelect.AccessibleName.get(), row.ToolTipText.get());
    EXPECT_EQ(row.chkSelect.ToolTipText.get(),
              "Označení zástupce (zastupované prvky bude možné přebarvit)");
    row.Discolour(*test.document);
    EXPECT_EQ(row.ToolTipText.get(), "bez výplně, 2 objekty");
    row.setElementsGroup(std::make_shared<ShapeGroup>(ShapeGroup{test.document->addSolid("C", 1)}));
    EXPECT_EQ(row.ToolTipText.get(), "bez výplně, 1 objekt");
}

TEST_F(ColorElementTest, AFillThatWasEditedIntoItselfIsNoNewOne) {
    prepareGroup();
    row.FillObject().setDesTransparency(0);
    row.setDestinationPicture(first);
    EXPECT_TRUE(row.FillObject().Change());
    EXPECT_EQ(row.ToolTipText.get(), "#010000, 2 objekty");
}

// The parts.

TEST_F(ColorElementTest, HasItsPartsInTheirOrder) {
    Names names;
    for (const forms::Control* const part : row.children()) names.push_back(part->name());
    EXPECT_EQ(names, (Names{"cmdChangeDes", "chkSelect", "lineDragDes4", "lineDragDes1",
                            "lineDragDes2", "picSource", "picDestination", "imgFocus", "Line2",
                            "Line1", "Image1", "shpFocus", "lineDragDes3", "Label1", "Label2"}));
}

TEST_F(ColorElementTest, ItsPartsHaveTheirToolTips) {
    EXPECT_EQ(row.cmdChangeDes.ToolTipText.get(), "Zobrazí nabídku pro editaci výplně");
    EXPECT_EQ(row.chkSelect.ToolTipText.get(),
              "Označení zástupce (zastupované prvky bude možné přebarvit)");
    EXPECT_EQ(row.picSource.ToolTipText.get(), "Náhled na aktuální vzhled výplně");
    EXPECT_EQ(row.picDestination.ToolTipText.get(), "Náhled na nový vzhled výplně");
    EXPECT_EQ(row.shpFocus.ToolTipText.get(), "Uchopovací značka pro změnu pozice zástupce");
    EXPECT_EQ(row.Label1.Caption.get(), "Bez výplně");
    EXPECT_EQ(row.Label2.Caption.get(), "Bez výplně");
}

TEST_F(ColorElementTest, FocusMarksAndDropFrameAreHiddenAtFirst) {
    for (const forms::Control* const part : std::vector<forms::Control*>{
             &row.Line1, &row.Line2, &row.shpFocus, &row.imgFocus, &row.lineDragDes1,
             &row.lineDragDes2, &row.lineDragDes3, &row.lineDragDes4}) {
        EXPECT_FALSE(part->Visible) << part->name();
    }
}

TEST_F(ColorElementTest, ALabelLiesUnderEachPreview) {
    const auto expectUnder = [](const forms::Label& label, const forms::Image& preview) {
        EXPECT_EQ(label.Left, preview.Left);
        EXPECT_EQ(label.Width, preview.Width);
        EXPECT_GT(label.Top, preview.Top);
        EXPECT_LT(label.Top + label.Height, preview.Top + preview.Height);
        EXPECT_EQ(label.Alignment, forms::Alignment::kCentre);
    };
    expectUnder(row.Label1, row.picSource);
    expectUnder(row.Label2, row.picDestination);
    EXPECT_LT(row.picSource.Left + row.picSource.Width, row.picDestination.Left);
}

TEST_F(ColorElementTest, AnyAttemptToResizeLeavesItAt4455By630Twips) {
    row.Width = 100;
    EXPECT_EQ(row.Width, 4455);
    row.Height = 10000;
    EXPECT_EQ(row.Height, 630);
    row.Move(5, 6, 7, 8);
    EXPECT_EQ(row.Width, 4455);
    EXPECT_EQ(row.Height, 630);
    EXPECT_EQ(row.Left, 5);
    EXPECT_EQ(row.Top, 6);
}

TEST_F(ColorElementTest, ShowingItSetsUpTheMenuButton) {
    row.Show();
    EXPECT_EQ(row.cmdChangeDes.Caption.get(), "...");
    EXPECT_TRUE(row.cmdChangeDes.Font.get().Bold);
    EXPECT_EQ(row.cmdChangeDes.Font.get().Size, 12);
}

TEST_F(ColorElementTest, TheFocusShowsFrameMarkAndGrabHandleAndItsLossHidesThem) {
    const std::vector<forms::Control*> marks{&row.Line1, &row.Line2, &row.shpFocus, &row.imgFocus};
    row.SetFocus();
    EXPECT_EQ(form->focused(), &row.chkSelect);
    for (const forms::Control* const mark : marks) EXPECT_TRUE(mark->Visible) << mark->name();
    form->other.SetFocus();
    for (const forms::Control* const mark : marks) EXPECT_FALSE(mark->Visible) << mark->name();
}

TEST_F(ColorElementTest, TheDropFrameFollowsSelDestinationDrag) {
    for (const bool shown : {true, false}) {
        row.setSelDestinationDrag(shown);
        for (const forms::Line* const line :
             {&row.lineDragDes1, &row.lineDragDes2, &row.lineDragDes3, &row.lineDragDes4}) {
            EXPECT_EQ(line->Visible.get(), shown);
        }
    }
}

TEST_F(ColorElementTest, TheGrabHandleExistsOnTheFocusedRowOnly) {
    row.grab();
    EXPECT_TRUE(events.empty());
    row.SetFocus();
    row.grab();
    EXPECT_EQ(events, Names{"DragMouseDown"});
}

// Properties.

TEST_F(ColorElementTest, EverySetterAnnouncesItsPropertyUnderItsName) {
    Names changed;
    row.PropertyChanged.connect([&](const std::string& name) { changed.push_back(name); });
    row.setMousePointer(11);
    row.setSourcePicture(first);
    row.setDestinationPicture(second);
    row.setSelectValue(1);
    EXPECT_EQ(changed,
              (Names{"MousePointer", "SourcePicture", "DestinationPicture", "SelectValue"}));
}

TEST_F(ColorElementTest, SavesItsPropertiesInTheirOrder) {
    forms::PropertyBag bag;
    row.WriteProperties(bag);
    EXPECT_EQ(bag.written(),
              (Names{"MousePointer", "DestinationPicture", "SourcePicture", "SelectValue"}));
}

TEST_F(ColorElementTest, ReadsBackWhatItSaved) {
    row.setMousePointer(11);
    row.setSourcePicture(first);
    row.setDestinationPicture(second);
    row.setSelectValue(2);
    forms::PropertyBag bag;
    row.WriteProperties(bag);
    ColorElement copy(*form, "copy", 2);
    copy.ReadProperties(bag);
    EXPECT_EQ(copy.MousePointer(), 11);
    EXPECT_EQ(copy.SourcePicture(), first);
    EXPECT_EQ(copy.DestinationPicture(), second);
    EXPECT_EQ(copy.SelectValue(), 2);
    EXPECT_EQ(copy.picSource.Picture.get(), first);
    EXPECT_EQ(copy.chkSelect.Value, 2);
}

TEST_F(ColorElementTest, ReadsTheDefaultsFromAnEmptyBag) {
    row.setMousePointer(11);
    row.setSourcePicture(first);
    row.setSelectValue(1);
    row.ReadProperties(forms::PropertyBag());
    EXPECT_EQ(row.MousePointer(), 0);
    EXPECT_TRUE(row.SourcePicture().empty());
    EXPECT_TRUE(row.DestinationPicture().empty());
    EXPECT_EQ(row.SelectValue(), 0);
}

TEST_F(ColorElementTest, ChangeSelectIsRaisedByAClickAndByCode) {
    user.click(row.chkSelect);
    EXPECT_EQ(events, Names{"ChangeSelect"});
    row.setSelectValue(2);
    EXPECT_EQ(events.size(), 2U);
    row.setSelectValue(2);
    EXPECT_EQ(events.size(), 2U);
}

// The fill menu.

TEST_F(ColorElementTest, TheMenuHasItsItemsInTheirOrder) {
    EXPECT_EQ(row.mnuWord.Caption, "NabidkaWord");
    Names items;
    for (const forms::MenuItem* const item : row.mnuWord.items()) {
        items.push_back(item->name() + " " + item->Caption);
    }
    EXPECT_EQ(items,
              (Names{"mnuWordNoFill Bez výplně", "mnWordTransparency &Poloprůhledná",
                     "mnuWordColor &Barva...", "mnuWordFill &Vzhled výplně...", "mnuSep1 -",
                     "mnuWordFormat &Formát objektu...", "mnuWordRestore &Obnovit původní"}));
}

TEST_F(ColorElementTest, TheMenuOpensAtTheButtonsLowerLeftCorner) {
    user.click(row.cmdChangeDes);
    ASSERT_EQ(test.runtime.menus.size(), 1U);
    EXPECT_EQ(test.runtime.menus[0].owner, "row");
    EXPECT_EQ(test.runtime.menus[0].x, row.cmdChangeDes.Left);
    EXPECT_EQ(test.runtime.menus[0].y, row.cmdChangeDes.Top + row.cmdChangeDes.Height);
    EXPECT_TRUE(events.empty());
}

TEST_F(ColorElementTest, TheTicksAreSetBeforeTheMenuOpens) {
    const auto ticks = [this] {
        user.click(row.cmdChangeDes);
        const auto& items = test.runtime.menus.back().items;
        return text(items[0].checked ? 1 : 0, items[1].checked ? 1 : 0);
    };
    EXPECT_EQ(ticks(), "10") << "a new descriptor has no fill";
    row.FillObject().setDesVisible(MsoTriState::msoTrue);
    row.FillObject().setDesTransparency(0.5F);
    EXPECT_EQ(ticks(), "01");
    row.FillObject().setDesTransparency(0.25F);
    EXPECT_EQ(ticks(), "00");
}

TEST_F(ColorElementTest, NoFillIsTickedForNoOtherVisibilityThanNone) {
    for (const int value : {-2, -1, 0, 1, 2}) {
        row.FillObject().setDesVisible(static_cast<MsoTriState>(value));
        user.click(row.cmdChangeDes);
        EXPECT_EQ(test.runtime.menus.back().items[0].checked, value == 0) << value;
    }
}

TEST_F(ColorElementTest, HalfTransparentIsTickedForExactlyOneHalf) {
    for (const float value : {-1.0F, -0.5F, 0.0F, std::nextafter(0.5F, 0.0F), 0.5F,
                              std::nextafter(0.5F, 1.0F), 1.0F, 2.0F}) {
        row.FillObject().setDesTransparency(value);
        user.click(row.cmdChangeDes);
        EXPECT_EQ(test.runtime.menus.back().items[1].checked, value == 0.5F) << value;
    }
}

TEST_F(ColorElementTest, EachItemRaisesItsEventWithItsValue) {
    for (const char* caption : {"Bez výplně", "&Poloprůhledná", "&Barva...", "&Vzhled výplně...",
                                "&Formát objektu...", "&Obnovit původní"}) {
        test.runtime.picks.emplace_back(caption);
        user.click(row.cmdChangeDes);
    }
    EXPECT_EQ(events, (Names{"NoFill 1", "Transparency 50", "Color", "Fill", "Format"}));
}

TEST_F(ColorElementTest, OpeningTheMenuWithItsButtonLeavesTheSelectBoxFocused) {
    row.SetFocus();
    user.click(row.cmdChangeDes);
    EXPECT_EQ(form->focused(), &row.chkSelect);
    EXPECT_TRUE(row.shpFocus.Visible);
}

TEST_F(ColorElementTest, RestoreLeavesTheDestinationPreviewLikeTheSourcePreview) {
    prepareGroup();
    row.setSourcePicture(first);
    row.setDestinationPicture(second);
    test.runtime.picks = {"&Obnovit původní"};
    user.click(row.cmdChangeDes);
    EXPECT_EQ(row.DestinationPicture(), first);
    EXPECT_FALSE(row.FillObject().Change());
    EXPECT_EQ(row.FillObject().DesTransparency(), 0);
    EXPECT_TRUE(events.empty());
}

TEST_F(ColorElementTest, AFillReadFromARecordShowsItsStoredPreview) {
    row.FillObject().ReadFromRecordset(first);
    EXPECT_EQ(row.DestinationPicture(), first);
    EXPECT_TRUE(row.SourcePicture().empty());
}

TEST_F(ColorElementTest, OnlyTheDescriptorThatARowHoldsShowsItsPreviewThere) {
    const auto previous = row.fillReference();
    row.setFillObject(std::make_shared<fill::CFill>());
    previous->ReadFromRecordset(first);
    EXPECT_TRUE(row.DestinationPicture().empty());
    row.FillObject().ReadFromRecordset(second);
    EXPECT_EQ(row.DestinationPicture(), second);
}

TEST_F(ColorElementTest, ADescriptorThatOutlivesItsRowFindsNobodyListening) {
    auto ending = std::make_unique<ColorElement>(*form, "ending", std::int16_t{2});
    const auto kept = ending->fillReference();
    ending.reset();
    kept->ReadFromRecordset(first);
    EXPECT_FALSE(kept->ReadFromRecordset.connected());
}

// Keys.

TEST_F(ColorElementTest, BackspaceAltAndTheMenuKeyOpenTheMenuInAnyShiftState) {
    row.SetFocus();
    std::size_t opened = 0;
    for (const std::int16_t code : {kBack, kAlt, kContextMenu}) {
        for (const std::int16_t shift : std::initializer_list<std::int16_t>{0, 1, 2, 4}) {
            user.key(code, shift);
            EXPECT_EQ(test.runtime.menus.size(), ++opened) << code << " " << shift;
        }
    }
    EXPECT_TRUE(events.empty());
}

TEST_F(ColorElementTest, UpAndDownMoveTheRowWithAnyShiftKeyAndDoNothingWithoutOne) {
    row.SetFocus();
    user.key(kUp);
    user.key(kDown);
    EXPECT_TRUE(events.empty());
    for (const std::int16_t shift : std::initializer_list<std::int16_t>{1, 2, 4}) {
        user.key(kUp, shift);
        user.key(kDown, shift);
    }
    EXPECT_EQ(events, (Names{"MoveUp", "MoveDown", "MoveUp", "MoveDown", "MoveUp", "MoveDown"}));
}

TEST_F(ColorElementTest, DeletePassesItsShiftState) {
    row.SetFocus();
    user.key(kDelete);
    user.key(kDelete, forms::Shift::kShift);
    user.key(kDelete, forms::Shift::kCtrl);
    EXPECT_EQ(events, (Names{"KeyDel 0", "KeyDel 1", "KeyDel 2"}));
}

TEST_F(ColorElementTest, OtherKeysDoNothing) {
    row.SetFocus();
    for (const std::int16_t code : std::initializer_list<std::int16_t>{13, 27, 37, 39, 65, 9})
        row.chkSelect.keyUp(code, 1);
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(test.runtime.menus.empty());
}

// Previews from the clipboard.

TEST_F(ColorElementTest, CliboardToSourceFillsBothPreviews) {
    test.runtime.clipboard = first;
    row.CliboardToSource();
    EXPECT_EQ(row.SourcePicture(), first);
    EXPECT_EQ(row.DestinationPicture(), first);
}

TEST_F(ColorElementTest, CliboardToDestinationFillsTheDestinationAlone) {
    test.runtime.clipboard = first;
    row.CliboardToDestination();
    EXPECT_TRUE(row.SourcePicture().empty());
    EXPECT_EQ(row.DestinationPicture(), first);
}

TEST_F(ColorElementTest, AFailingClipboardIsReportedUnderTheOperationsName) {
    const auto box = [](const char* procedure) {
        return text("Chyba v modulu \"Huebrush.ColorElement.", procedure,
                    "\"...\r\n\r\nChyba při práci se schránkou při získávání náhledu...\r\n\r\n");
    };
    test.runtime.clipboardFails = true;
    row.CliboardToSource();
    row.CliboardToDestination();
    ASSERT_EQ(test.runtime.boxes.size(), 2U);
    EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(box("CliboardToSource")));
    EXPECT_TRUE(test.runtime.boxes[1].text.starts_with(box("CliboardToDestination")));
    EXPECT_EQ(test.runtime.boxes[0].style, 16);
}

TEST_F(ColorElementTest, WhereTheSecondReadFailsTheSourceKeepsItsNewPreview) {
    test.runtime.clipboard = first;
    test.log().failAt("read Clipboard", base::Error(521, "popis"), 2, 1);
    row.CliboardToSource();
    EXPECT_EQ(row.SourcePicture(), first);
    EXPECT_TRUE(row.DestinationPicture().empty());
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_NE(test.runtime.boxes[0].text.find("CliboardToDestination"), std::string::npos);
}

// Discolour.

TEST_F(ColorElementTest, DiscolourReadsTheNamesAndWritesOnOneRange) {
    prepareGroup();
    EXPECT_EQ(callsOfDiscolour(),
              (Names{"read A.Name", "read B.Name", "call Picture.Shapes.Range",
                     "write Range.Fill.ForeColor.RGB 1", "write Range.Fill.BackColor.RGB 16777215",
                     "call Range.Fill.Solid", "write Range.Fill.Transparency 0.5",
                     "write Range.Fill.Visible -1", "call Picture.markModified"}));
    EXPECT_EQ(test.document->find("A")->fill.Transparency, 0.5F);
    EXPECT_EQ(test.document->find("B")->fill.Transparency, 0.5F);
}

TEST_F(ColorElementTest, AfterDiscolourTheNewFillIsTheCurrentOne) {
    prepareGroup();
    row.setSourcePicture(first);
    row.setDestinationPicture(second);
    row.Discolour(*test.document);
    EXPECT_FALSE(row.FillObject().Change());
    EXPECT_EQ(row.FillObject().original().Transparency, 0.5F);
    EXPECT_EQ(row.SourcePicture(), second);
    EXPECT_EQ(row.DestinationPicture(), second);
}

TEST_F(ColorElementTest, APreviewThatCannotBeBroughtUpToDateLeavesTheFillApplied) {
    prepareGroup();
    row.setDestinationPicture(second);
    row.picSource.setPeer(std::make_unique<memory::FailingPeer>(forms::PropertyId::Picture));
    row.Discolour(*test.document);
    row.picSource.setPeer(nullptr);
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_FALSE(row.FillObject().Change());
    EXPECT_EQ(test.document->find("A")->fill.Transparency, 0.5F);
}

TEST_F(ColorElementTest, DiscolourSkipsARowWithoutGroup) {
    prepareGroup();
    row.setElementsGroup(nullptr);
    EXPECT_TRUE(callsOfDiscolour().empty());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ColorElementTest, DiscolourSkipsARowWhoseBoxIsClearAndItStaysChanged) {
    prepareGroup();
    row.setSelectValue(0);
    EXPECT_TRUE(callsOfDiscolour().empty());
    EXPECT_TRUE(row.FillObject().Change());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ColorElementTest, DiscolourSkipsARowWhoseFillIsNotChanged) {
    prepareGroup();
    row.FillObject().Restore();
    EXPECT_TRUE(callsOfDiscolour().empty());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ColorElementTest, AGreyBoxCountsAsSelectedAndSoDoesAnyOtherValueButZero) {
    for (const std::int16_t value : {std::int16_t{2}, std::int16_t{-1}}) {
        prepareGroup();
        row.setSelectValue(value);
        row.Discolour(*test.document);
        EXPECT_FALSE(row.FillObject().Change()) << value;
    }
}

TEST_F(ColorElementTest, AShapeThatIsGoneFailsItsWholeRowAndIsReported) {
    prepareGroup();
    test.document->remove(test.document->find("B"));
    row.setSourcePicture(first);
    row.setDestinationPicture(second);
    row.Discolour(*test.document);
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
        "Chyba v modulu \"Huebrush.ColorElement.Discolour\"...\r\n\r\nChyba při pokusu přebarvit "
        "grafické prvky...\r\n\r\n"));
    EXPECT_EQ(test.document->find("A")->fill.Transparency, 0);
    EXPECT_TRUE(row.FillObject().Change());
    EXPECT_EQ(row.SourcePicture(), first);
}

TEST_F(ColorElementTest, ShapesAreFoundByTheirNamesAndNotByTheObjectsOfTheScan) {
    prepareGroup();
    memory::MemoryApplication otherHost;
    const auto other = otherHost.open("Other");
    other->addSolid("A", 1);
    other->addSolid("B", 1);
    row.Discolour(*other);
    EXPECT_EQ(other->find("A")->fill.Transparency, 0.5F);
    EXPECT_EQ(test.document->find("A")->fill.Transparency, 0);
}

TEST_F(ColorElementTest, EveryHostCallOfDiscolourMayFailAndIsReportedOnce) {
    prepareGroup();
    const std::size_t calls = callsOfDiscolour().size();
    for (std::size_t call = 1; call <= calls; ++call) {
        row.FillObject().setDesTransparency(0.25F);
        test.runtime.boxes.clear();
        test.log().failAt("", base::Error(7, "popis"), call, 1);
        row.Discolour(*test.document);
        test.log().failNoMore();
        EXPECT_EQ(test.runtime.boxes.size(), 1U) << call;
    }
}

}  // namespace
}  // namespace huebrush::recolor
