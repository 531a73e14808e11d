// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <functional>

#include "recolor/Dialog_test_support.h"
#include "recolor/ScanCollection.h"

namespace huebrush::recolor {
namespace {

using base::text;
using host::MsoTriState;
using memory::MemoryShapePointer;
using memory::ShownBox;
using Calls = std::vector<std::string>;
using Names = std::vector<std::string>;

constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kGreen = 0x00FF00;
constexpr std::int32_t kBlue = 0xFF0000;

class ScanTest : public DialogTest {
 protected:
    MemoryShapePointer add(const std::string& name, std::int32_t color) {
        return test.document->addSolid(name, color);
    }
    void press() { user.click(dialog->cmdAdd); }
    /// The names of a row's shapes.
    Names group(std::int16_t index) {
        Names names;
        const auto shapes = row(index).ElementsGroup();
        if (!shapes) return {"no group"};
        for (const auto& shape : *shapes) names.push_back(shape->Name());
        return names;
    }
    /// What the progress label says at each pump of an action.
    template <class Action>
    Names progressOf(const Action& action) {
        Names texts;
        test.runtime.onPump = [&](std::size_t) {
            texts.push_back(dialog->lblLoadStatus.Caption.get());
        };
        action();
        test.runtime.onPump = nullptr;
        return texts;
    }
};

TEST_F(ScanTest, WithNothingSelectedWarnsAndChangesNothing) {
    add("A", kRed);
    dialog->cmdAdd.SetFocus();
    const std::string before = user.print();
    test.startLog();
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].text, "Nejsou vybrány žádné grafické objekty.");
    EXPECT_EQ(test.runtime.boxes[0].style, 48);
    EXPECT_EQ(test.calls(),
              (Calls{"read Application.Selection", "read Picture.Selection.ShapeRange",
                     "read Selection.ShapeRange.Count"}));
    EXPECT_EQ(user.print(), before);
    EXPECT_EQ(dialog->MousePointer.get(), forms::MousePointerShape::standard);
}

TEST_F(ScanTest, MakesOneRowAFillInTheOrderOfTheirFirstShapes) {
    add("A", kRed);
    add("B", kBlue);
    add("C", kRed);
    add("D", kGreen);
    add("E", kBlue);
    test.document->selectAll();
    press();
    EXPECT_EQ(order(), (Colors{kRed, kBlue, kGreen}));
    EXPECT_EQ(group(1), (Names{"A", "C"}));
    EXPECT_EQ(group(2), (Names{"B", "E"}));
    EXPECT_EQ(group(3), Names{"D"});
}

TEST_F(ScanTest, TakesTheShapesInTheOrderOfTheSelection) {
    const auto a = add("A", kRed);
    const auto b = add("B", kBlue);
    const auto c = add("C", kBlue);
    test.document->select({c, a, b});
    press();
    EXPECT_EQ(order(), (Colors{kBlue, kRed}));
    EXPECT_EQ(group(1), (Names{"C", "B"}));
}

TEST_F(ScanTest, FlattensGroupsInsideGroupsToTheirShapesAlone) {
    const auto a = add("A", kRed);
    const auto b = add("B", kRed);
    const auto c = add("C", kBlue);
    const auto d = add("D", kRed);
    const auto e = add("E", kBlue);
    const auto inner = test.document->addGroup("Inner", {b, c});
    const auto middle = test.document->addGroup("Middle", {a, inner, d});
    test.document->addGroup("Outer", {middle, e});
    test.document->selectAll();
    press();
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(group(1), (Names{"A", "B", "D"}));
    EXPECT_EQ(group(2), (Names{"C", "E"}));
}

TEST_F(ScanTest, FlattensGroupsOfAnyDepth) {
    auto shape = add("A", kRed);
    for (int depth = 1; depth <= 60; ++depth) {
        shape = test.document->addGroup(text("Group ", depth), {shape});
    }
    test.document->selectAll();
    press();
    EXPECT_EQ(rowCount(), 1);
    EXPECT_EQ(group(1), Names{"A"});
}

TEST_F(ScanTest, ReadsTheMembersOfAGroupOneByOneAndNoFillOfTheGroup) {
    const auto a = add("A", kRed);
    test.document->addGroup("G", {a});
    test.document->selectAll();
    test.startLog();
    press();
    EXPECT_EQ(test.log().beginningWith("read G"),
              (Calls{"read G.Type", "read G.GroupItems", "read G.GroupItems.Count",
                     "read G.GroupItems.Item 1"}));
    EXPECT_EQ(test.log().beginningWith("read A.Type").size(), 1U);
}

