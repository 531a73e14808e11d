// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "error/mError.h"
#include "forms/Runtime.h"
#include "ports/memory/MemoryHost.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::batch {
namespace {

constexpr std::int32_t kRed = 0x0000C0;
constexpr std::int32_t kGreen = 0x00C000;
constexpr std::int32_t kBlue = 0xC07000;

class BatchSession : public ::testing::Test {
 protected:
    BatchSession() { document = host.open("Picture"); }

    memory::MemoryShapePointer add(const std::string& name, std::int32_t color) {
        return document->addSolid(name, color);
    }
    void addThreeRows() {
        add("Roof", kRed);
        add("Grass", kGreen);
        add("Wall", kRed);
        document->addGroup("House", {add("Door", kRed), add("Window", kBlue)});
    }

    memory::MemoryRuntime platform;
    memory::MemoryApplication host;
    std::shared_ptr<memory::MemoryDocument> document;
    BatchRuntime runtime{platform};
    forms::RuntimeScope scope{runtime};
};

TEST_F(BatchSession, ListsTheDistinctFillsOfAllShapesWithTheirCounts) {
    addThreeRows();
    Session session(host, document);
    const std::vector<FillRow> rows = session.scan();
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].shapes, 3U);
    EXPECT_EQ(rows[0].fill.ForeColorRGB, kRed);
    EXPECT_EQ(rows[1].fill.ForeColorRGB, kGreen);
    EXPECT_EQ(rows[2].fill.ForeColorRGB, kBlue);
    EXPECT_EQ(rows[2].row, 3);
    ASSERT_EQ(runtime.messages().size(), 1U);
    EXPECT_EQ(runtime.messages()[0].kind, Message::Kind::information);
    EXPECT_EQ(host.openScratchDocuments(), 0U);
}

