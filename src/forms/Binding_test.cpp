// SPDX-License-Identifier: MPL-2.0

#include "forms/Binding.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"

namespace huebrush::forms {
namespace {

/// One record with one field, which notes what it is asked.
class OneField final : public DataSource {
 public:
    std::string text(const std::string&) override { return value; }
    bool beginEdit(const std::string& field) override {
        calls.push_back("edit " + field);
        if (onEdit) onEdit();
        return true;
    }
    void setText(const std::string& field, const std::string& text) override {
        calls.push_back(field + "=" + text);
        value = text;
    }

    std::string value = "old";
    std::vector<std::string> calls;
    std::function<void()> onEdit;
};

class BindingTest : public ::testing::Test {
 protected:
    void change(const std::string& text) {
        shown = text;
        binding.textChanged();
    }

    std::string shown;
    std::shared_ptr<OneField> source = std::make_shared<OneField>();
    std::shared_ptr<OneField> other = std::make_shared<OneField>();
    Binding binding{[this](const std::string& text) { change(text); }, [this] { return shown; }};
};

TEST_F(BindingTest, ShowingTheRecordIsNoChangeOfIt) {
    binding.bind(source, "F");
    EXPECT_EQ(shown, "old");
    source->value = "new";
    source->RecordChanged();
    EXPECT_EQ(shown, "new");
    EXPECT_TRUE(source->calls.empty());
    EXPECT_FALSE(binding.hasTextToHandOver());
}

TEST_F(BindingTest, AnotherSourceTakesTheControlOver) {
    binding.bind(source, "F");
    change("typed");
    other->value = "other";
    binding.bind(other, "G");
    EXPECT_EQ(shown, "other");
    source->RecordChanged();
    source->WillLeaveRecord();
    EXPECT_EQ(shown, "other");
    EXPECT_EQ(source->calls, std::vector<std::string>{"edit F"}) << "what was typed is forgotten";
    change("mine");
    other->WillLeaveRecord();
    EXPECT_EQ(other->calls, (std::vector<std::string>{"edit G", "G=mine"}));
}

TEST_F(BindingTest, TheStartOfAnEditMayBindTheControlToSomethingElse) {
    binding.bind(source, "F");
    source->onEdit = [this] { binding.bind(other, "G"); };
    change("typed");
    EXPECT_EQ(shown, "old");
    binding.handOver();
    EXPECT_TRUE(other->calls.empty());
    EXPECT_EQ(source->calls, std::vector<std::string>{"edit F"});
}

TEST_F(BindingTest, AnEditThatCannotBeginIsReportedAndTheRecordShownAgain) {
    binding.bind(source, "F");
    source->onEdit = [] { throw base::Error(3197, "changed meanwhile"); };
    EXPECT_THROW(change("typed"), base::Error);
    EXPECT_EQ(shown, "old");
    EXPECT_FALSE(binding.hasTextToHandOver());
}

TEST_F(BindingTest, TheSourceLivesAsLongAsTheBindingAndIsLeftWithIt) {
    const std::weak_ptr<OneField> watched = source;
    {
        Binding shortLived([](const std::string&) {});
        shortLived.bind(std::exchange(source, nullptr), "F");
        EXPECT_FALSE(watched.expired());
    }
    EXPECT_TRUE(watched.expired());
    binding.bind(other, "F");
    binding.unbind();
    EXPECT_FALSE(other->RecordChanged.connected());
    EXPECT_FALSE(other->WillLeaveRecord.connected());
}

}  // namespace
}  // namespace huebrush::forms