TEST_F(ScanTest, ReportsHowFarItIsAndHowItEnded) {
    add("A", kRed);
    add("B", kBlue);
    add("C", kRed);
    test.document->selectAll();
    Names said;
    dialog->Progressed.connect(
        [&](const frmEditGraphic::Progress& at) { said.push_back(text(at.done, "/", at.total)); });
    dialog->Scanned.connect([&](const std::string& error) { said.push_back("end " + error); });
    press();
    EXPECT_EQ(said, (Names{"0/3", "2/3", "2/3", "end "}));
    for (const char* const failing : {"call Documents.Add", "read B.Fill.Pattern"}) {
        test.runtime.boxes.clear();
        test.log().failAt(failing, base::Error(7, "popis"));
        press();
        EXPECT_EQ(said.back(), "end " + test.runtime.boxes.front().text);
        test.log().failNoMore();
    }
}

TEST_F(ScanTest, AllShapesWithoutFillMakeOneRowWithEmptyPreviews) {
    for (const std::int32_t color : {kRed, kBlue, kGreen}) {
        add(text("S", color), color)->fill.Visible = MsoTriState::msoFalse;
    }
    test.document->selectAll();
    press();
    EXPECT_EQ(rowCount(), 1);
    EXPECT_EQ(row(1).ElementsGroup()->size(), 3U);
    EXPECT_TRUE(row(1).SourcePicture().empty());
    EXPECT_TRUE(row(1).DestinationPicture().empty());
    EXPECT_EQ(row(1).FillObject().DesVisible(), MsoTriState::msoFalse);
}

TEST_F(ScanTest, EqualColoursWithDifferentHiddenValuesMakeTwoRows) {
    add("A", kRed);
    add("B", kRed)->fill.GradientStyle = 4;
    test.document->selectAll();
    press();
    EXPECT_EQ(rowCount(), 2);
}

TEST_F(ScanTest, ASecondScanAddsItsRowsBelowTheFirstAndMergesNothing) {
    add("A", kRed);
    add("B", kBlue);
    test.document->selectAll();
    press();
    press();
    EXPECT_EQ(order(), (Colors{kRed, kBlue, kRed, kBlue}));
    EXPECT_EQ(group(1), group(3));
    EXPECT_EQ(row(4).Top, 3 * 630);
    EXPECT_EQ(test.runtime.boxes.at(0).text, "Celkový počet nalezených výplní.. 2.");
    EXPECT_EQ(test.runtime.boxes.at(1).text, "Celkový počet nalezených výplní.. 4.");
}

TEST_F(ScanTest, GivesEachRowItsFillUnchangedAndBothPreviewsUnticked) {
    add("A", kRed);
    test.document->selectAll();
    press();
    EXPECT_EQ(row(1).FillObject().original().ForeColorRGB, kRed);
    EXPECT_EQ(row(1).FillObject().destination(), row(1).FillObject().original());
    EXPECT_FALSE(row(1).FillObject().Change());
    EXPECT_FALSE(row(1).SourcePicture().empty());
    EXPECT_EQ(row(1).SourcePicture(), row(1).DestinationPicture());
    EXPECT_EQ(row(1).SelectValue(), 0);
}

TEST_F(ScanTest, PreviewsShowTheFillOfTheirOwnGroup) {
    addRows({kRed, kBlue});
    EXPECT_FALSE(row(1).SourcePicture() == row(2).SourcePicture());
    addRows(Colors{kRed});
    EXPECT_EQ(row(1).SourcePicture(), row(3).SourcePicture());
}

TEST_F(ScanTest, PlacesRowsUnderOneAnotherAndGrowsTheirContainer) {
    addRows(3);
    for (std::int16_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(row(i).Top, 630 * (i - 1));
        EXPECT_TRUE(row(i).Visible);
    }
    EXPECT_EQ(dialog->picElementGroup.Height, 3 * 630);
    EXPECT_EQ(row(2).cmdChangeDes.Caption.get(), "...");
}

TEST_F(ScanTest, AfterwardsTheScratchDocumentIsClosedAndTheClipboardEmpty) {
    addRows(2);
    EXPECT_EQ(test.application.scratchDocuments.size(), 1U);
    EXPECT_EQ(test.application.openScratchDocuments(), 0U);
    EXPECT_TRUE(test.runtime.clipboard.empty());
    EXPECT_EQ(test.application.active, test.document);
}

