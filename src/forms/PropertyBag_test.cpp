// SPDX-License-Identifier: MPL-2.0

#include "forms/PropertyBag.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace huebrush::forms {
namespace {

TEST(PropertyBag, GivesBackWhatWasWritten) {
    PropertyBag bag;
    bag.WriteProperty("Caption", std::string("x"), std::string());
    bag.WriteProperty("Bold", true, false);
    bag.WriteProperty("Font", Font{"Arial", 12, true}, Font{});
    EXPECT_EQ(bag.ReadProperty("Caption", std::string()), "x");
    EXPECT_TRUE(bag.ReadProperty("Bold", false));
    EXPECT_EQ(bag.ReadProperty("Font", Font{}), (Font{"Arial", 12, true}));
}

TEST(PropertyBag, ReadsTheReadersDefaultForAValueThatEqualledItsOwnDefault) {
    PropertyBag bag;
    bag.WriteProperty("Value", std::int16_t{0}, std::int16_t{0});
    EXPECT_EQ(bag.ReadProperty("Value", std::int16_t{7}), 7);
    EXPECT_EQ(bag.ReadProperty("Never", std::int16_t{8}), 8);
}

TEST(PropertyBag, RemembersTheOrderOfWriting) {
    PropertyBag bag;
    bag.WriteProperty("B", true, true);
    bag.WriteProperty("A", true, false);
    EXPECT_EQ(bag.written(), (std::vector<std::string>{"B", "A"}));
}

}  // namespace
}  // namespace huebrush::forms