TEST_F(BatchSession, MapsAColourAndKeepsTheTransparencyOfItsShapes) {
    addThreeRows();
    document->find("Wall")->fill.Transparency = 0.25F;
    Session session(host, document);
    session.scan();
    const RecolorResult result = session.recolor({{{kRed, kBlue}}, {}});
    EXPECT_EQ(document->find("Roof")->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(document->find("Door")->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(document->find("Wall")->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(document->find("Wall")->fill.Transparency, 0.25F);
    EXPECT_EQ(document->find("Grass")->fill.ForeColorRGB, kGreen);
    EXPECT_EQ(result.shapes, 5U);
    EXPECT_EQ(result.groups, 4U);
    EXPECT_EQ(result.changed, 3U);
    ASSERT_EQ(result.skipped.size(), 2U);
    EXPECT_EQ(result.skipped[0].reason, "unchanged");
    EXPECT_EQ(document->undoTitles.size(), 1U);
}

TEST_F(BatchSession, MapsManyColoursToOne) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    EXPECT_EQ(session.recolor({{{kRed, kBlue}, {kGreen, kBlue}}, {}}).changed, 4U);
    EXPECT_EQ(document->find("Grass")->fill.ForeColorRGB, kBlue);
}

TEST_F(BatchSession, GivesASingleRowAFill) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    session.recolor({{}, {{2, noFill(), std::nullopt}, {3, solid(kGreen, 0.5F), std::nullopt}}});
    EXPECT_EQ(document->find("Grass")->fill.Visible, host::MsoTriState::msoFalse);
    EXPECT_EQ(document->find("Window")->fill.ForeColorRGB, kGreen);
    EXPECT_EQ(document->find("Window")->fill.Transparency, 0.5F);
    EXPECT_EQ(document->find("Roof")->fill.ForeColorRGB, kRed);
}

TEST_F(BatchSession, GivesTheRowsTheFillsOfAPaletteInTheirOrder) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    const auto fill = [](std::int32_t color) { return solid(color, 0.0F)({}); };
    RecolorRequest request;
    request.palette = {{fill(kBlue), fill(kRed), fill(kGreen), fill(0)}};
    EXPECT_EQ(session.recolor(request).changed, 5U);
    EXPECT_EQ(document->find("Roof")->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(document->find("Door")->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(document->find("Grass")->fill.ForeColorRGB, kRed);
    EXPECT_EQ(document->find("Window")->fill.ForeColorRGB, kGreen);
}

TEST_F(BatchSession, AppliesAPaletteWithFewerFillsThanRowsOnlyWhenThatIsAllowed) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    RecolorRequest request;
    request.palette = {{solid(kBlue, 0.0F)({})}};
    host.log.on = true;
    try {
        session.recolor(request);
        ADD_FAILURE();
    } catch (const RequestError& error) {
        EXPECT_STREQ(error.what(),
                     "the document has 3 rows, but the palette only 1 fill; with "
                     "--yes, the other rows keep their fills");
    }
    EXPECT_TRUE(host.log.beginningWith("write ").empty());
    request.palette->mayBeFewer = true;
    EXPECT_EQ(session.recolor(request).changed, 3U);
    EXPECT_EQ(document->find("Roof")->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(document->find("Grass")->fill.ForeColorRGB, kGreen);
    EXPECT_EQ(document->find("Window")->fill.ForeColorRGB, kBlue) << "it was blue before";
}

TEST_F(BatchSession, RefusesAnUnknownColourOrRowBeforeAnythingIsWritten) {
    addThreeRows();
    Session session(host, document);
    const auto rows = session.scan();
    host.log.on = true;
    EXPECT_THROW(session.recolor({{{0x123456, kBlue}}, {}}), RequestError);
    EXPECT_THROW(session.recolor({{}, {{4, noFill(), std::nullopt}}}), RequestError);
    EXPECT_THROW(session.recolor({{}, {{0, noFill(), std::nullopt}}}), RequestError);
    EXPECT_THROW(session.recolor({{}, {{1, noFill(), rows[1].fill}}}), RequestError);
    EXPECT_TRUE(host.log.beginningWith("write ").empty());
}

TEST_F(BatchSession, FindsNothingInADocumentWithoutShapes) {
    Session session(host, document);
    EXPECT_TRUE(session.scan().empty());
    EXPECT_TRUE(runtime.messages().empty());
    RecolorRequest request{{{kRed, kBlue}}, {}};
    EXPECT_THROW(session.recolor(request), RequestError);
    EXPECT_THROW(session.recolor({{}, {{1, noFill(), std::nullopt}}}), RequestError);
    request.scope.mayBeMissing = true;
    EXPECT_EQ(session.recolor(request).shapes, 0U);
    EXPECT_TRUE(session.givenFills().compare(*document).differences.empty());
    EXPECT_TRUE(runtime.messages().empty());
}

TEST_F(BatchSession, MapsTheColoursOfLinesOnRequest) {
    addThreeRows();
    const auto wall = document->find("Wall");
    const auto door = document->find("Door");
    wall->lineColor = door->lineColor = kGreen;
    document->find("Roof")->lineColor = kGreen;
    document->find("Roof")->lineVisible = host::MsoTriState::msoFalse;
    Session session(host, document);
    session.scan();
    RecolorRequest request{{{kGreen, kBlue}}, {}};
    request.scope.lines = true;
    const RecolorResult result = session.recolor(request);
    EXPECT_EQ(result.changed, 1U) << "the fill of the grass";
    EXPECT_EQ(result.lines, 2U);
    EXPECT_EQ(wall->lineColor, kBlue);
    EXPECT_EQ(door->lineColor, kBlue);
    EXPECT_EQ(wall->fill.ForeColorRGB, kRed);
    EXPECT_EQ(document->find("Roof")->lineColor, kGreen) << "it has no line";
    StoredResult stored = session.givenFills().compare(*document);
    EXPECT_EQ(stored.linesConfirmed, 2U);
    EXPECT_TRUE(stored.isAsAsked());
    door->lineColor = kGreen;
    wall->lineVisible = host::MsoTriState::msoFalse;
    stored = session.givenFills().compare(*document);
    EXPECT_EQ(stored.linesOtherwise, 2U);
    EXPECT_FALSE(stored.isAsAsked());
}

TEST_F(BatchSession, AColourThatOnlyLinesHaveIsThereWhereLinesAreMapped) {
    addThreeRows();
    document->find("Grass")->lineColor = 0x123456;
    Session session(host, document);
    session.scan();
    RecolorRequest request{{{0x123456, kBlue}}, {}};
    EXPECT_THROW(session.recolor(request), RequestError);
    request.scope.lines = true;
    EXPECT_EQ(session.recolor(request).lines, 1U);
}

TEST_F(BatchSession, ALineThatFailsIsReportedAndTheOthersChange) {
    addThreeRows();
    for (const char* const name : {"Roof", "Grass", "Wall"})
        document->find(name)->lineColor = kGreen;
    host.log.failAt(base::text("write Roof.Line.ForeColor.RGB ", kBlue), base::Error(7, "locked"));
    Session session(host, document);
    session.scan();
    RecolorRequest request{{{kGreen, kBlue}}, {}};
    request.scope.lines = true;
    const RecolorResult result = session.recolor(request);
    EXPECT_EQ(result.lines, 2U);
    const auto& last = result.skipped.back();
    EXPECT_EQ(last.row, 1);
    EXPECT_EQ(last.shapes, 1U);
    EXPECT_EQ(last.reason, "its line: locked");
    EXPECT_EQ(session.givenFills().compare(*document).linesConfirmed, 2U);
}

TEST_F(BatchSession, MapsAllColoursOfAGradient) {
    addThreeRows();
    const auto sky = add("Sky", kRed);
    sky->fill.Type = host::MsoFillType::msoFillGradient;
    sky->fill.stops = {kRed, kGreen, kBlue};
    Session session(host, document);
    session.scan();
    RecolorRequest request{{{kGreen, 0x123456}}, {}};
    request.scope.gradients = true;
    const RecolorResult result = session.recolor(request);
    EXPECT_EQ(result.changed, 2U);
    EXPECT_EQ(sky->fill.stops, (std::vector<std::int32_t>{kRed, 0x123456, kBlue}));
    EXPECT_EQ(session.givenFills().compare(*document).confirmed, 2U);
    sky->fill.stops[1] = kGreen;
    const StoredResult stored = session.givenFills().compare(*document);
    EXPECT_EQ(stored.confirmed, 1U);
    ASSERT_EQ(stored.differences.size(), 1U);
    EXPECT_EQ(stored.differences[0].row, 4);
}

TEST_F(BatchSession, ARowThatIsEditedBesideAMapHasTheEditsFill) {
    const auto sky = add("Sky", kRed);
    sky->fill.Type = host::MsoFillType::msoFillGradient;
    sky->fill.stops = {kRed, kGreen, kBlue};
    Session session(host, document);
    session.scan();
    RecolorRequest request{{{kGreen, 0x123456}}, {{1, solid(kBlue, 0), std::nullopt}}};
    request.scope.gradients = true;
    EXPECT_EQ(session.recolor(request).changed, 1U);
    EXPECT_EQ(sky->fill.Type, host::MsoFillType::msoFillSolid);
    EXPECT_EQ(sky->fill.ForeColorRGB, kBlue);
    EXPECT_EQ(sky->fill.stops[1], kGreen) << "the edit alone was carried out";
}

TEST_F(BatchSession, LeavesOutColoursThatTheDocumentDoesNotHaveOnRequest) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    RecolorRequest request{{{0x123456, kGreen}, {kRed, kBlue}}, {}};
    request.scope.mayBeMissing = true;
    EXPECT_EQ(session.recolor(request).changed, 3U);
    EXPECT_EQ(document->find("Roof")->fill.ForeColorRGB, kBlue);
}

TEST_F(BatchSession, ReportsTheFailureOfARowAndGoesOnWithTheNext) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    document->remove(document->find("Grass"));
    const RecolorResult result =
        session.recolor({{}, {{2, solid(kBlue, 0), std::nullopt}, {3, noFill(), std::nullopt}}});
    EXPECT_EQ(document->find("Window")->fill.Visible, host::MsoTriState::msoFalse);
    EXPECT_EQ(result.changed, 1U);
    const auto failed = std::find_if(result.skipped.begin(), result.skipped.end(),
                                     [](const Skipped& skipped) { return skipped.row == 2; });
    ASSERT_NE(failed, result.skipped.end());
    EXPECT_NE(failed->reason.find("Grass"), std::string::npos);
}