TEST_F(ScanTest, AfterwardsPointerAndProgressBoxAreBackAndRemovingIsEnabled) {
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
    addRows(2);
    EXPECT_EQ(dialog->MousePointer.get(), forms::MousePointerShape::standard);
    EXPECT_FALSE(dialog->picLoadStatus.Visible);
    EXPECT_TRUE(dialog->cmdRemove.Enabled);
}

TEST_F(ScanTest, WithoutAnyRowLeftUnderTheResultsBoxRemovingStaysDisabled) {
    add("A", kRed);
    test.document->selectAll();
    test.runtime.onBox = [this] {
        row(1).SetFocus();
        user.key(forms::KeyCode::kDelete, forms::Shift::kShift);
    };
    press();
    test.runtime.onBox = nullptr;
    EXPECT_EQ(rowCount(), 0);
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
}

TEST_F(ScanTest, MakesTheScrollBarFitTheRows) {
    addRows(12);
    EXPECT_TRUE(dialog->vs.Enabled);
    EXPECT_EQ(dialog->vs.Max.get(), 12 * 630 - static_cast<int>(dialog->picMain.Height.get()));
    EXPECT_EQ(dialog->vs.value(), 0);
}

TEST_F(ScanTest, ShowsTheNumberOfRowsInAnInformationBoxWhileTheScratchDocumentIsOpen) {
    add("A", kRed);
    test.document->selectAll();
    std::size_t open = 0;
    test.runtime.onBox = [&] {
        open = test.application.openScratchDocuments();
        EXPECT_TRUE(test.runtime.clipboard.empty());
        EXPECT_TRUE(dialog->picLoadStatus.Visible);
    };
    press();
    EXPECT_EQ(open, 1U);
    EXPECT_EQ(test.runtime.boxes, (std::vector<ShownBox>{{"Celkový počet nalezených výplní.. 1.",
                                                          64, "Zpracování je dokončeno..."}}));
}

TEST_F(ScanTest, UntilTheFirstShapeIsTakenItSaysThatItSearches) {
    add("A", kRed);
    test.document->selectAll();
    for (const char* call : {"call Documents.Add", "read A.Type"}) {
        test.log().failAt(call, base::Error(7, "popis"));
        dialog->picLoadStatus.Visible = false;
        dialog->lblLoadStatus.Caption = std::string();
        press();
        test.log().failNoMore();
        EXPECT_EQ(dialog->lblLoadStatus.Caption.get(), "Prohledávám označené objekty...") << call;
        EXPECT_TRUE(dialog->picLoadStatus.Visible) << call;
    }
}

TEST_F(ScanTest, ASelectedInlinePictureIsNoShape) {
    add("A", kRed);
    test.document->select({test.document->addInlinePicture("Photo")});
    press();
    EXPECT_EQ(test.runtime.boxes.at(0).text, "Nejsou vybrány žádné grafické objekty.");
    EXPECT_EQ(rowCount(), 0);
}

TEST_F(ScanTest, AFillOfMixedVisibilityHasItsPreviews) {
    add("A", kRed)->fill.Visible = MsoTriState::msoTriStateMixed;
    test.document->selectAll();
    press();
    EXPECT_FALSE(row(1).SourcePicture().empty());
    EXPECT_FALSE(row(1).DestinationPicture().empty());
}

TEST_F(ScanTest, SaysHowManyShapesAreTakenAtEveryGroupAndEveryMatch) {
    add("A", kRed);
    add("B", kBlue);
    add("C", kRed);
    add("D", kRed);
    test.document->selectAll();
    EXPECT_EQ(progressOf([this] { press(); }),
              (Names{"Zpracováno 0 ze 4 objektů...", "Zpracováno 2 ze 4 objektů...",
                     "Zpracováno 3 ze 4 objektů...", "Zpracováno 3 ze 4 objektů..."}));
}

TEST_F(ScanTest, ShowsHourglassAndProgressBoxWhileItWorks) {
    add("A", kRed);
    test.document->selectAll();
    std::size_t pumps = 0;
    test.runtime.onPump = [&](std::size_t) {
        ++pumps;
        EXPECT_EQ(dialog->MousePointer.get(), forms::MousePointerShape::hourglass);
        EXPECT_TRUE(dialog->picLoadStatus.Visible);
    };
    press();
    EXPECT_EQ(pumps, 1U);
}

