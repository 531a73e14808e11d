// SPDX-License-Identifier: MPL-2.0

#include "addin/ConnectW2000.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "base/Text.h"
#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"

namespace huebrush::addin {
namespace {

using base::text;
using forms::MsgBoxResult;
using memory::MemoryBar;
using memory::MemoryButton;
using memory::ShownBox;
using Calls = std::vector<std::string>;

void append(Calls& calls, const Calls& more) {
    calls.insert(calls.end(), more.begin(), more.end());
}

/// The calls of the face routine on a button.
Calls faceCalls(const std::string& button, int icon) {
    return {"call " + button + ".CopyFace",
            "write Clipboard",
            "read Clipboard",
            text("read Icon ", icon),
            "call DoEvents",
            "call Clipboard.Clear",
            "write Clipboard",
            "call " + button + ".PasteFace",
            "read Clipboard"};
}

struct Button {
    const char* tag;
    const char* caption;
    const char* tooltip;
    int icon;
};
constexpr Button kSellFill{
    "SellFill", "Dle výplne",
    "Vybere všechny ostatní grafické objekty se shodným typem výplně jako je "
    "právě zvolený objekt",
    101};
constexpr Button kSellLine{"SellLine", "Dle čáry",
                           "Vybere všechny ostatní grafické objekty se shodnou barvou čáry jako je "
                           "právě zvolený objekt",
                           102};
constexpr Button kChangeFillWizard{"ChangeFillWizard", "Změnit výplně",
                                   "Zobrazí dialog hromadné záměny výplně grafických objektů", 103};

/// The calls that look a button up and make it.
Calls buttonCalls(const std::string& id, const Button& button) {
    Calls calls{text("read Bar.FindControl ", button.tag), "call Bar.Controls.Add",
                text("write ", id, ".Tag ", button.tag),
                text("write ", id, ".Caption ", button.caption),
                text("write ", id, ".TooltipText ", button.tooltip)};
    append(calls, faceCalls(id, button.icon));
    return calls;
}

Calls primingCalls() {
    Calls calls{"call Bar.Controls.Add"};
    append(calls, faceCalls("Button1", 101));
    append(calls, {"call Button1.Delete"});
    return calls;
}

Calls allButtonCalls() {
    Calls calls = buttonCalls("Button2", kSellFill);
    append(calls, buttonCalls("Button3", kSellLine));
    append(calls, buttonCalls("Button4", kChangeFillWizard));
    return calls;
}

class ConnectTest : public ::testing::Test {
 protected:
    std::shared_ptr<MemoryBar> bar() { return test.application.bars.find("Huebrush"); }
    Calls tags() {
        Calls found;
        for (const auto& button : bar()->buttons) found.push_back(button->tag);
        return found;
    }
    std::shared_ptr<MemoryButton> button(const std::string& tag) {
        for (const auto& each : bar()->buttons) {
            if (each->tag == tag) return each;
        }
        return nullptr;
    }
    void connect() { addin.OnConnection(test.application); }
    void store(const std::string& key, const std::string& value) {
        test.runtime.settings[{"Huebrush", "ToolBarPosition", key}] = value;
    }
    /// A bar that the user keeps, with only the line button on it.
    std::shared_ptr<MemoryBar> addKeptBar() {
        auto kept = test.application.bars.addExisting("Huebrush");
        kept->buttons.push_back(std::make_shared<MemoryButton>(*kept, "Kept"));
        kept->buttons.back()->tag = "SellLine";
        kept->buttons.back()->caption = "Můj";
        return kept;
    }

    memory::TestHost test;
    ConnectW2000 addin;
};

// OnConnection.

TEST_F(ConnectTest, Version8RunsFullyWithoutAMessage) {
    test.application.version = "8.0";
    connect();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(tags(), (Calls{"SellFill", "SellLine", "ChangeFillWizard"}));
    EXPECT_TRUE(button("ChangeFillWizard")->enabled);
    EXPECT_EQ(addin.WApp(), &test.application);
}

TEST_F(ConnectTest, Version9RunsFullyWithoutAMessage) {
    connect();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_TRUE(button("ChangeFillWizard")->enabled);
}

TEST_F(ConnectTest, Version10WarnsAndDisablesTheFillButtonAlone) {
    test.application.version = "10.0";
    connect();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Doplněk očekává starší verzi aplikace MS Word. Některé funkce nebudou povoleny "
                   "či nebudou fungovat správně...\r\n\r\nTato verze dolňku byla optimalizována "
                   "pro MS Word 2000 a MS Word 97.\r\nPořiďte si novější verzi doplňku a proveďte "
                   "jeho instalaci.",
                   16, "Doplněk \"Huebrush\""}}));
    EXPECT_TRUE(button("SellFill")->enabled);
    EXPECT_TRUE(button("SellLine")->enabled);
    EXPECT_FALSE(button("ChangeFillWizard")->enabled);
}

TEST_F(ConnectTest, VersionsBetweenTheWholeOnesAreNewerThan9AndOlderThan8Too) {
    for (const char separator : {'.', ','}) {
        for (const auto& [version, isRefused, isWarnedOf] :
             {std::tuple("7.9", true, false), std::tuple("7.99", true, false),
              std::tuple("8.1", false, false), std::tuple("8.9", false, false),
              std::tuple("9.1", false, true), std::tuple("9.01", false, true)}) {
            SCOPED_TRACE(text(version, " under ", std::string(1, separator)));
            memory::TestHost host;
            host.application.version = version;
            host.runtime.separator = separator;
            ConnectW2000 connecting;
            connecting.OnConnection(host.application);
            EXPECT_EQ(connecting.WApp() == nullptr, isRefused);
            EXPECT_EQ(host.application.bars.bars.empty(), isRefused);
            EXPECT_EQ(host.runtime.boxes.size(), isRefused || isWarnedOf ? 1U : 0U);
            if (isRefused) continue;
            EXPECT_EQ(host.application.bars.bars[0]->buttons.at(2)->enabled, !isWarnedOf);
        }
    }
}

