// SPDX-License-Identifier: MPL-2.0

// The fill descriptor in the records of palette files.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "files/Folder_test_support.h"
#include "fill/CFill.h"
#include "jet/Palette_test_support.h"
#include "jet/records/Recordset.h"
#include "ports/memory/MemoryHost.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::fill {
namespace {

using jet::Value;
using Names = std::vector<std::string>;

constexpr const char* kFile = "/fill.mdb";
constexpr const char* kElements = "SELECT TFillElementParameter.* From TFillElementParameter";

/// The columns of a fill in their order.
const Names kColumns{"Visible",
                     "ForeColorRGB",
                     "BackColorRGB",
                     "Transparency",
                     "GradientStyle",
                     "GradientColorType",
                     "GradientVariant",
                     "GradientDegree",
                     "PresetGradientType",
                     "Type",
                     "TextureType",
                     "PresetTexture",
                     "TextureName",
                     "Pattern",
                     "PictureName"};

bool isText(const std::string& column) {
    return column == "TextureName" || column == "PictureName";
}

/// A table of fills whose columns may all be null, as a file of another program may have them.
void createTableOfFills(jet::FileSystem& files, jet::ColumnType number) {
    jet::createDatabase(files, kFile);
    jet::NewTable table{"TFillElementParameter",
                        {{"ID", jet::ColumnType::longInteger, 0, false, true}},
                        {{"PIXTFillElementParameter", {"ID"}, true, true}}};
    for (const std::string& each : kColumns) {
        const jet::ColumnType type = isText(each) ? jet::ColumnType::text : number;
        table.columns.push_back({each, type, type == jet::ColumnType::text ? 255U : 0U, true});
    }
    table.columns.push_back({"FillPreview", jet::ColumnType::ole, 0, true});
    const auto database = jet::Database::open(files, kFile);
    jet::createTable(*database, table);
    for (const char* const each : {"TextureName", "PictureName"}) {
        jet::setColumnProperty(*database, table.name, each, "AllowZeroLength", true);
    }
}

/// A fill with another value in each property.
FillProperties everything() {
    FillProperties fill;
    fill.Visible = host::MsoTriState::msoTrue;
    fill.ForeColorRGB = 0x102030;
    fill.BackColorRGB = 0x405060;
    fill.Transparency = 3;
    fill.GradientStyle = 4;
    fill.GradientColorType = host::MsoGradientColorType::msoGradientTwoColors;
    fill.GradientVariant = 6;
    fill.GradientDegree = 7;
    fill.PresetGradientType = 8;
    fill.Type = host::MsoFillType::msoFillTextured;
    fill.TextureType = host::MsoTextureType::msoTextureUserDefined;
    fill.PresetTexture = 11;
    fill.TextureName = "Žluťoučký kůň.bmp";
    fill.Pattern = 13;
    fill.PictureName = "obrázek.jpg";
    return fill;
}

class FillRecords : public files::Folder {
 protected:
    FillRecords() {
        runtime.temporary = files::nameOf(folder);
        open(jet::ColumnType::longInteger);
    }

