// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "ports/memory/MemoryRuntime.h"
#include "ports/word/Entry_test_support.h"
#include "ports/word/Word_test_support.h"
#include "ports/word/com/ModuleUse.h"
#include "ports/word/entry/ConnectObject.h"

namespace huebrush::word {
namespace {

using base::text;

/// The add-in as Word loads it, in the process of its stand-in.
class EntryTest : public testing::Test {
 protected:
    EntryTest() { word.application.reset(); }

    void TearDown() override {
        entry.reset();
        expectNothingInUse();
    }
    void expectNothingInUse() {
        EXPECT_EQ(word.standIn.objects().objects(), 0U);
        EXPECT_EQ(word.standIn.objects().references(), 0);
        EXPECT_EQ(word.standIn.objects().listeners(), 0U);
        EXPECT_EQ(runtimes, 0);
        EXPECT_EQ(ModuleUse::any(), static_cast<bool>(entry));
    }

    /// A runtime of the add-in's own, as each session gets one.
    class CountedRuntime;
    std::unique_ptr<forms::Runtime> makeRuntime();

    Pointer<Extensibility> make() {
        Pointer<IUnknown> factory;
        EXPECT_EQ(getConnectFactory([this](const Enter&) { return makeRuntime(); }, IID_IUnknown,
                                    factory.outAny()),
                  S_OK);
        return makeEntry(*factory);
    }
    HRESULT connect() {
        return entry->OnConnection(word.standIn.application().get(), 0, nullptr, nullptr);
    }
    HRESULT disconnect() { return entry->OnDisconnection(0, nullptr); }
    bool hasBar() const { return word.test.application.bars.find("Huebrush") != nullptr; }

    TestWord word;
    int runtimes = 0;
    std::vector<memory::ShownBox> boxes;
    std::function<void()> onBox;
    Pointer<Extensibility> entry = make();
};

class EntryTest::CountedRuntime final : public forms::Runtime {
 public:
    explicit CountedRuntime(EntryTest& test) : test_(test) { ++test_.runtimes; }
    CountedRuntime(const CountedRuntime&) = delete;
    CountedRuntime& operator=(const CountedRuntime&) = delete;
    ~CountedRuntime() override { --test_.runtimes; }

    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override {
        test_.boxes.push_back({text, style, title});
        if (test_.onBox) test_.onBox();
        return all_.MsgBox(text, style, title);
    }
    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override {
        all_.PopupMenu(menu, owner, x, y);
    }
    std::string ChooseFile(const forms::FileDialog& dialog) override {
        return all_.ChooseFile(dialog);
    }
    void DoEvents() override { all_.DoEvents(); }
    forms::Clipboard& Clipboard() override { return all_.Clipboard(); }
    forms::Settings& Settings() override { return all_.Settings(); }
    const forms::Component& Component() override { return all_.Component(); }
    forms::System& System() override { return all_.System(); }
    void showForm(forms::Form& form, bool modal) override { all_.showForm(form, modal); }
    void closeForm(forms::Form& form) override { all_.closeForm(form); }
    void setTopMost(forms::Form& form, bool topMost) override { all_.setTopMost(form, topMost); }