TEST_F(ConnectTest, AHostUpToTheVersionThatTheUserHasTriedRunsFully) {
    for (const char separator : {'.', ','}) {
        for (const auto& [tested, version, isWarnedOf] :
             {std::tuple("16.0", "16.0", false), std::tuple("16.0", "10.0", false),
              std::tuple("15.0", "16.0", true), std::tuple("8.0", "9.0", false),
              std::tuple("", "10.0", true), std::tuple("Word", "10.0", true)}) {
            SCOPED_TRACE(text(tested, ", ", version, " under ", std::string(1, separator)));
            memory::TestHost host;
            host.application.version = version;
            host.runtime.separator = separator;
            host.runtime.settings[{"Huebrush", "Host", "TestedVersion"}] = tested;
            ConnectW2000 connecting;
            connecting.OnConnection(host.application);
            EXPECT_EQ(host.runtime.boxes.size(), isWarnedOf ? 1U : 0U);
            ASSERT_EQ(host.application.bars.bars.size(), 1U);
            EXPECT_EQ(host.application.bars.bars[0]->buttons.at(2)->enabled, !isWarnedOf);
        }
    }
}

TEST_F(ConnectTest, TheSelectionButtonsOfANewerHostWork) {
    test.application.version = "10.0";
    connect();
    test.document->addSolid("A", 1);
    test.document->selectAll();
    button("SellFill")->Execute();
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodným typem výplně!");
}

TEST_F(ConnectTest, Version7IsRefusedAndGetsNoBar) {
    test.application.version = "7.0";
    test.startLog();
    connect();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Doplněk nemůže být zaveden...\r\n\r\nTato verze dolňku byla optimalizována pro "
                   "MS Word 2000 a MS Word 97.\r\nNainstalujte si novější verzi aplikace MS Word.",
                   16, "Doplněk \"Huebrush\""}}));
    EXPECT_EQ(bar(), nullptr);
    EXPECT_EQ(addin.WApp(), nullptr);
    EXPECT_EQ(test.calls(), (Calls{"read Application.Name", "read DecimalSeparator",
                                   "read Application.Version"}));
}

TEST_F(ConnectTest, UnderADecimalCommaVersion9IsNeither90NorAnError) {
    test.runtime.separator = ',';
    connect();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_TRUE(button("ChangeFillWizard")->enabled);
}

TEST_F(ConnectTest, UnderADecimalCommaNewerAndOlderVersionsAreToldApartToo) {
    test.runtime.separator = ',';
    test.application.version = "10.0";
    connect();
    EXPECT_FALSE(button("ChangeFillWizard")->enabled);
    test.application.version = "7.5";
    ConnectW2000 other;
    other.OnConnection(test.application);
    EXPECT_EQ(other.WApp(), nullptr);
}

TEST_F(ConnectTest, AnotherHostIsLeftAloneWithoutAMessage) {
    test.application.name = "Microsoft Word 2000";
    test.startLog();
    connect();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(test.calls(), Calls{"read Application.Name"});
}

TEST_F(ConnectTest, AVersionThatIsNoNumberIsReportedUnderItsOwnSource) {
    test.application.version = "beta";
    connect();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].style, 16);
    EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 13");
    EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
        "Chyba v modulu \"Huebrush.Connect2000.OnConnection\"...\r\n\r\nChyba při navázání "
        "spojení...\r\n\r\n"));
    EXPECT_EQ(addin.WApp(), nullptr);
}

TEST_F(ConnectTest, AnErrorOfTheHostsNameOrVersionIsReportedAndEndsTheConnection) {
    for (const char* call : {"read Application.Name", "read Application.Version"}) {
        test.runtime.boxes.clear();
        test.log().failAt(call, base::Error(7, "popis"));
        connect();
        test.log().failNoMore();
        EXPECT_EQ(test.runtime.boxes.size(), 1U) << call;
        EXPECT_EQ(bar(), nullptr);
    }
}

TEST_F(ConnectTest, OnANewerHostWithoutAFillButtonTheErrorIsReported) {
    test.application.version = "10.0";
    test.log().failAt("call CommandBars.Add", base::Error(7, "popis"));
    connect();
    ASSERT_EQ(test.runtime.boxes.size(), 3U);
    EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 7");
    EXPECT_EQ(test.runtime.boxes[1].title, "Doplněk \"Huebrush\"");
    EXPECT_EQ(test.runtime.boxes[2].title, "Chyba č. 91");
}

// CreateToolbar.

TEST_F(ConnectTest, TheFirstStartMakesBarAndButtonsInThisOrder) {
    test.startLog();
    connect();
    Calls expected{"read Application.Name",         "read DecimalSeparator",
                   "read Application.Version",      "read CommandBars.Count",
                   "call CommandBars.Add Huebrush", "write Bar.Visible -1"};
    append(expected, primingCalls());
    append(expected, allButtonCalls());
    append(expected, {"read Setting ToolBarPosition/Position", "call NormalTemplate.Save"});
    EXPECT_EQ(test.calls(), expected);
    EXPECT_TRUE(bar()->visible);
}

TEST_F(ConnectTest, TheFirstStartRestoresNoPlace) {
    test.startLog();
    connect();
    EXPECT_EQ(test.log().beginningWith("write Bar."), Calls{"write Bar.Visible -1"});
}

TEST_F(ConnectTest, ButtonsHaveTheirTextsAndIcons) {
    connect();
    for (const Button& design : {kSellFill, kSellLine, kChangeFillWizard}) {
        const auto made = button(design.tag);
        ASSERT_NE(made, nullptr) << design.tag;
        EXPECT_EQ(made->caption, design.caption);
        EXPECT_EQ(made->tooltip, design.tooltip);
        EXPECT_EQ(made->face, test.runtime.Component().icon(design.icon));
    }
}

