// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeSettings.h"

#include <gtest/gtest.h>

#include "OfficeContext.h"

namespace huebrush::tests {
namespace {

using libreoffice::OfficeSettings;

TEST(OfficeSettings, ASettingThatWasNeverSavedIsNothing) {
    EXPECT_EQ(OfficeSettings(officeContext()).GetSetting("Tests", "Never", "Saved"), std::nullopt);
}

TEST(OfficeSettings, IsFoundByALaterReader) {
    OfficeSettings(officeContext()).SaveSetting("Tests", "Place", "Left", "-12");
    EXPECT_EQ(OfficeSettings(officeContext()).GetSetting("Tests", "Place", "Left"), "-12");
}

TEST(OfficeSettings, ASecondValueReplacesTheFirst) {
    OfficeSettings settings(officeContext());
    settings.SaveSetting("Tests", "Place", "Top", "1");
    settings.SaveSetting("Tests", "Place", "Top", "2");
    EXPECT_EQ(settings.GetSetting("Tests", "Place", "Top"), "2");
}

TEST(OfficeSettings, AnEmptyValueIsAValue) {
    OfficeSettings settings(officeContext());
    settings.SaveSetting("Tests", "Place", "Empty", "");
    EXPECT_EQ(settings.GetSetting("Tests", "Place", "Empty"), "");
}

TEST(OfficeSettings, TakesAnyKeyAndAnyText) {
    OfficeSettings settings(officeContext());
    const std::string odd = "a/b'c\"d[1].%20 ěšč <&> \\";
    const std::string value = "řádek 1\r\nřádek 2\t<tag attr=\"1\">&amp;";
    settings.SaveSetting(odd, odd, odd, value);
    settings.SaveSetting("", "", "", "no name");
    EXPECT_EQ(settings.GetSetting(odd, odd, odd), value);
    EXPECT_EQ(settings.GetSetting("", "", ""), "no name");
}

TEST(OfficeSettings, KeepsApplicationSectionAndKeyApart) {
    OfficeSettings settings(officeContext());
    settings.SaveSetting("a.b", "c", "d", "first");
    settings.SaveSetting("a", "b.c", "d", "second");
    settings.SaveSetting("a", "b", "c.d", "third");
    EXPECT_EQ(settings.GetSetting("a.b", "c", "d"), "first");
    EXPECT_EQ(settings.GetSetting("a", "b.c", "d"), "second");
    EXPECT_EQ(settings.GetSetting("a", "b", "c.d"), "third");
}

}  // namespace
}  // namespace huebrush::tests
