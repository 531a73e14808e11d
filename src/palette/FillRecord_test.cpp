// SPDX-License-Identifier: MPL-2.0

#include "palette/FillRecord.h"

#include <gtest/gtest.h>

#include "jet/file/MemoryFiles.h"
#include "palette/mMakeDatabase.h"

namespace huebrush::palette {
namespace {

using fill::FillProperties;

/// A fill whose properties all differ from each other.
FillProperties someFill() {
    FillProperties fill;
    std::int32_t next = 11;
    fill::forEveryProperty([&](const auto& property) {
        auto& member = fill.*property.member;
        using Member = std::decay_t<decltype(member)>;
        ++next;
        if constexpr (std::is_same_v<Member, std::string>) {
            member = "Žula " + std::to_string(next);
        } else if constexpr (!std::is_same_v<Member, bool>) {
            member = static_cast<Member>(next);
        }
    });
    return fill;
}

class FillRecord : public ::testing::Test {
 protected:
    FillRecord() {
        EXPECT_TRUE(MakeDatabase("fill.mdb", files));
        database = jet::Database::open(files, "fill.mdb");
    }

    void add(const FillProperties& fill) {
        database->change([&] {
            PaletteAdder adder(*database);
            const jet::Table::Values group{{&adder.groups().column("Name"), std::string("Podzim")}};
            adder.begin(group);
            adder.fill(valuesOf(adder.elements(), fill));
            adder.end(group);
        });
    }
    Record stored() { return fillsOf(*database, 1).at(0); }

    jet::MemoryFiles files;
    std::shared_ptr<jet::Database> database;
};

TEST_F(FillRecord, KeepsAllPropertiesThatHaveAColumn) {
    add(someFill());
    EXPECT_EQ(fillOf(stored()), someFill());
}

TEST_F(FillRecord, KeepsWholeNumbersOnlyAndRoundsHalfToEven) {
    FillProperties fill;
    fill.Transparency = 0.5F;
    fill.GradientDegree = 0.75F;
    add(fill);
    EXPECT_EQ(fillOf(stored()).Transparency, 0.0F);
    EXPECT_EQ(fillOf(stored()).GradientDegree, 1.0F);
}

TEST_F(FillRecord, ReadsTextsThatAreNullAsEmptyAndRefusesNumbersThatAre) {
    add(someFill());
    Record row = stored();
    const auto setNull = [&](const std::string& column) {
        for (auto& [name, value] : row) {
            if (name == column) value = jet::Value();
        }
    };
    setNull("TextureName");
    setNull("PictureName");
    EXPECT_EQ(fillOf(row).TextureName, "");
    EXPECT_EQ(fillOf(row).PictureName, "");
    setNull("Pattern");
    EXPECT_THROW(fillOf(row), base::Error);
}

}  // namespace
}  // namespace huebrush::palette
