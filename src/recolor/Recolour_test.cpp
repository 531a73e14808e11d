// SPDX-License-Identifier: MPL-2.0

#include <functional>

#include "recolor/Dialog_test_support.h"

namespace huebrush::recolor {
namespace {

using base::text;
using host::MsoTriState;
using memory::ShownBox;
using Calls = std::vector<std::string>;

/// The dialog's report of error 7, "popis".
const ShownBox kOwnError{
    "Chyba v modulu \"Huebrush.frmEditGraphic.cmdDiscolour_Click\"...\r\n\r\nPři převádění výplní "
    "došlo k chybě...\r\n\r\nSystémový popis výjimky:\r\npopis",
    16, "Chyba č. 7"};

class RecolourTest : public DialogTest {
 protected:
    /// Rows of the colours 1 … count, all ticked.
    void addTickedRows(std::int32_t count) {
        addRows(count);
        user.click(dialog->chkSelAll);
    }
    void change(std::int16_t index, float transparency = 0.5F) {
        row(index).FillObject().setDesTransparency(transparency);
    }
    void press() { user.click(dialog->cmdDiscolour); }
    memory::FillState& fillOf(int shape) {
        return test.document->find(text("Shape ", shape))->fill;
    }
    Colors changedShapes() {
        Colors changed;
        for (const auto& shape : test.document->shapes) {
            if (shape->fill.Transparency != 0) changed.push_back(shape->fill.ForeColorRGB);
        }
        return changed;
    }
};

TEST_F(RecolourTest, WithNoRowChangedEveryRowIsSkippedAndOnlyTheTextsChange) {
    addTickedRows(3);
    Names texts;
    test.runtime.onPump = [&](std::size_t) {
        texts.push_back(dialog->lblLoadStatus.Caption.get());
    };
    test.startLog();
    press();
    EXPECT_EQ(texts, (Names{"Upravuji 1. skupinu objektů ze 3 výplní...",
                            "Upravuji 2. skupinu objektů ze 3 výplní...",
                            "Upravuji 3. skupinu objektů ze 3 výplní..."}));
    EXPECT_TRUE(test.log().beginningWith("write").empty());
    EXPECT_TRUE(test.log().beginningWith("call Picture.Shapes.Range").empty());
    EXPECT_TRUE(test.document->undoTitles.empty());
    EXPECT_FALSE(test.document->modified);
}

TEST_F(RecolourTest, GivesEachChangedAndTickedRowsFillToItsShapes) {
    addTickedRows(3);
    change(1);
    change(3);
    press();
    EXPECT_EQ(changedShapes(), (Colors{1, 3}));
    for (std::int16_t i = 1; i <= 3; ++i) EXPECT_FALSE(row(i).FillObject().Change());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(RecolourTest, ARowUntickedButChangedIsSkippedAndStaysChanged) {
    addTickedRows(2);
    change(1);
    change(2);
    tick({1});
    press();
    EXPECT_EQ(changedShapes(), Colors{2});
    EXPECT_TRUE(row(1).FillObject().Change());
    EXPECT_FALSE(row(2).FillObject().Change());
}

TEST_F(RecolourTest, ARowWhoseDestinationHasNoFillTakesTheFillOfItsShapes) {
    addTickedRows(1);
    row(1).FillObject().setDesVisible(MsoTriState::msoFalse);
    press();
    EXPECT_EQ(fillOf(1).Visible, MsoTriState::msoFalse);
    EXPECT_EQ(fillOf(1).ForeColorRGB, 1);
}

TEST_F(RecolourTest, ASecondRecolourWithoutEditsWritesNothing) {
    addTickedRows(2);
    change(1);
    press();
    test.startLog();
    press();
    EXPECT_TRUE(test.log().beginningWith("write").empty());
    EXPECT_TRUE(test.log().beginningWith("call Picture.Shapes.Range").empty());
}

TEST_F(RecolourTest, RestoringAfterwardsReturnsToTheRecolouredFill) {
    addTickedRows(1);
    change(1);
    press();
    row(1).FillObject().setDesVisible(MsoTriState::msoFalse);
    row(1).FillObject().Restore();
    EXPECT_EQ(row(1).FillObject().DesTransparency(), 0.5F);
    EXPECT_EQ(row(1).FillObject().DesVisible(), MsoTriState::msoTrue);
}

TEST_F(RecolourTest, IsOneStepOfUndoAndMarksTheDocumentAsModified) {
    addTickedRows(3);
    for (std::int16_t i = 1; i <= 3; ++i) change(i);
    press();
    EXPECT_EQ(test.document->undoTitles.size(), 1U);
    EXPECT_TRUE(test.document->modified);
}

TEST_F(RecolourTest, ADocumentThatIsReadOnlyIsRefusedBeforeAnythingIsWritten) {
    addTickedRows(2);
    change(1);
    change(2);
    test.document->readOnly = true;
    test.startLog();
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].title, "Huebrush");
    EXPECT_EQ(test.runtime.boxes[0].style, 48);
    EXPECT_EQ(test.runtime.boxes[0].text,
              "Dokument je otevřen jen pro čtení, výplně jeho objektů proto nelze změnit.");
    EXPECT_TRUE(test.log().beginningWith("write Range").empty());
    EXPECT_TRUE(changedShapes().empty());
    EXPECT_TRUE(test.document->undoTitles.empty());
    EXPECT_FALSE(test.document->modified);
    for (std::int16_t i = 1; i <= 2; ++i) EXPECT_TRUE(row(i).FillObject().Change());
    EXPECT_FALSE(dialog->picLoadStatus.Visible);
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
    // Return would close the dialog with all that is still to be done.
    EXPECT_FALSE(dialog->cmdClose.Default);
    test.document->readOnly = false;
    press();
    EXPECT_EQ(changedShapes(), (Colors{1, 2}));
}

TEST_F(RecolourTest, AsksTheHostInThisOrder) {
    addTickedRows(2);
    change(1);
    test.startLog();
    press();
    EXPECT_EQ(test.calls(),
              (Calls{"call DoEvents", "read Application.Selection",
                     "read Picture.Selection.Document", "read Picture.isReadOnly",
                     "call Picture.undoGroup", "read Shape 1.Name", "call Picture.Shapes.Range",
                     "write Range.Fill.ForeColor.RGB 1", "write Range.Fill.BackColor.RGB 16777215",
                     "call Range.Fill.Solid", "write Range.Fill.Transparency 0.5",
                     "write Range.Fill.Visible -1", "call Picture.markModified", "call DoEvents",
                     "read Application.Selection", "read Picture.Selection.Document"}));
}

TEST_F(RecolourTest, ShowsItsProgressBoxAndIsDisabledWhileItWorks) {
    addTickedRows(1);
    test.runtime.onPump = [&](std::size_t) {
        EXPECT_FALSE(dialog->cmdDiscolour.Enabled);
        EXPECT_TRUE(dialog->picLoadStatus.Visible);
        EXPECT_THROW(user.click(dialog->cmdDiscolour), memory::ImpossibleInput);
    };
    press();
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
    EXPECT_FALSE(dialog->picLoadStatus.Visible);
}

TEST_F(RecolourTest, AfterwardsTheCloseButtonIsTheDefaultOne) {
    addTickedRows(1);
    EXPECT_FALSE(dialog->cmdClose.Default);
    press();
    EXPECT_TRUE(dialog->cmdClose.Default);
}

TEST_F(RecolourTest, WritesNothingToTheHostsStatusBar) {
    test.application.log.on = true;
    addTickedRows(2);
    change(1);
    press();
    EXPECT_TRUE(test.application.statusTexts.empty());
}

TEST_F(RecolourTest, FindsTheShapesByTheirNamesInOneRangeARow) {
    const auto a = test.document->addSolid("A", 1);
    const auto b = test.document->addSolid("B", 1);
    test.document->addGroup("G", {b});
    test.document->selectAll();
    scan();
    user.click(dialog->chkSelAll);
    change(1);
    test.startLog();
    press();
    EXPECT_EQ(test.log().beginningWith("call Picture.Shapes.Range").size(), 1U);
    EXPECT_EQ(a->fill.Transparency, 0.5F);
    EXPECT_EQ(b->fill.Transparency, 0.5F);
}

TEST_F(RecolourTest, ADeletedShapeFailsItsRowOnlyAndTheLoopGoesOn) {
    addTickedRows(3);
    for (std::int16_t i = 1; i <= 3; ++i) change(i);
    test.document->remove(test.document->find("Shape 2"));
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
        "Chyba v modulu \"Huebrush.ColorElement.Discolour\""));
    EXPECT_EQ(changedShapes(), (Colors{1, 3}));
    EXPECT_TRUE(row(2).FillObject().Change());
    EXPECT_FALSE(row(3).FillObject().Change());
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
}

