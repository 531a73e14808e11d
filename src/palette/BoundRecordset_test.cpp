// SPDX-License-Identifier: MPL-2.0

#include "palette/BoundRecordset.h"

#include <gtest/gtest.h>

#include "palette/DataFile.h"
#include "palette/PaletteDialog_test_support.h"

namespace huebrush::palette {
namespace {

using jet::EditModeEnum;

/// The palettes "a" with no fills and "b" with two, and what the record set has raised.
class BoundRecordsets : public PaletteFilesTest {
 protected:
    BoundRecordsets() {
        makeFile();
        addPalette("a", {});
        addPalette("b", {1, 2});
        openDatabase(connection, kFile);
        records.Open(kPalettesQuery, connection);
        records.WillChangeField.connect(
            [this](const std::string& column) { events.push_back("will change " + column); });
        records.WillLeaveRecord.connect([this] { events.emplace_back("will leave"); });
        records.RecordChanged.connect([this] { events.emplace_back("changed"); });
    }
    /// Has a control that hands a name over when the record is left.
    void handOverName(const std::string& name) {
        records.WillLeaveRecord.connect([this, name] { records.setText("Name", name); });
    }
    /// The events since the last call.
    Names raised() { return std::exchange(events, {}); }
    std::int32_t errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::Error& error) {
            return error.number();
        }
        return 0;
    }

    jet::Connection connection{files};
    BoundRecordset records;
    Names events;
};

TEST_F(BoundRecordsets, ShowTheFieldsOfTheCurrentRecordAsTexts) {
    EXPECT_EQ(records.text("Name"), "a");
    EXPECT_EQ(records.text("Count"), "0");
    records.MoveNext();
    EXPECT_EQ(records.text("Name"), "b");
    records.MoveNext();
    EXPECT_FALSE(records.isOnRecord());
    EXPECT_EQ(records.text("Name"), "");
}

TEST_F(BoundRecordsets, ShowNothingOfANullAndWhileTheyAreClosed) {
    records.SetField("Description", jet::Value());
    EXPECT_EQ(records.text("Description"), "");
    const BoundRecordset closed;
    EXPECT_FALSE(closed.isOpen());
    EXPECT_EQ(BoundRecordset().text("Name"), "");
    EXPECT_FALSE(BoundRecordset().beginEdit("Name"));
}

TEST_F(BoundRecordsets, HaveTheTextsHandedOverBeforeARecordIsLeft) {
    const std::vector<std::pair<const char*, std::function<void()>>> ways{
        {"MoveFirst", [this] { records.MoveFirst(); }},
        {"MoveNext", [this] { records.MoveNext(); }},
        {"Find", [this] { records.Find("ID=2"); }},
        {"AddNew", [this] { records.AddNew(); }},
        {"Update", [this] { records.Update(); }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        records.Requery();
        raised();
        leave();
        EXPECT_EQ(raised(), (Names{"will leave", "changed"}));
    }
}

TEST_F(BoundRecordsets, DiscardWhatWasTypedWhereARecordIsNotLeftButGivenUp) {
    const std::vector<std::pair<const char*, std::function<void()>>> ways{
        {"CancelUpdate", [this] { records.CancelUpdate(); }},
        {"Requery", [this] { records.Requery(); }},
        {"Delete", [this] { records.Delete(); }},
    };
    for (const auto& [name, giveUp] : ways) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(records.beginEdit("Name"));
        records.setText("Name", "typed");
        raised();
        giveUp();
        EXPECT_EQ(raised(), Names{"changed"});
        EXPECT_FALSE(records.isEditing());
        EXPECT_NE(records.text("Name"), "typed");
    }
    EXPECT_EQ(contents(), Names{"2 b (2): 1@0 2@1"});
}

TEST_F(BoundRecordsets, WriteWhatIsHandedOver) {
    ASSERT_TRUE(records.beginEdit("Name"));
    handOverName("nové");
    records.Update();
    EXPECT_EQ(records.text("Name"), "nové");
    EXPECT_EQ(contents(), (Names{"1 nové (0):", "2 b (2): 1@0 2@1"}));
}

TEST_F(BoundRecordsets, AreBeingEditedFromTheFirstChangeOfAControlOn) {
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditNone);
    EXPECT_TRUE(records.beginEdit("Name"));
    EXPECT_EQ(raised(), Names{"will change Name"});
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditInProgress);
    EXPECT_TRUE(records.isEditing());
    records.Update();
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditNone);
    records.AddNew();
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditAdd);
    EXPECT_TRUE(records.beginEdit("Name"));
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditAdd);
}

TEST_F(BoundRecordsets, BeginNoEditWithoutARecord) {
    records.MoveNext();
    records.MoveNext();
    raised();
    EXPECT_FALSE(records.beginEdit("Name"));
    EXPECT_EQ(raised(), Names{});
    EXPECT_FALSE(records.isEditing());
}

TEST_F(BoundRecordsets, BeginNoEditThatAHandlerRefuses) {
    records.WillChangeField.connect([](const std::string&) { throw base::Error(1, "ne"); });
    EXPECT_EQ(errorOf([this] { records.beginEdit("Name"); }), 1);
    EXPECT_FALSE(records.isEditing());
}

TEST_F(BoundRecordsets, StayWhereTheyAreWhenATextCannotBeHandedOver) {
    records.WillLeaveRecord.connect([] { throw base::Error(1, "ne"); });
    EXPECT_EQ(errorOf([this] { records.MoveNext(); }), 1);
    EXPECT_EQ(errorOf([this] { records.AddNew(); }), 1);
    EXPECT_EQ(records.text("Name"), "a");
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditNone);
}

TEST_F(BoundRecordsets, NotifyTheirControlsOfAValueThatTheProgramSets) {
    records.SetField("Name", "dané");
    EXPECT_EQ(raised(), (Names{"will change Name", "changed"}));
    EXPECT_EQ(records.text("Name"), "dané");
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditInProgress);
}

TEST_F(BoundRecordsets, ShowNothingOfADeletedRecord) {
    records.Delete();
    EXPECT_EQ(records.EditMode(), EditModeEnum::adEditDelete);
    EXPECT_EQ(records.text("Name"), "");
    EXPECT_FALSE(records.isEditing());
    records.Requery();
    EXPECT_EQ(records.text("Name"), "b");
    EXPECT_EQ(records.RecordCount(), 1U);
}

TEST_F(BoundRecordsets, ShowAfterARequeryWhatOthersHaveWritten) {
    addPalette("0", {7});
    EXPECT_EQ(records.RecordCount(), 2U);
    records.Requery();
    EXPECT_EQ(records.RecordCount(), 3U);
    EXPECT_EQ(records.text("Name"), "0");
}

}  // namespace
}  // namespace huebrush::palette