TEST_F(ScanTest, WritesNothingToTheHostsStatusBar) {
    test.application.log.on = true;
    addRows(3);
    EXPECT_TRUE(test.application.statusTexts.empty());
}

TEST_F(ScanTest, AsksTheHostInThisOrder) {
    add("A", kRed);
    add("B", kRed);
    test.document->selectAll();
    test.startLog();
    press();
    const Calls calls = test.calls();
    const Calls start{"read Application.Selection",
                      "read Picture.Selection.ShapeRange",
                      "read Selection.ShapeRange.Count",
                      "call Documents.Add",
                      "call Scratch.Shapes.AddShape 1 0 0 607 190",
                      "write Rectangle.Line.Visible 0",
                      "read Selection.ShapeRange.Item 1",
                      "read A.Type",
                      "read Selection.ShapeRange.Item 2",
                      "read B.Type",
                      "call DoEvents",
                      "read A.Fill.Visible",
                      "read B.Fill.Visible",
                      "read B.Fill.Visible",
                      "read A.Fill.ForeColor.RGB"};
    ASSERT_GT(calls.size(), start.size());
    EXPECT_EQ(Calls(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(start.size())),
              start);
    const auto matched = std::find(calls.begin() + 11, calls.end(), "call DoEvents");
    const Calls rest{"call DoEvents",
                     "read A.Fill.Visible",
                     "write Rectangle.Fill.Visible -1",
                     "read A.Fill.ForeColor.RGB",
                     "write Rectangle.Fill.ForeColor.RGB 255",
                     "read A.Fill.BackColor.RGB",
                     "write Rectangle.Fill.BackColor.RGB 16777215",
                     "read A.Fill.Type",
                     "call Rectangle.Fill.Solid",
                     "read A.Fill.Transparency",
                     "write Rectangle.Fill.Transparency 0",
                     "call Rectangle.Select",
                     "call Scratch.Selection.Copy",
                     "write Clipboard",
                     "read A.Fill.Visible",
                     "read A.Fill.ForeColor.RGB",
                     "read A.Fill.BackColor.RGB",
                     "read A.Fill.Type",
                     "read A.Fill.GradientStyle",
                     "read A.Fill.GradientColorType",
                     "read A.Fill.GradientVariant",
                     "read A.Fill.PresetGradientType",
                     "read A.Fill.Transparency",
                     "read A.Fill.TextureType",
                     "read A.Fill.PresetTexture",
                     "read A.Fill.Type",
                     "read A.Fill.TextureType",
                     "read A.Fill.Pattern",
                     "read A.Fill.Visible",
                     "read Clipboard",
                     "read Clipboard",
                     "call Clipboard.Clear",
                     "call Scratch.Close"};
    EXPECT_EQ(Calls(matched, calls.end()), rest);
}

TEST_F(ScanTest, PassesTheFirstShapeOfTheGroupFirstToTheComparison) {
    add("A", kRed);
    add("B", kBlue);
    test.document->selectAll();
    test.startLog();
    press();
    const auto& calls = test.calls();
    const auto a = std::find(calls.begin(), calls.end(), "read A.Fill.ForeColor.RGB");
    ASSERT_NE(a, calls.end());
    EXPECT_EQ(*(a + 1), "read B.Fill.ForeColor.RGB");
}

TEST_F(ScanTest, WithoutAnOutlineTheScratchRectangleIsSixtyPointSevenByNineteenPoints) {
    test.startLog();
    addRows(1);
    EXPECT_EQ(test.log().beginningWith("call Scratch.Shapes.AddShape"),
              Calls{"call Scratch.Shapes.AddShape 1 0 0 607 190"});
    ASSERT_EQ(test.application.scratchDocuments.size(), 1U);
    EXPECT_EQ(test.application.scratchDocuments[0]->shapes.at(0)->lineVisible,
              MsoTriState::msoFalse);
}

// Errors.

TEST_F(ScanTest, WithoutAHostApplicationTheErrorIsReported) {
    const auto unconnected = frmEditGraphic::create();
    memory::Driver(*unconnected).click(unconnected->cmdAdd);
    EXPECT_EQ(onlyBox(), reported("91", "cmdAdd_Click"));
}