TEST_F(RecolourTest, AShapeThatCannotSayItsNameFailsItsRow) {
    addTickedRows(2);
    change(1);
    change(2);
    test.log().failAt("read Shape 1.Name", base::Error(7, "popis"));
    press();
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(changedShapes(), Colors{2});
}

TEST_F(RecolourTest, ARenamedShapeIsFoundByTheNameThatItAnswersNow) {
    addTickedRows(1);
    change(1);
    test.document->find("Shape 1")->rename("Moon");
    press();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(changedShapes(), Colors{1});
}

TEST_F(RecolourTest, AnErrorOfAFillIsReportedByTheFillAndTheRowCountsAsRecoloured) {
    addTickedRows(2);
    change(1);
    change(2);
    test.log().failAt("call Range.Fill.Solid", base::Error(7, "popis"), 1, 1);
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_TRUE(
        test.runtime.boxes[0].text.starts_with("Chyba v modulu \"Huebrush.CFill.SetFormat\""));
    EXPECT_EQ(changedShapes(), Colors{2});
    EXPECT_FALSE(row(1).FillObject().Change());
}

TEST_F(RecolourTest, FillsThatFailWhenTheUndoStepEndsAreReportedOncePerRow) {
    addRows({1, 2, 1});
    user.click(dialog->chkSelAll);
    change(1);
    change(2);
    test.document->failedWrites = {{"Shape 2", base::Error(8, "second")},
                                   {"Shape 1", base::Error(7, "first")},
                                   {"Shape 3", base::Error(9, "twin")}};
    std::vector<std::int16_t> reported;
    for (std::int16_t i = 1; i <= 2; ++i) {
        row(i).Discoloured.connect([&reported, i](const RowOutcome&) { reported.push_back(i); });
    }
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 2U);
    EXPECT_EQ(test.runtime.boxes[0],
              (ShownBox{"Chyba v modulu \"Huebrush.CFill.SetFormat\"...\r\n\r\nChyba při aplikaci "
                        "nové výplně...\r\n\r\nSystémový popis výjimky:\r\nfirst",
                        16, "Chyba č. 7"}));
    EXPECT_EQ(test.runtime.boxes[1].title, "Chyba č. 8");
    EXPECT_EQ(reported, (std::vector<std::int16_t>{1, 2, 1, 2}));
    for (std::int16_t i = 1; i <= 2; ++i) EXPECT_FALSE(row(i).FillObject().Change());
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
    EXPECT_FALSE(dialog->picLoadStatus.Visible);
}