TEST_F(ConnectTest, ABarThatIsThereWithOneButtonGetsTheOtherTwoBehindIt) {
    const auto kept = addKeptBar();
    const base::Picture ownFace = kept->buttons[0]->face;
    test.startLog();
    connect();
    EXPECT_EQ(tags(), (Calls{"SellLine", "SellFill", "ChangeFillWizard"}));
    EXPECT_EQ(kept->buttons[0]->caption, "Můj");
    EXPECT_EQ(kept->buttons[0]->face, ownFace);
    EXPECT_TRUE(test.log().beginningWith("call CommandBars.Add").empty());
    EXPECT_TRUE(test.log().beginningWith("write Bar.Visible").empty());
    EXPECT_EQ(test.log().beginningWith("call NormalTemplate.Save").size(), 1U);
}

TEST_F(ConnectTest, ABarIsFoundByItsExactNameAmongOthers) {
    test.application.bars.addExisting("huebrush");
    test.application.bars.addExisting("Standard");
    const auto kept = test.application.bars.addExisting("Huebrush");
    connect();
    EXPECT_EQ(kept->buttons.size(), 3U);
    EXPECT_EQ(test.application.bars.bars.size(), 3U);
}

TEST_F(ConnectTest, OfTwoBarsOfItsNameTheFirstIsTaken) {
    const auto first = test.application.bars.addExisting("Huebrush");
    const auto second = test.application.bars.addExisting("Huebrush");
    connect();
    EXPECT_EQ(first->buttons.size(), 3U);
    EXPECT_TRUE(second->buttons.empty());
    addin.OnDisconnection();
    EXPECT_EQ(test.application.bars.bars.size(), 2U);
    EXPECT_TRUE(first->buttons.empty());
}

TEST_F(ConnectTest, ThePrimingPassRunsEvenWhenNothingElseIsToDo) {
    connect();
    ConnectW2000 second;
    test.startLog();
    second.OnConnection(test.application);
    EXPECT_EQ(test.log().beginningWith("call Bar.Controls.Add").size(), 1U);
    EXPECT_EQ(test.log().beginningWith("call Button5.Delete").size(), 1U);
    EXPECT_EQ(test.log().beginningWith("read Icon 101").size(), 1U);
    EXPECT_TRUE(test.log().beginningWith("call NormalTemplate.Save").empty());
    EXPECT_EQ(tags(), (Calls{"SellFill", "SellLine", "ChangeFillWizard"}));
}

TEST_F(ConnectTest, TheClipboardHoldsTheLastFaceAfterwards) {
    connect();
    EXPECT_EQ(test.runtime.clipboard, test.runtime.Component().icon(103));
}

TEST_F(ConnectTest, AStoredPlaceIsRestoredInItsOrder) {
    store("Position", "1");
    store("Left", "100");
    store("Top", "200");
    store("RowIndex", "3");
    test.startLog();
    connect();
    EXPECT_EQ(test.log().beginningWith("write Bar."),
              (Calls{"write Bar.Visible -1", "write Bar.Position 1", "write Bar.Left 100",
                     "write Bar.Top 200", "write Bar.RowIndex 3"}));
}

TEST_F(ConnectTest, AStoredPositionOfMinusOneRestoresNothingEvenWithTheOtherKeys) {
    store("Position", "-1");
    store("Left", "100");
    store("Top", "200");
    store("RowIndex", "3");
    test.startLog();
    connect();
    EXPECT_EQ(test.log().beginningWith("write Bar."), Calls{"write Bar.Visible -1"});
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ConnectTest, AMissingKeyOfThePlaceIsReportedAndTheBarKeepsWhatItHasReached) {
    store("Position", "4");
    store("Left", "100");
    store("RowIndex", "3");
    connect();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].style, 50);
    EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 13");
    EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
        "Chyba v modulu \"Huebrush.Connect2000.CreateToolbar\" na řádku č.116...\r\n\r\nPři "
        "vytváření nástrojového panelu došlo k chybě.\r\n\r\n"));
    EXPECT_EQ(bar()->position, 4);
    EXPECT_EQ(bar()->left, 100);
    EXPECT_EQ(bar()->rowIndex, 0);
}

TEST_F(ConnectTest, IgnoringAKeyThatIsNoNumberGoesOnWithTheNextOne) {
    store("Position", "4");
    store("Left", "vlevo");
    store("Top", "200");
    store("RowIndex", "3");
    test.runtime.answers = {MsgBoxResult::ignore};
    connect();
    EXPECT_EQ(bar()->left, 0);
    EXPECT_EQ(bar()->top, 200);
    EXPECT_EQ(bar()->rowIndex, 3);
}

TEST_F(ConnectTest, AFailingSaveOfTheTemplateIsIgnored) {
    test.log().failAt("call NormalTemplate.Save", base::Error(7, "popis"));
    connect();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(bar()->buttons.size(), 3U);
}

/// A connection in which every setting of the place is stored, with one call failing once.
class FailingToolbarTest : public ::testing::Test {
 protected:
    struct Outcome {
        Calls calls;
        std::vector<ShownBox> boxes;
        Calls tags;
        std::size_t barCount = 0;
    };

    /// Fails the nth call of CreateToolbar; 0 for none. The user answers every question the same.
    static Outcome run(std::size_t failing, MsgBoxResult answer) {
        memory::TestHost test;
        for (const char* key : {"Position", "Left", "Top", "RowIndex"}) {
            test.runtime.settings[{"Huebrush", "ToolBarPosition", key}] = "2";
        }
        test.application.bars.addExisting("Standard");
        test.runtime.answers.assign(50, answer);
        test.application.log.on = true;
        if (failing > 0) test.log().failAt("", base::Error(7, "popis"), kBefore + failing, 1);
        ConnectW2000 addin;
        addin.OnConnection(test.application);
        Outcome outcome{{test.calls().begin() + kBefore, test.calls().end()},
                        test.runtime.boxes,
                        {},
                        test.application.bars.bars.size()};
        if (const auto bar = test.application.bars.find("Huebrush")) {
            for (const auto& button : bar->buttons) outcome.tags.push_back(button->tag);
        }
        return outcome;
    }
    /// Name, decimal separator and version are read before.
    static constexpr std::size_t kBefore = 3;
    /// The bar is found or made before anything is asked.
    static bool isEarly(const std::string& call) {
        return call.find("CommandBars") != std::string::npos || call == "write Bar.Visible -1" ||
               call == "read Bar.Name";
    }
    static bool isSave(const std::string& call) { return call == "call NormalTemplate.Save"; }
};