TEST_F(ScanTest, TheReportNamesProcedureAndMessage) {
    add("A", kRed);
    test.document->selectAll();
    test.log().failAt("call Documents.Add", base::Error(7, "popis"));
    press();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Chyba v modulu \"Huebrush.frmEditGraphic.cmdAdd_Click\"...\r\n\r\nPři "
                   "vyhledávání typů výplní ve vybraných objektech vzikla chyba...\r\n\r\n"
                   "Systémový popis výjimky:\r\npopis",
                   16, "Chyba č. 7"}}));
}

TEST_F(ScanTest, AnErrorLeavesHourglassProgressBoxScratchDocumentAndTheRowsSoFar) {
    add("A", kRed);
    add("B", kBlue);
    add("C", kGreen);
    test.document->selectAll();
    test.log().failAt("write Rectangle.Fill.ForeColor.RGB", base::Error(7, "popis"), 3);
    press();
    EXPECT_EQ(onlyBox(), reported("7", "cmdAdd_Click"));
    EXPECT_EQ(order(), (Colors{kRed, kBlue}));
    EXPECT_EQ(group(1), Names{"A"});
    EXPECT_EQ(group(2), Names{"B"});
    EXPECT_EQ(test.application.openScratchDocuments(), 1U);
    EXPECT_EQ(dialog->MousePointer.get(), forms::MousePointerShape::hourglass);
    EXPECT_TRUE(dialog->picLoadStatus.Visible);
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
}

TEST_F(ScanTest, AScratchDocumentThatCannotBeClosedLeavesScrollRangeAndRemoveButton) {
    test.log().failAt("call Scratch.Close", base::Error(7, "popis"));
    addRows(12);
    EXPECT_EQ(rowCount(), 12);
    EXPECT_EQ(dialog->vs.Max.get(), 32767);
    EXPECT_FALSE(dialog->cmdRemove.Enabled);
    EXPECT_TRUE(dialog->picLoadStatus.Visible);
}

TEST_F(ScanTest, AScanAfterAFailedOneAddsItsRowsBelow) {
    add("A", kRed);
    add("B", kBlue);
    test.document->selectAll();
    test.log().failAt("write Rectangle.Fill.ForeColor.RGB", base::Error(7, "popis"), 2, 1);
    press();
    scan();
    EXPECT_EQ(order(), (Colors{kRed, kRed, kBlue}));
    EXPECT_FALSE(dialog->picLoadStatus.Visible);
}

TEST_F(ScanTest, AClipboardThatFailsForAPreviewIsReportedByTheRowAndTheScanGoesOn) {
    add("A", kRed);
    add("B", kBlue);
    test.document->selectAll();
    test.log().failAt("read Clipboard", base::Error(521, "popis"), 1, 1);
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 2U);
    EXPECT_NE(test.runtime.boxes[0].text.find("Huebrush.ColorElement.CliboardToSource"),
              std::string::npos);
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(test.application.openScratchDocuments(), 0U);
}

/// Every call of a scan, failing once.
TEST(FailingScanTest, EveryCallMayFailAndLeavesExactlyWhatTheRulesSay) {
    struct Outcome {
        Calls calls;
        std::vector<ShownBox> boxes;
    };
    const auto run = [](std::size_t failing) {
        memory::TestHost test;
        const auto dialog = frmEditGraphic::create();
        dialog->connect(test.application);
        test.document->addSolid("A", kRed);
        test.document->addGroup(
            "G", {test.document->addSolid("B", kBlue), test.document->addSolid("C", kRed)});
        test.document->selectAll();
        test.startLog();
        if (failing > 0) test.log().failAt("", base::Error(7, "popis"), failing, 1);
        memory::Driver(*dialog).click(dialog->cmdAdd);
        const Calls calls = test.calls();
        const auto& boxes = test.runtime.boxes;
        if (failing > 0) {
            const std::string& call = calls.at(failing - 1);
            const bool ended =
                !boxes.empty() &&
                boxes.back().text.find("frmEditGraphic.cmdAdd_Click") != std::string::npos;
            const bool started = failing > 3;
            const bool left = ended && started;
            EXPECT_EQ(dialog->picLoadStatus.Visible.get(), left) << call;
            EXPECT_EQ(dialog->MousePointer.get() == forms::MousePointerShape::hourglass, left)
                << call;
            const bool madeScratch = failing > 4;
            EXPECT_EQ(test.application.openScratchDocuments(), left && madeScratch ? 1U : 0U)
                << call;
            for (std::int16_t i = 1; i < dialog->Element.ubound(); ++i) {
                EXPECT_TRUE(dialog->Element[i].ElementsGroup()) << call;
            }
            EXPECT_EQ(calls.size() == failing, ended) << call;
        }
        EXPECT_TRUE(test.unhandled.empty());
        return Outcome{calls, boxes};
    };
    const Outcome usual = run(0);
    EXPECT_EQ(usual.boxes.size(), 1U);
    std::size_t ended = 0;
    for (std::size_t call = 1; call <= usual.calls.size(); ++call) {
        const Outcome outcome = run(call);
        if (outcome.calls.size() == call) ++ended;
    }
    // Comparisons swallow their errors, captures and previews report their own; all else ends it.
    EXPECT_GT(ended, 30U);
    EXPECT_LT(ended, usual.calls.size());
}

