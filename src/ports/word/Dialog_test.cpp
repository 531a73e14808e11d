// SPDX-License-Identifier: MPL-2.0

// The recolour dialog in Word, over the stand-in: the same logic that is tested on the memory port,
// with every call through COM.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "files/Folder_test_support.h"
#include "host/BuiltInControl.h"
#include "palette/frmLoadFill.h"
#include "palette/frmSaveFill.h"
#include "ports/memory/Driver.h"
#include "ports/word/Word_test_support.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::word {
namespace {

using base::text;
using memory::MemoryShape;
using memory::ShownBox;
using recolor::frmEditGraphic;
using Calls = std::vector<std::string>;
using Colors = std::vector<std::int32_t>;

constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kGreen = 0x00FF00;
constexpr std::int32_t kBlue = 0xFF0000;
constexpr std::int32_t kPicked = 0x123456;

constexpr const char* kColor = "&Barva...";
constexpr const char* kFill = "&Vzhled výplně...";
constexpr const char* kFormat = "&Formát objektu...";
constexpr const char* kNoFill = "Bez výplně";
constexpr const char* kTransparency = "&Poloprůhledná";

/// A user who gives the selected shape this colour, and confirms.
memory::HostTool paint(std::int32_t color) {
    return [color](MemoryShape& selected) {
        selected.fill.ForeColorRGB = color;
        return host::DialogResult::kConfirmed;
    };
}

/// A word processor with five shapes of three fills, two of them in a group, all selected, and the
/// dialog beside it.
class Session {
 public:
    explicit Session(Age age = Age::word2000) : word(age) {
        auto& document = *word.test.document;
        document.addSolid("Slunce", kRed);
        document.addSolid("Obloha", kBlue);
        document.addGroup("Strom",
                          {document.addSolid("Koruna", kGreen), document.addSolid("Jablko", kRed)});
        document.addSolid("Měsíc", kBlue);
        document.selectAll();
        word.test.application.tools[host::ControlId::kFillColor] = paint(kPicked);
        word.test.application.tools[host::ControlId::kFillEffects] = paint(kPicked + 1);
        word.test.application.tools[host::DialogId::kFormatObject] = paint(kPicked + 2);
        dialog->connect(*word.application);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    /// Whatever has happened, nothing is left in use, and nothing has passed all traps.
    ~Session() {
        dialog->Unload();
        dialog.reset();
        EXPECT_TRUE(word.test.unhandled.empty());
        word.expectAllGivenBack();
    }

    void scan() {
        word.test.document->selectAll();
        user.click(dialog->cmdAdd);
    }
    void choose(const char* caption) {
        word.test.runtime.picks = {caption};
        user.click(dialog->Element[dialog->Element.ubound()].cmdChangeDes);
    }
    void recolour() {
        // Anew where it is ticked: after a failure the button waits for that.
        do {
            user.click(dialog->chkSelAll);
        } while (dialog->chkSelAll.Value != forms::CheckValue::kTicked);
        user.click(dialog->cmdDiscolour);
    }

    std::int16_t rows() const { return dialog->Element.ubound(); }
    const fill::FillProperties& newFill() const {
        return dialog->Element[rows()].FillObject().destination();
    }
    Colors colors() const {
        Colors found;
        for (const char* const name : {"Slunce", "Obloha", "Koruna", "Jablko", "Měsíc"}) {
            found.push_back(word.test.document->find(name)->fill.ForeColorRGB);
        }
        return found;
    }
    bool isActive() const { return word.test.application.active == word.test.document; }

    TestWord word;
    std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create();
    memory::Driver user{*dialog};
};

TEST(DialogTest, ScansEditsAndRecoloursTheShapesOfWord) {
    Session session;
    session.scan();
    ASSERT_EQ(session.rows(), 3);
    EXPECT_EQ(session.newFill().ForeColorRGB, kGreen);
    for (const auto& [caption, color] : std::vector<std::pair<const char*, std::int32_t>>{
             {kColor, kPicked}, {kFill, kPicked + 1}, {kFormat, kPicked + 2}}) {
        session.choose(caption);
        EXPECT_EQ(session.newFill().ForeColorRGB, color) << caption;
        EXPECT_TRUE(session.isActive()) << caption;
    }
    session.choose(kTransparency);
    EXPECT_EQ(session.newFill().Transparency, 0.5F);
    session.choose(kNoFill);
    EXPECT_EQ(session.newFill().Visible, host::MsoTriState::msoFalse);
    session.choose(kNoFill);
    EXPECT_EQ(session.newFill().Visible, host::MsoTriState::msoTrue);
    EXPECT_EQ(session.colors(), (Colors{kRed, kBlue, kGreen, kRed, kBlue}));
    session.recolour();
    EXPECT_EQ(session.colors(), (Colors{kRed, kBlue, kPicked + 2, kRed, kBlue}));
    EXPECT_EQ(session.word.test.document->find("Koruna")->fill.Transparency, 0.5F);
    EXPECT_EQ(session.word.test.application.openScratchDocuments(), 0U);
}

TEST(DialogTest, DoesSoInWord97) {
    Session session(Age::word97);
    session.scan();
    session.choose(kColor);
    EXPECT_TRUE(session.isActive());
    session.recolour();
    EXPECT_EQ(session.colors(), (Colors{kRed, kBlue, kPicked, kRed, kBlue}));
}

TEST(DialogTest, ActivatesNoDocumentForPreviewsAndTheScratchDocumentForToolsOnly) {
    Session session;
    const auto activations = [&] {
        const Calls calls = session.word.calls();
        return std::count(calls.begin(), calls.end(), "Document.Activate");
    };
    session.scan();
    EXPECT_EQ(activations(), 0);
    for (const char* const caption : {kNoFill, kNoFill, kTransparency}) {
        session.choose(caption);
        EXPECT_EQ(activations(), 0) << caption;
    }
    for (const char* const caption : {kColor, kFill, kFormat}) {
        session.choose(caption);
        EXPECT_EQ(activations(), 2) << caption;
    }
    session.recolour();
    EXPECT_EQ(activations(), 0);
}

// Whichever call fails.

/// Something that the user does, and the procedure of the dialog that it leads to.
struct Step {
    const char* name;
    void (*act)(Session& session);
    const char* procedure;
};

constexpr const char* kScanStep = "scan";
constexpr const char* kRecolourStep = "recolour";

const std::vector<Step>& steps() {
    static const std::vector<Step> all{
        {kScanStep, [](Session& session) { session.scan(); }, "cmdAdd_Click"},
        {"color", [](Session& session) { session.choose(kColor); }, "Element_mnuChDColor"},
        {"fill", [](Session& session) { session.choose(kFill); }, "Element_mnuChDFill"},
        {"format", [](Session& session) { session.choose(kFormat); }, "Element_mnuChDFormat"},
        {"no fill", [](Session& session) { session.choose(kNoFill); }, "Element_mnuChDNoFill"},
        {"fill again", [](Session& session) { session.choose(kNoFill); }, "Element_mnuChDNoFill"},
        {"transparency", [](Session& session) { session.choose(kTransparency); },
         "Element_mnuChDTransparency"},
        {kRecolourStep, [](Session& session) { session.recolour(); }, "cmdDiscolour_Click"},
    };
    return all;
}

/// The whole, without a failure: every call, and how many there were after each step.
struct Course {
    Course() {
        Session session;
        for (const Step& step : steps()) {
            step.act(session);
            ends.push_back(session.word.standIn.objects().calls);
        }
        calls = session.word.calls();
    }
    /// The step that a call belongs to, by its number from 1.
    std::size_t stepOf(std::size_t call) const {
        std::size_t step = 0;
        while (call > ends[step]) ++step;
        return step;
    }