TEST_F(RecolourTest, AFillThatFailedForAShapeOfNoRowIsReportedByTheDialog) {
    addTickedRows(1);
    change(1);
    test.document->failedWrites = {{"", base::Error(7, "popis")}};
    press();
    EXPECT_EQ(test.runtime.boxes, std::vector<ShownBox>{kOwnError});
    EXPECT_TRUE(dialog->cmdDiscolour.Enabled);
}

TEST_F(RecolourTest, WhatHasFailedIsReportedAlsoWhenAnErrorEndsTheRecolour) {
    addTickedRows(2);
    change(1);
    test.document->failedWrites = {{"Shape 1", base::Error(8, "popis")}};
    test.log().failAt("read Application.Selection", base::Error(7, "popis"), 2);
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 2U);
    EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 8");
    EXPECT_EQ(test.runtime.boxes[1].title, "Chyba č. 7");
}

TEST_F(RecolourTest, WhatHasFailedIsReportedAlsoWhenTheDialogIsClosedMeanwhile) {
    addTickedRows(2);
    change(1);
    test.document->failedWrites = {{"Shape 1", base::Error(8, "popis")}};
    test.runtime.onPump = [&](std::size_t pump) {
        if (pump == 2) dialog->Unload();
    };
    press();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 8");
}

