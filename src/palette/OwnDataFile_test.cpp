// SPDX-License-Identifier: MPL-2.0

#include "palette/OwnDataFile.h"

#include <gtest/gtest.h>

#include "base/PictureFile.h"
#include "jet/check/Check.h"
#include "palette/PaletteDialog_test_support.h"

namespace huebrush::palette {
namespace {

class OwnDataFile : public PaletteFilesTest {};

TEST_F(OwnDataFile, IsMadeOnceWithPalettesWhoseFillsHavePreviews) {
    EXPECT_TRUE(makeOwnDataFile(files));
    const auto database = jet::Database::open(files, kFile);
    EXPECT_TRUE(jet::check(*database).violations.empty());
    const auto palettes = listPalettes(*database);
    ASSERT_EQ(palettes.size(), 5U);
    EXPECT_EQ(valueOf(palettes[0], "Name"), jet::Value(std::string("Okabe a Ito")));
    for (const Record& palette : palettes) {
        const auto fills = fillsOf(*database, valueOf(palette, "ID"));
        EXPECT_EQ(jet::Value(static_cast<std::int32_t>(fills.size())), valueOf(palette, "Count"));
        for (const Record& fill : fills) {
            const auto& preview = std::get<jet::Bytes>(valueOf(fill, "FillPreview"));
            EXPECT_FALSE(base::loadPicture(preview).empty());
        }
    }
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(OwnDataFile, HasTheColoursThatColourBlindReadersTellApart) {
    makeOwnDataFile(files);
    // The second one is orange: E69F00.
    EXPECT_EQ(contents()[0],
              "1 Okabe a Ito (8): 0@0 40934@1 15316054@2 7577088@3 4383984@4 11694592@5 24277@6 "
              "10975692@7");
}

TEST_F(OwnDataFile, IsNotMadeAgainWhenTheUserHasRemovedIt) {
    ASSERT_TRUE(makeOwnDataFile(files));
    files.remove(kFile);
    EXPECT_FALSE(makeOwnDataFile(files));
    EXPECT_FALSE(files.exists(kFile));
}

TEST_F(OwnDataFile, LeavesAFileAloneThatIsThere) {
    makeFile();
    EXPECT_FALSE(makeOwnDataFile(files));
    EXPECT_EQ(contents(), Names{});
}

TEST_F(OwnDataFile, ThatFailsIsTriedAgain) {
    fail("sync", 3050);
    EXPECT_THROW(makeOwnDataFile(files), base::Error);
    EXPECT_FALSE(files.exists(kFile));
    files.onCall = nullptr;
    EXPECT_TRUE(makeOwnDataFile(files));
}

}  // namespace
}  // namespace huebrush::palette
