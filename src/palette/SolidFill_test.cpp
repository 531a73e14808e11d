// SPDX-License-Identifier: MPL-2.0

#include "palette/SolidFill.h"

#include <gtest/gtest.h>

#include "base/Bitmap.h"

namespace huebrush::palette {
namespace {

const base::Rgb kOrange = base::rgb(0xE6, 0x9F, 0x00);

bool hasPreview(const fill::FillProperties& fill) {
    return !jet::isNull(previewOf(fill));
}

TEST(SolidFills, HaveAPreviewInTheirColour) {
    const jet::Value preview = previewOf(solidFill(kOrange));
    const base::Pixels pixels = base::decodeBitmap(std::get<jet::Bytes>(preview));
    EXPECT_EQ(pixels.width, 81);
    EXPECT_EQ(pixels.height, 25);
    for (std::size_t at = 0; at < pixels.bytes.size(); at += base::Pixels::kBytes) {
        ASSERT_EQ(pixels.bytes[at], 0x00);
        ASSERT_EQ(pixels.bytes[at + 1], 0x9F);
        ASSERT_EQ(pixels.bytes[at + 2], 0xE6);
    }
}

TEST(SolidFills, HaveAPreviewAsTheyAreStored) {
    fill::FillProperties fill = solidFill(kOrange);
    fill.Transparency = 0.4F;
    EXPECT_EQ(previewOf(fill), previewOf(solidFill(kOrange)));
    fill.Transparency = 1;
    EXPECT_FALSE(hasPreview(fill));
}

TEST(FillsThatOnlyAHostDraws, HaveNoPreview) {
    using host::MsoFillType;
    for (const MsoFillType type :
         {MsoFillType::msoFillGradient, MsoFillType::msoFillTextured, MsoFillType::msoFillPatterned,
          MsoFillType::msoFillPicture, MsoFillType::msoFillMixed}) {
        fill::FillProperties fill = solidFill(kOrange);
        fill.Type = type;
        EXPECT_FALSE(hasPreview(fill));
    }
    fill::FillProperties invisible = solidFill(kOrange);
    invisible.Visible = host::MsoTriState::msoFalse;
    EXPECT_FALSE(hasPreview(invisible));
}

}  // namespace
}  // namespace huebrush::palette
