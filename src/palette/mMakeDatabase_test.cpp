// SPDX-License-Identifier: MPL-2.0

#include "palette/mMakeDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "jet/check/Check.h"
#include "jet/database/Relation.h"
#include "jet/database/Table.h"
#include "jet/file/MemoryFiles.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::palette {
namespace {

using forms::MsgBoxResult;
using jet::ColumnType;
using jet::Value;

constexpr const char* kFile = "/fill.mdb";

class Making : public ::testing::Test {
 protected:
    std::shared_ptr<jet::Database> open() { return jet::Database::open(files, kFile); }
    std::vector<std::string> tables() {
        std::vector<std::string> names;
        const auto database = open();
        for (const auto& object : database->objects()) {
            if (object.isUserTable()) names.push_back(object.name);
        }
        return names;
    }
    /// Each column as its name, type, size, and what it refuses.
    std::vector<std::string> columns(const std::string& table) {
        std::vector<std::string> lines;
        const auto definition = open()->definition(table);
        for (const jet::Column& column : definition->columns) {
            std::string line = column.name;
            if (column.type == ColumnType::longInteger) line += " long";
            if (column.type == ColumnType::text)
                line += " text" + std::to_string(column.length / 2);
            if (column.type == ColumnType::ole) line += " ole";
            if (column.autonumber) line += " auto";
            if (column.required) line += " required";
            if (!column.allowZeroLength) line += " not empty";
            lines.push_back(line);
        }
        return lines;
    }
    /// Makes the n-th system call from now on fail, once.
    void failOnce(const std::string& call, std::size_t number = 1) {
        files.onCall = [call, number, seen = std::size_t{0}](const char* what) mutable {
            if (what == call && ++seen == number) {
                throw base::Error(jet::ErrorNumber::kOutOfSpace, "Disk je plný.");
            }
        };
    }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    jet::MemoryFiles files;
};

TEST_F(Making, GivesTheTwoTablesWithTheirColumns) {
    EXPECT_TRUE(MakeDatabase(kFile, files));
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(tables(), (std::vector<std::string>{"TFillGroup", "TFillElementParameter"}));
    EXPECT_EQ(columns("TFillGroup"),
              (std::vector<std::string>{"ID long auto", "Name text30 required not empty",
                                        "Description text255", "Count long"}));
    EXPECT_EQ(columns("TFillElementParameter"),
              (std::vector<std::string>{
                  "ID long auto", "GroupID long required", "OrderNumber long required",
                  "Visible long required", "ForeColorRGB long required",
                  "BackColorRGB long required", "Transparency long required",
                  "GradientStyle long required", "GradientColorType long required",
                  "GradientVariant long required", "GradientDegree long required",
                  "PresetGradientType long required", "TextureType long required",
                  "Type long required", "PresetTexture long required", "TextureName text255",
                  "Pattern long required", "PictureName text255", "FillPreview ole"}));
}

TEST_F(Making, GivesTheKeysAndTheRelationThatDoesNotCascade) {
    ASSERT_TRUE(MakeDatabase(kFile, files));
    const auto database = open();
    for (const std::string table : {"TFillGroup", "TFillElementParameter"}) {
        const auto definition = database->definition(table);
        const auto key = std::find_if(definition->indexes.begin(), definition->indexes.end(),
                                      [&](const auto& each) { return each.name == "PIX" + table; });
        ASSERT_NE(key, definition->indexes.end());
        EXPECT_EQ(key->kind, jet::LogicalIndex::Kind::primaryKey);
        EXPECT_TRUE(definition->trees[key->tree].unique);
    }
    const auto relations = jet::relationsOf(
        *database, database->definition("TFillElementParameter"), jet::LogicalIndex::Side::child);
    ASSERT_EQ(relations.size(), 1U);
    EXPECT_EQ(relations[0].here->name, "Relace");
    EXPECT_EQ(relations[0].otherTable->name, "TFillGroup");
    EXPECT_EQ(relations[0].there->name, ".rB");
    EXPECT_EQ(relations[0].here->cascadeDelete, 0);
    EXPECT_EQ(relations[0].here->cascadeUpdate, 0);
    const auto result = jet::check(*database);
    EXPECT_TRUE(result.violations.empty());
}

TEST_F(Making, AnExistingFileIsAnErrorThatIsAskedAbout) {
    ASSERT_TRUE(MakeDatabase(kFile, files));
    const jet::Bytes before = *files.files.at(kFile);
    runtime.answers = {MsgBoxResult::abort};
    EXPECT_FALSE(MakeDatabase(kFile, files));
    ASSERT_EQ(runtime.boxes.size(), 1U);
    EXPECT_EQ(runtime.boxes[0].title, "Chyba č. 3204");
    EXPECT_EQ(runtime.boxes[0].style, 50);
    EXPECT_EQ(runtime.boxes[0].text,
              "Chyba v modulu \"Huebrush.mMakeDatabase.MakeDatabase\"...\r\n\r\n"
              "Při vytváření databáze vznikla chyba...\r\n\r\nSystémový popis výjimky:\r\n"
              "Databáze „/fill.mdb“ už existuje.");
    EXPECT_EQ(*files.files.at(kFile), before);
}

TEST_F(Making, AbortLeavesAHalfMadeFile) {
    // The tables are stored one by one; the file is first replaced for the first of them.
    failOnce("replace", 2);
    runtime.answers = {MsgBoxResult::abort};
    EXPECT_FALSE(MakeDatabase(kFile, files));
    EXPECT_EQ(runtime.boxes.size(), 1U);
    files.onCall = nullptr;
    EXPECT_EQ(tables(), std::vector<std::string>{"TFillGroup"});
}

TEST_F(Making, RetryRepeatsTheStepThatFailed) {
    for (std::size_t number = 1; number <= 6; ++number) {
        files.files.clear();
        runtime.boxes.clear();
        failOnce("replace", number);
        runtime.answers = {MsgBoxResult::retry};
        EXPECT_TRUE(MakeDatabase(kFile, files));
        EXPECT_EQ(runtime.boxes.size(), 1U);
        files.onCall = nullptr;
        EXPECT_EQ(columns("TFillElementParameter").size(), 19U);
        const auto database = open();
        EXPECT_TRUE(jet::check(*database).violations.empty());
        EXPECT_EQ(jet::relationsOf(*database, database->definition("TFillElementParameter"),
                                   jet::LogicalIndex::Side::child)
                      .size(),
                  1U);
    }
}

TEST_F(Making, IgnoreGoesOnWithTheNextStepAndTheResultIsTrue) {
    // Without its second table the file has no place for the properties and the relation either.
    failOnce("replace", 3);
    runtime.answers = {MsgBoxResult::ignore, MsgBoxResult::ignore, MsgBoxResult::ignore,
                       MsgBoxResult::ignore};
    EXPECT_TRUE(MakeDatabase(kFile, files));
    EXPECT_EQ(runtime.boxes.size(), 4U);
    files.onCall = nullptr;
    EXPECT_EQ(tables(), std::vector<std::string>{"TFillGroup"});
}

}  // namespace
}  // namespace huebrush::palette