TEST_F(RecolourTest, AnErrorOfItsOwnLeavesTheRowsDoneAndTheButtonDisabled) {
    addTickedRows(3);
    for (std::int16_t i = 1; i <= 3; ++i) change(i);
    test.log().failAt("read Application.Selection", base::Error(7, "popis"), 2);
    press();
    EXPECT_EQ(test.runtime.boxes, std::vector<ShownBox>{kOwnError});
    EXPECT_EQ(changedShapes(), Colors{1});
    EXPECT_FALSE(row(1).FillObject().Change());
    EXPECT_TRUE(row(2).FillObject().Change());
    EXPECT_FALSE(dialog->cmdDiscolour.Enabled);
    EXPECT_TRUE(dialog->picLoadStatus.Visible);
    EXPECT_FALSE(dialog->cmdClose.Default);
    // What was written is one step of Undo all the same.
    EXPECT_EQ(test.document->undoTitles.size(), 1U);
}

TEST_F(RecolourTest, CountsTheRowsAnewForEachText) {
    addTickedRows(2);
    Names texts;
    const auto extra = test.document->addSolid("Extra", 99);
    test.runtime.onPump = [&](std::size_t pump) {
        texts.push_back(dialog->lblLoadStatus.Caption.get());
        if (pump != test.runtime.pumps || texts.size() > 1) return;
        test.document->select({extra});
        user.click(dialog->cmdAdd);
    };
    press();
    // The third row is not in the loop, whose end was taken before it was there.
    EXPECT_EQ(texts.front(), "Upravuji 1. skupinu objektů ze 2 výplní...");
    EXPECT_EQ(texts.back(), "Upravuji 2. skupinu objektů ze 3 výplní...");
}

TEST_F(RecolourTest, EachRowSaysWhatBecameOfIt) {
    addRows({1, 2, 1, 3, 4, 5});
    user.click(dialog->chkSelAll);
    for (const std::int16_t i : std::initializer_list<std::int16_t>{1, 2, 4, 5}) change(i);
    test.document->remove(test.document->find("Shape 2"));
    test.log().failAt("call Range.Fill.Solid", base::Error(7, "of the fill"), 2, 1);
    test.document->failedWrites = {{"Shape 6", base::Error(8, "late")}};
    std::vector<std::string> outcomes;
    for (std::int16_t i = 1; i <= rowCount(); ++i) {
        row(i).Discoloured.connect([&outcomes, i](const RowOutcome& outcome) {
            const std::string& error = outcome.error;
            const std::size_t line = error.rfind('\n');
            outcomes.push_back(text(i, ": ", outcome.shapes, " ",
                                    line == std::string::npos ? error : error.substr(line + 1)));
        });
    }
    press();
    ASSERT_EQ(outcomes.size(), 6U);
    EXPECT_EQ(outcomes[0], "1: 2 ");
    EXPECT_EQ(outcomes[1].substr(0, 5), "2: 0 ");
    EXPECT_NE(outcomes[1].find("Shape 2"), std::string::npos);
    EXPECT_EQ(outcomes[2], "3: 0 ");
    EXPECT_EQ(outcomes[3], "4: 0 of the fill");
    EXPECT_EQ(outcomes[4], "5: 1 ");
    EXPECT_EQ(outcomes[5], "5: 0 late");
}