    void open(jet::ColumnType number) {
        createTableOfFills(medium, number);
        connection.Open(std::string("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + kFile);
        records.Open(kElements, connection);
    }
    /// A table of fills in which all columns are texts, with a record that has this one in each.
    void openWithTexts(const std::string& text) {
        records.Close();
        connection.Close();
        medium.files.clear();
        open(jet::ColumnType::text);
        records.AddNew();
        for (const std::string& column : kColumns) records.SetField(column, text);
        records.Update();
    }
    /// Writes a fill as a new record, which is current then.
    bool save(const FillProperties& fill) {
        CFill descriptor;
        descriptor.setDestination(fill);
        records.AddNew();
        const bool written = descriptor.FillToRecordset(records);
        if (written) records.Update();
        return written;
    }
    /// The only box shown, whose text ends with what the system says of the error.
    void expectReport(std::int32_t number, const std::string& text) {
        ASSERT_EQ(runtime.boxes.size(), 1U);
        EXPECT_EQ(runtime.boxes[0].title, "Chyba č. " + std::to_string(number));
        EXPECT_EQ(runtime.boxes[0].style, 16);
        EXPECT_EQ(runtime.boxes[0].text.substr(0, text.size()), text);
    }
    void expectReadReport(std::int32_t number) {
        expectReport(number,
                     "Chyba v modulu \"Huebrush.CFill.FillFromRecordset\"...\r\n\r\n"
                     "Chyba při čtení údajů z databáze...\r\n\r\nSystémový popis výjimky:\r\n");
    }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    jet::MemoryFiles medium;
    jet::Connection connection{medium};
    jet::Recordset records;
    CFill descriptor;
};

TEST_F(FillRecords, TakeTheFifteenColumnsInTheirOrder) {
    Names written;
    records.WillChangeField.connect([&](const std::string& column) { written.push_back(column); });
    EXPECT_TRUE(save(everything()));
    EXPECT_EQ(written, kColumns);
    EXPECT_EQ(records.Field("Visible"), Value(-1));
    EXPECT_EQ(records.Field("ForeColorRGB"), Value(0x102030));
    EXPECT_EQ(records.Field("Type"), Value(4));
    EXPECT_EQ(records.Field("TextureName"), Value(std::string("Žluťoučký kůň.bmp")));
    EXPECT_EQ(records.Field("FillPreview"), Value());
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(FillRecords, GiveBackWhatTheyTook) {
    ASSERT_TRUE(save(everything()));
    descriptor.FillFromRecordset(records);
    EXPECT_EQ(descriptor.destination(), everything());
    EXPECT_EQ(descriptor.original(), FillProperties{});
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(FillRecords, HoldAllValuesWhateverTheTypeOfTheFill) {
    FillProperties invisible = everything();
    invisible.Visible = host::MsoTriState::msoFalse;
    invisible.Type = host::MsoFillType::msoFillSolid;
    ASSERT_TRUE(save(invisible));
    for (const std::string& column : kColumns) {
        EXPECT_FALSE(jet::isNull(records.Field(column))) << column;
    }
    descriptor.FillFromRecordset(records);
    EXPECT_EQ(descriptor.destination(), invisible);
}

TEST_F(FillRecords, LoseTheFractionsOfTransparencyAndDegreeHalfToEven) {
    struct Rounded {
        float given;
        float read;
    };
    for (const auto& [given, read] :
         {Rounded{0.5F, 0}, {1.5F, 2}, {0.25F, 0}, {0.75F, 1}, {-0.5F, 0}, {2.5F, 2}}) {
        FillProperties fill = everything();
        fill.Transparency = given;
        fill.GradientDegree = given;
        ASSERT_TRUE(save(fill));
        EXPECT_EQ(records.Field("Transparency"), Value(static_cast<std::int32_t>(read)));
        descriptor.FillFromRecordset(records);
        EXPECT_EQ(descriptor.destination().Transparency, read);
        EXPECT_EQ(descriptor.destination().GradientDegree, read);
    }
}

TEST_F(FillRecords, KeepWhatTheOriginalFillIsOutOfThem) {
    CFill saved;
    saved.setDestination(everything());
    saved.ApplyChange();
    saved.setDestination(FillProperties{});
    records.AddNew();
    ASSERT_TRUE(saved.FillToRecordset(records));
    records.Update();
    EXPECT_EQ(records.Field("ForeColorRGB"), Value(0));
    EXPECT_EQ(saved.original().ForeColorRGB, 0x102030);
}

TEST_F(FillRecords, TakeNothingOfAFillWithAnUnknownTexture) {
    FillProperties unknown = everything();
    unknown.UnknownTexture = true;
    Names written;
    records.WillChangeField.connect([&](const std::string& column) { written.push_back(column); });
    EXPECT_FALSE(save(unknown));
    EXPECT_TRUE(written.empty());
    ASSERT_EQ(runtime.boxes.size(), 1U);
    EXPECT_EQ(
        runtime.boxes[0],
        (memory::ShownBox{"Výplň nemůže být uložena!\r\n"
                          "Objekt jehož výplň chcete uložit do databáze používá neznámou texturu.",
                          48, "Záznam neuložen"}));
    // What becomes of the record is for the caller to say.
    EXPECT_EQ(records.EditMode(), jet::EditModeEnum::adEditAdd);
}

TEST_F(FillRecords, NeitherHoldNorChangeWhetherTheTextureIsUnknown) {
    ASSERT_TRUE(save(everything()));
    FillProperties unknown;
    unknown.UnknownTexture = true;
    descriptor.setDestination(unknown);
    descriptor.FillFromRecordset(records);
    EXPECT_TRUE(descriptor.destination().UnknownTexture);
    EXPECT_EQ(descriptor.destination().TextureName, "Žluťoučký kůň.bmp");
}

TEST_F(FillRecords, OfAUserTextureGiveItsNameThoughThereIsNoSuchFile) {
    ASSERT_TRUE(save(everything()));
    descriptor.FillFromRecordset(records);
    EXPECT_EQ(descriptor.destination().TextureName, "Žluťoučký kůň.bmp");
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(FillRecords, OfAUserTextureAreFoundToLackTheFileOnlyWhenTheFillIsApplied) {
    ASSERT_TRUE(save(everything()));
    memory::MemoryApplication application;
    const auto shape = application.open("Picture")->addSolid("A", 7);
    application.log.failAt("call A.Fill.UserTextured", base::Error(53, "popis"));
    descriptor.FillFromRecordset(records);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_NE(descriptor.SetFormat(shape->Fill()), "");
    expectReport(53, "Chyba v modulu \"Huebrush.CFill.SetFormat\"");
    EXPECT_EQ(shape->fill.Type, host::MsoFillType::msoFillSolid);
}

TEST_F(FillRecords, MarkTheFillAsChangedEvenIfItIsTheSame) {
    FillProperties fill;
    fill.ForeColorRGB = 7;
    ASSERT_TRUE(save(fill));
    descriptor.setDestination(fill);
    descriptor.ApplyChange();
    ASSERT_FALSE(descriptor.Change());
    descriptor.FillFromRecordset(records);
    EXPECT_EQ(descriptor.destination(), descriptor.original());
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(FillRecords, AtTheirEndNeitherGiveNorTake) {
    ASSERT_TRUE(save(everything()));
    records.MoveNext();
    ASSERT_TRUE(records.Eof());
    EXPECT_FALSE(descriptor.FillToRecordset(records));
    descriptor.FillFromRecordset(records);
    EXPECT_EQ(descriptor.destination(), FillProperties{});
    EXPECT_FALSE(descriptor.Change());
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(FillRecords, OfAnEmptySetNeitherGiveNorTake) {
    FillProperties unknown;
    unknown.UnknownTexture = true;
    descriptor.setDestination(unknown);
    descriptor.ApplyChange();
    EXPECT_FALSE(descriptor.FillToRecordset(records));
    descriptor.FillFromRecordset(records);
    EXPECT_FALSE(descriptor.Change());
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(FillRecords, ShowTheirPreviewBeforeTheFillIsMarkedAsChanged) {
    ASSERT_TRUE(save(everything()));
    const base::Picture preview = base::bitmapOf(1, 1, {1, 2, 3, 0xFF});
    records.SetField("FillPreview", preview.bytes());
    records.Update();
    std::vector<base::Picture> shown;
    descriptor.ReadFromRecordset.connect([&](const base::Picture& picture) {
        EXPECT_EQ(descriptor.destination(), everything());
        EXPECT_FALSE(descriptor.Change());
        shown.push_back(picture);
    });
    descriptor.FillFromRecordset(records);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0], preview);
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(FillRecords, WithoutAPreviewShowNoPicture) {
    ASSERT_TRUE(save(everything()));
    std::vector<base::Picture> shown;
    descriptor.ReadFromRecordset.connect(
        [&](const base::Picture& picture) { shown.push_back(picture); });
    descriptor.FillFromRecordset(records);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_TRUE(shown[0].empty());
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(FillRecords, WithAPreviewThatIsNoPictureAreReadAllTheSame) {
    ASSERT_TRUE(save(everything()));
    records.SetField("FillPreview", jet::Bytes{1, 2, 3});
    records.Update();
    descriptor.FillFromRecordset(records);
    ASSERT_EQ(runtime.boxes.size(), 1U);
    EXPECT_NE(runtime.boxes[0].text.find("Chyba při načítání náhledu výplně z databáze."),
              std::string::npos);
    EXPECT_EQ(descriptor.destination(), everything());
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(FillRecords, WithANullStopTheReadingThere) {
    for (std::size_t missing = 0; missing < kColumns.size(); ++missing) {
        SCOPED_TRACE(kColumns[missing]);
        ASSERT_TRUE(save(everything()));
        records.SetField(kColumns[missing], Value());
        records.Update();
        CFill read;
        bool raised = false;
        read.ReadFromRecordset.connect([&](const base::Picture&) { raised = true; });
        runtime.boxes.clear();
        read.FillFromRecordset(records);
        expectReadReport(94);
        EXPECT_FALSE(raised);
        EXPECT_FALSE(read.Change());
        // What was read before it stays.
        EXPECT_EQ(read.destination().Visible,
                  missing > 0 ? everything().Visible : FillProperties{}.Visible);
        EXPECT_EQ(read.destination().Pattern, missing > 13 ? 13 : 0);
    }
}

TEST_F(FillRecords, OfAnotherKindAreConverted) {
    openWithTexts("4.5");
    descriptor.FillFromRecordset(records);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 4);
    EXPECT_EQ(descriptor.destination().Type, host::MsoFillType::msoFillTextured);
    EXPECT_EQ(descriptor.destination().Transparency, 4.5F);
    EXPECT_EQ(descriptor.destination().TextureName, "4.5");
}

TEST_F(FillRecords, BeyondTheRangeOfANumberStopTheReadingThere) {
    openWithTexts("7");
    records.SetField("BackColorRGB", std::string("3000000000"));
    records.Update();
    descriptor.FillFromRecordset(records);
    expectReadReport(6);
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 7);
    EXPECT_EQ(descriptor.destination().BackColorRGB, 0);
}

TEST_F(FillRecords, KeepWhatWasAssignedBeforeAColumnRefused) {
    FillProperties fill = everything();
    fill.GradientDegree = 3e9F;
    EXPECT_FALSE(save(fill));
    expectReport(6,
                 "Chyba v modulu \"Huebrush.CFill.FillToRecordset\"...\r\n\r\n"
                 "Chyba při ukládání údajů do databáze...\r\n\r\nSystémový popis výjimky:\r\n");
    EXPECT_EQ(records.EditMode(), jet::EditModeEnum::adEditAdd);
    EXPECT_EQ(records.Field("GradientVariant"), Value(6));
    EXPECT_EQ(records.Field("GradientDegree"), Value());
}

TEST_F(FillRecords, OfAClosedSetAreReported) {
    records.Close();
    EXPECT_FALSE(descriptor.FillToRecordset(records));
    expectReport(3704,
                 "Chyba v modulu \"Huebrush.CFill.FillToRecordset\"...\r\n\r\n"
                 "Chyba při ukládání údajů do databáze...");
    runtime.boxes.clear();
    descriptor.FillFromRecordset(records);
    expectReadReport(3704);
}

/// Palette files among those of other programs, if the environment variable HUEBRUSH_SAMPLES names
/// a folder with such files.
class FillRecordsOfOtherPrograms : public files::Folder {};

TEST_F(FillRecordsOfOtherPrograms, AreReadWithTheValuesOfTheirColumns) {
    const char* const samples = std::getenv("HUEBRUSH_SAMPLES");
    if (samples == nullptr) GTEST_SKIP() << "HUEBRUSH_SAMPLES names no folder with .mdb files";
    memory::MemoryRuntime runtime;
    runtime.temporary = files::nameOf(folder);
    const forms::RuntimeScope scope(runtime);
    std::size_t fills = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
        if (entry.path().extension() != ".mdb") continue;
        SCOPED_TRACE(entry.path());
        jet::Connection connection;
        jet::Recordset records;
        const bool palettes = base::ignoring<base::Error>([&] {
            connection.Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" +
                            entry.path().string());
            records.Open(kElements, connection);
        });
        if (!palettes) continue;
        for (; !records.Eof(); records.MoveNext()) {
            if (!base::ignoring<base::Error>([&] { jet::toText(records.Field("TextureName")); }) ||
                !base::ignoring<base::Error>([&] { jet::toText(records.Field("PictureName")); })) {
                continue;
            }
            CFill read;
            read.FillFromRecordset(records);
            EXPECT_TRUE(read.Change());
            EXPECT_EQ(read.destination().ForeColorRGB, jet::toLong(records.Field("ForeColorRGB")));
            EXPECT_EQ(read.destination().GradientDegree,
                      jet::toSingle(records.Field("GradientDegree")));
            EXPECT_EQ(read.destination().TextureName, jet::toText(records.Field("TextureName")));
            EXPECT_EQ(read.destination().PictureName, jet::toText(records.Field("PictureName")));
            ++fills;
        }
    }
    if (fills == 0) GTEST_SKIP() << "There is no palette file in " << samples;
}

}  // namespace
}  // namespace huebrush::fill
