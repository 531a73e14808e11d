// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "addin/ConnectW2000.h"
#include "base/Error.h"
#include "base/Text.h"
#include "ports/memory/Driver.h"
#include "ports/word/Word_test_support.h"

namespace huebrush::word {
namespace {

using addin::ConnectW2000;
using base::text;
using memory::ShownBox;
using memory::TestHost;
using Calls = std::vector<std::string>;

void append(Calls& calls, const Calls& more) {
    calls.insert(calls.end(), more.begin(), more.end());
}

std::shared_ptr<memory::MemoryBar> barOf(TestHost& test) {
    return test.application.bars.find("Huebrush");
}

/// A user's click on a button, if it is there.
void click(TestHost& test, const std::string& tag) {
    const auto bar = barOf(test);
    if (!bar) return;
    const auto buttons = bar->buttons;
    for (const auto& button : buttons) {
        if (button->tag == tag) button->Execute();
    }
}

/// Three shapes, of which the first, which is selected, and the last look the same.
void addPicture(TestHost& test) {
    test.document->addSolid("Slunce", 1);
    test.document->addSolid("Obloha", 2);
    test.document->addSolid("Měsíc", 1);
    test.document->select({test.document->shapes[0]});
}

/// The add-in in Word, over the stand-in.
class AddInTest : public testing::Test {
 protected:
    void TearDown() override {
        addin.reset();
        word.expectAllGivenBack();
        EXPECT_TRUE(word.test.unhandled.empty());
    }
    void connect() { addin->OnConnection(*word.application); }
    void disconnect() { addin->OnDisconnection(); }
    const std::vector<ShownBox>& boxes() const { return word.test.runtime.boxes; }

