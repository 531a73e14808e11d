// SPDX-License-Identifier: MPL-2.0

#include "recolor/ScanCollection.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

#include "base/Text.h"
#include "ports/memory/TestHost.h"

namespace huebrush::recolor {
namespace {

using base::text;
using Names = std::vector<std::string>;

class GroupByFillTest : public ::testing::Test {
 protected:
    /// Shapes named by letters, of these colours.
    void add(std::initializer_list<std::int32_t> colors) {
        for (const std::int32_t color : colors) {
            const std::string name(1, static_cast<char>('A' + shapes.size()));
            shapes.add(test.document->addSolid(name, color));
        }
    }
    /// What groupByFill says, in its order: "taken/total" at a step, the names at a group.
    Names said;
    /// How many calls are answered with going on.
    std::size_t patience = 1000;
    void group() {
        groupByFill(shapes, {[this](std::size_t taken, base::Count16 total) {
                                 return say(text(taken, "/", total));
                             },
                             [this](const std::shared_ptr<const ShapeGroup>& found) {
                                 std::string names;
                                 for (const auto& shape : *found) names += shape->Name();
                                 return say(names);
                             }});
    }

    memory::TestHost test;
    ScanCollection shapes;

 private:
    bool say(std::string what) {
        said.push_back(std::move(what));
        return said.size() < patience;
    }
};

TEST_F(GroupByFillTest, SaysEachStepAndEachGroupInTheOrderOfTheFirstShapes) {
    add({1, 2, 1, 3, 2});
    group();
    EXPECT_EQ(said, (Names{"0/5", "2/5", "AC", "2/5", "4/5", "BE", "4/5", "D"}));
    EXPECT_TRUE(shapes.empty());
}

TEST_F(GroupByFillTest, WithoutShapesSaysNothing) {
    group();
    EXPECT_TRUE(said.empty());
}

TEST_F(GroupByFillTest, EndsAtWhateverStepSaysSo) {
    const Names all{"0/3", "2/3", "AC", "2/3", "B"};
    for (patience = 1; patience <= all.size(); ++patience) {
        shapes = ScanCollection();
        said.clear();
        test.document->shapes.clear();
        for (const auto& [name, color] : {std::pair("A", 1), {"B", 2}, {"C", 1}}) {
            auto shape = std::make_shared<memory::MemoryShape>(*test.document, name,
                                                               host::MsoShapeType::msoAutoShape);
            shape->fill.ForeColorRGB = color;
            shapes.add(shape);
        }
        group();
        EXPECT_EQ(said, Names(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(patience)));
    }
}

TEST_F(GroupByFillTest, ComparesEachShapeWithTheFirstOfEachGroup) {
    add({1, 2, 2});
    test.startLog();
    group();
    // B and C are compared with A, then C with B.
    EXPECT_EQ(test.log().beginningWith("read A.Fill.ForeColor.RGB").size(), 2U);
    EXPECT_EQ(test.log().beginningWith("read B.Fill.ForeColor.RGB").size(), 2U);
    EXPECT_EQ(test.log().beginningWith("read C.Fill.ForeColor.RGB").size(), 2U);
}

TEST_F(GroupByFillTest, MoreShapesThanTheCounterHoldsAreAnErrorBeforeAnyStep) {
    const auto shape = test.document->addSolid("A", 1);
    for (std::int32_t i = 0; i <= base::Count16::kLargest; ++i) shapes.add(shape);
    EXPECT_THROW(group(), base::Error);
    EXPECT_TRUE(said.empty());
}

}  // namespace
}  // namespace huebrush::recolor
