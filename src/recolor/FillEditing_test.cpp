// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <cmath>
#include <functional>

#include "base/Bitmap.h"
#include "recolor/Dialog_test_support.h"

namespace huebrush::recolor {
namespace {

using base::text;
using host::MsoFillType;
using host::MsoTextureType;
using host::MsoTriState;
using memory::MemoryShape;
using memory::ShownBox;
using Calls = std::vector<std::string>;

constexpr std::int32_t kColorTool = 1051;
constexpr std::int32_t kFillTool = 1006;
constexpr std::int32_t kFormatTool = 960;
constexpr std::int32_t kConfirmed = -1;
constexpr std::int32_t kCancelled = 0;

/// A command of a row's menu.
struct Command {
    const char* caption;
    const char* procedure;
    const char* message;
};
constexpr Command kColor{"&Barva...", "Element_mnuChDColor",
                         "Při pokusu změnit barvu objektu vznikla chyba..."};
constexpr Command kFill{"&Vzhled výplně...", "Element_mnuChDFill",
                        "Při pokusu změnit vzhled výplně objektu vznikla chyba..."};
constexpr Command kFormat{"&Formát objektu...", "Element_mnuChDFormat",
                          "Při pokusu změnit formát objektu vznikla chyba..."};
constexpr Command kNoFill{"Bez výplně", "Element_mnuChDNoFill",
                          "Při pokusu odejmout výplň objektu vznikla chyba..."};
constexpr Command kTransparency{"&Poloprůhledná", "Element_mnuChDTransparency",
                                "Při pokusu změnit průhlednost objektu vznikla chyba..."};

/// A user who gives the selected shape this colour, and how he ends the tool.
memory::HostTool paint(std::int32_t color, std::int32_t result) {
    return [=](MemoryShape& selected) {
        selected.fill.ForeColorRGB = color;
        return result;
    };
}

/// What a picture of the host without a screen says.
std::string shownIn(const base::Picture& picture) {
    const auto text = base::decodeBitmap(picture.bytes()).bytes;
    std::string shown(text.begin(), text.end());
    shown.resize(shown.find_last_not_of(' ') + 1);
    return shown;
}
/// The preview of a solid fill without transparency.
std::string solid(std::int32_t color) {
    return text("fill -1 ", color, " 16777215 1 0");
}

const Calls kMakeScratch{"call Documents.Add", "call Scratch.Shapes.AddShape 1 0 0 607 190",
                         "write Rectangle.Line.Visible 0"};
const Calls kSetFormat{"write Rectangle.Fill.ForeColor.RGB 1",
                       "write Rectangle.Fill.BackColor.RGB 16777215", "call Rectangle.Fill.Solid",
                       "write Rectangle.Fill.Transparency 0", "write Rectangle.Fill.Visible -1"};
const Calls kSaveNewFormat{
    "read Rectangle.Fill.Visible",         "read Rectangle.Fill.ForeColor.RGB",
    "read Rectangle.Fill.BackColor.RGB",   "read Rectangle.Fill.Type",
    "read Rectangle.Fill.GradientStyle",   "read Rectangle.Fill.GradientColorType",
    "read Rectangle.Fill.GradientVariant", "read Rectangle.Fill.PresetGradientType",
    "read Rectangle.Fill.Transparency",    "read Rectangle.Fill.TextureType",
    "read Rectangle.Fill.PresetTexture",   "read Rectangle.Fill.Type",
    "read Rectangle.Fill.TextureType",     "read Rectangle.Fill.Pattern"};
const Calls kCopy{"call Scratch.Selection.Copy", "write Clipboard", "read Clipboard"};
const Calls kEnd{"call Scratch.Close", "call frmEditGraphic.Raise", "call Clipboard.Clear"};

Calls joined(const std::vector<Calls>& parts) {
    Calls all;
    for (const Calls& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

class FillEditingTest : public DialogTest {
 protected:
    fill::CFill& fillOf(std::int16_t index) { return row(index).FillObject(); }
    const fill::FillProperties& destination(std::int16_t index) {
        return fillOf(index).destination();
    }
    std::string preview(std::int16_t index) { return shownIn(row(index).DestinationPicture()); }
    void choose(const Command& command, std::int16_t index = 1) {
        test.runtime.picks = {command.caption};
        user.click(row(index).cmdChangeDes);
    }
    /// The calls of a command, without the opening of its menu.
    Calls callsOf(const Command& command) {
        test.startLog();
        choose(command);
        const Calls& calls = test.calls();
        EXPECT_EQ(calls.front(), "call PopupMenu NabidkaWord");
        return {calls.begin() + 1, calls.end()};
    }
    Calls toolCalls(const Calls& tool, const Calls& taking) {
        return joined({kMakeScratch,
                       {"call Rectangle.Select"},
                       kSetFormat,
                       {"call frmEditGraphic.Lower"},
                       tool,
                       taking,
                       kEnd});
    }
    void expectAtRest() {
        EXPECT_EQ(test.application.openScratchDocuments(), 0U);
        EXPECT_EQ(test.runtime.windowCalls.back(), "raise frmEditGraphic");
        EXPECT_TRUE(test.runtime.clipboard.empty());
        EXPECT_TRUE(test.runtime.boxes.empty());
    }
};

// The order of what is asked of the host.

const Calls kTaken = joined({kSaveNewFormat, {"read Rectangle.Fill.Visible"}, kCopy});

TEST_F(FillEditingTest, TheColourCommandAsksTheHostInThisOrder) {
    addRows(1);
    EXPECT_EQ(
        callsOf(kColor),
        toolCalls({"read CommandBars.FindControl 1051", "call Control 1051.Execute"}, kTaken));
    expectAtRest();
}

TEST_F(FillEditingTest, TheFillCommandAsksTheHostInTheSameOrderWithItsOwnControl) {
    addRows(1);
    EXPECT_EQ(
        callsOf(kFill),
        toolCalls({"read CommandBars.FindControl 1006", "call Control 1006.Execute"}, kTaken));
    expectAtRest();
}

TEST_F(FillEditingTest, TheConfirmedFormatDialogTakesTheFillInTheSameOrder) {
    addRows(1);
    test.application.tools[kFormatTool] = paint(7, kConfirmed);
    EXPECT_EQ(callsOf(kFormat), toolCalls({"read Dialogs 960", "call Dialogs 960.Show"}, kTaken));
    expectAtRest();
}

TEST_F(FillEditingTest, TheCancelledFormatDialogReadsNothingBack) {
    addRows(1);
    test.application.tools[kFormatTool] = paint(7, kCancelled);
    EXPECT_EQ(callsOf(kFormat), toolCalls({"read Dialogs 960", "call Dialogs 960.Show"}, {}));
    expectAtRest();
}

TEST_F(FillEditingTest, AFillThatAToolTookAwayIsNotCopied) {
    addRows(1);
    test.application.tools[kFillTool] = [](MemoryShape& selected) {
        selected.fill.Visible = MsoTriState::msoFalse;
        return kConfirmed;
    };
    EXPECT_EQ(callsOf(kFill),
              toolCalls({"read CommandBars.FindControl 1006", "call Control 1006.Execute"},
                        joined({kSaveNewFormat, {"read Rectangle.Fill.Visible"}})));
    EXPECT_EQ(destination(1).Visible, MsoTriState::msoFalse);
    EXPECT_TRUE(row(1).DestinationPicture().empty());
    expectAtRest();
}

TEST_F(FillEditingTest, TakingTheFillAwayAsksTheHostNothing) {
    addRows(1);
    EXPECT_EQ(callsOf(kNoFill), Calls{});
}

const Calls kRender =
    joined({{"call Rectangle.Select"}, kCopy, {"call Clipboard.Clear", "call Scratch.Close"}});

TEST_F(FillEditingTest, GivingTheFillBackRendersItInThisOrder) {
    addRows(1);
    choose(kNoFill);
    EXPECT_EQ(callsOf(kNoFill), joined({kMakeScratch, kSetFormat, kRender}));
    expectAtRest();
}

TEST_F(FillEditingTest, TheTransparencyCommandRendersInTheSameOrder) {
    addRows(1);
    Calls setFormat = kSetFormat;
    setFormat[3] = "write Rectangle.Fill.Transparency 0.5";
    EXPECT_EQ(callsOf(kTransparency), joined({kMakeScratch, setFormat, kRender}));
    expectAtRest();
}

// What the commands do.

TEST_F(FillEditingTest, TheToolStartsFromTheRowsNewFillAndItsResultBecomesTheNewFill) {
    addRows({1, 2});
    fillOf(2).setDesTransparency(0.25F);
    test.application.tools[kColorTool] = [](MemoryShape& selected) {
        EXPECT_EQ(selected.fill.ForeColorRGB, 2);
        EXPECT_EQ(selected.fill.Transparency, 0.25F);
        selected.fill.ForeColorRGB = 77;
        return kConfirmed;
    };
    choose(kColor, 2);
    EXPECT_EQ(destination(2).ForeColorRGB, 77);
    EXPECT_EQ(destination(2).Transparency, 0.25F);
    EXPECT_EQ(preview(2), "fill -1 77 16777215 1 250");
    EXPECT_TRUE(fillOf(2).Change());
    EXPECT_FALSE(fillOf(1).Change());
    expectAtRest();
}

TEST_F(FillEditingTest, NoCommandTouchesTheShapesOrTheCurrentFill) {
    addRows(1);
    for (const std::int32_t id : {kColorTool, kFillTool, kFormatTool}) {
        test.application.tools[id] = paint(77, kConfirmed);
    }
    const memory::FillState before = test.document->find("Shape 1")->fill;
    for (const Command& command : {kColor, kFill, kFormat, kNoFill, kNoFill, kTransparency}) {
        choose(command);
    }
    EXPECT_EQ(test.document->find("Shape 1")->fill, before);
    EXPECT_EQ(fillOf(1).original().ForeColorRGB, 1);
    EXPECT_EQ(shownIn(row(1).SourcePicture()), solid(1));
    EXPECT_FALSE(test.document->modified);
}

TEST_F(FillEditingTest, TheToolComesUpWhileTheDialogIsOffTheTopMostLevel) {
    addRows(1);
    const auto isLowered = [this](MemoryShape&) {
        EXPECT_EQ(test.runtime.windowCalls.back(), "lower frmEditGraphic");
        return kConfirmed;
    };
    for (const std::int32_t id : {kColorTool, kFillTool, kFormatTool}) {
        test.application.tools[id] = isLowered;
    }
    for (const Command& command : {kColor, kFill, kFormat}) {
        choose(command);
        expectAtRest();
    }
}

TEST_F(FillEditingTest, ACancelledColourOrFillCommandStillCapturesAndTheRowCountsAsChanged) {
    addRows(2);
    choose(kColor, 1);
    choose(kFill, 2);
    for (const std::int16_t index : {std::int16_t{1}, std::int16_t{2}}) {
        EXPECT_TRUE(fillOf(index).Change());
        EXPECT_EQ(destination(index).ForeColorRGB, index);
        EXPECT_EQ(preview(index), solid(index));
    }
    expectAtRest();
}

TEST_F(FillEditingTest, ACancelledFormatDialogChangesNothing) {
    addRows(1);
    test.application.tools[kFormatTool] = paint(77, kCancelled);
    choose(kFormat);
    EXPECT_FALSE(fillOf(1).Change());
    EXPECT_EQ(destination(1).ForeColorRGB, 1);
    EXPECT_EQ(preview(1), solid(1));
    expectAtRest();
}

TEST_F(FillEditingTest, OnlyTheResultMinusOneConfirmsTheFormatDialog) {
    addRows(1);
    for (const std::int32_t result : {1, 2, -2}) {
        test.application.tools[kFormatTool] = paint(77, result);
        choose(kFormat);
        EXPECT_FALSE(fillOf(1).Change()) << result;
    }
}

TEST_F(FillEditingTest, AFormatDialogConfirmedWithoutAChangeMarksTheRowAsChanged) {
    addRows(1);
    test.application.tools[kFormatTool] = [](MemoryShape&) { return kConfirmed; };
    choose(kFormat);
    EXPECT_TRUE(fillOf(1).Change());
    EXPECT_EQ(preview(1), solid(1));
}

TEST_F(FillEditingTest, ATransparencyOfThreeTenthsTogglesToNoneAndThenToOneHalf) {
    addRows(1);
    fillOf(1).setDesTransparency(0.3F);
    choose(kTransparency);
    EXPECT_EQ(destination(1).Transparency, 0.0F);
    EXPECT_EQ(preview(1), "fill -1 1 16777215 1 0");
    choose(kTransparency);
    EXPECT_EQ(destination(1).Transparency, 0.5F);
    EXPECT_EQ(preview(1), "fill -1 1 16777215 1 500");
}

TEST_F(FillEditingTest, EveryTransparencyButNoneTogglesToNone) {
    addRows(1);
    for (const float transparency : {-0.5F, 1.0F, 2.0F, std::nextafter(0.0F, 1.0F)}) {
        fillOf(1).setDesTransparency(transparency);
        choose(kTransparency);
        EXPECT_EQ(destination(1).Transparency, 0.0F) << transparency;
    }
}

TEST_F(FillEditingTest, TheNoFillCommandTakesTheFillAwayAndItsPreviewToo) {
    addRows(1);
    choose(kNoFill);
    EXPECT_EQ(destination(1).Visible, MsoTriState::msoFalse);
    EXPECT_TRUE(row(1).DestinationPicture().empty());
    EXPECT_TRUE(fillOf(1).Change());
}

TEST_F(FillEditingTest, TheNoFillCommandGivesTheFillBackWithItsOtherProperties) {
    addRows(1);
    fillOf(1).setDesTransparency(0.25F);
    choose(kNoFill);
    choose(kNoFill);
    EXPECT_EQ(destination(1).Visible, MsoTriState::msoTrue);
    EXPECT_EQ(preview(1), "fill -1 1 16777215 1 250");
}

TEST_F(FillEditingTest, AMixedVisibilityCountsAsAFill) {
    addRows(1);
    fillOf(1).setDesVisible(MsoTriState::msoTriStateMixed);
    choose(kNoFill);
    EXPECT_EQ(destination(1).Visible, MsoTriState::msoFalse);
}

TEST_F(FillEditingTest, ARowWithoutFillShowsNoPictureWhateverItsTransparencyIs) {
    addRows(1);
    choose(kNoFill);
    choose(kTransparency);
    EXPECT_EQ(destination(1).Visible, MsoTriState::msoFalse);
    EXPECT_EQ(destination(1).Transparency, 0.5F);
    EXPECT_TRUE(row(1).DestinationPicture().empty());
}

TEST_F(FillEditingTest, AnUnknownTextureLeavesTheScratchShapeThePlainFillThatTheToolStartsFrom) {
    const auto shape = test.document->addSolid("Textured", 5);
    shape->fill.Type = MsoFillType::msoFillTextured;
    shape->fill.TextureType = MsoTextureType::msoTextureUserDefined;
    shape->fill.UnknownTexture = true;
    test.document->select({shape});
    scan();
    ASSERT_TRUE(destination(1).UnknownTexture);
    test.application.tools[kColorTool] = [](MemoryShape& selected) {
        EXPECT_EQ(selected.fill.Type, MsoFillType::msoFillSolid);
        EXPECT_EQ(selected.fill.ForeColorRGB, 5);
        return kConfirmed;
    };
    choose(kColor);
    EXPECT_EQ(destination(1).Type, MsoFillType::msoFillSolid);
    expectAtRest();
}

TEST_F(FillEditingTest, TheNewFillReachesTheShapesWithTheRecolour) {
    addRows({1, 2});
    test.application.tools[kFormatTool] = paint(77, kConfirmed);
    choose(kFormat, 2);
    user.click(dialog->chkSelAll);
    user.click(dialog->cmdDiscolour);
    EXPECT_EQ(test.document->find("Shape 1")->fill.ForeColorRGB, 1);
    EXPECT_EQ(test.document->find("Shape 2")->fill.ForeColorRGB, 77);
    EXPECT_EQ(shownIn(row(2).SourcePicture()), solid(77));
}

TEST_F(FillEditingTest, ALoadedRowsCommandsAreThoseOfItsOwnPlaceAfterAnExchange) {
    addRows({1, 2});
    dialog->ReplaceColorElement(row(1), row(2));
    choose(kTransparency, 1);
    EXPECT_EQ(fillOf(1).original().ForeColorRGB, 2);
    EXPECT_EQ(destination(1).Transparency, 0.5F);
    EXPECT_EQ(destination(2).Transparency, 0.0F);
}

// Errors.

TEST_F(FillEditingTest, EachCommandReportsAnErrorUnderItsOwnNameAndMessage) {
    addRows(1);
    test.log().failAt("call Documents.Add", base::Error(7, "popis"));
    fillOf(1).setDesVisible(MsoTriState::msoFalse);
    for (const Command& command : {kColor, kFill, kFormat, kNoFill, kTransparency}) {
        test.runtime.boxes.clear();
        fillOf(1).setDesVisible(MsoTriState::msoFalse);
        choose(command);
        EXPECT_EQ(test.runtime.boxes,
                  (std::vector<ShownBox>{{text("Chyba v modulu \"Huebrush.frmEditGraphic.",
                                               command.procedure, "\"...\r\n\r\n", command.message,
                                               "\r\n\r\nSystémový popis výjimky:\r\npopis"),
                                          16, "Chyba č. 7"}}));
    }
}

TEST_F(FillEditingTest, AHostWithoutTheControlIsReported) {
    addRows(1);
    test.application.bars.missingControls = {kColorTool};
    choose(kColor);
    EXPECT_EQ(onlyBox(), reported("91", "Element_mnuChDColor"));
    EXPECT_EQ(test.application.openScratchDocuments(), 1U);
    EXPECT_EQ(test.runtime.windowCalls.back(), "lower frmEditGraphic");
}

/// What a command leaves behind when it has come as far as a call: the effects of the calls before.
struct State {
    std::size_t scratchDocuments = 0;
    bool onTop = true;
    bool clipboardEmpty = true;
    friend bool operator==(const State&, const State&) = default;
};

State stateAfter(const Calls& calls, std::size_t count) {
    State state;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string& call = calls[i];
        if (call == "call Documents.Add") state.scratchDocuments = 1;
        if (call == "call Scratch.Close") state.scratchDocuments = 0;
        if (call == "call frmEditGraphic.Lower") state.onTop = false;
        if (call == "call frmEditGraphic.Raise") state.onTop = true;
        if (call == "write Clipboard") state.clipboardEmpty = false;
        if (call == "call Clipboard.Clear") state.clipboardEmpty = true;
    }
    return state;
}

/// A command on a dialog of its own, with one of its calls failing.
class FailingCommand {
 public:
    /// `failing` counts the command's calls from 1; 0 lets all succeed.
    FailingCommand(const Command& command, std::size_t failing) {
        dialog->connect(test.application);
        test.document->addSolid("A", 1);
        test.document->selectAll();
        const memory::Driver user(*dialog);
        user.click(dialog->cmdAdd);
        for (const std::int32_t id : {kColorTool, kFillTool, kFormatTool}) {
            test.application.tools[id] = paint(77, kConfirmed);
        }
        if (command.caption == kNoFill.caption) fill().setDesVisible(MsoTriState::msoFalse);
        test.runtime.boxes.clear();
        test.runtime.clipboard = {};
        test.startLog();
        // The first call is that of the menu.
        if (failing > 0) test.log().failAt("", base::Error(7, "popis"), failing + 1, 1);
        test.runtime.picks = {command.caption};
        user.click(dialog->Element[1].cmdChangeDes);
        calls.assign(test.calls().begin() + 1, test.calls().end());
    }

    fill::CFill& fill() { return dialog->Element[1].FillObject(); }
    State state() {
        return {test.application.openScratchDocuments(),
                test.runtime.windowCalls.back() == "raise frmEditGraphic",
                test.runtime.clipboard.empty()};
    }
    /// Who reported the error; empty for nobody.
    std::string reporter() {
        EXPECT_EQ(test.runtime.boxes.size(), 1U);
        const std::string& box = test.runtime.boxes.front().text;
        const std::size_t start = box.find('"') + 1;
        return box.substr(start, box.find('"', start) - start);
    }

    memory::TestHost test;
    std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
    Calls calls;
};

/// Who traps an error of a call: the fill its own, the row the clipboard's, the dialog all others.
std::string whoReports(const std::string& call, bool fillSet, const Command& command) {
    const bool ofFill = call.find("Rectangle.Fill.") != std::string::npos;
    if (ofFill && !fillSet) return "Huebrush.CFill.SetFormat";
    if (ofFill) return "Huebrush.CFill.SaveNewFormat";
    if (call == "read Clipboard") return "Huebrush.ColorElement.CliboardToDestination";
    return text("Huebrush.frmEditGraphic.", command.procedure);
}

class EveryCallFails : public ::testing::TestWithParam<Command> {};

TEST_P(EveryCallFails, AndWhatWasDoneBeforeItStaysAndNothingElseIsDone) {
    const Command& command = GetParam();
    const Calls usual = FailingCommand(command, 0).calls;
    const auto setVisible =
        std::find(usual.begin(), usual.end(), "write Rectangle.Fill.Visible -1");
    ASSERT_NE(setVisible, usual.end());
    const auto copy = std::find(usual.begin(), usual.end(), "call Scratch.Selection.Copy");
    const auto isCheck = [&](std::size_t i) {
        // The look at the fill before the copy is the dialog's own.
        return usual.begin() + static_cast<std::ptrdiff_t>(i) + 1 == copy &&
               usual[i] == "read Rectangle.Fill.Visible";
    };
    std::size_t ended = 0;
    for (std::size_t i = 0; i < usual.size(); ++i) {
        SCOPED_TRACE(text(i + 1, ": ", usual[i]));
        FailingCommand run(command, i + 1);
        const bool fillSet = usual.begin() + static_cast<std::ptrdiff_t>(i) > setVisible;
        const std::string own = text("Huebrush.frmEditGraphic.", command.procedure);
        const std::string expected = isCheck(i) ? own : whoReports(usual[i], fillSet, command);
        EXPECT_EQ(run.reporter(), expected);
        EXPECT_TRUE(run.test.unhandled.empty());
        if (expected == own) {
            ++ended;
            EXPECT_EQ(run.calls.size(), i + 1);
            EXPECT_EQ(run.state(), stateAfter(usual, i));
        } else {
            // An error that a part of the command has trapped does not end the command.
            EXPECT_EQ(run.calls.back(), usual.back());
            EXPECT_EQ(run.state(), stateAfter(usual, usual.size()));
        }
    }
    EXPECT_GT(ended, 6U);
}

std::string nameOf(const ::testing::TestParamInfo<Command>& info) {
    return std::string(info.param.procedure).substr(sizeof("Element_mnuChD") - 1);
}
INSTANTIATE_TEST_SUITE_P(OfACommand, EveryCallFails,
                         ::testing::Values(kColor, kFill, kFormat, kNoFill, kTransparency), nameOf);

TEST_F(FillEditingTest, AToolThatFailsLeavesScratchDocumentAndLevelAndTheFillUnchanged) {
    addRows(1);
    test.log().failAt("call Control 1051.Execute", base::Error(7, "popis"));
    choose(kColor);
    EXPECT_EQ(onlyBox(), reported("7", "Element_mnuChDColor"));
    EXPECT_EQ(test.application.openScratchDocuments(), 1U);
    EXPECT_EQ(test.runtime.windowCalls.back(), "lower frmEditGraphic");
    EXPECT_FALSE(fillOf(1).Change());
    EXPECT_EQ(preview(1), solid(1));
}

TEST_F(FillEditingTest,
       AFillThatCannotBeCapturedIsReportedByTheFillAndThePreviewIsTakenAllTheSame) {
    addRows(1);
    test.application.tools[kColorTool] = paint(77, kConfirmed);
    test.log().failAt("read Rectangle.Fill.Type", base::Error(7, "popis"));
    choose(kColor);
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_TRUE(
        test.runtime.boxes[0].text.starts_with("Chyba v modulu \"Huebrush.CFill.SaveNewFormat\""));
    EXPECT_FALSE(fillOf(1).Change());
    EXPECT_EQ(destination(1).ForeColorRGB, 77);
    EXPECT_EQ(preview(1), solid(77));
    EXPECT_EQ(test.application.openScratchDocuments(), 0U);
}

TEST_F(FillEditingTest, ANoFillThatCannotBeRenderedIsSetAllTheSame) {
    addRows(1);
    choose(kNoFill);
    test.log().failAt("call Scratch.Selection.Copy", base::Error(7, "popis"));
    choose(kNoFill);
    EXPECT_EQ(onlyBox(), reported("7", "Element_mnuChDNoFill"));
    EXPECT_EQ(destination(1).Visible, MsoTriState::msoTrue);
    EXPECT_TRUE(row(1).DestinationPicture().empty());
    EXPECT_EQ(test.application.openScratchDocuments(), 1U);
}

TEST_F(FillEditingTest, ATransparencyThatCannotBeRenderedIsSetAllTheSame) {
    addRows(1);
    test.log().failAt("call Clipboard.Clear", base::Error(7, "popis"));
    choose(kTransparency);
    EXPECT_EQ(onlyBox(), reported("7", "Element_mnuChDTransparency"));
    EXPECT_EQ(destination(1).Transparency, 0.5F);
    EXPECT_EQ(preview(1), "fill -1 1 16777215 1 500");
    EXPECT_EQ(test.application.openScratchDocuments(), 1U);
    EXPECT_FALSE(test.runtime.clipboard.empty());
}

TEST_F(FillEditingTest, ACommandAfterAFailedOneWorks) {
    addRows(1);
    test.log().failAt("call Control 1051.Execute", base::Error(7, "popis"), 1, 1);
    choose(kColor);
    test.runtime.boxes.clear();
    test.application.tools[kColorTool] = paint(77, kConfirmed);
    choose(kColor);
    EXPECT_EQ(destination(1).ForeColorRGB, 77);
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(test.runtime.windowCalls.back(), "raise frmEditGraphic");
}

// What may happen while a tool of the host is open.

TEST_F(FillEditingTest, WhileAToolIsOpenTheMenusOfAllRowsAreDisabled) {
    addRows(2);
    int opened = 0;
    test.application.tools[kColorTool] = [&](MemoryShape&) {
        ++opened;
        for (const Command& command : {kColor, kFill, kFormat, kNoFill, kTransparency}) {
            choose(command, 1);
            choose(command, 2);
        }
        for (const auto& item : test.runtime.menus.back().items) EXPECT_FALSE(item.enabled);
        return kConfirmed;
    };
    choose(kColor);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(test.application.scratchDocuments.size(), 2U);
    EXPECT_FALSE(fillOf(2).Change());
    expectAtRest();
    choose(kTransparency, 2);
    for (const auto& item : test.runtime.menus.back().items) EXPECT_TRUE(item.enabled);
    EXPECT_EQ(destination(2).Transparency, 0.5F);
}

TEST_F(FillEditingTest, AfterAToolThatFailedTheMenusAreEnabledAgain) {
    addRows(1);
    test.log().failAt("call Control 1006.Execute", base::Error(7, "popis"));
    choose(kFill);
    choose(kTransparency);
    EXPECT_EQ(destination(1).Transparency, 0.5F);
}

/// Every command that opens a tool, with something happening while it is open.
void whileAToolIsOpen(
    const std::function<void(memory::TestHost&, frmEditGraphic&)>& happening,
    const std::function<void(memory::TestHost&, frmEditGraphic&, const Command&)>& check) {
    for (const Command& command : {kColor, kFill, kFormat}) {
        SCOPED_TRACE(command.procedure);
        memory::TestHost test;
        std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
        dialog->connect(test.application);
        const memory::Driver user(*dialog);
        for (std::int32_t color = 1; color <= 3; ++color) {
            test.document->addSolid(text("Shape ", color), color);
        }
        test.document->selectAll();
        user.click(dialog->cmdAdd);
        test.runtime.boxes.clear();
        for (const std::int32_t id : {kColorTool, kFillTool, kFormatTool}) {
            test.application.tools[id] = [&](MemoryShape& selected) {
                selected.fill.ForeColorRGB = 77;
                happening(test, *dialog);
                return kConfirmed;
            };
        }
        test.runtime.picks = {command.caption};
        user.click(dialog->Element[3].cmdChangeDes);
        EXPECT_TRUE(test.unhandled.empty());
        check(test, *dialog, command);
    }
}

void expectReported(const memory::TestHost& test, const Command& command,
                    const std::string& number) {
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].title, text("Chyba č. ", number));
    EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
        text("Chyba v modulu \"Huebrush.frmEditGraphic.", command.procedure, "\"")));
}