TEST_F(RecolourTest, ReportsHowFarItIsAndHowItEnded) {
    addTickedRows(2);
    std::vector<std::string> said;
    dialog->Progressed.connect([&](const frmEditGraphic::Progress& at) {
        said.push_back(text(at.done, "/", at.total, " before pump ", test.runtime.pumps + 1));
    });
    dialog->Recoloured.connect([&](const std::string& error) { said.push_back("end " + error); });
    test.runtime.pumps = 0;
    press();
    EXPECT_EQ(said, (Names{"1/2 before pump 1", "2/2 before pump 2", "end "}));
    change(1);
    said.clear();
    test.document->failedWrites = {{"", base::Error(7, "popis")}};
    test.log().failAt("read Application.Selection", base::Error(8, "later"), 2);
    press();
    EXPECT_EQ(said.back(), "end " + kOwnError.text);
}

// What may happen in the pump.

using Happening = std::function<void(memory::TestHost&, std::shared_ptr<frmEditGraphic>&)>;
using Check = std::function<void(memory::TestHost&, frmEditGraphic*, std::size_t pump)>;

void inEveryPumpOfARecolour(const Happening& happening, const Check& check) {
    constexpr std::size_t kRows = 3;
    for (std::size_t pump = 1; pump <= kRows; ++pump) {
        SCOPED_TRACE(pump);
        memory::TestHost test;
        std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
        dialog->connect(test.application);
        const memory::Driver user(*dialog);
        for (std::int32_t color = 1; color <= static_cast<std::int32_t>(kRows); ++color) {
            test.document->addSolid(text("Shape ", color), color);
        }
        test.document->selectAll();
        user.click(dialog->cmdAdd);
        user.click(dialog->chkSelAll);
        for (std::int16_t i = 1; i <= dialog->Element.ubound(); ++i) {
            dialog->Element[i].FillObject().setDesTransparency(0.5F);
        }
        test.runtime.boxes.clear();
        test.runtime.pumps = 0;
        test.runtime.onPump = [&](std::size_t at) {
            if (at == pump) happening(test, dialog);
        };
        user.click(dialog->cmdDiscolour);
        test.runtime.onPump = nullptr;
        EXPECT_TRUE(test.unhandled.empty());
        check(test, dialog.get(), pump);
    }
}

std::size_t recoloured(const memory::MemoryDocument& document) {
    std::size_t count = 0;
    for (const auto& shape : document.shapes) {
        if (shape->fill.Transparency == 0.5F) ++count;
    }
    return count;
}

TEST(RecolourPumpTest, ClosingTheDialogEndsTheRecolourQuietly) {
    inEveryPumpOfARecolour(
        [](memory::TestHost&, std::shared_ptr<frmEditGraphic>& dialog) {
            memory::Driver(*dialog).close();
            dialog.reset();
        },
        [](memory::TestHost& test, frmEditGraphic*, std::size_t pump) {
            EXPECT_TRUE(test.runtime.boxes.empty());
            EXPECT_EQ(recoloured(*test.document), pump - 1);
            EXPECT_EQ(test.document->undoTitles.size(), pump > 1 ? 1U : 0U);
        });
}

TEST(RecolourPumpTest, RemovingAllRowsEndsTheRecolourWithAReport) {
    inEveryPumpOfARecolour(
        [](memory::TestHost& test, std::shared_ptr<frmEditGraphic>& dialog) {
            test.runtime.picks = {"&Vše"};
            memory::Driver(*dialog).click(dialog->cmdRemove);
            EXPECT_EQ(dialog->Element.ubound(), 0);
        },
        [](memory::TestHost& test, frmEditGraphic* dialog, std::size_t pump) {
            ASSERT_EQ(test.runtime.boxes.size(), 1U);
            EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 340");
            EXPECT_EQ(recoloured(*test.document), pump - 1);
            EXPECT_EQ(dialog->Element.ubound(), 0);
        });
}