TEST_F(ScanTest, Of32768ShapesTheCountIsAnOverflowErrorAndNothingIsLost) {
    addRows(2);
    for (int i = 1; i <= 32768; ++i) test.document->addShape(text("S", i));
    test.document->select({test.document->shapes.begin() + 2, test.document->shapes.end()});
    press();
    EXPECT_EQ(onlyBox(), reported("6", "cmdAdd_Click"));
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(order(), (Colors{1, 2}));
    EXPECT_EQ(test.document->shapes.size(), 32770U);
}

// What may happen in the pump.

using Happening = std::function<void(memory::TestHost&, std::shared_ptr<frmEditGraphic>&)>;

/// Scans five shapes of three fills on top of a first scan's rows, with something happening in the
/// pump with this number. The number of pumps of the scan.
std::size_t scanWith(std::size_t pump, const Happening& happening,
                     const std::function<void(memory::TestHost&, frmEditGraphic*)>& check) {
    memory::TestHost test;
    std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
    dialog->connect(test.application);
    const memory::Driver user(*dialog);
    test.document->addSolid("Earlier", 7);
    test.document->selectAll();
    user.click(dialog->cmdAdd);
    int number = 0;
    for (const std::int32_t color : {kRed, kBlue, kRed, kGreen, kBlue}) {
        test.document->addSolid(text("Shape ", ++number), color);
    }
    test.document->selectAll();
    test.runtime.boxes.clear();
    test.runtime.pumps = 0;
    test.runtime.onPump = [&](std::size_t at) {
        if (at == pump) happening(test, dialog);
    };
    user.click(dialog->cmdAdd);
    test.runtime.onPump = nullptr;
    const std::size_t pumps = test.runtime.pumps;
    EXPECT_TRUE(test.unhandled.empty());
    check(test, dialog.get());
    return pumps;
}

std::size_t pumpsOfAScan() {
    return scanWith(0, {}, [](memory::TestHost&, frmEditGraphic* dialog) {
        EXPECT_EQ(dialog->Element.ubound(), 5);
    });
}

void inEveryPumpOfAScan(const Happening& happening,
                        const std::function<void(memory::TestHost&, frmEditGraphic*)>& check) {
    const std::size_t pumps = pumpsOfAScan();
    ASSERT_EQ(pumps, 6U);
    for (std::size_t pump = 1; pump <= pumps; ++pump) {
        SCOPED_TRACE(pump);
        scanWith(pump, happening, check);
    }
}

TEST(ScanPumpTest, ClosingTheDialogEndsTheScanQuietly) {
    inEveryPumpOfAScan(
        [](memory::TestHost&, std::shared_ptr<frmEditGraphic>& dialog) {
            memory::Driver(*dialog).close();
            dialog.reset();
        },
        [](memory::TestHost& test, frmEditGraphic*) {
            EXPECT_TRUE(test.runtime.boxes.empty());
            EXPECT_EQ(test.application.openScratchDocuments(), 0U);
            EXPECT_TRUE(test.runtime.clipboard.empty());
        });
}

TEST(ScanPumpTest, AScratchDocumentThatEndsWithTheDialogIsNoError) {
    inEveryPumpOfAScan(
        [](memory::TestHost& test, std::shared_ptr<frmEditGraphic>& dialog) {
            test.application.log.failAt("call Scratch.Close", base::Error(7, "popis"));
            memory::Driver(*dialog).close();
            dialog.reset();
        },
        [](memory::TestHost& test, frmEditGraphic*) { EXPECT_TRUE(test.runtime.boxes.empty()); });
}