TEST_F(FailingToolbarTest, AnEarlyErrorAsksNothingAndEndsTheProcedure) {
    const Calls calls = run(0, MsgBoxResult::ok).calls;
    std::size_t early = 0;
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        if (!isEarly(calls[n - 1])) continue;
        ++early;
        const Outcome outcome = run(n, MsgBoxResult::ignore);
        ASSERT_EQ(outcome.boxes.size(), 1U) << calls[n - 1];
        EXPECT_EQ(outcome.boxes[0].style, 16) << calls[n - 1];
        EXPECT_EQ(outcome.calls.size(), n) << calls[n - 1];
    }
    EXPECT_EQ(early, 5U);
}

TEST_F(FailingToolbarTest, ALaterErrorAsks) {
    const Calls calls = run(0, MsgBoxResult::ok).calls;
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        if (isEarly(calls[n - 1]) || isSave(calls[n - 1])) continue;
        const Outcome outcome = run(n, MsgBoxResult::abort);
        ASSERT_FALSE(outcome.boxes.empty()) << calls[n - 1];
        EXPECT_EQ(outcome.boxes[0].style, 50) << calls[n - 1];
        EXPECT_TRUE(outcome.boxes[0].text.starts_with(
            "Chyba v modulu \"Huebrush.Connect2000.CreateToolbar\" na řádku č."))
            << calls[n - 1];
        EXPECT_TRUE(outcome.boxes[0].text.ends_with(
            "...\r\n\r\nPři vytváření nástrojového panelu došlo k chybě.\r\n\r\nSystémový popis "
            "výjimky:\r\npopis"))
            << calls[n - 1];
    }
}

TEST_F(FailingToolbarTest, EachReportNamesTheLineOfItsStep) {
    const Calls calls = run(0, MsgBoxResult::ok).calls;
    std::vector<int> lines;
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        if (isSave(calls[n - 1])) continue;
        const Outcome outcome = run(n, MsgBoxResult::abort);
        const std::string& shown = outcome.boxes.at(0).text;
        const auto at = shown.find("č.");
        ASSERT_NE(at, std::string::npos) << shown;
        const int line = std::stoi(shown.substr(at + std::string("č.").size()));
        if (lines.empty() || lines.back() != line) lines.push_back(line);
    }
    EXPECT_EQ(lines, (std::vector<int>{101, 102, 103, 104, 105, 106, 107, 108, 109, 110,
                                       111, 112, 107, 108, 109, 110, 111, 112, 107, 108,
                                       109, 110, 111, 112, 113, 114, 115, 116, 117}));
}

TEST_F(FailingToolbarTest, WhatAnEndedProcedureHasBuiltIsRemovedAtTheDisconnection) {
    for (const bool kept : {false, true}) {
        const std::size_t calls = run(0, MsgBoxResult::ok).calls.size();
        for (std::size_t n = 1; n <= calls; ++n) {
            SCOPED_TRACE(text(n, kept ? " on a bar that is there" : ""));
            memory::TestHost test;
            if (kept) test.application.bars.addExisting("Huebrush");
            test.application.log.on = true;
            test.log().failAt("", base::Error(7, "popis"), kBefore + n, 1);
            ConnectW2000 addin;
            addin.OnConnection(test.application);
            test.log().failNoMore();
            test.startLog();
            addin.OnDisconnection();
            const auto bar = test.application.bars.find("Huebrush");
            EXPECT_EQ(bar != nullptr, kept);
            if (bar) {
                EXPECT_TRUE(bar->buttons.empty());
            }
            EXPECT_EQ(test.calls().back(), "call NormalTemplate.Save");
            EXPECT_EQ(addin.WApp(), nullptr);
        }
    }
}

TEST_F(FailingToolbarTest, AButtonWhoseLaterStepWasAbortedRunsItsCommand) {
    for (const char* failing :
         {"write Button2.Tag", "write Button2.Caption", "write Button2.TooltipText",
          "call Button2.CopyFace", "call Button2.PasteFace"}) {
        memory::TestHost test;
        test.log().failAt(failing, base::Error(7, "popis"));
        ConnectW2000 addin;
        addin.OnConnection(test.application);
        ASSERT_EQ(test.runtime.boxes.size(), 1U) << failing;
        test.runtime.boxes.clear();
        test.application.bars.find("Huebrush")->buttons.at(0)->Execute();
        ASSERT_EQ(test.runtime.boxes.size(), 1U) << failing;
        EXPECT_EQ(test.runtime.boxes[0].title, "Nesprávný výběr");
    }
}

/// Ignore in the priming pass, whose button is the first one that is made.
class IgnoredPrimingTest : public FailingToolbarTest {
 protected:
    /// Connects to a bar that is there, with one call failing and every report answered by Ignore.
    void connect(const std::string& failing) {
        kept = test.application.bars.addExisting("Huebrush");
        test.runtime.answers.assign(5, MsgBoxResult::ignore);
        test.log().failAt(failing, base::Error(7, "popis"), 1, 1);
        addin.OnConnection(test.application);
        for (const auto& button : kept->buttons) tags.push_back(button->tag);
    }
    /// The errors reported, as the title's number and the line.
    Calls reports() {
        Calls found;
        for (const ShownBox& box : test.runtime.boxes) {
            const auto line = box.text.find("č.") + std::string("č.").size();
            found.push_back(text(box.title, " ", box.text.substr(line, 3)));
        }
        return found;
    }
    memory::TestHost test;
    ConnectW2000 addin;
    std::shared_ptr<MemoryBar> kept;
    Calls tags;
};

TEST_F(IgnoredPrimingTest, WithoutItsButtonNoFaceIsPaintedAndTheDeletionIsAnErrorOfItsOwn) {
    connect("call Bar.Controls.Add");
    EXPECT_EQ(reports(), (Calls{"Chyba č. 7 104", "Chyba č. 91 106"}));
    EXPECT_EQ(test.runtime.pumps, 3U);
    EXPECT_EQ(tags, (Calls{"SellFill", "SellLine", "ChangeFillWizard"}));
}