TEST(RecolourPumpTest, PressingAddScansInsideTheRecolour) {
    inEveryPumpOfARecolour(
        [](memory::TestHost&, std::shared_ptr<frmEditGraphic>& dialog) {
            memory::Driver(*dialog).click(dialog->cmdAdd);
        },
        [](memory::TestHost& test, frmEditGraphic* dialog, std::size_t) {
            EXPECT_EQ(test.runtime.boxes.size(), 1U);
            EXPECT_EQ(dialog->Element.ubound(), 6);
            EXPECT_EQ(recoloured(*test.document), 3U);
        });
}

TEST(RecolourPumpTest, ClosingTheDocumentEndsTheRecolourWithAReport) {
    inEveryPumpOfARecolour(
        [](memory::TestHost& test, std::shared_ptr<frmEditGraphic>&) { test.document->Close(); },
        [](memory::TestHost& test, frmEditGraphic* dialog, std::size_t pump) {
            ASSERT_EQ(test.runtime.boxes.size(), 1U);
            EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
                "Chyba v modulu \"Huebrush.frmEditGraphic.cmdDiscolour_Click\""));
            EXPECT_EQ(recoloured(*test.document), pump - 1);
            EXPECT_EQ(dialog->Element.ubound(), 3);
        });
}

TEST(RecolourPumpTest, AnotherDocumentThatBecomesActiveGetsItsOwnStepOfUndo) {
    std::shared_ptr<memory::MemoryDocument> other;
    inEveryPumpOfARecolour(
        [&](memory::TestHost& test, std::shared_ptr<frmEditGraphic>&) {
            other = test.application.open("Other");
            for (std::int32_t i = 1; i <= 3; ++i) other->addSolid(text("Shape ", i), i);
        },
        [&](memory::TestHost& test, frmEditGraphic*, std::size_t pump) {
            EXPECT_EQ(recoloured(*test.document), pump - 1);
            EXPECT_EQ(recoloured(*other), 4 - pump);
            EXPECT_EQ(test.document->undoTitles.size(), pump > 1 ? 1U : 0U);
            EXPECT_EQ(other->undoTitles.size(), 1U);
            other.reset();
        });
}

TEST(RecolourPumpTest, AReadOnlyDocumentThatBecomesActiveEndsTheRecolour) {
    std::shared_ptr<memory::MemoryDocument> other;
    inEveryPumpOfARecolour(
        [&](memory::TestHost& test, std::shared_ptr<frmEditGraphic>&) {
            other = test.application.open("Other");
            for (std::int32_t i = 1; i <= 3; ++i) other->addSolid(text("Shape ", i), i);
            other->readOnly = true;
        },
        [&](memory::TestHost& test, frmEditGraphic* dialog, std::size_t pump) {
            EXPECT_EQ(recoloured(*test.document), pump - 1);
            EXPECT_EQ(recoloured(*other), 0U);
            EXPECT_EQ(test.runtime.boxes.size(), 1U);
            EXPECT_FALSE(dialog->picLoadStatus.Visible);
            other.reset();
        });
}

TEST(RecolourPumpTest, ADialogClosedUnderAnErrorsBoxEndsTheRecolour) {
    memory::TestHost test;
    std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
    dialog->connect(test.application);
    const memory::Driver user(*dialog);
    for (std::int32_t i = 1; i <= 2; ++i) test.document->addSolid(text("Shape ", i), i);
    test.document->selectAll();
    user.click(dialog->cmdAdd);
    user.click(dialog->chkSelAll);
    dialog->Element[1].FillObject().setDesTransparency(0.5F);
    test.document->remove(test.document->find("Shape 1"));
    test.runtime.boxes.clear();
    test.runtime.onBox = [&] {
        if (!dialog) return;
        memory::Driver(*dialog).close();
        dialog.reset();
    };
    user.click(dialog->cmdDiscolour);
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_TRUE(test.unhandled.empty());
}

}  // namespace
}  // namespace huebrush::recolor
