// SPDX-License-Identifier: MPL-2.0

#include "addin/frmAbout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"

namespace huebrush::addin {
namespace {

using memory::ShownBox;
using Calls = std::vector<std::string>;

const std::string kToolKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
const std::string kFolderKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";

class AboutTest : public ::testing::Test {
 protected:
    ~AboutTest() override {
        EXPECT_TRUE(test.unhandled.empty());
        if (!box->isUnloaded()) box->Unload();
    }
    void pressSystemInformation() { memory::Driver(*box).click(box->cmdSysInfo); }
    void expectUnavailable() {
        EXPECT_TRUE(test.runtime.started.empty());
        EXPECT_EQ(test.runtime.boxes,
                  (std::vector<ShownBox>{
                      {"System Information Is Unavailable At This Time", 0, "Huebrush"}}));
    }
    std::string versionShownFor(const std::string& version) {
        test.runtime.componentVersion = version;
        return frmAbout::create()->lblVersion.Caption.get();
    }

    memory::TestHost test;
    std::shared_ptr<frmAbout> box = frmAbout::create();
};

TEST_F(AboutTest, SaysWhatItIsAboutAndItsVersion) {
    EXPECT_EQ(box->Caption.get(), "O doplňku Huebrush");
    EXPECT_EQ(box->lblTitle.Caption.get(), "Huebrush");
    EXPECT_EQ(box->lblVersion.Caption.get(), "Verze 4.3.2");
    EXPECT_EQ(box->Label2.Caption.get(), "Doplněk aplikace MS Word 97/2000");
    EXPECT_EQ(box->cmdSysInfo.Caption.get(), "&System Info...");
}

TEST_F(AboutTest, NamesItsLicenceAndLeavesNoTextEmpty) {
    EXPECT_NE(box->Label3.Caption.get().find("MPL-2.0"), std::string::npos);
    for (const forms::Label* const label :
         {&box->lblDescription, &box->lblDisclaimer, &box->Label1}) {
        EXPECT_FALSE(label->Caption.get().empty()) << label->name();
    }
}

TEST_F(AboutTest, TheVersionIsThreePlainNumbers) {
    EXPECT_EQ(versionShownFor("1.00.0015"), "Verze 1.0.15");
    EXPECT_EQ(versionShownFor("12.3.4"), "Verze 12.3.4");
    EXPECT_EQ(versionShownFor("2.1"), "Verze 2.1.0");
}

TEST_F(AboutTest, TakesItsPicturesAndItsTextsAndThenStaysOnTop) {
    test.startLog();
    box->Unload();
    box = frmAbout::create();
    EXPECT_EQ(test.calls(), (Calls{"call frmAbout.Close", "read Icon 401", "read Icon 403",
                                   "call frmAbout.Raise"}));
    EXPECT_FALSE(box->picIcon.Picture.get().empty());
    EXPECT_FALSE(box->Image1.Picture.get().empty());
}

TEST_F(AboutTest, AnErrorOfItsOpeningIsToldByTheEventEntry) {
    test.log().failAt("call frmAbout.Raise", base::Error(7, "popis"));
    frmAbout::create();
    ASSERT_EQ(test.unhandled.size(), 1U);
    EXPECT_EQ(test.unhandled[0].number(), 7);
    test.unhandled.clear();
}

TEST_F(AboutTest, TheOkButtonIsTheDefaultOneAndClosesIt) {
    EXPECT_TRUE(box->cmdOK.Default);
    memory::Driver(*box).click(box->cmdOK);
    EXPECT_TRUE(box->isUnloaded());
    EXPECT_EQ(test.runtime.windowCalls.back(), "close frmAbout");
}

TEST_F(AboutTest, AllItsControlsLieInsideIt) {
    for (const forms::Control* const control : box->children()) {
        EXPECT_GE(control->Left, 0) << control->name();
        EXPECT_GE(control->Top, 0) << control->name();
        EXPECT_LE(control->Left + control->Width, box->ScaleWidth()) << control->name();
        EXPECT_LE(control->Top + control->Height, box->ScaleHeight()) << control->name();
    }
}

// The system information tool.

TEST_F(AboutTest, StartsTheToolThatTheRegistryNames) {
    test.runtime.registry[{kToolKey, "PATH"}] = std::string("C:\\Tools\\MSINFO32.EXE");
    test.startLog();
    pressSystemInformation();
    EXPECT_EQ(test.calls(), (Calls{"read Registry 2147483650 " + kToolKey + " PATH",
                                   "call Start C:\\Tools\\MSINFO32.EXE"}));
    EXPECT_EQ(test.runtime.started, Calls{"C:\\Tools\\MSINFO32.EXE"});
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(AboutTest, OtherwiseTheToolIsLookedForInTheFolderOfSharedTools) {
    test.runtime.registry[{kFolderKey, "MSINFO"}] = std::string("C:\\Shared");
    test.runtime.files = {"C:\\Shared\\MSINFO32.EXE"};
    test.startLog();
    pressSystemInformation();
    EXPECT_EQ(test.calls(),
              (Calls{"read Registry 2147483650 " + kToolKey + " PATH",
                     "read Registry 2147483650 " + kFolderKey + " MSINFO",
                     "read File C:\\Shared\\MSINFO32.EXE", "call Start C:\\Shared\\MSINFO32.EXE"}));
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(AboutTest, WithoutTheFileTheToolIsUnavailable) {
    test.runtime.registry[{kFolderKey, "MSINFO"}] = std::string("C:\\Shared");
    pressSystemInformation();
    expectUnavailable();
}

TEST_F(AboutTest, WithoutARegistryEntryTheToolIsUnavailable) {
    pressSystemInformation();
    expectUnavailable();
}

TEST_F(AboutTest, AToolThatCannotBeStartedIsUnavailable) {
    test.runtime.registry[{kToolKey, "PATH"}] = std::string("C:\\Tools\\MSINFO32.EXE");
    test.log().failAt("call Start", base::Error(base::ErrorNumber::kFileNotFound, "popis"));
    pressSystemInformation();
    expectUnavailable();
}

TEST_F(AboutTest, ARegistryThatFailsMakesTheToolUnavailable) {
    test.log().failAt("read Registry", base::Error(7, "popis"));
    pressSystemInformation();
    expectUnavailable();
}

// GetKeyValue.

bool read(const std::string& name, std::string& value) {
    return frmAbout::GetKeyValue(forms::RegistryRoot::localMachine, "KEY", name, value);
}

TEST_F(AboutTest, AValueOfTextEndsAtItsFirstNul) {
    test.runtime.registry[{"KEY", "NAME"}] = std::string("C:\\Tools\0rest", 13);
    std::string value;
    EXPECT_TRUE(read("NAME", value));
    EXPECT_EQ(value, "C:\\Tools");
}

TEST_F(AboutTest, AValueOfTextWithoutANulIsTakenWhole) {
    test.runtime.registry[{"KEY", "NAME"}] = std::string("C:\\Tools");
    std::string value;
    EXPECT_TRUE(read("NAME", value));
    EXPECT_EQ(value, "C:\\Tools");
}

TEST_F(AboutTest, AValueThatIsANumberIsHexadecimal) {
    for (const auto& [number, shown] : std::vector<std::pair<std::uint32_t, std::string>>{
             {0, "&h0"}, {31, "&h1F"}, {0xFFFFFFFF, "&hFFFFFFFF"}}) {
        test.runtime.registry[{"KEY", "NAME"}] = number;
        std::string value;
        EXPECT_TRUE(read("NAME", value));
        EXPECT_EQ(value, shown);
    }
}

TEST_F(AboutTest, AMissingValueIsFalseAndLeavesTheResult) {
    std::string value = "earlier";
    EXPECT_FALSE(read("NAME", value));
    EXPECT_EQ(value, "earlier");
}

}  // namespace
}  // namespace huebrush::addin