TEST_F(IgnoredPrimingTest, AButtonWithoutItsFaceIsDeletedAllTheSame) {
    connect("call Button1.PasteFace");
    EXPECT_EQ(reports(), Calls{"Chyba č. 7 105"});
    EXPECT_EQ(tags, (Calls{"SellFill", "SellLine", "ChangeFillWizard"}));
}

TEST_F(IgnoredPrimingTest, AButtonThatCannotBeDeletedStaysUntilTheDisconnection) {
    connect("call Button1.Delete");
    EXPECT_EQ(reports(), Calls{"Chyba č. 7 106"});
    EXPECT_EQ(tags, (Calls{"", "SellFill", "SellLine", "ChangeFillWizard"}));
    addin.OnDisconnection();
    EXPECT_TRUE(kept->buttons.empty());
}

TEST_F(FailingToolbarTest, AbortEndsTheProcedureWithWhatIsBuiltSoFar) {
    const Calls calls = run(0, MsgBoxResult::ok).calls;
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        if (isEarly(calls[n - 1]) || isSave(calls[n - 1])) continue;
        const Outcome outcome = run(n, MsgBoxResult::abort);
        EXPECT_EQ(outcome.boxes.size(), 1U) << calls[n - 1];
        EXPECT_EQ(outcome.calls.size(), n) << calls[n - 1];
        EXPECT_EQ(outcome.barCount, 2U) << calls[n - 1];
    }
}

TEST_F(FailingToolbarTest, RetryRunsTheFailingStepAgainAndTheResultIsTheUsualOne) {
    const Outcome usual = run(0, MsgBoxResult::ok);
    for (std::size_t n = 1; n <= usual.calls.size(); ++n) {
        if (isEarly(usual.calls[n - 1]) || isSave(usual.calls[n - 1])) continue;
        const Outcome outcome = run(n, MsgBoxResult::retry);
        EXPECT_EQ(outcome.boxes.size(), 1U) << usual.calls[n - 1];
        EXPECT_EQ(outcome.tags, usual.tags) << usual.calls[n - 1];
        // From the repeated step on, everything is as usual.
        ASSERT_GE(outcome.calls.size(), usual.calls.size() + 1) << usual.calls[n - 1];
        EXPECT_TRUE(std::equal(
            usual.calls.begin() + static_cast<std::ptrdiff_t>(n) - 1, usual.calls.end(),
            outcome.calls.end() - static_cast<std::ptrdiff_t>(usual.calls.size() - n + 1)))
            << usual.calls[n - 1];
    }
}

TEST_F(FailingToolbarTest, IgnoreGoesOnWithTheStepAfterAndComesToTheEnd) {
    const Outcome usual = run(0, MsgBoxResult::ok);
    for (std::size_t n = 1; n <= usual.calls.size(); ++n) {
        if (isEarly(usual.calls[n - 1]) || isSave(usual.calls[n - 1])) continue;
        const Outcome outcome = run(n, MsgBoxResult::ignore);
        EXPECT_FALSE(outcome.boxes.empty()) << usual.calls[n - 1];
        EXPECT_EQ(outcome.calls.back(), "call NormalTemplate.Save") << usual.calls[n - 1];
    }
}

TEST_F(FailingToolbarTest, WithoutTheNewButtonItsTextsAreErrorsOfTheirOwnAndItsFaceIsNot) {
    const Calls calls = run(0, MsgBoxResult::ok).calls;
    const auto find = std::find(calls.begin(), calls.end(), "read Bar.FindControl SellFill");
    const auto add = static_cast<std::size_t>(find - calls.begin()) + 2;
    ASSERT_EQ(calls[add - 1], "call Bar.Controls.Add");
    const Outcome outcome = run(add, MsgBoxResult::ignore);
    // The button itself, then tag, caption and tooltip of no button.
    ASSERT_EQ(outcome.boxes.size(), 4U);
    EXPECT_EQ(outcome.boxes[1].title, "Chyba č. 91");
    EXPECT_EQ(outcome.tags, (Calls{"SellLine", "ChangeFillWizard"}));
}

// The commands.

TEST_F(ConnectTest, EachButtonRunsItsCommand) {
    connect();
    test.document->addSolid("A", 1);
    test.document->selectAll();
    button("SellFill")->Execute();
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodným typem výplně!");
    button("SellLine")->Execute();
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodnou barvou čáry!");
    EXPECT_EQ(addin.dialog(), nullptr);
    button("ChangeFillWizard")->Execute();
    EXPECT_NE(addin.dialog(), nullptr);
    EXPECT_EQ(test.runtime.windowCalls, (Calls{"raise frmEditGraphic", "show frmEditGraphic"}));
}

TEST_F(ConnectTest, AButtonThatWasFoundRunsItsCommandToo) {
    const auto kept = addKeptBar();
    connect();
    kept->buttons[0]->Execute();
    EXPECT_EQ(test.runtime.boxes.at(0).title, "Nesprávný výběr");
}

TEST_F(ConnectTest, TheFillButtonShowsTheOpenDialogAgainAndMakesANewOneAfterItsClose) {
    connect();
    button("ChangeFillWizard")->Execute();
    const auto first = addin.dialog();
    button("ChangeFillWizard")->Execute();
    EXPECT_EQ(addin.dialog(), first);
    memory::Driver(*first).click(first->cmdClose);
    EXPECT_EQ(addin.dialog(), nullptr);
    button("ChangeFillWizard")->Execute();
    ASSERT_NE(addin.dialog(), nullptr);
    EXPECT_NE(addin.dialog(), first);
}

TEST_F(ConnectTest, TheLogoOfTheDialogOpensTheAboutBoxAboveIt) {
    connect();
    button("ChangeFillWizard")->Execute();
    const memory::Driver user(*addin.dialog());
    bool wasOpen = false;
    test.runtime.onModal = [&](forms::Form& form) {
        wasOpen = addin.about().get() == &form;
        memory::Driver(form).click("cmdOK");
    };
    user.click(addin.dialog()->imgQXLogo);
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(addin.about(), nullptr);
    EXPECT_EQ(test.runtime.windowCalls,
              (Calls{"raise frmEditGraphic", "show frmEditGraphic", "raise frmAbout",
                     "show frmAbout modal", "close frmAbout"}));
}

