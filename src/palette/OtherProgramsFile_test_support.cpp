// SPDX-License-Identifier: MPL-2.0

#include "palette/OtherProgramsFile_test_support.h"

#include "base/Bitmap.h"
#include "base/Bitmaps_test_support.h"
#include "jet/MapLayouts_test_support.h"
#include "jet/OtherDefinitions_test_support.h"
#include "jet/file/MemoryFiles.h"
#include "palette/PaletteFile.h"
#include "palette/mMakeDatabase.h"

namespace huebrush::palette {

namespace {

constexpr const char* kDraft = "/draft.mdb";

Record fillIn(std::int32_t color, const jet::Value& preview) {
    Record record{{"Visible", -1},
                  {"ForeColorRGB", color},
                  {"BackColorRGB", 0xFFFFFF},
                  {"Transparency", 0},
                  {"GradientStyle", -2},
                  {"GradientColorType", -2},
                  {"GradientVariant", -2},
                  {"GradientDegree", 0},
                  {"PresetGradientType", -2},
                  {"TextureType", -2},
                  {"Type", 1},
                  {"PresetTexture", -2},
                  {"TextureName", std::string()},
                  {"Pattern", -2},
                  {"PictureName", std::string()}};
    record.emplace_back("FillPreview", preview);
    return record;
}

}  // namespace

jet::Bytes fileOfAnotherProgram() {
    jet::MemoryFiles files;
    MakeDatabase(kDraft, files);
    const auto database = jet::Database::open(files, kDraft);
    for (const char* const table : {kGroupTable, kElementTable}) {
        jet::defineAsOtherProgramsDo(*database, table);
    }
    const jet::Bytes bitmap = base::bitmapFile(1, 1, 3, {0, 0, 14});
    addPalettes(*database,
                {{{{"Name", std::string(kLongestName)}, {"Description", std::string("popis")}},
                  {fillIn(11, base::placeableMetafile()), fillIn(12, {}),
                   fillIn(13, base::enhancedMetafile()), fillIn(14, bitmap)}},
                 {{{"Name", std::string("b")}, {"Description", {}}}, {fillIn(21, {})}}});
    return jet::withFreeMapAtTheEnd(*files.files.at(kDraft), 3);
}

}  // namespace huebrush::palette