    Calls calls;
    std::vector<std::size_t> ends;
};

/// Where a report says that the error has happened.
std::string sourceOf(const ShownBox& box) {
    const auto from = box.text.find('"') + 1;
    return box.text.substr(from, box.text.find('"', from) - from);
}

bool isOneOf(const std::string& text, const std::set<std::string>& all) {
    return all.count(text) != 0;
}

/// Whether a call only reads, as comparisons do.
bool readsAFill(const std::string& call) {
    const bool ofFill =
        call == "Shape.Fill" || call.starts_with("FillFormat.") || call.starts_with("ColorFormat.");
    return ofFill && call.find('=') == std::string::npos && call != "FillFormat.Solid";
}

/// Whether nobody is to hear of the failure: fills that cannot be compared are not the same, and
/// that is all; and a tool has done its work when the document cannot be made active again.
bool mayBeSilent(const Step& step, const std::string& call) {
    if (step.name == kScanStep) return readsAFill(call);
    return isOneOf(call, {"Application.ActiveDocument", "Document.Activate"});
}

/// The procedures that report a failure themselves, and let the step go on.
std::set<std::string> inner(const Step& step) {
    if (step.name == kScanStep) return {"Huebrush.CFill.SaveOriginalFormat"};
    if (step.name == kRecolourStep) {
        return {"Huebrush.CFill.SetFormat", "Huebrush.ColorElement.Discolour"};
    }
    return {"Huebrush.CFill.SetFormat", "Huebrush.CFill.SaveNewFormat"};
}

std::vector<ShownBox> reportsIn(const Session& session) {
    std::vector<ShownBox> reports;
    for (const ShownBox& box : session.word.test.runtime.boxes) {
        if (box.title == "Chyba č. 4198") reports.push_back(box);
    }
    return reports;
}

void expectReport(const Session& session, const Step& step, const std::string& call) {
    const std::vector<ShownBox> reports = reportsIn(session);
    if (reports.empty()) {
        EXPECT_TRUE(mayBeSilent(step, call));
        return;
    }
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].style, forms::MsgBoxStyle::kCritical);
    EXPECT_TRUE(reports[0].text.ends_with("Příkaz selhal."));
    const std::string source = sourceOf(reports[0]);
    EXPECT_TRUE(source == text("Huebrush.frmEditGraphic.", step.procedure) ||
                isOneOf(source, inner(step)))
        << source;
}