TEST_F(ConnectTest, TheHostMayDisconnectWhileTheAboutBoxIsOpen) {
    connect();
    button("ChangeFillWizard")->Execute();
    test.runtime.onModal = [&](forms::Form&) { addin.OnDisconnection(); };
    const std::weak_ptr<recolor::frmEditGraphic> dialog = addin.dialog();
    memory::Driver(*dialog.lock()).click(dialog.lock()->imgQXLogo);
    EXPECT_EQ(addin.about(), nullptr);
    EXPECT_TRUE(dialog.expired());
    EXPECT_EQ(test.runtime.windowCalls.back(), "close frmEditGraphic");
    EXPECT_TRUE(test.unhandled.empty());
}

TEST_F(ConnectTest, ConnectingTwiceRunsACommandOncePerClick) {
    connect();
    connect();
    button("SellFill")->Execute();
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
}

// OnDisconnection.

TEST_F(ConnectTest, DisconnectionSavesThePlaceDeletesTheBarAndSavesTheTemplateInThisOrder) {
    connect();
    bar()->position = 4;
    bar()->left = -10;
    bar()->top = 20;
    bar()->rowIndex = 2;
    test.startLog();
    addin.OnDisconnection();
    EXPECT_EQ(test.calls(), (Calls{"read Bar.Position", "write Setting ToolBarPosition/Position 4",
                                   "read Bar.Left", "write Setting ToolBarPosition/Left -10",
                                   "read Bar.Top", "write Setting ToolBarPosition/Top 20",
                                   "read Bar.RowIndex", "write Setting ToolBarPosition/RowIndex 2",
                                   "call Bar.Delete", "call NormalTemplate.Save"}));
    EXPECT_EQ(bar(), nullptr);
    EXPECT_EQ(addin.WApp(), nullptr);
    EXPECT_EQ((test.runtime.settings[{"Huebrush", "ToolBarPosition", "Left"}]), "-10");
}

TEST_F(ConnectTest, OfABarThatWasThereOnlyTheThreeButtonsAreDeleted) {
    const auto kept = addKeptBar();
    connect();
    test.startLog();
    addin.OnDisconnection();
    EXPECT_EQ(bar(), kept);
    EXPECT_TRUE(kept->buttons.empty());
    EXPECT_EQ(test.log().beginningWith("call"),
              (Calls{"call Button2.Delete", "call Kept.Delete", "call Button3.Delete",
                     "call NormalTemplate.Save"}));
}

TEST_F(ConnectTest, AButtonThatTheUserHasRemovedIsSkipped) {
    const auto kept = addKeptBar();
    connect();
    kept->buttons.erase(kept->buttons.begin());
    addin.OnDisconnection();
    EXPECT_TRUE(kept->buttons.empty());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ConnectTest, EachOperationOfTheDisconnectionStandsAlone) {
    for (const bool kept : {false, true}) {
        Calls usual;
        for (std::size_t failing = 0; failing <= usual.size(); ++failing) {
            memory::TestHost host;
            if (kept) host.application.bars.addExisting("Huebrush");
            ConnectW2000 connected;
            connected.OnConnection(host.application);
            host.startLog();
            if (failing > 0) host.log().failAt("", base::Error(7, "popis"), failing, 1);
            connected.OnDisconnection();
            if (failing == 0) {
                usual = host.calls();
                continue;
            }
            EXPECT_TRUE(host.runtime.boxes.empty()) << usual[failing - 1];
            EXPECT_EQ(connected.WApp(), nullptr);
            Calls expected = usual;
            expected[failing - 1] += " failed";
            // Without its value, a key is not written.
            if (expected[failing - 1].starts_with("read Bar.")) {
                expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(failing));
            }
            EXPECT_EQ(host.calls(), expected);
        }
    }
}

TEST_F(ConnectTest, ABarThatTheUserMadeBetweenTwoConnectionsStaysAtTheSecondDisconnection) {
    connect();
    addin.OnDisconnection();
    const auto kept = addKeptBar();
    connect();
    addin.OnDisconnection();
    EXPECT_EQ(bar(), kept);
    EXPECT_TRUE(kept->buttons.empty());
}

TEST_F(ConnectTest, ABarThatWasMadeByTheSecondOfTwoConnectionsIsDeleted) {
    const auto kept = addKeptBar();
    connect();
    addin.OnDisconnection();
    kept->Delete();
    connect();
    addin.OnDisconnection();
    EXPECT_EQ(bar(), nullptr);
}

TEST_F(ConnectTest, UnconnectedTheDisconnectionWritesNothing) {
    test.startLog();
    addin.OnDisconnection();
    EXPECT_TRUE(test.calls().empty());
    test.application.version = "7.0";
    connect();
    test.startLog();
    addin.OnDisconnection();
    EXPECT_TRUE(test.calls().empty());
}

TEST_F(ConnectTest, TheSecondDisconnectionWritesNothing) {
    connect();
    addin.OnDisconnection();
    test.startLog();
    addin.OnDisconnection();
    EXPECT_TRUE(test.calls().empty());
}

TEST_F(ConnectTest, DisconnectionClosesAnOpenDialogFirst) {
    connect();
    button("ChangeFillWizard")->Execute();
    test.startLog();
    addin.OnDisconnection();
    EXPECT_EQ(addin.dialog(), nullptr);
    EXPECT_EQ(test.calls().front(), "call frmEditGraphic.Close");
}

TEST_F(ConnectTest, AWindowThatCannotBeClosedDoesNotStopTheDisconnection) {
    connect();
    button("ChangeFillWizard")->Execute();
    test.log().failAt("call frmEditGraphic.Close", base::Error(7, "popis"));
    addin.OnDisconnection();
    EXPECT_EQ(bar(), nullptr);
    EXPECT_EQ(addin.WApp(), nullptr);
    EXPECT_EQ(addin.dialog(), nullptr);
}

