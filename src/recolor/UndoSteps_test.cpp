// SPDX-License-Identifier: MPL-2.0

#include "recolor/UndoSteps.h"

#include <gtest/gtest.h>

#include <optional>

#include "ports/memory/TestHost.h"

namespace huebrush::recolor {
namespace {

using Titles = std::vector<std::string>;

class UndoStepsTest : public ::testing::Test {
 protected:
    void change(memory::MemoryDocument& document) { document.addSolid("", 1); }

    memory::TestHost test;
    std::shared_ptr<memory::MemoryDocument> other = test.application.open("Other");
    /// The numbers of failed writes of the steps that have ended.
    std::vector<std::size_t> ended;
    std::optional<UndoSteps> steps{
        std::in_place, "Change",
        [this](const std::vector<host::FailedWrite>& failed) { ended.push_back(failed.size()); }};
};

TEST_F(UndoStepsTest, MakesOneStepADocument) {
    steps->begin(test.document);
    change(*test.document);
    change(*test.document);
    EXPECT_TRUE(ended.empty());
    steps->end();
    steps->begin(other);
    change(*other);
    steps->end();
    EXPECT_EQ(test.document->undoTitles, Titles{"Change"});
    EXPECT_EQ(other->undoTitles, Titles{"Change"});
    EXPECT_EQ(ended, (std::vector<std::size_t>{0, 0}));
}

TEST_F(UndoStepsTest, KnowsTheDocumentOfItsLastStep) {
    EXPECT_FALSE(steps->isIn(*other));
    steps->begin(other);
    EXPECT_TRUE(steps->isIn(*other));
    EXPECT_FALSE(steps->isIn(*test.document));
    steps->end();
    EXPECT_TRUE(steps->isIn(*other));
}

TEST_F(UndoStepsTest, HandsOverWhatHasFailedOnceAStep) {
    test.document->failedWrites = {{"A", base::Error(7, "popis")}, {"B", base::Error(7, "popis")}};
    steps->begin(test.document);
    steps->end();
    steps->end();
    EXPECT_EQ(ended, std::vector<std::size_t>{2});
}

TEST_F(UndoStepsTest, EndsTheStepWithItself) {
    steps->begin(test.document);
    change(*test.document);
    steps.reset();
    EXPECT_EQ(test.document->undoTitles, Titles{"Change"});
    EXPECT_EQ(ended, std::vector<std::size_t>{0});
}

TEST_F(UndoStepsTest, AStepThatCannotBeginIsTheCallersErrorAndHasNoEnd) {
    test.log().failAt("call Picture.undoGroup", base::Error(7, "busy"));
    EXPECT_THROW(steps->begin(test.document), base::Error);
    steps.reset();
    EXPECT_TRUE(ended.empty());
}

/// A host that keeps its own undo steps.
class DocumentWithoutUndo final : public host::Document {
 public:
    std::shared_ptr<host::Shapes> Shapes() override { return nullptr; }
    std::shared_ptr<host::Selection> Selection() override { return nullptr; }
    void Close() override {}
    bool isSame(const host::Document& other) const override { return this == &other; }
};

TEST_F(UndoStepsTest, AHostWithoutUndoGroupsHasNothingToEnd) {
    const auto document = std::make_shared<DocumentWithoutUndo>();
    steps->begin(document);
    EXPECT_TRUE(steps->isIn(*document));
    steps->end();
    EXPECT_TRUE(ended.empty());
}

}  // namespace
}  // namespace huebrush::recolor
