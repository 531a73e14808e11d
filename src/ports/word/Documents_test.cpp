// SPDX-License-Identifier: MPL-2.0

#include "ports/word/host/Documents.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "host/BuiltInControl.h"
#include "ports/word/Word_test_support.h"

namespace huebrush::word {
namespace {

using Calls = std::vector<std::string>;
using host::MsoTriState;

class WordTest : public testing::Test {
 protected:
    explicit WordTest(Age age = Age::word2000) : word(age) {}
    void TearDown() override { word.expectAllGivenBack(); }

    host::Application& application() { return *word.application; }
    ServedObjects& served() { return word.standIn.objects(); }
    std::shared_ptr<memory::MemoryDocument>& active() { return word.test.application.active; }
    std::shared_ptr<memory::MemoryDocument> scratch() {
        return word.test.application.scratchDocuments.back();
    }
    /// A hidden document with a selected rectangle, as for a preview or a tool.
    std::shared_ptr<host::Document> addScratch() {
        auto document = application().Documents().addHidden();
        document->Shapes()
            ->AddShape(host::MsoAutoShapeType::msoShapeRectangle, 0, 0, 60.7F, 19)
            ->Select();
        return document;
    }
    void setTool(std::int32_t id, const std::function<std::int32_t()>& tool) {
        word.test.application.tools[id] = [tool](memory::MemoryShape&) { return tool(); };
    }
    void runControl(std::int32_t id) { application().CommandBars().FindControl(id)->Execute(); }
    std::int32_t showDialog() {
        return application().Dialogs().Item(host::DialogId::kFormatObject)->Show();
    }
    template <class Use>
    std::int32_t errorOf(Use&& use) {
        try {
            use();
        } catch (const base::Error& error) {
            return error.number();
        }
        return 0;
    }