/// The dialog still does its work: three more rows, and the new fill of the last one in the
/// document.
void expectUsable(Session& session) {
    const std::int16_t rows = session.rows();
    const std::size_t scratch = session.word.test.application.openScratchDocuments();
    EXPECT_LE(scratch, 1U);
    session.word.test.runtime.boxes.clear();
    session.scan();
    ASSERT_EQ(session.rows(), rows + 3);
    session.choose(kColor);
    EXPECT_EQ(session.newFill().ForeColorRGB, kPicked);
    session.recolour();
    EXPECT_EQ(session.colors(), (Colors{kRed, kBlue, kPicked, kRed, kBlue}));
    EXPECT_TRUE(reportsIn(session).empty());
    EXPECT_EQ(session.word.test.application.openScratchDocuments(), scratch);
    EXPECT_TRUE(session.isActive());
}

TEST(DialogFailuresTest, WhicheverCallFailsItIsReportedAndTheDialogGoesOn) {
    const Course whole;
    ASSERT_GT(whole.calls.size(), 400U);
    std::size_t reported = 0;
    for (std::size_t failing = 1; failing <= whole.calls.size(); ++failing) {
        const std::size_t index = whole.stepOf(failing);
        const Step& step = steps()[index];
        const std::string& call = whole.calls[failing - 1];
        SCOPED_TRACE(text(step.name, ", call ", failing, ": ", call));
        Session session;
        for (std::size_t i = 0; i < index; ++i) steps()[i].act(session);
        session.word.test.runtime.boxes.clear();
        session.word.standIn.objects().failAt = failing;
        step.act(session);
        ASSERT_GE(session.word.standIn.objects().calls, failing);
        expectReport(session, step, call);
        reported += reportsIn(session).size();
        EXPECT_TRUE(session.isActive());
        expectUsable(session);
    }
    EXPECT_GT(reported, 300U);
}

TEST(DialogFailuresTest, TheHostMayCloseTheDialogWhileTheReportIsOpen) {
    const Course whole;
    for (std::size_t failing = 1; failing <= whole.calls.size(); ++failing) {
        const std::size_t index = whole.stepOf(failing);
        SCOPED_TRACE(text(steps()[index].name, ", call ", failing, ": ", whole.calls[failing - 1]));
        Session session;
        for (std::size_t i = 0; i < index; ++i) steps()[i].act(session);
        session.word.standIn.objects().failAt = failing;
        session.word.test.runtime.onBox = [&] { session.dialog->Unload(); };
        steps()[index].act(session);
        EXPECT_EQ(session.colors().size(), 5U);
    }
}

// Palettes.

class PalettesInWordTest : public testing::Test {
 protected:
    PalettesInWordTest() {
        auto& runtime = session.word.test.runtime;
        runtime.temporary = files::nameOf(folder.path());
        runtime.settings[{"Huebrush", "Database", "FileName"}] = file;
    }

    template <class Dialog, class Actions>
    void use(forms::CommandButton& button, const Actions& actions) {
        bool opened = false;
        session.word.test.runtime.onModal = [&](forms::Form& form) {
            opened = true;
            auto& shown = dynamic_cast<Dialog&>(form);
            actions(shown, memory::Driver(shown));
        };
        session.user.click(button);
        session.word.test.runtime.onModal = {};
        EXPECT_TRUE(opened);
    }

    const files::TemporaryFolder folder;
    const std::string file = files::nameOf(folder.path() / "palettes.mdb");
    Session session;
};

TEST_F(PalettesInWordTest, AreSavedAndLoadedWithoutACallOfTheHost) {
    session.scan();
    session.choose(kColor);
    session.user.click(session.dialog->chkSelAll);
    session.word.calls();
    use<palette::frmSaveFill>(session.dialog->cmdToDatabase,
                              [&](palette::frmSaveFill& shown, memory::Driver user) {
                                  session.word.test.runtime.boxes.clear();
                                  session.word.test.runtime.chosenFiles = {file};
                                  user.click(shown.cmdMakeDataFile);
                                  user.type(shown.txtFillGroupName, "Žluťoučký kůň");
                                  user.click(shown.cmdApply);
                                  user.click(shown.cmdOK);
                              });
    EXPECT_EQ(session.word.calls(), Calls{});
    session.scan();
    session.word.calls();
    for (std::int16_t row = 1; row <= 3; ++row) {
        session.user.click(session.dialog->Element[row].chkSelect);
        session.user.click(session.dialog->Element[static_cast<std::int16_t>(row + 3)].chkSelect);
    }
    use<palette::frmLoadFill>(session.dialog->cmdFromDatabase,
                              [&](palette::frmLoadFill& shown, memory::Driver user) {
                                  EXPECT_EQ(shown.lstFillGroup.List(0), "Žluťoučký kůň");
                                  user.click(shown.cmdOK);
                              });
    EXPECT_EQ(session.word.calls(), Calls{});
    EXPECT_EQ(session.newFill().ForeColorRGB, kPicked);
    session.user.click(session.dialog->cmdDiscolour);
    EXPECT_EQ(session.colors(), (Colors{kRed, kBlue, kPicked, kRed, kBlue}));
}

}  // namespace
}  // namespace huebrush::word