TEST(ScanPumpTest, RemovingAllRowsLetsTheScanGoOnWithItsOwn) {
    inEveryPumpOfAScan(
        [](memory::TestHost&, std::shared_ptr<frmEditGraphic>& dialog) {
            dialog->Element[1].SetFocus();
            memory::Driver(*dialog).key(forms::KeyCode::kDelete, forms::Shift::kShift);
            EXPECT_EQ(dialog->Element.ubound(), 0);
        },
        [](memory::TestHost& test, frmEditGraphic* dialog) {
            ASSERT_EQ(test.runtime.boxes.size(), 1U);
            EXPECT_EQ(test.runtime.boxes[0].title, "Zpracování je dokončeno...");
            for (std::int16_t i = 1; i <= dialog->Element.ubound(); ++i) {
                EXPECT_TRUE(dialog->Element[i].ElementsGroup());
                EXPECT_EQ(dialog->Element[i].Top, 630 * (i - 1));
            }
        });
}

TEST(ScanPumpTest, PressingAddAgainScansInsideTheScan) {
    inEveryPumpOfAScan(
        [](memory::TestHost&, std::shared_ptr<frmEditGraphic>& dialog) {
            memory::Driver(*dialog).click(dialog->cmdAdd);
        },
        [](memory::TestHost& test, frmEditGraphic* dialog) {
            EXPECT_EQ(test.runtime.boxes.size(), 2U);
            EXPECT_EQ(dialog->Element.ubound(), 9);
            EXPECT_EQ(test.application.openScratchDocuments(), 0U);
            for (std::int16_t i = 1; i <= dialog->Element.ubound(); ++i) {
                EXPECT_EQ(dialog->Element[i].Top, 630 * (i - 1));
            }
        });
}

TEST(ScanPumpTest, ClosingTheDocumentEndsTheScanWithAReport) {
    inEveryPumpOfAScan(
        [](memory::TestHost& test, std::shared_ptr<frmEditGraphic>&) {
            test.document->Close();
            test.document.reset();
        },
        [](memory::TestHost& test, frmEditGraphic*) {
            ASSERT_EQ(test.runtime.boxes.size(), 1U);
            EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
                "Chyba v modulu \"Huebrush.frmEditGraphic.cmdAdd_Click\""));
        });
}

TEST(ScanPumpTest, AShapeChangedInThePumpIsGroupedByItsNewFill) {
    scanWith(
        1,
        [](memory::TestHost& test, std::shared_ptr<frmEditGraphic>&) {
            test.document->find("Shape 4")->fill.ForeColorRGB = kRed;
        },
        [](memory::TestHost&, frmEditGraphic* dialog) {
            ASSERT_EQ(dialog->Element.ubound(), 4);
            EXPECT_EQ(dialog->Element[3].ElementsGroup()->size(), 3U);
        });
}

TEST(ScanPumpTest, ADialogClosedUnderTheResultsBoxEndsTheScanQuietly) {
    memory::TestHost test;
    std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
    dialog->connect(test.application);
    test.document->addSolid("A", 1);
    test.document->selectAll();
    test.runtime.onBox = [&] {
        if (!dialog) return;
        memory::Driver(*dialog).close();
        dialog.reset();
    };
    memory::Driver(*dialog).click(dialog->cmdAdd);
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.application.openScratchDocuments(), 0U);
    EXPECT_TRUE(test.unhandled.empty());
}

// The collection of a scan.

TEST(ScanCollectionTest, KeepsTheOrderOfThoseThatStay) {
    memory::TestHost test;
    ScanCollection shapes;
    for (const char* name : {"A", "B", "C", "D"}) shapes.add(test.document->addShape(name));
    EXPECT_EQ(shapes.takeFirst()->Name(), "A");
    Names taken;
    shapes.takeWhere([](const host::ShapePointer& shape) { return shape->Name() == "C"; },
                     [&](const host::ShapePointer& shape, std::size_t left) {
                         taken.push_back(text(shape->Name(), " ", left));
                         return true;
                     });
    EXPECT_EQ(taken, Names{"C 2"});
    EXPECT_EQ(shapes.size(), 2U);
    EXPECT_EQ(shapes.takeFirst()->Name(), "B");
    EXPECT_EQ(shapes.takeFirst()->Name(), "D");
    EXPECT_TRUE(shapes.empty());
}

}  // namespace
}  // namespace huebrush::recolor