    TestWord word;
    std::unique_ptr<ConnectW2000> addin = std::make_unique<ConnectW2000>();
};

// The calls, as they are fixed.

Calls faceCalls() {
    return {"CommandBarButton.CopyFace", "CommandBarButton.PasteFace"};
}

Calls addButtonCalls() {
    return {"CommandBar.Controls", "CommandBarControls.Add(1)"};
}

Calls buttonCalls(const std::string& tag, const std::string& caption, const std::string& tip) {
    Calls calls{text("CommandBar.FindControl(Tag:=", tag, ")")};
    append(calls, addButtonCalls());
    append(calls, {"CommandBarButton.Tag = " + tag, "CommandBarButton.Caption = " + caption,
                   "CommandBarButton.TooltipText = " + tip});
    append(calls, faceCalls());
    return calls;
}

Calls saveCalls() {
    return {"Application.NormalTemplate", "Template.Save"};
}

/// From the connection to the saved template, for a user without a bar.
Calls connectionCalls() {
    Calls calls{"Application.Name",         "Application.Version",     "Application.CommandBars",
                "CommandBars.Count",        "Application.CommandBars", "CommandBars.Add(Huebrush)",
                "CommandBar.Visible = True"};
    append(calls, addButtonCalls());
    append(calls, faceCalls());
    append(calls, {"CommandBarButton.Delete"});
    append(calls, buttonCalls("SellFill", "Dle výplne",
                              "Vybere všechny ostatní grafické objekty se shodným typem výplně "
                              "jako je právě zvolený objekt"));
    append(calls, buttonCalls("SellLine", "Dle čáry",
                              "Vybere všechny ostatní grafické objekty se shodnou barvou čáry "
                              "jako je právě zvolený objekt"));
    append(calls, buttonCalls("ChangeFillWizard", "Změnit výplně",
                              "Zobrazí dialog hromadné záměny výplně grafických objektů"));
    append(calls, saveCalls());
    return calls;
}

Calls placeCalls() {
    return {"CommandBar.Position", "CommandBar.Left", "CommandBar.Top", "CommandBar.RowIndex"};
}

/// The start of both selection commands.
Calls sampleCalls(const std::string& of) {
    return {
        "Application.Selection", "Selection.ShapeRange", "ShapeRange.Count", "Application.System",
        "System.Cursor = 0",     "ShapeRange.Item(1)",   "Shape." + of};
}

Calls progressCalls(int count) {
    return {"Shapes.Count", text("Application.StatusBar = Zpracovávám ", count, ". objekt z 3.")};
}

TEST_F(AddInTest, TheFirstConnectionMakesTheseCalls) {
    connect();
    EXPECT_EQ(word.calls(), connectionCalls());
    EXPECT_TRUE(boxes().empty());
    EXPECT_TRUE(barOf(word.test)->visible);
}

TEST_F(AddInTest, ADisconnectionRemovesTheBarThatWasMade) {
    connect();
    word.calls();
    disconnect();
    Calls expected = placeCalls();
    append(expected, {"CommandBar.Delete"});
    append(expected, saveCalls());
    EXPECT_EQ(word.calls(), expected);
    EXPECT_EQ(barOf(word.test), nullptr);
}

TEST_F(AddInTest, ADisconnectionRemovesTheButtonsOfABarThatWasThere) {
    word.test.application.bars.addExisting("Huebrush");
    connect();
    word.calls();
    disconnect();
    Calls expected = placeCalls();
    append(expected,
           {"CommandBarButton.Delete", "CommandBarButton.Delete", "CommandBarButton.Delete"});
    append(expected, saveCalls());
    EXPECT_EQ(word.calls(), expected);
    EXPECT_TRUE(barOf(word.test)->buttons.empty());
}

TEST_F(AddInTest, APlaceThatWasStoredIsGivenBackInThisOrder) {
    for (const auto& [key, value] : {std::pair("Position", "1"), std::pair("Left", "100"),
                                     std::pair("Top", "200"), std::pair("RowIndex", "3")}) {
        word.test.runtime.settings[{"Huebrush", "ToolBarPosition", key}] = value;
    }
    connect();
    Calls expected = connectionCalls();
    const Calls place{"CommandBar.Position = 1", "CommandBar.Left = 100", "CommandBar.Top = 200",
                      "CommandBar.RowIndex = 3"};
    expected.insert(expected.end() - 2, place.begin(), place.end());
    EXPECT_EQ(word.calls(), expected);
}

TEST_F(AddInTest, ANewerHostGetsItsWarningAndTheThirdButtonDisabled) {
    word.test.application.version = "10.0";
    connect();
    ASSERT_EQ(boxes().size(), 1U);
    EXPECT_EQ(boxes()[0].style, 16);
    Calls expected = connectionCalls();
    append(expected, {"CommandBarButton.Enabled = False"});
    EXPECT_EQ(word.calls(), expected);
    EXPECT_FALSE(barOf(word.test)->buttons[2]->enabled);
}

TEST_F(AddInTest, AnotherHostIsOnlyAskedForItsName) {
    word.test.application.name = "Microsoft Excel";
    connect();
    EXPECT_EQ(word.calls(), Calls{"Application.Name"});
}

TEST_F(AddInTest, AnOlderHostIsOnlyAskedForItsVersionToo) {
    word.test.application.version = "7.0";
    connect();
    EXPECT_EQ(word.calls(), (Calls{"Application.Name", "Application.Version"}));
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(AddInTest, TheLineCommandMakesTheseCalls) {
    addPicture(word.test);
    word.test.document->shapes[1]->lineColor = 5;
    connect();
    word.calls();
    click(word.test, "SellLine");
    Calls expected = sampleCalls("Line");
    append(expected, {"LineFormat.Visible", "Application.ActiveDocument", "Document.Shapes",
                      "Shapes._NewEnum"});
    for (int i = 1; i <= 3; ++i) {
        append(expected, {"Shapes.Next", "Shape.Line", "LineFormat.ForeColor", "ColorFormat.RGB",
                          "LineFormat.ForeColor", "ColorFormat.RGB", "LineFormat.Visible",
                          "LineFormat.Visible"});
        append(expected, progressCalls(i));
    }
    append(expected, {"Shapes.Next", "Shape.Name", "Shape.Name", "Shapes.Range([Slunce, Měsíc])",
                      "ShapeRange.Select",
                      "Application.StatusBar = Celkový počet všech vybraných objektů se stejnou "
                      "barvou čáry.. 2.",
                      "Application.System", "System.Cursor = 2"});
    EXPECT_EQ(word.calls(), expected);
    EXPECT_EQ(word.test.document->selected.size(), 2U);
}

TEST_F(AddInTest, TheFillCommandSelectsWhatIsAlike) {
    addPicture(word.test);
    connect();
    word.calls();
    click(word.test, "SellFill");
    const Calls calls = word.calls();
    const Calls start = sampleCalls("Fill");
    ASSERT_GT(calls.size(), start.size());
    EXPECT_TRUE(std::equal(start.begin(), start.end(), calls.begin()));
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Shapes.Range([Slunce, Měsíc])"), 1);
    EXPECT_EQ(word.test.application.statusBar,
              "Celkový počet všech vybraných objektů se shodným typem výplně.. 2.");
}

// The host behind the objects sees what it sees without them.

/// What the host and the runtime were asked for, and what the user was shown.
struct Seen {
    Calls calls;
    std::vector<ShownBox> boxes;
    Calls settings;

    friend bool operator==(const Seen&, const Seen&) = default;
};

using Setup = std::function<void(TestHost&)>;
using Use = std::function<void(TestHost&, ConnectW2000&)>;

Seen use(TestHost& test, host::Application& application, const Setup& setup, const Use& meanwhile) {
    addPicture(test);
    setup(test);
    test.startLog();
    ConnectW2000 connecting;
    connecting.OnConnection(application);
    meanwhile(test, connecting);
    connecting.OnDisconnection();
    EXPECT_TRUE(test.unhandled.empty());
    Calls calls = test.calls();
    // Word has its own steps of Undo, and notices changes by itself.
    std::erase_if(calls, [](const std::string& call) {
        return call.ends_with(".undoGroup") || call.ends_with(".markModified") ||
               call.ends_with(".isReadOnly");
    });
    return {calls, test.runtime.boxes, test.runtime.savedSettings};
}

void expectSameThroughObjects(const std::string& what, const Setup& setup, const Use& meanwhile) {
    SCOPED_TRACE(what);
    TestHost direct;
    const Seen expected = use(direct, direct.application, setup, meanwhile);
    TestWord word;
    const Seen seen = use(word.test, *word.application, setup, meanwhile);
    EXPECT_EQ(seen.calls, expected.calls);
    EXPECT_EQ(seen.boxes, expected.boxes);
    EXPECT_EQ(seen.settings, expected.settings);
    EXPECT_FALSE(seen.calls.empty());
    word.expectAllGivenBack();
}

/// Both selection commands, for the same selection.
void clickBoth(TestHost& test, ConnectW2000&) {
    const auto selected = test.document->selected;
    click(test, "SellFill");
    test.document->select(selected);
    click(test, "SellLine");
}

TEST(AddInThroughObjectsTest, EveryVersionIsServedAsWithoutThem) {
    for (const char* const version : {"7.0", "8.0", "8.5", "9.0", "10.0", "16.0", "beta"}) {
        for (const char separator : {'.', ','}) {
            expectSameThroughObjects(
                text(version, " ", std::string(1, separator)),
                [&](TestHost& test) {
                    test.application.version = version;
                    test.runtime.separator = separator;
                },
                clickBoth);
        }
    }
}

TEST(AddInThroughObjectsTest, BarsAreFoundMadePlacedAndRemovedAsWithoutThem) {
    expectSameThroughObjects(
        "a bar of the user's with one button",
        [](TestHost& test) {
            test.application.bars.addExisting("Standard");
            const auto bar = test.application.bars.addExisting("Huebrush");
            bar->buttons.push_back(std::make_shared<memory::MemoryButton>(*bar, "Kept"));
            bar->buttons.back()->tag = "SellLine";
        },
        clickBoth);
    expectSameThroughObjects(
        "a place that is not complete",
        [](TestHost& test) {
            test.runtime.settings[{"Huebrush", "ToolBarPosition", "Position"}] = "2";
        },
        clickBoth);
    expectSameThroughObjects(
        "a bar that is gone", [](TestHost&) {},
        [](TestHost& test, ConnectW2000&) { test.application.bars.bars.clear(); });
    expectSameThroughObjects(
        "buttons that are gone",
        [](TestHost& test) { test.application.bars.addExisting("Huebrush"); },
        [](TestHost& test, ConnectW2000&) { barOf(test)->buttons.clear(); });
}

TEST(AddInThroughObjectsTest, SelectionsAreServedAsWithoutThem) {
    const auto nothing = [](TestHost& test) { test.document->select({}); };
    const auto several = [](TestHost& test) { test.document->selectAll(); };
    const auto hidden = [](TestHost& test) {
        for (const auto& shape : test.document->shapes) {
            shape->fill.Visible = host::MsoTriState::msoFalse;
            shape->lineVisible = host::MsoTriState::msoFalse;
        }
    };
    const auto noDocument = [](TestHost& test) { test.application.active = nullptr; };
    const auto groups = [](TestHost& test) {
        test.document->addGroup("Skupina", {test.document->shapes[1], test.document->shapes[2]});
    };
    expectSameThroughObjects("nothing selected", nothing, clickBoth);
    expectSameThroughObjects("several selected", several, clickBoth);
    expectSameThroughObjects("nothing visible", hidden, clickBoth);
    expectSameThroughObjects("no document", noDocument, clickBoth);
    expectSameThroughObjects("groups", groups, clickBoth);
}

/// Scans the whole picture, makes the first fill half transparent, and writes it.
void recolour(TestHost& test, ConnectW2000& connected) {
    test.document->selectAll();
    click(test, "ChangeFillWizard");
    const auto dialog = connected.dialog();
    memory::Driver user(*dialog);
    user.click(dialog->cmdAdd);
    ASSERT_EQ(dialog->Element.ubound(), 2);
    dialog->Element[1].FillObject().setDesTransparency(0.5F);
    user.click(dialog->chkSelAll);
    user.click(dialog->cmdDiscolour);
    EXPECT_EQ(test.document->find("Slunce")->fill.Transparency, 0.5F);
    EXPECT_EQ(test.document->find("Obloha")->fill.Transparency, 0.0F);
    EXPECT_EQ(test.document->find("Měsíc")->fill.Transparency, 0.5F);
}

TEST(AddInThroughObjectsTest, AScanAndARecolouringAreServedAsWithoutThem) {
    expectSameThroughObjects(
        "shapes", [](TestHost&) {}, recolour);
    expectSameThroughObjects(
        "a group of groups",
        [](TestHost& test) {
            const auto inner = test.document->addGroup(
                "Nebe", {test.document->shapes[0], test.document->shapes[1]});
            test.document->addGroup("Obrázek", {inner, test.document->shapes[0]});
        },
        recolour);
}

// Nothing is left behind.

TEST(AddInRoundsTest, AHundredConnectionsLeaveNothingBehind) {
    TestWord word;
    addPicture(word.test);
    for (int round = 0; round < 100; ++round) {
        ConnectW2000 connecting;
        connecting.OnConnection(*word.application);
        clickBoth(word.test, connecting);
        connecting.OnDisconnection();
        // What the application adapter itself holds.
        ASSERT_EQ(word.standIn.objects().objects(), 1U) << round;
        ASSERT_EQ(word.standIn.objects().listeners(), 0U) << round;
    }
    word.expectAllGivenBack();
}

/// Where a report says that the error has happened.
std::string sourceOf(const ShownBox& box) {
    const auto from = box.text.find('"') + 1;
    return box.text.substr(from, box.text.find('"', from) - from);
}

/// A connection, both commands, and a disconnection, with the number of calls behind each.
struct Session {
    explicit Session(std::size_t failAt) {
        addPicture(word.test);
        word.standIn.objects().failAt = failAt;
        const auto calls = [this] { ends.push_back(word.standIn.objects().calls); };
        addin.OnConnection(*word.application);
        calls();
        click(word.test, "SellFill");
        calls();
        word.test.document->select({word.test.document->shapes[0]});
        click(word.test, "SellLine");
        calls();
        addin.OnDisconnection();
        calls();
    }

    TestWord word;
    ConnectW2000 addin;
    std::vector<std::size_t> ends;
};

/// The report that a failure of the call with this number leads to: its source and style, or none.
std::pair<std::string, std::int32_t> expectedReport(std::size_t failing, const Calls& log,
                                                    const std::vector<std::size_t>& ends) {
    const std::string& call = log.at(failing - 1);
    if (failing <= 2) return {"Huebrush.Connect2000.OnConnection", 16};
    if (failing <= ends[0]) {
        if (call == "Application.NormalTemplate" || call == "Template.Save") return {};
        // Before the first face is painted the user is not asked.
        constexpr std::size_t kFirstFaceStep = 8;
        return {"Huebrush.Connect2000.CreateToolbar", failing < kFirstFaceStep ? 16 : 50};
    }
    if (failing <= ends[1]) {
        // Fills that cannot be compared are not the same, and that is all.
        const auto walk = std::find(log.begin() + static_cast<std::ptrdiff_t>(ends[0]), log.end(),
                                    "Shapes._NewEnum");
        const bool compares = failing > static_cast<std::size_t>(walk - log.begin()) &&
                              (call == "Shape.Fill" || call.starts_with("FillFormat.") ||
                               call.starts_with("ColorFormat."));
        if (compares) return {};
        return {"Huebrush.mToolbarFunction.VseDleTypuVyplne", 16};
    }
    if (failing <= ends[2]) return {"Huebrush.mToolbarFunction.VseDleBarvyCary", 16};
    return {};
}

TEST(AddInFailuresTest, WhicheverCallFailsItIsReportedAndNothingIsLeftBehind) {
    Session whole(0);
    const Calls log = whole.word.calls();
    whole.word.expectAllGivenBack();
    ASSERT_GT(log.size(), 100U);
    EXPECT_TRUE(whole.word.test.runtime.boxes.empty());
    for (std::size_t failing = 1; failing <= log.size(); ++failing) {
        SCOPED_TRACE(text("call ", failing, ": ", log[failing - 1]));
        Session session(failing);
        const auto& boxes = session.word.test.runtime.boxes;
        const auto [source, style] = expectedReport(failing, log, whole.ends);
        if (source.empty()) {
            EXPECT_TRUE(boxes.empty());
        } else {
            ASSERT_EQ(boxes.size(), 1U);
            EXPECT_EQ(boxes[0].title, "Chyba č. 4198");
            EXPECT_EQ(boxes[0].style, style);
            EXPECT_EQ(sourceOf(boxes[0]), source);
            EXPECT_TRUE(boxes[0].text.ends_with("Příkaz selhal."));
        }
        EXPECT_TRUE(session.word.test.unhandled.empty());
        session.word.expectAllGivenBack();
    }
}

TEST(AddInFailuresTest, TheHostMayDisconnectWhileTheReportIsOpen) {
    const std::size_t calls = connectionCalls().size();
    for (std::size_t failing = 3; failing <= calls; ++failing) {
        SCOPED_TRACE(failing);
        TestWord word;
        ConnectW2000 connecting;
        word.standIn.objects().failAt = failing;
        word.test.runtime.onBox = [&] { connecting.OnDisconnection(); };
        connecting.OnConnection(*word.application);
        connecting.OnDisconnection();
        EXPECT_LE(word.test.runtime.boxes.size(), 1U);
        EXPECT_TRUE(word.test.unhandled.empty());
        const auto bar = barOf(word.test);
        EXPECT_TRUE(bar == nullptr || bar->buttons.empty());
        word.expectAllGivenBack();
    }
}

TEST(AddInWord97Test, ButtonsWithoutEventsDoNotEndTheConnection) {
    TestWord word(Age::word97);
    ConnectW2000 connecting;
    connecting.OnConnection(*word.application);
    EXPECT_EQ(word.calls(), connectionCalls());
    EXPECT_TRUE(word.test.runtime.boxes.empty());
    connecting.OnDisconnection();
    word.expectAllGivenBack();
}

}  // namespace
}  // namespace huebrush::word