TEST_F(BatchSession, AFillThatFailsAfterItsRowIsTheFailureOfThatRow) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    document->failedWrites = {{"Grass", base::Error(7, "locked")}};
    const RecolorResult result =
        session.recolor({{}, {{2, solid(kBlue, 0), std::nullopt}, {3, noFill(), std::nullopt}}});
    EXPECT_EQ(result.changed, 1U);
    ASSERT_EQ(result.skipped.size(), 2U);
    EXPECT_EQ(result.skipped[0].reason, "unchanged");
    EXPECT_EQ(result.skipped[1].row, 2);
    EXPECT_NE(result.skipped[1].reason.find("locked"), std::string::npos);
}

TEST_F(BatchSession, AFillThatFailedForAShapeOfNoRowIsAnError) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    document->failedWrites = {{"", base::Error(7, "no undo")}};
    try {
        session.recolor({{}, {{2, solid(kBlue, 0), std::nullopt}}});
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_NE(error.description().find("no undo"), std::string::npos);
    }
}

TEST_F(BatchSession, RowsThatAnErrorOfTheRecolourLeavesOutAreNamedWithIt) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    host.log.failAt("call Picture.undoGroup", base::Error(7, "busy"));
    const RecolorResult result =
        session.recolor({{}, {{2, solid(kBlue, 0), std::nullopt}, {3, noFill(), std::nullopt}}});
    EXPECT_EQ(result.changed, 0U);
    ASSERT_EQ(result.skipped.size(), 3U);
    for (std::size_t i : {1U, 2U}) {
        EXPECT_NE(result.skipped[i].reason.find("busy"), std::string::npos);
    }
}