TEST(OpenToolTest, ClosingTheDialogEndsTheCommandWithAReport) {
    whileAToolIsOpen(
        [](memory::TestHost&, frmEditGraphic& dialog) { memory::Driver(dialog).close(); },
        [](memory::TestHost& test, frmEditGraphic& dialog, const Command& command) {
            EXPECT_TRUE(dialog.isUnloaded());
            expectReported(test, command, "364");
        });
}

TEST(OpenToolTest, RemovingAllRowsEndsTheCommandWithAReport) {
    whileAToolIsOpen(
        [](memory::TestHost& test, frmEditGraphic& dialog) {
            test.runtime.picks = {"&Vše"};
            memory::Driver(dialog).click(dialog.cmdRemove);
        },
        [](memory::TestHost& test, frmEditGraphic& dialog, const Command& command) {
            EXPECT_EQ(dialog.Element.ubound(), 0);
            expectReported(test, command, "340");
        });
}

TEST(OpenToolTest, PressingAddAgainAddsItsRowsAndTheCommandGoesOn) {
    whileAToolIsOpen([](memory::TestHost&,
                        frmEditGraphic& dialog) { memory::Driver(dialog).click(dialog.cmdAdd); },
                     [](memory::TestHost& test, frmEditGraphic& dialog, const Command&) {
                         EXPECT_EQ(dialog.Element.ubound(), 6);
                         EXPECT_EQ(dialog.Element[3].FillObject().destination().ForeColorRGB, 77);
                         EXPECT_EQ(test.application.openScratchDocuments(), 0U);
                     });
}

TEST(OpenToolTest, ClosingTheDocumentDoesNotDisturbTheCommand) {
    whileAToolIsOpen([](memory::TestHost& test, frmEditGraphic&) { test.document->Close(); },
                     [](memory::TestHost& test, frmEditGraphic& dialog, const Command&) {
                         EXPECT_TRUE(test.runtime.boxes.empty());
                         EXPECT_EQ(dialog.Element[3].FillObject().destination().ForeColorRGB, 77);
                         EXPECT_EQ(test.application.openScratchDocuments(), 0U);
                     });
}

TEST(OpenToolTest, AScratchDocumentThatIsClosedUnderTheToolIsReported) {
    whileAToolIsOpen([](memory::TestHost& test,
                        frmEditGraphic&) { test.application.scratchDocuments.back()->Close(); },
                     [](memory::TestHost& test, frmEditGraphic& dialog, const Command&) {
                         EXPECT_FALSE(test.runtime.boxes.empty());
                         EXPECT_FALSE(dialog.Element[3].FillObject().Change());
                     });
}

}  // namespace
}  // namespace huebrush::recolor