 private:
    EntryTest& test_;
    memory::MemoryRuntime all_;
};

std::unique_ptr<forms::Runtime> EntryTest::makeRuntime() {
    return std::make_unique<CountedRuntime>(*this);
}

TEST_F(EntryTest, AConnectionMakesTheBarAndADisconnectionRemovesIt) {
    EXPECT_EQ(connect(), S_OK);
    EXPECT_TRUE(hasBar());
    EXPECT_EQ(runtimes, 1);
    EXPECT_EQ(entry->OnAddInsUpdate(nullptr), S_OK);
    EXPECT_EQ(entry->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(entry->OnBeginShutdown(nullptr), S_OK);
    EXPECT_EQ(disconnect(), S_OK);
    EXPECT_FALSE(hasBar());
    expectNothingInUse();
    EXPECT_EQ(disconnect(), S_OK);
}

TEST_F(EntryTest, AHostMayConnectByName) {
    const Object called(Pointer<IDispatch>::share(entry.get()), "Entry");
    called.call("OnConnection", {word.standIn.application(), 0, Pointer<IDispatch>(), kMissing});
    EXPECT_TRUE(hasBar());
    called.call("OnStartupComplete", {kMissing});
    called.call("OnDisconnection", {0, kMissing});
    EXPECT_FALSE(hasBar());
}

TEST_F(EntryTest, AnEntryObjectThatIsDroppedDisconnects) {
    connect();
    entry.reset();
    EXPECT_FALSE(hasBar());
}

TEST_F(EntryTest, AConnectionWithoutAHostIsReportedAndDoesNotFail) {
    EXPECT_EQ(entry->OnConnection(nullptr, 0, nullptr, nullptr), S_OK);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Chyba č. 91");
    disconnect();
}

TEST_F(EntryTest, ASecondConnectionEndsTheFirst) {
    connect();
    connect();
    EXPECT_EQ(runtimes, 1);
    EXPECT_EQ(word.test.application.bars.bars.size(), 1U);
    disconnect();
    EXPECT_FALSE(hasBar());
}

TEST_F(EntryTest, TheHostMayDisconnectAndDropTheAddInWhileABoxIsOpen) {
    word.test.application.version = "10.0";
    onBox = [this] {
        disconnect();
        entry.reset();
        // The call that opened the box still runs.
        EXPECT_TRUE(ModuleUse::any());
        EXPECT_EQ(runtimes, 1);
        EXPECT_FALSE(hasBar());
    };
    EXPECT_EQ(connect(), S_OK);
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(EntryTest, TheHostMayConnectAgainWhileABoxIsOpen) {
    word.test.application.version = "10.0";
    onBox = [this] {
        onBox = nullptr;
        disconnect();
        connect();
        EXPECT_EQ(runtimes, 2);
    };
    connect();
    EXPECT_EQ(runtimes, 1);
    EXPECT_TRUE(hasBar());
    disconnect();
}

TEST_F(EntryTest, TheHostMayDisconnectWhileACommandRuns) {
    connect();
    // Nothing is selected: the command says so.
    onBox = [this] {
        disconnect();
        EXPECT_TRUE(ModuleUse::any());
    };
    const auto button = word.test.application.bars.find("Huebrush")->buttons.at(0);
    button->Execute();
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_FALSE(hasBar());
    expectNothingInUse();
    button->Execute();
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(EntryTest, AHundredRoundsLeaveNothingInUse) {
    for (int round = 0; round < 100; ++round) {
        connect();
        disconnect();
    }
    expectNothingInUse();
}

TEST_F(EntryTest, WhicheverCallFailsNothingStaysInUse) {
    connect();
    disconnect();
    const std::size_t calls = word.standIn.objects().calls;
    ASSERT_GT(calls, 40U);
    for (std::size_t failing = 1; failing <= calls; ++failing) {
        SCOPED_TRACE(failing);
        word.standIn.objects().calls = 0;
        word.standIn.objects().failAt = failing;
        EXPECT_EQ(connect(), S_OK);
        EXPECT_EQ(disconnect(), S_OK);
        expectNothingInUse();
        word.test.application.bars.bars.clear();
    }
}

TEST_F(EntryTest, AFactoryMakesOnlyWhatItHas) {
    Pointer<IClassFactory> factory;
    ASSERT_EQ(getConnectFactory([this](const Enter&) { return makeRuntime(); }, IID_IClassFactory,
                                factory.outAny()),
              S_OK);
    Pointer<IUnknown> made;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, made.outAny()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, made.outAny()), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, nullptr), E_POINTER);
    EXPECT_EQ(getConnectFactory([this](const Enter&) { return makeRuntime(); }, kExtensibility,
                                made.outAny()),
              E_NOINTERFACE);
}

TEST_F(EntryTest, ALockKeepsTheModuleWithoutAnyObject) {
    Pointer<IClassFactory> factory;
    getConnectFactory([this](const Enter&) { return makeRuntime(); }, IID_IClassFactory,
                      factory.outAny());
    entry.reset();
    factory->LockServer(TRUE);
    EXPECT_TRUE(ModuleUse::any());
    factory->LockServer(FALSE);
    factory->LockServer(FALSE);
    EXPECT_TRUE(ModuleUse::any());
    factory.reset();
    EXPECT_FALSE(ModuleUse::any());
}

}  // namespace
}  // namespace huebrush::word
