// SPDX-License-Identifier: MPL-2.0

#include "base/Base64.h"

#include <gtest/gtest.h>

namespace huebrush::base {
namespace {

std::string encoded(std::string_view text) {
    return toBase64({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

TEST(Base64, MatchesTheExamplesOfItsStandard) {
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("f"), "Zg==");
    EXPECT_EQ(encoded("fo"), "Zm8=");
    EXPECT_EQ(encoded("foo"), "Zm9v");
    EXPECT_EQ(encoded("foob"), "Zm9vYg==");
    EXPECT_EQ(encoded("fooba"), "Zm9vYmE=");
    EXPECT_EQ(encoded("foobar"), "Zm9vYmFy");
}

TEST(Base64, ReadsBackEveryByteAtEveryPlace) {
    std::vector<std::uint8_t> bytes;
    for (int i = 0; i < 260; ++i) {
        EXPECT_EQ(fromBase64(toBase64(bytes)), bytes);
        bytes.push_back(static_cast<std::uint8_t>(i * 7));
    }
}

TEST(Base64, RefusesWhatItNeverWrites) {
    for (const char* const text : {"Zg", "Zg=", "Zg==Zg==", "Z===", "====", "Zm9 ", "Zm9v\n",
                                   "Zh==", "Zm9=", "Z=9v", "Zm-_"}) {
        EXPECT_FALSE(fromBase64(text)) << text;
    }
}

}  // namespace
}  // namespace huebrush::base