    TestWord word;
};

TEST_F(WordTest, TheHostIsAskedEachTime) {
    EXPECT_EQ(application().Name(), "Microsoft Word");
    word.test.application.name = "Another";
    EXPECT_EQ(application().Name(), "Another");
    word.test.document->addSolid("Sun", 1);
    const auto shape = application().ActiveDocument()->Shapes()->enumerate()->next();
    EXPECT_EQ(shape->Fill().ForeColorRGB(), 1);
    word.test.document->shapes[0]->fill.ForeColorRGB = 2;
    EXPECT_EQ(shape->Fill().ForeColorRGB(), 2);
    EXPECT_EQ(shape->Fill().known(), nullptr);
    EXPECT_EQ(word.calls(),
              (Calls{"Application.Name", "Application.Name", "Application.ActiveDocument",
                     "Document.Shapes", "Shapes._NewEnum", "Shapes.Next", "Shape.Fill",
                     "FillFormat.ForeColor", "ColorFormat.RGB", "FillFormat.ForeColor",
                     "ColorFormat.RGB"}));
}

TEST_F(WordTest, AMembersNumberIsAskedForOnceForAllShapes) {
    for (int i = 0; i < 20; ++i) word.test.document->addSolid("", i);
    const auto walk = application().ActiveDocument()->Shapes()->enumerate();
    while (const auto shape = walk->next()) static_cast<void>(shape->Fill().ForeColorRGB());
    // ActiveDocument, Shapes, Fill, ForeColor, RGB.
    EXPECT_EQ(served().lookups, 5U);
}

TEST_F(WordTest, StatusBarAndPointerAreWritten) {
    application().setStatusBar("Zpracovávám 1. objekt z 2.");
    application().setCursor(host::WdCursorType::wdCursorWait);
    EXPECT_EQ(word.test.application.statusBar, "Zpracovávám 1. objekt z 2.");
    EXPECT_EQ(word.test.application.cursor, host::WdCursorType::wdCursorWait);
    EXPECT_EQ(word.calls(), (Calls{"Application.StatusBar = Zpracovávám 1. objekt z 2.",
                                   "Application.System", "System.Cursor = 0"}));
}

TEST_F(WordTest, WithoutADocumentTheHostsErrorComesThrough) {
    active() = nullptr;
    EXPECT_EQ(errorOf([&] { application().ActiveDocument(); }), 4248);
    EXPECT_EQ(errorOf([&] { application().Selection(); }), 4248);
}

TEST_F(WordTest, ARangeIsAskedForByAnArrayOfNames) {
    word.test.document->addSolid("Slunce", 1);
    word.test.document->addSolid("Měsíc", 2);
    application().ActiveDocument()->Shapes()->Range({"Měsíc", "Slunce"})->Select();
    EXPECT_EQ(word.calls(), (Calls{"Application.ActiveDocument", "Document.Shapes",
                                   "Shapes.Range([Měsíc, Slunce])", "ShapeRange.Select"}));
}

TEST_F(WordTest, AHiddenDocumentIsMadeWithoutAWindow) {
    const auto before = active();
    const auto document = application().Documents().addHidden();
    EXPECT_EQ(word.calls(), (Calls{"Application.Documents", "Documents.Add(Visible:=False)"}));
    EXPECT_EQ(active(), before);
    document->Close();
    EXPECT_EQ(word.calls(), Calls{"Document.Close(0)"});
    EXPECT_TRUE(scratch()->closed);
}

TEST_F(WordTest, APreviewIsTakenWithoutActivatingItsDocument) {
    const auto before = active();
    const auto document = addScratch();
    document->Selection()->Copy();
    document->Close();
    EXPECT_EQ(word.calls(),
              (Calls{"Application.Documents", "Documents.Add(Visible:=False)", "Document.Shapes",
                     "Shapes.AddShape(1, 0, 0, 60.7, 19)", "Shape.Select", "Document.ActiveWindow",
                     "Window.Selection", "Selection.Copy", "Document.Close(0)"}));
    EXPECT_EQ(active(), before);
}

TEST_F(WordTest, AToolFindsTheHiddenDocumentActive) {
    const auto before = active();
    const auto document = addScratch();
    std::vector<std::shared_ptr<memory::MemoryDocument>> seen;
    const auto tool = [&] {
        seen.push_back(active());
        return host::DialogResult::kConfirmed;
    };
    for (const auto id : {host::ControlId::kFillColor, host::ControlId::kFillEffects}) {
        setTool(id, tool);
        runControl(id);
        EXPECT_EQ(active(), before);
    }
    setTool(host::DialogId::kFormatObject, tool);
    word.calls();
    EXPECT_EQ(showDialog(), host::DialogResult::kConfirmed);
    EXPECT_EQ(word.calls(),
              (Calls{"Application.Dialogs", "Dialogs.Item(960)", "Application.ActiveDocument",
                     "Document.Activate", "Dialog.Show", "Document.Activate"}));
    EXPECT_EQ(active(), before);
    EXPECT_EQ(seen, (std::vector{scratch(), scratch(), scratch()}));
    document->Close();
}

TEST_F(WordTest, AToolThatFailsLeavesTheDocumentActiveThatWas) {
    const auto before = active();
    const auto document = addScratch();
    const auto fail = []() -> std::int32_t { throw base::Error(4605, "Nyní ne."); };
    setTool(host::ControlId::kFillColor, fail);
    setTool(host::DialogId::kFormatObject, fail);
    EXPECT_EQ(errorOf([&] { runControl(host::ControlId::kFillColor); }), 4605);
    EXPECT_EQ(active(), before);
    EXPECT_EQ(errorOf([&] { showDialog(); }), 4605);
    EXPECT_EQ(active(), before);
}

TEST_F(WordTest, ACancelledDialogSaysSo) {
    const auto document = addScratch();
    setTool(host::DialogId::kFormatObject, [] { return host::DialogResult::kCancelled; });
    EXPECT_EQ(showDialog(), host::DialogResult::kCancelled);
}

TEST_F(WordTest, AToolRunsOnTheNewestHiddenDocumentThatIsOpen) {
    const auto first = addScratch();
    const auto second = addScratch();
    second->Close();
    // The stand-in wants the newest: make the first one that again.
    word.test.application.scratchDocuments.pop_back();
    bool ran = false;
    setTool(host::ControlId::kFillColor, [&] {
        ran = active() == scratch();
        return 0;
    });
    runControl(host::ControlId::kFillColor);
    EXPECT_TRUE(ran);
}

TEST_F(WordTest, WithNoDocumentOpenBeforeATool_NoneIsActivatedAfterIt) {
    active() = nullptr;
    const auto document = addScratch();
    word.calls();
    runControl(host::ControlId::kFillColor);
    EXPECT_EQ(word.calls(), (Calls{"Application.CommandBars", "CommandBars.FindControl(Id:=1051)",
                                   "Application.ActiveDocument", "Document.Activate",
                                   "CommandBarControl.Execute"}));
}

TEST_F(WordTest, WithoutAHiddenDocumentAToolWorksOnWhatIsActive) {
    EXPECT_EQ(errorOf([&] { runControl(host::ControlId::kFillColor); }), 4605);
    EXPECT_EQ(word.calls(), (Calls{"Application.CommandBars", "CommandBars.FindControl(Id:=1051)",
                                   "CommandBarControl.Execute"}));
}

TEST_F(WordTest, AControlThatTheHostDoesNotHaveIsNone) {
    word.test.application.bars.missingControls.insert(host::ControlId::kFillColor);
    EXPECT_EQ(application().CommandBars().FindControl(host::ControlId::kFillColor), nullptr);
}

TEST_F(WordTest, ABuiltInControlRefusesChanges) {
    const auto control = application().CommandBars().FindControl(host::ControlId::kFillColor);
    EXPECT_EQ(errorOf([&] { control->setCaption("Jiný"); }), 5);
}

TEST_F(WordTest, APropertyThatTheHostRefusesIsItsError) {
    word.test.document->addSolid("Sun", 1)->fill.UnknownTexture = true;
    const auto shape = application().ActiveDocument()->Shapes()->enumerate()->next();
    EXPECT_EQ(errorOf([&] { shape->Fill().TextureName(); }), -2147467259);
}

TEST_F(WordTest, AClickComesInThroughTheEntry) {
    const auto bar = application().CommandBars().Add("Huebrush");
    const auto button = bar->addButton();
    int clicks = 0;
    button->Click.connect([&] { ++clicks; });
    word.test.application.bars.bars[0]->buttons[0]->Execute();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(word.entries, 1);
}

TEST_F(WordTest, AButtonMayGoWhileItsClickRuns) {
    const auto bar = application().CommandBars().Add("Huebrush");
    auto button = bar->addButton();
    int clicks = 0;
    button->Click.connect([&] {
        button->Delete();
        button.reset();
    });
    button->Click.connect([&] { ++clicks; });
    const auto clicked = word.test.application.bars.bars[0]->buttons[0];
    clicked->Execute();
    EXPECT_EQ(clicks, 1);
    clicked->Execute();
    EXPECT_EQ(clicks, 1);
}

class Word97Test : public WordTest {
 protected:
    Word97Test() : WordTest(Age::word97) {}
};

TEST_F(Word97Test, AHiddenDocumentIsMadeAndThenHidden) {
    word.test.application.open("Other");
    const auto before = word.test.document;
    active() = before;
    const auto document = application().Documents().addHidden();
    EXPECT_EQ(active(), before);
    EXPECT_EQ(word.calls(),
              (Calls{"Application.Documents", "Application.ActiveDocument", "Documents.Add",
                     "Document.ActiveWindow", "Window.Visible = False", "Document.Activate"}));
    document->Close();
}

TEST_F(Word97Test, WithNoDocumentOpenItIsHiddenAllTheSame) {
    active() = nullptr;
    word.test.application.documents.clear();
    const auto document = application().Documents().addHidden();
    EXPECT_EQ(active(), nullptr);
}

TEST_F(Word97Test, ADocumentThatCannotBeHiddenIsClosedAgain) {
    const auto before = active();
    // The window is the fourth call.
    served().failAt = 4;
    EXPECT_EQ(errorOf([&] { application().Documents().addHidden(); }), 4198);
    EXPECT_TRUE(scratch()->closed);
    EXPECT_EQ(active(), before);
}

TEST_F(Word97Test, OtherErrorsOfAddAreNotTakenForThat) {
    served().failAt = 1;
    EXPECT_EQ(errorOf([&] { application().Documents().addHidden(); }), 4198);
    EXPECT_TRUE(word.test.application.scratchDocuments.empty());
}

TEST_F(Word97Test, AButtonWithoutEventsIsSilent) {
    const auto button = application().CommandBars().Add("Huebrush")->addButton();
    button->Click.connect([] { FAIL(); });
    word.test.application.bars.bars[0]->buttons[0]->Execute();
    EXPECT_EQ(word.entries, 0);
}

}  // namespace
}  // namespace huebrush::word