TEST_F(BatchSession, AScanThatFailsIsAnErrorWithTheDialogsMessage) {
    addThreeRows();
    Session session(host, document);
    host.log.failAt("call Documents.Add", base::Error(5, "no scratch"));
    try {
        session.scan();
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_NE(error.description().find("no scratch"), std::string::npos);
    }
}

TEST_F(BatchSession, EachFailedRowIsSkippedWithItsOwnError) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    document->remove(document->find("Grass"));
    document->failedWrites = {{"Window", base::Error(7, "locked")}};
    const RecolorResult result =
        session.recolor({{}, {{2, noFill(), std::nullopt}, {3, noFill(), std::nullopt}}});
    EXPECT_EQ(result.changed, 0U);
    ASSERT_EQ(result.skipped.size(), 3U);
    EXPECT_NE(result.skipped[1].reason.find("Grass"), std::string::npos);
    EXPECT_NE(result.skipped[2].reason.find("locked"), std::string::npos);
}

TEST_F(BatchSession, AnErrorReportedOfSomethingElseIsNotThatOfARow) {
    addThreeRows();
    Session session(host, document);
    session.scan();
    error::report({"", "", "Something else"}, base::Error(7, "popis"));
    const RecolorResult result = session.recolor({{{kRed, kBlue}}, {}});
    EXPECT_EQ(result.changed, 3U);
    for (const Skipped& skipped : result.skipped) EXPECT_EQ(skipped.reason, "unchanged");
    EXPECT_EQ(runtime.messages().back().kind, Message::Kind::error);
}

TEST_F(BatchSession, AScanInWhichAFillCannotBeCapturedIsAnError) {
    addThreeRows();
    host.log.failAt("read Grass.Fill.PresetTexture", base::Error(7, "unreadable"), 2);
    Session session(host, document);
    try {
        session.scan();
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_NE(error.description().find("SaveOriginalFormat"), std::string::npos);
        EXPECT_NE(error.description().find("unreadable"), std::string::npos);
    }
}

TEST_F(BatchSession, ReportsProgressUpToTheEnd) {
    addThreeRows();
    std::vector<std::size_t> done;
    Session session(host, document, [&](std::size_t at, std::size_t) { done.push_back(at); });
    session.scan();
    ASSERT_FALSE(done.empty());
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
    EXPECT_EQ(done.back(), 4U);
}

TEST_F(BatchSession, AnswersRetriesWithAbortAndRefusesOtherQuestions) {
    EXPECT_EQ(runtime.MsgBox("x", 50, "t"), forms::MsgBoxResult::abort);
    EXPECT_EQ(runtime.messages().back().kind, Message::Kind::error);
    EXPECT_THROW(runtime.MsgBox("x", 36, "t"), base::Error);
}

}  // namespace
}  // namespace huebrush::batch
