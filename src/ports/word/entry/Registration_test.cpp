// SPDX-License-Identifier: MPL-2.0

#include "ports/word/entry/Registration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/Text.h"
#include "ports/word/runtime/RegistryKey.h"
#include "ports/word/runtime/Registry_test_support.h"

namespace huebrush::word {
namespace {

using base::text;
using Lines = std::vector<std::string>;

constexpr const char* kFile = "C:\\Program Files\\Huebrush\\huebrush.dll";
constexpr const char* kAddIn = "Software\\Microsoft\\Office\\Word\\Addins\\Huebrush.ConnectW2000";

class RegistrationTest : public testing::Test {
 protected:
    ~RegistrationTest() override { unregisterAddIn(); }

    static RegistryKey open(const std::string& path) {
        return RegistryKey::open(HKEY_CURRENT_USER, path);
    }
    static std::string className() { return text("Software\\Classes\\CLSID\\", kClassId); }
};

TEST_F(RegistrationTest, TheAddInHasTheseValues) {
    registerAddIn(kFile);
    const Lines lines = registryBelow(kAddIn);
    ASSERT_EQ(lines.size(), 4U);
    const RegistryKey key = open(kAddIn);
    EXPECT_EQ(key.text("FriendlyName"), "Huebrush");
    EXPECT_EQ(key.text("Description"),
              "Doplněk aplikace MS Word 2000 (97) pro skupinovou záměnu výplní grafických "
              "objektů.\r\nTestováno pro MS Word 2000 a MS Word 97 (doplněk není vhodný pro "
              "aplikace MS Word XP a vyšší)");
    EXPECT_EQ(key.value("LoadBehavior"), forms::RegistryValue(std::uint32_t{3}));
}

TEST_F(RegistrationTest, TheClassIsFoundByItsName) {
    registerAddIn(kFile);
    EXPECT_EQ(open("Software\\Classes\\Huebrush.ConnectW2000\\CLSID").text(""), kClassId);
    EXPECT_EQ(open(className() + "\\InprocServer32").text(""), kFile);
    EXPECT_EQ(open(className() + "\\InprocServer32").text("ThreadingModel"), "Apartment");
    EXPECT_EQ(open(className() + "\\ProgID").text(""), "Huebrush.ConnectW2000");
}

TEST_F(RegistrationTest, AfterwardsTheRegistryIsAsItWas) {
    const Lines before = registryBelow("Software");
    registerAddIn(kFile);
    EXPECT_NE(registryBelow("Software"), before);
    unregisterAddIn();
    EXPECT_EQ(registryBelow("Software"), before);
}

TEST_F(RegistrationTest, AlsoAfterTwoRegistrations) {
    const Lines before = registryBelow("Software");
    registerAddIn("D:\\starý\\huebrush.dll");
    registerAddIn(kFile);
    EXPECT_EQ(open(className() + "\\InprocServer32").text(""), kFile);
    unregisterAddIn();
    EXPECT_EQ(registryBelow("Software"), before);
    unregisterAddIn();
    EXPECT_EQ(registryBelow("Software"), before);
}

TEST_F(RegistrationTest, WhatOthersHaveWrittenStays) {
    const std::string other = "Software\\Microsoft\\Office\\Word\\Addins\\Other.AddIn";
    const bool hadOffice = RegistryKey::exists(HKEY_CURRENT_USER, "Software\\Microsoft\\Office");
    registerAddIn(kFile);
    RegistryKey::make(HKEY_CURRENT_USER, other).setText("FriendlyName", "Jiný");
    RegistryKey::make(HKEY_CURRENT_USER, kAddIn).setText("Note", "poznámka");
    unregisterAddIn();
    EXPECT_EQ(open(other).text("FriendlyName"), "Jiný");
    EXPECT_EQ(registryBelow(kAddIn).size(), 2U);
    EXPECT_EQ(open(kAddIn).text("Note"), "poznámka");
    clearRegistry(hadOffice ? "Software\\Microsoft\\Office\\Word" : "Software\\Microsoft\\Office");
}

TEST_F(RegistrationTest, AListOfMadeKeysThatOthersHaveChangedDoesNoHarm) {
    const Lines before = registryBelow("Software");
    for (const char* const made : {"Software\\Classes\\CLSID", "\n\nSoftware", "\n", "\\"}) {
        registerAddIn(kFile);
        const RegistryKey key = RegistryKey::make(HKEY_CURRENT_USER, className());
        const std::string all = key.text("MadeKeys").value_or("");
        ASSERT_FALSE(all.empty());
        key.setText("MadeKeys", all + made);
        unregisterAddIn();
        EXPECT_EQ(registryBelow("Software"), before) << made;
    }
}

TEST_F(RegistrationTest, KeysThatWereThereStayThoughTheyAreEmpty) {
    const std::string addIns = "Software\\Microsoft\\Office\\Word\\Addins";
    RegistryKey::make(HKEY_CURRENT_USER, addIns);
    registerAddIn(kFile);
    unregisterAddIn();
    EXPECT_TRUE(open(addIns));
    EXPECT_FALSE(open(kAddIn));
    clearRegistry("Software\\Microsoft\\Office");
}

}  // namespace
}  // namespace huebrush::word