TEST_F(ConnectTest, AfterAWindowThatCouldNotBeClosedTheFillButtonMakesANewDialog) {
    connect();
    button("ChangeFillWizard")->Execute();
    test.log().failAt("call frmEditGraphic.Close", base::Error(7, "popis"), 1, 1);
    memory::Driver(*addin.dialog()).close();
    EXPECT_EQ(addin.dialog(), nullptr);
    EXPECT_EQ(test.unhandled.size(), 1U);
    button("ChangeFillWizard")->Execute();
    ASSERT_NE(addin.dialog(), nullptr);
    EXPECT_FALSE(addin.dialog()->isUnloaded());
}

TEST_F(ConnectTest, ThePlaceSurvivesToTheNextConnection) {
    connect();
    bar()->position = 2;
    bar()->left = 50;
    addin.OnDisconnection();
    connect();
    EXPECT_EQ(bar()->position, 2);
    EXPECT_EQ(bar()->left, 50);
    EXPECT_EQ(bar()->buttons.size(), 3U);
}

TEST_F(ConnectTest, AfterTheDisconnectionAClickOnAButtonThatIsStillHeldDoesNothing) {
    connect();
    const auto held = button("SellFill");
    addin.OnDisconnection();
    held->Execute();
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ConnectTest, AnEntryObjectThatEndsWithoutDisconnectionLeavesNoHandlerBehind) {
    auto ending = std::make_unique<ConnectW2000>();
    ending->OnConnection(test.application);
    button("ChangeFillWizard")->Execute();
    ending.reset();
    button("SellFill")->Execute();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_EQ(test.runtime.windowCalls.back(), "close frmEditGraphic");
}

/// The host disconnects while the bar is made.
class DisconnectedToolbarTest : public ::testing::Test {
 protected:
    static constexpr std::size_t kPumps = 4;

    /// Every pump of the creation, of a bar that is made and of one that is there.
    static void inEachPump(
        const std::function<void(memory::TestHost&, ConnectW2000&)>& happening,
        const std::function<void(memory::TestHost&, ConnectW2000&,
                                 const std::shared_ptr<MemoryBar>& kept)>& check) {
        for (const bool isKept : {false, true}) {
            for (std::size_t at = 1; at <= kPumps; ++at) {
                SCOPED_TRACE(text("pump ", at, isKept ? " on a bar that is there" : ""));
                memory::TestHost host;
                ConnectW2000 connecting;
                const auto kept = isKept ? host.application.bars.addExisting("Huebrush") : nullptr;
                host.application.version = "10.0";
                host.runtime.onPump = [&](std::size_t pump) {
                    if (pump == at) happening(host, connecting);
                };
                connecting.OnConnection(host.application);
                host.runtime.onPump = nullptr;
                check(host, connecting, kept);
            }
        }
    }
};

TEST_F(DisconnectedToolbarTest, InAPumpItEndsTheCreationWithNothingLeftAndNothingSaid) {
    std::vector<std::shared_ptr<MemoryButton>> held;
    inEachPump(
        [&](memory::TestHost& host, ConnectW2000& connecting) {
            held = host.application.bars.find("Huebrush")->buttons;
            host.startLog();
            connecting.OnDisconnection();
        },
        [&](memory::TestHost& host, ConnectW2000& connecting,
            const std::shared_ptr<MemoryBar>& kept) {
            EXPECT_EQ(connecting.WApp(), nullptr);
            EXPECT_EQ(host.application.bars.find("Huebrush"), kept);
            if (kept) {
                EXPECT_TRUE(kept->buttons.empty());
            }
            EXPECT_TRUE(host.runtime.boxes.empty()) << "not even the newer host's";
            EXPECT_TRUE(host.log().beginningWith("call Bar.Controls.Add").empty());
            EXPECT_EQ(host.log().beginningWith("call NormalTemplate.Save").size(), 1U);
            // The user clicks on what still shows.
            ASSERT_FALSE(held.empty());
            for (const auto& button : held) button->Execute();
            EXPECT_TRUE(host.runtime.boxes.empty());
        });
}

TEST_F(DisconnectedToolbarTest, AFaceThatFailsAfterItIsNotReported) {
    inEachPump(
        [](memory::TestHost& host, ConnectW2000& connecting) {
            connecting.OnDisconnection();
            host.log().failAt("call Button", base::Error(7, "popis"));
        },
        [](memory::TestHost& host, ConnectW2000&, const std::shared_ptr<MemoryBar>&) {
            EXPECT_TRUE(host.runtime.boxes.empty());
        });
}

TEST_F(DisconnectedToolbarTest, AConnectionAnewInThePumpIsTheOneThatCounts) {
    inEachPump(
        [](memory::TestHost& host, ConnectW2000& connecting) {
            connecting.OnDisconnection();
            host.application.version = "9.0";
            connecting.OnConnection(host.application);
        },
        [](memory::TestHost& host, ConnectW2000& connecting,
           const std::shared_ptr<MemoryBar>& kept) {
            const auto bar = host.application.bars.find("Huebrush");
            ASSERT_NE(bar, nullptr);
            ASSERT_EQ(bar->buttons.size(), 3U);
            EXPECT_TRUE(bar->buttons[2]->enabled);
            EXPECT_TRUE(host.runtime.boxes.empty());
            bar->buttons[0]->Execute();
            EXPECT_EQ(host.runtime.boxes.size(), 1U);
            connecting.OnDisconnection();
            EXPECT_EQ(host.application.bars.find("Huebrush"), kept);
            if (kept) {
                EXPECT_TRUE(kept->buttons.empty());
            }
        });
}

TEST_F(DisconnectedToolbarTest, UnderAReportItEndsTheCreationWhateverTheAnswer) {
    for (const auto answer : {MsgBoxResult::abort, MsgBoxResult::retry, MsgBoxResult::ignore}) {
        memory::TestHost host;
        ConnectW2000 connecting;
        host.runtime.answers.assign(5, answer);
        host.runtime.onBox = [&] { connecting.OnDisconnection(); };
        host.log().failAt("write Button2.Caption", base::Error(7, "popis"), 1, 1);
        connecting.OnConnection(host.application);
        EXPECT_EQ(host.runtime.boxes.size(), 1U);
        EXPECT_EQ(connecting.WApp(), nullptr);
        EXPECT_TRUE(host.application.bars.bars.empty());
    }
}

