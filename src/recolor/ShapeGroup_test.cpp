// SPDX-License-Identifier: MPL-2.0

#include "recolor/ShapeGroup.h"

#include <gtest/gtest.h>

#include "ports/memory/TestHost.h"

namespace huebrush::recolor {
namespace {

using Calls = std::vector<std::string>;

class ShapeGroupTest : public ::testing::Test {
 protected:
    ShapeGroupTest() {
        for (const char* const name : {"A", "B"}) {
            shapes.push_back(test.document->addSolid(name, 1));
        }
        fill.SaveOriginalFormat(shapes.front()->Fill());
        fill.setDesTransparency(0.5F);
    }
    float transparencyOf(const std::string& name) {
        return test.document->find(name)->fill.Transparency;
    }

    memory::TestHost test;
    ShapeGroup shapes;
    fill::CFill fill;
};

TEST_F(ShapeGroupTest, GivesAFillInOnePassAndMakesItTheCurrentOne) {
    test.startLog();
    EXPECT_EQ(giveFill(fill, shapes, *test.document), "");
    EXPECT_EQ(test.calls(),
              (Calls{"read A.Name", "read B.Name", "call Picture.Shapes.Range",
                     "write Range.Fill.ForeColor.RGB 1", "write Range.Fill.BackColor.RGB 16777215",
                     "call Range.Fill.Solid", "write Range.Fill.Transparency 0.5",
                     "write Range.Fill.Visible -1", "call Picture.markModified"}));
    EXPECT_EQ(transparencyOf("A"), 0.5F);
    EXPECT_EQ(transparencyOf("B"), 0.5F);
    EXPECT_FALSE(fill.Change());
    EXPECT_EQ(fill.original().Transparency, 0.5F);
}

TEST_F(ShapeGroupTest, ReturnsWhatTheFillHasReportedAndCountsItAsGiven) {
    test.log().failAt("call Range.Fill.Solid", base::Error(7, "popis"));
    const std::string reported = giveFill(fill, shapes, *test.document);
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(reported, test.runtime.boxes[0].text);
    EXPECT_NE(reported.find("popis"), std::string::npos);
    EXPECT_FALSE(fill.Change());
}

TEST_F(ShapeGroupTest, AShapeThatIsGoneIsTheCallersErrorAndNothingIsWritten) {
    test.document->remove(test.document->find("B"));
    test.startLog();
    EXPECT_THROW(giveFill(fill, shapes, *test.document), base::Error);
    EXPECT_TRUE(test.log().beginningWith("write").empty());
    EXPECT_TRUE(fill.Change());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(ShapeGroupTest, TakesOutTheFailedFillsOfItsShapesAlone) {
    std::vector<host::FailedWrite> failed{{"C", base::Error(1, "of another")},
                                          {"B", base::Error(2, "first")},
                                          {"", base::Error(3, "of nobody")},
                                          {"A", base::Error(4, "second")}};
    const auto first = takeFailed(failed, shapes);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->description(), "first");
    ASSERT_EQ(failed.size(), 2U);
    EXPECT_EQ(failed[0].shape, "C");
    EXPECT_EQ(failed[1].shape, "");
    EXPECT_FALSE(takeFailed(failed, shapes));
    EXPECT_EQ(failed.size(), 2U);
}

TEST_F(ShapeGroupTest, AShapeWithoutANameAnyMoreHasNoFailedFills) {
    test.document->remove(test.document->find("A"));
    std::vector<host::FailedWrite> failed{{"A", base::Error(1, "gone")},
                                          {"B", base::Error(2, "locked")}};
    EXPECT_EQ(takeFailed(failed, shapes)->description(), "locked");
    EXPECT_EQ(failed.size(), 1U);
}

}  // namespace
}  // namespace huebrush::recolor
