// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/PaletteChoice.h"

#include <gtest/gtest.h>

#include "cli/Failure.h"

namespace huebrush::cli {
namespace {

TEST(PaletteReference, IsSplitAtTheFirstColonAfterTheEnding) {
    const auto split = [](const std::string& text) {
        const PaletteReference reference = paletteReferenceFromText(text);
        return reference.file + "|" + reference.name;
    };
    EXPECT_EQ(split("fill.mdb:Podzim"), "fill.mdb|Podzim");
    EXPECT_EQ(split("FILL.MDB:Žluť: 2"), "FILL.MDB|Žluť: 2");
    EXPECT_EQ(split("C:\\a:b\\fill.Mdb:#3"), "C:\\a:b\\fill.Mdb|#3");
    EXPECT_EQ(split("a.mdb.d/b.mdb:x"), "a.mdb.d/b.mdb|x");
}

TEST(PaletteReference, OfAnotherFormIsRefused) {
    for (const char* const text :
         {"", "fill.mdb", "fill.mdb:", "fill:Podzim", ":Podzim", "a:b.mdb"}) {
        try {
            paletteReferenceFromText(text);
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.what(),
                      "\"" + std::string(text) + "\" must have the form FILE.mdb:NAME");
        }
    }
}

}  // namespace
}  // namespace huebrush::cli