TEST_F(DisconnectedToolbarTest, UnderTheWarningOfANewerHostItDisablesNothingAndReportsNothing) {
    memory::TestHost host;
    ConnectW2000 connecting;
    host.application.version = "10.0";
    host.runtime.onBox = [&] { connecting.OnDisconnection(); };
    connecting.OnConnection(host.application);
    EXPECT_EQ(host.runtime.boxes.size(), 1U);
    EXPECT_EQ(connecting.WApp(), nullptr);
    EXPECT_TRUE(host.application.bars.bars.empty());
}

TEST_F(ConnectTest, TheHostMayDisconnectInThePumpOfASelectionCommand) {
    for (const char* tag : {"SellFill", "SellLine"}) {
        memory::TestHost host;
        ConnectW2000 connected;
        connected.OnConnection(host.application);
        host.document->addSolid("A", 1);
        host.document->addSolid("B", 1);
        host.document->select({host.document->find("A")});
        host.runtime.onPump = [&](std::size_t) { connected.OnDisconnection(); };
        const auto clicked = host.application.bars.find("Huebrush")->FindControl(tag);
        clicked->Execute();
        EXPECT_EQ(connected.WApp(), nullptr);
        EXPECT_EQ(host.document->selected.size(), 2U) << "the command comes to its end";
        EXPECT_TRUE(host.runtime.boxes.empty());
    }
}

TEST_F(ConnectTest, TheHostMayDisconnectWhileACommandShowsItsBox) {
    connect();
    test.runtime.onBox = [this] { addin.OnDisconnection(); };
    const std::weak_ptr<MemoryButton> clicked = button("SellFill");
    clicked.lock()->Execute();
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_TRUE(clicked.expired());
}

// The host quits while the dialog works.

class QuittingHostTest : public ConnectTest {
 protected:
    /// Three shapes of three fills selected, under an open dialog.
    void openDialog() {
        connect();
        for (std::int32_t color = 1; color <= 3; ++color) {
            test.document->addSolid(text("Shape ", color), color);
        }
        test.document->selectAll();
        button("ChangeFillWizard")->Execute();
    }
    recolor::frmEditGraphic& dialog() { return *addin.dialog(); }
    void scan() {
        memory::Driver(dialog()).click(dialog().cmdAdd);
        test.runtime.boxes.clear();
    }
    void quitInPump(std::size_t number) {
        test.runtime.pumps = 0;
        test.runtime.onPump = [this, number](std::size_t pump) {
            if (pump == number) addin.OnDisconnection();
        };
    }
    void expectQuietQuit() {
        EXPECT_EQ(addin.dialog(), nullptr);
        EXPECT_EQ(addin.WApp(), nullptr);
        EXPECT_TRUE(test.runtime.boxes.empty());
        EXPECT_TRUE(test.unhandled.empty());
    }
    void expectQuit(const std::string& procedure) {
        EXPECT_EQ(addin.dialog(), nullptr);
        EXPECT_EQ(addin.WApp(), nullptr);
        ASSERT_EQ(test.runtime.boxes.size(), 1U);
        EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 364");
        EXPECT_TRUE(test.runtime.boxes[0].text.starts_with(
            text("Chyba v modulu \"Huebrush.frmEditGraphic.", procedure, "\"")));
        EXPECT_TRUE(test.unhandled.empty());
    }
};

/// In the pump with this number: a scan and a recolour of three fills have three.
class QuittingInPumpTest : public QuittingHostTest, public ::testing::WithParamInterface<int> {};

TEST_P(QuittingInPumpTest, AScanEndsQuietly) {
    openDialog();
    quitInPump(static_cast<std::size_t>(GetParam()));
    memory::Driver(dialog()).click(dialog().cmdAdd);
    expectQuietQuit();
}

TEST_P(QuittingInPumpTest, ARecolourEndsQuietly) {
    openDialog();
    scan();
    memory::Driver(dialog()).click(dialog().chkSelAll);
    for (std::int16_t row = 1; row <= 3; ++row) {
        dialog().Element[row].FillObject().setDesTransparency(0.5F);
    }
    quitInPump(static_cast<std::size_t>(GetParam()));
    memory::Driver(dialog()).click(dialog().cmdDiscolour);
    expectQuietQuit();
}

INSTANTIATE_TEST_SUITE_P(EachPump, QuittingInPumpTest, ::testing::Range(1, 4));

TEST_F(QuittingHostTest, AToolThatIsOpenEndsItsCommandWithAReport) {
    openDialog();
    scan();
    test.application.tools[1051] = [this](memory::MemoryShape&) {
        addin.OnDisconnection();
        return -1;
    };
    test.runtime.picks = {"&Barva..."};
    memory::Driver(dialog()).click(dialog().Element[2].cmdChangeDes);
    expectQuit("Element_mnuChDColor");
}

TEST_F(QuittingHostTest, AMenuThatIsOpenEndsWithAReport) {
    openDialog();
    scan();
    test.runtime.onMenu = [this] { addin.OnDisconnection(); };
    test.runtime.picks = {"&Poloprůhledná"};
    memory::Driver(dialog()).click(dialog().Element[2].cmdChangeDes);
    expectQuit("Element_mnuChDTransparency");
}

TEST_F(QuittingHostTest, TheBoxOfAScanEndsItQuietlyWithTheScratchDocumentClosed) {
    openDialog();
    test.runtime.onBox = [this] { addin.OnDisconnection(); };
    memory::Driver(dialog()).click(dialog().cmdAdd);
    EXPECT_EQ(addin.dialog(), nullptr);
    EXPECT_EQ(test.application.openScratchDocuments(), 0U);
    EXPECT_TRUE(test.unhandled.empty());
}

}  // namespace
}  // namespace huebrush::addin
