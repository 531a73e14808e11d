// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <string>

#include "base/Error.h"
#include "ports/word/runtime/RegistryKey.h"
#include "ports/word/runtime/RegistrySettings.h"
#include "ports/word/runtime/Registry_test_support.h"
#include "ports/word/runtime/WindowsSystem.h"

namespace huebrush::word {
namespace {

constexpr const char* kTestKey = "Software\\HuebrushTest";
constexpr const char* kSettings = "Software\\VB and VBA Program Settings\\HuebrushTest";

class RegistryTest : public testing::Test {
 protected:
    RegistryTest() { clear(); }
    RegistryTest(const RegistryTest&) = delete;
    RegistryTest& operator=(const RegistryTest&) = delete;
    ~RegistryTest() override { clear(); }

    static RegistryKey make() { return RegistryKey::make(HKEY_CURRENT_USER, kTestKey); }
    static void clear() {
        clearRegistry(kTestKey);
        clearRegistry(kSettings);
    }
};

TEST_F(RegistryTest, ValuesAreKeptByName) {
    make().setText("Popis", "první řádek\r\ndruhý");
    make().setText("", "bez jména");
    make().setNumber("LoadBehavior", 3);
    const RegistryKey key = RegistryKey::open(HKEY_CURRENT_USER, kTestKey);
    EXPECT_EQ(key.text("Popis"), "první řádek\r\ndruhý");
    EXPECT_EQ(key.text(""), "bez jména");
    EXPECT_EQ(key.value("LoadBehavior"), forms::RegistryValue(std::uint32_t{3}));
    EXPECT_EQ(key.text("LoadBehavior"), std::nullopt);
    EXPECT_EQ(key.value("jiná"), std::nullopt);
}

TEST_F(RegistryTest, AKeyThatIsNotThereHasNoValues) {
    const RegistryKey none = RegistryKey::open(HKEY_CURRENT_USER, kTestKey);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.value("Popis"), std::nullopt);
    EXPECT_FALSE(RegistryKey::exists(HKEY_CURRENT_USER, kTestKey));
}

TEST_F(RegistryTest, OnlyAKeyWithoutKeysBelowItIsRemoved) {
    const std::string below = std::string(kTestKey) + "\\pod\\ním";
    RegistryKey::make(HKEY_CURRENT_USER, below);
    EXPECT_FALSE(make().isEmpty());
    EXPECT_THROW(RegistryKey::remove(HKEY_CURRENT_USER, kTestKey), base::Error);
    EXPECT_TRUE(RegistryKey::exists(HKEY_CURRENT_USER, below));
    EXPECT_TRUE(RegistryKey::remove(HKEY_CURRENT_USER, below));
    EXPECT_FALSE(RegistryKey::remove(HKEY_CURRENT_USER, below));
}

TEST_F(RegistryTest, AKeyWithAValueIsNotEmpty) {
    const RegistryKey key = make();
    EXPECT_TRUE(key.isEmpty());
    key.setText("a", "b");
    EXPECT_FALSE(key.isEmpty());
    key.removeValue("a");
    key.removeValue("a");
    EXPECT_TRUE(key.isEmpty());
}

TEST_F(RegistryTest, SettingsAreWhereTheFormsRuntimeKeepsThem) {
    RegistrySettings settings;
    EXPECT_EQ(settings.GetSetting("HuebrushTest", "ToolBarPosition", "Left"), std::nullopt);
    settings.SaveSetting("HuebrushTest", "ToolBarPosition", "Left", "100");
    settings.SaveSetting("HuebrushTest", "Database", "FileName", "C:\\Palety\\žluť.mdb");
    settings.SaveSetting("HuebrushTest", "Database", "Empty", "");
    EXPECT_EQ(settings.GetSetting("HuebrushTest", "ToolBarPosition", "Left"), "100");
    EXPECT_EQ(settings.GetSetting("HuebrushTest", "Database", "FileName"), "C:\\Palety\\žluť.mdb");
    EXPECT_EQ(settings.GetSetting("HuebrushTest", "Database", "Empty"), "");
    EXPECT_EQ(settings.GetSetting("HuebrushTest", "ToolBarPosition", "FileName"), std::nullopt);
    const std::string section = std::string(kSettings) + "\\ToolBarPosition";
    EXPECT_EQ(RegistryKey::open(HKEY_CURRENT_USER, section).text("Left"), "100");
}

TEST_F(RegistryTest, TheSystemsPartIsRead) {
    WindowsSystem system;
    const auto root = forms::RegistryRoot::localMachine;
    const auto version = system.registryValue(
        root, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", "CurrentVersion");
    ASSERT_TRUE(version);
    EXPECT_TRUE(std::holds_alternative<std::string>(*version));
    EXPECT_EQ(system.registryValue(root, "SOFTWARE\\HuebrushTest", "PATH"), std::nullopt);
}

TEST_F(RegistryTest, AProgramThatIsNotThereCannotBeStarted) {
    WindowsSystem system;
    EXPECT_FALSE(system.fileExists("C:\\není\\tu.exe"));
    EXPECT_TRUE(system.fileExists("C:\\windows"));
    try {
        system.start("C:\\není\\tu.exe");
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), 53);
    }
}

}  // namespace
}  // namespace huebrush::word
