// SPDX-License-Identifier: MPL-2.0

#include "palette/frmLoadFill.h"

#include <gtest/gtest.h>

#include "base/Bitmaps_test_support.h"
#include "palette/OtherProgramsFile_test_support.h"
#include "palette/PaletteDialog_test_support.h"

namespace huebrush::palette {
namespace {

using forms::MsgBoxResult;
namespace KeyCode = forms::KeyCode;

constexpr const char* kApplyFailed = "Při načítání výplní z databáze se vyskytla chyba...";
constexpr const char* kPreviewFailed = "Při zobrazování náhledů došlo k chybě...";

class LoadDialog : public PaletteDialogTest<frmLoadFill> {
 protected:
    /// Opens the dialog on the user's own file with one palette of these colours.
    void openOn(const Colors& colors) {
        makeFile();
        addPalette("a", colors);
        open();
    }
    void open() { dialog->ShowReadData(rows); }
    void showPreviews() { runtime.settings[{"Huebrush", "Database", "ShowPreview"}] = "1"; }

    /// The previews in their order, each with its top.
    Names previews() {
        Names shown;
        for (std::int16_t i = 1; i <= dialog->picElement.ubound(); ++i) {
            const forms::PictureBox& element = dialog->picElement[i];
            EXPECT_TRUE(element.Visible);
            std::int32_t color = -1;
            for (std::int32_t each = 0; each < 100; ++each) {
                if (element.Picture.get() == previewIn(each)) color = each;
            }
            shown.push_back(base::text(color, " at ", static_cast<int>(element.Top.get())));
        }
        return shown;
    }
    void breakColumn(const std::string& column, const jet::Value& value, std::int32_t order) {
        const auto database = jet::Database::open(files, kFile);
        database->change([&] {
            jet::Table table(*database, kElementTable);
            for (const jet::RowId row : table.find(table.column("GroupID"), 1)) {
                if (table.value(*table.row(row), table.column("OrderNumber")) ==
                    jet::Value(order)) {
                    table.update(row, {{&table.column(column), value}});
                }
            }
        });
    }
    /// Another program's change of what a palette says of the number of its fills.
    void setCount(const jet::Value& count) {
        const auto database = jet::Database::open(files, kFile);
        database->change([&] {
            jet::Table table(*database, kGroupTable);
            table.update(table.find(table.column("ID"), 1).at(0),
                         {{&table.column("Count"), count}});
        });
    }

    /// Expects the dialog to work still on its first file, whose palette "a" has one colour.
    void expectFormerFile(std::int32_t color) {
        EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
        EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{"a"});
        EXPECT_EQ(dialog->lblCount.Caption.get(), "1");
        rows.rows.clear();
        rows.add(0);
        user.click(dialog->cmdApply);
        EXPECT_EQ(rows.colors(), Colors{color});
        EXPECT_TRUE(runtime.boxes.empty());
    }
};

// Opening and closing.

TEST_F(LoadDialog, IsModalAndShowsThePalettesOfTheLastFileByName) {
    makeFile(kOther);
    addPalette("b", {1, 2}, kOther);
    addPalette("a", {3}, kOther);
    runtime.settings[{"Huebrush", "Database", "FileName"}] = kOther;
    open();
    EXPECT_EQ(runtime.windowCalls, Names{"show frmLoadFill modal"});
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b"}));
    EXPECT_EQ(dialog->lstFillGroup.ItemData(0), 2);
    EXPECT_EQ(dialog->lstFillGroup.ListIndex, 0);
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kOther);
    EXPECT_EQ(dialog->txtFillGroupDescription.Text.get(), "o a");
    EXPECT_EQ(dialog->lblCount.Caption.get(), "1");
    EXPECT_TRUE(dialog->chkPreview.Enabled);
    EXPECT_TRUE(runtime.boxes.empty());
    user.pick(dialog->lstFillGroup, 1);
    EXPECT_EQ(dialog->lblCount.Caption.get(), "2");
}

TEST_F(LoadDialog, LowersTheRecolourDialogUntilItIsClosed) {
    openOn({1});
    EXPECT_EQ(rows.levels, std::vector<bool>{false});
    user.click(dialog->cmdCancel);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(rows.levels, (std::vector<bool>{false, true}));
}

TEST_F(LoadDialog, RemembersItsFileAndWhetherPreviewsAreShown) {
    openOn({1});
    user.click(dialog->chkPreview);
    user.close();
    EXPECT_EQ(runtime.savedSettings,
              (Names{base::text("Database/FileName=", kFile), "Database/ShowPreview=1"}));
    runtime.savedSettings.clear();
    const auto next = frmLoadFill::create(files);
    next->ShowReadData(rows);
    EXPECT_EQ(next->chkPreview.Value, forms::CheckValue::kTicked);
    EXPECT_EQ(next->picElement.ubound(), 1);
    next->Unload();
    EXPECT_EQ(runtime.savedSettings.back(), "Database/ShowPreview=1");
}

TEST_F(LoadDialog, ShowsNoPreviewsAtFirst) {
    openOn({1});
    EXPECT_EQ(dialog->chkPreview.Value, forms::CheckValue::kClear);
    EXPECT_EQ(dialog->picElement.ubound(), 0);
    EXPECT_FALSE(dialog->picMainPreview.Visible);
    EXPECT_FALSE(dialog->fraMainPreview.Enabled);
}

// The file.

TEST_F(LoadDialog, OfAMissingFileSaysSo) {
    open();
    EXPECT_EQ(onlyBox(), missing(kFile));
    EXPECT_FALSE(dialog->isUnloaded());
    user.click(dialog->cmdApply);
    user.click(dialog->cmdOK);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(setting("FileName"), kFile);
}

TEST_F(LoadDialog, OfAFileThatIsNoDatabaseReportsAnErrorAndKeepsTheFormerOne) {
    openOn({5});
    writeFile(kOther, jet::Bytes(5000, 'x'));
    connectTo(kOther);
    EXPECT_EQ(onlyReport(), report(3343, "frmLoadFill.ConnectDataFile", couldNotOpen(kOther)));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{5});
}

TEST_F(LoadDialog, OfADamagedFileReportsAnErrorAndKeepsTheFormerOne) {
    openOn({5});
    jet::Bytes cut = *files.files.at(kFile);
    cut.resize(std::size_t{3} * 4096);
    writeFile(kOther, cut);
    connectTo(kOther);
    EXPECT_EQ(onlyReport(), report(3049, "frmLoadFill.ConnectDataFile", couldNotOpen(kOther)));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{"a"});
}

TEST_F(LoadDialog, OfADatabaseWithoutTheTablesSaysSoAndKeepsTheFormerOne) {
    openOn({5});
    jet::createDatabase(files, kOther);
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{5});
}

TEST_F(LoadDialog, OfFilesOfOtherKindsReportsWhatTheyAreAndKeepsTheFormerOne) {
    openOn({5});
    const jet::Bytes sound = *files.files.at(kFile);
    for (const UnusableFile& each : unusableFiles(sound)) {
        SCOPED_TRACE(each.what);
        writeFile(kOther, each.content);
        connectTo(kOther);
        EXPECT_EQ(onlyBox(), reportOf(each.number, "ConnectDataFile", couldNotOpen(kOther),
                                      base::text("Databázi „", kOther,
                                                 "“ nelze otevřít: ", each.reason, ".")));
        expectFormerFile(5);
    }
}

TEST_F(LoadDialog, OfAFileThatMayNotBeReadReportsAnErrorAndKeepsTheFormerOne) {
    openOn({5});
    makeFile(kOther);
    fail("open", 3027);
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), reportOf(3027, "ConnectDataFile", couldNotOpen(kOther), "popis"));
    files.onCall = nullptr;
    expectFormerFile(5);
}

TEST_F(LoadDialog, OfATableThatIsNotOneOfPalettesSaysSoAndKeepsTheFormerOne) {
    openOn({5});
    makeGroupTable({{"ID", kLong}, {"Title", kText, 30}}, {});
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    makeGroupTable({{"ID", kText, 30}, {"Name", kText, 30}}, {});
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    makeFile("/home/damaged.mdb");
    damageTable(kGroupTable, "/home/damaged.mdb");
    connectTo("/home/damaged.mdb");
    EXPECT_EQ(onlyBox(), withoutPalettes("/home/damaged.mdb"));
    expectFormerFile(5);
}

TEST_F(LoadDialog, OfAPaletteWithoutANameReportsAnErrorAndKeepsTheFormerOne) {
    openOn({5});
    makePaletteWithoutAName();
    connectTo(kOther);
    const memory::ShownBox box = onlyBox();
    EXPECT_EQ(box.title, "Chyba č. 94");
    EXPECT_NE(box.text.find(couldNotOpen(kOther)), std::string::npos);
    expectFormerFile(5);
}

TEST_F(LoadDialog, OfADatabaseWithoutFillsReportsThatWhenTheyAreNeeded) {
    openOn({5});
    makeGroupTable({{"ID", kLong},
                    {"Name", kText, 30},
                    {"Description", kText, 255, true},
                    {"Count", kLong, 0, true}},
                   {{{"ID", 1}, {"Name", std::string("b")}, {"Count", 1}}});
    connectTo(kOther);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{"b"});
    const std::string missingTable =
        base::text("Databáze „", kOther, "“ nemá tabulku „", kElementTable, "“.");
    user.click(dialog->chkPreview);
    EXPECT_EQ(onlyBox(), reportOf(3078, "MakePreview", kPreviewFailed, missingTable));
    EXPECT_FALSE(dialog->picMainPreview.Visible);
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyBox(), reportOf(3078, "cmdApply_Click", kApplyFailed, missingTable));
    EXPECT_EQ(rows.colors(), Colors{1});
    connectTo(kFile);
    expectFormerFile(5);
}

TEST_F(LoadDialog, OfDamagedFillsReportsThatWhenTheyAreNeeded) {
    makeFile();
    addPalette("a", {5});
    const std::string damage = damageTable(kElementTable, kFile);
    open();
    EXPECT_TRUE(runtime.boxes.empty());
    user.click(dialog->chkPreview);
    EXPECT_EQ(onlyBox(), reportOf(3049, "MakePreview", kPreviewFailed, damage));
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyBox(), reportOf(3049, "cmdApply_Click", kApplyFailed, damage));
    EXPECT_EQ(rows.colors(), Colors{1});
}

TEST_F(LoadDialog, OfAFileWithoutPalettesSaysSoAndAppliesNothing) {
    makeFile();
    open();
    EXPECT_EQ(onlyBox(),
              (memory::ShownBox{"V databázi nejsou uloženy žádné data", 64, "Upozornění..."}));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    EXPECT_FALSE(dialog->cmdApply.Enabled);
    EXPECT_FALSE(dialog->chkPreview.Enabled);
    EXPECT_FALSE(dialog->cmdCancel.Enabled);
    user.click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isUnloaded());
}

TEST_F(LoadDialog, AppliesAgainWhenAFileWithPalettesFollowsOneWithout) {
    makeFile();
    open();
    makeFile(kOther);
    addPalette("b", {7}, kOther);
    connectTo(kOther);
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{7});
    EXPECT_TRUE(dialog->cmdCancel.Enabled);
}

TEST_F(LoadDialog, ShowsNoMoreOfAFileThatAnEmptyOneHasReplaced) {
    showPreviews();
    openOn({1, 2});
    makeFile(kOther);
    connectTo(kOther);
    EXPECT_EQ(dialog->picElement.ubound(), 0);
    EXPECT_FALSE(dialog->picMainPreview.Visible);
    EXPECT_EQ(dialog->txtFillGroupDescription.Text.get(), "");
}

TEST_F(LoadDialog, AsksForADatabaseAndMayBeRefusedOne) {
    openOn({1});
    user.click(dialog->cmdConnectDataFile);
    ASSERT_EQ(runtime.fileDialogs.size(), 1U);
    EXPECT_EQ(runtime.fileDialogs[0].purpose, forms::FileDialog::Purpose::open);
    EXPECT_EQ(runtime.fileDialogs[0].title, "Zvol databázi...");
    EXPECT_EQ(runtime.fileDialogs[0].description, "Databáze Access (*.mdb)");
    EXPECT_EQ(runtime.fileDialogs[0].pattern, "*.mdb");
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
}

// Previews.

TEST_F(LoadDialog, ShowsThePreviewsInTheirOrderOneBelowTheOther) {
    showPreviews();
    openOn({11, 12, 13});
    EXPECT_EQ(previews(), (Names{"11 at 0", "12 at 375", "13 at 750"}));
    EXPECT_EQ(dialog->picGroupElement.Height, 3 * 375);
    EXPECT_TRUE(dialog->picMainPreview.Visible);
    EXPECT_TRUE(dialog->fraMainPreview.Enabled);
    EXPECT_FALSE(dialog->picElement[0].Visible);
}

TEST_F(LoadDialog, ShowsThePreviewsOfThePaletteThatIsPicked) {
    showPreviews();
    makeFile();
    addPalette("a", {11, 12, 13});
    addPalette("b", {21});
    open();
    user.pick(dialog->lstFillGroup, 1);
    EXPECT_EQ(previews(), Names{"21 at 0"});
    user.pick(dialog->lstFillGroup, 0);
    EXPECT_EQ(previews(), (Names{"11 at 0", "12 at 375", "13 at 750"}));
}

TEST_F(LoadDialog, ShowsAndHidesThePreviewsByTheBox) {
    openOn({11});
    user.click(dialog->chkPreview);
    EXPECT_EQ(previews(), Names{"11 at 0"});
    EXPECT_TRUE(dialog->picMainPreview.Visible);
    user.click(dialog->chkPreview);
    EXPECT_FALSE(dialog->picMainPreview.Visible);
    EXPECT_FALSE(dialog->fraMainPreview.Enabled);
}

TEST_F(LoadDialog, ShowsEmptyBoxesForFillsWithoutAPreviewAndStillApplies) {
    showPreviews();
    makeFile();
    addPalette("a", {11, 12});
    breakColumn("FillPreview", {}, 0);
    open();
    EXPECT_EQ(previews(), (Names{"-1 at 0", "12 at 375"}));
    EXPECT_TRUE(dialog->picElement[1].Picture.get().empty());
    rows.add({1, 2});
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), (Colors{11, 12}));
    EXPECT_TRUE(rows.rows[0].preview->empty());
    EXPECT_EQ(*rows.rows[1].preview, previewIn(12));
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(LoadDialog, ReportsAPreviewThatIsNoPictureAndShowsTheOthers) {
    showPreviews();
    makeFile();
    addPalette("a", {11, 12});
    breakColumn("FillPreview", jet::Bytes{1, 2, 3}, 0);
    open();
    memory::ShownBox expected =
        report(481, "mDBMakeFillPreview.ReadPictureFromRS",
               "Chyba při načítání náhledu výplně z databáze.", "Obrázek je neplatný.");
    expected.style = 50;
    EXPECT_EQ(onlyBox(), expected);
    EXPECT_EQ(previews(), (Names{"-1 at 0", "12 at 375"}));
}

TEST_F(LoadDialog, ScrollsThePreviewsThatDoNotFit) {
    showPreviews();
    openOn(Colors(40, 11));
    const double hidden = 40 * 375 - dialog->picMainPreview.Height;
    EXPECT_TRUE(dialog->vsPreview.Enabled);
    EXPECT_EQ(dialog->vsPreview.Max, static_cast<std::int32_t>(hidden));
    EXPECT_EQ(dialog->vsPreview.SmallChange, 375);
    user.scrollTo(dialog->vsPreview, 400);
    EXPECT_EQ(dialog->picGroupElement.Top, -400);
    user.pick(dialog->lstFillGroup, 0);
    dialog->MakePreview();
    EXPECT_EQ(dialog->picGroupElement.Top, 0);
    EXPECT_EQ(dialog->vsPreview.value(), 0);
}

TEST_F(LoadDialog, HasNothingToScrollWherePreviewsFit) {
    showPreviews();
    openOn({11});
    EXPECT_FALSE(dialog->vsPreview.Enabled);
}

TEST_F(LoadDialog, ResizedShowsMoreOrLess) {
    showPreviews();
    openOn(Colors(40, 11));
    const double list = dialog->lstFillGroup.Height;
    const double view = dialog->picMainPreview.Height;
    user.resize(dialog->Width, dialog->Height + 1000);
    EXPECT_EQ(dialog->lstFillGroup.Height, list + 1000);
    EXPECT_EQ(dialog->picMainPreview.Height, view + 1000);
    EXPECT_EQ(dialog->vsPreview.Max, static_cast<std::int32_t>(40 * 375 - view - 1000));
    EXPECT_EQ(dialog->imgHorn.Top, dialog->ScaleHeight() - dialog->imgHorn.Height);
    const double width = dialog->Width;
    user.resize(100, 100);
    EXPECT_EQ(dialog->Width, width);
    EXPECT_EQ(dialog->lstFillGroup.Height, 0);
    EXPECT_EQ(dialog->picMainPreview.Height, 0);
    EXPECT_EQ(dialog->picCMD.Top, 0);
}

// Applying.

TEST_F(LoadDialog, GivesTheSelectedRowsTheFillsInTheirOrder) {
    openOn({11, 12, 13});
    rows.add({1, 2, 3, 4});
    rows.rows[1].selected = false;
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), (Colors{11, 2, 12, 13}));
    EXPECT_EQ(*rows.rows[2].preview, previewIn(12));
    EXPECT_TRUE(rows.rows[0].fill->Change());
    EXPECT_FALSE(rows.rows[1].fill->Change());
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_FALSE(dialog->isUnloaded());
}

TEST_F(LoadDialog, GivesTheFillsByTheirOrderNumbers) {
    makeFile();
    addPalette("a", {11, 12});
    breakColumn("OrderNumber", 9, 0);
    open();
    rows.add({1, 2});
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), (Colors{12, 11}));
}

TEST_F(LoadDialog, AsksWhereMoreRowsAreSelectedThanThereAreFills) {
    openOn({11, 12});
    rows.add({1, 2, 3});
    runtime.answers = {MsgBoxResult::no, MsgBoxResult::yes};
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyBox(),
              (memory::ShownBox{"Počet vybraných výplní je větší nežli počet výplní v databázi.\r\n"
                                "Chcete přesto v příkazu pokračovat?",
                                36, "Upozornnění..."}));
    EXPECT_EQ(rows.colors(), (Colors{1, 2, 3}));
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), (Colors{11, 12, 3}));
    EXPECT_FALSE(rows.rows[2].fill->Change());
}

TEST_F(LoadDialog, LeavesSurplusFillsUnused) {
    openOn({11, 12, 13});
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{11});
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(LoadDialog, GoesByTheCountThatThePaletteStates) {
    makeFile();
    addPalette("a", {11, 12});
    setCount(1);
    open();
    rows.add({1, 2});
    runtime.answers = {MsgBoxResult::yes};
    user.click(dialog->cmdApply);
    EXPECT_EQ(runtime.boxes.size(), 1U);
    EXPECT_EQ(rows.colors(), (Colors{11, 12}));
}

TEST_F(LoadDialog, AsksNothingOfAPaletteThatStatesNoCount) {
    makeFile();
    addPalette("a", {11});
    setCount({});
    open();
    rows.add({1, 2});
    user.click(dialog->cmdApply);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(rows.colors(), (Colors{11, 2}));
}

TEST_F(LoadDialog, AppliesAPaletteTwiceTheSameWay) {
    showPreviews();
    openOn({11, 12});
    rows.add({1, 2});
    user.click(dialog->cmdApply);
    rows.change(1, [](fill::FillProperties& fill) { fill.ForeColorRGB = 99; });
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), (Colors{11, 12}));
}

TEST_F(LoadDialog, AppliesThePickedPaletteWhetherPreviewsAreShownOrNot) {
    makeFile();
    addPalette("a", {11});
    addPalette("b", {21});
    open();
    rows.add(1);
    user.click(dialog->cmdApply);
    user.pick(dialog->lstFillGroup, 1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{21});
    user.click(dialog->chkPreview);
    user.pick(dialog->lstFillGroup, 0);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{11});
}

TEST_F(LoadDialog, OfAPaletteWithoutFillsGivesNone) {
    openOn({});
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(runtime.boxes.size(), 1U);
    EXPECT_EQ(rows.colors(), Colors{1});
}

TEST_F(LoadDialog, ReportsAFillThatCannotBeReadAndGoesOnWithTheNext) {
    makeFile();
    addPalette("a", {11, 12, 13});
    breakColumn("TextureName", {}, 1);
    open();
    rows.add({1, 2, 3});
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyReport(),
              report(94, "CFill.FillFromRecordset", "Chyba při čtení údajů z databáze..."));
    EXPECT_EQ(rows.colors(), (Colors{11, 12, 13}));
    EXPECT_FALSE(rows.rows[1].fill->Change());
    EXPECT_EQ(*rows.rows[1].preview, previewIn(2));
}

TEST_F(LoadDialog, OfAFileThatIsGoneReportsAnError) {
    openOn({11});
    rows.add(1);
    writeFile(kFile, {});
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyReport(), report(3343, "frmLoadFill.cmdApply_Click", kApplyFailed));
    EXPECT_EQ(rows.colors(), Colors{1});
}

TEST_F(LoadDialog, ReadsAFileThatAnotherProgramIsWriting) {
    makeFile();
    addPalette("a", {11});
    const auto held = files.lock(kFile);
    open();
    rows.add(1);
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), Colors{11});
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(LoadDialog, ReadsAFileThatMayNotBeWritten) {
    showPreviews();
    makeFile();
    addPalette("a", {11});
    files.onCall = [](const char* what) {
        const std::string call = what;
        if (call != "open" && call != "read" && call != "size") throw base::Error(3027, call);
    };
    open();
    EXPECT_EQ(previews(), Names{"11 at 0"});
    rows.add(1);
    user.click(dialog->cmdOK);
    EXPECT_EQ(rows.colors(), Colors{11});
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(LoadDialog, ShowsAndAppliesThePalettesOfAnotherProgram) {
    showPreviews();
    writeFile(kFile, fileOfAnotherProgram());
    open();
    user.pick(dialog->lstFillGroup, 1);
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"b", kLongestName}));
    EXPECT_EQ(dialog->txtFillGroupDescription.Text.get(), "popis");
    EXPECT_EQ(dialog->lblCount.Caption.get(), "4");
    const std::vector<jet::Bytes> stored{base::placeableMetafile(),
                                         {},
                                         base::enhancedMetafile(),
                                         base::bitmapFile(1, 1, 3, {0, 0, 14})};
    ASSERT_EQ(dialog->picElement.ubound(), 4);
    rows.add({1, 2, 3, 4});
    user.click(dialog->cmdApply);
    EXPECT_EQ(rows.colors(), (Colors{11, 12, 13, 14}));
    for (std::int16_t i = 0; i < 4; ++i) {
        const auto place = static_cast<std::size_t>(i);
        EXPECT_EQ(dialog->picElement[static_cast<std::int16_t>(i + 1)].Picture.get().bytes(),
                  stored[place]);
        EXPECT_EQ(rows.rows[place].preview->bytes(), stored[place]);
    }
    EXPECT_EQ(dialog->picElement[1].Picture.get().format(), base::PictureFormat::metafile);
    user.pick(dialog->lstFillGroup, 0);
    EXPECT_EQ(dialog->txtFillGroupDescription.Text.get(), "");
    EXPECT_EQ(dialog->picElement.ubound(), 1);
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(LoadDialog, OkAppliesAndCloses) {
    openOn({11});
    rows.add(1);
    user.click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(rows.colors(), Colors{11});
}

TEST_F(LoadDialog, ReturnIsOkAndEscapeIsCancel) {
    EXPECT_TRUE(dialog->cmdOK.Default);
    EXPECT_TRUE(dialog->cmdCancel.Cancel);
    openOn({11});
    rows.add(1);
    dialog->lstFillGroup.SetFocus();
    user.key(KeyCode::kEscape);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(rows.colors(), Colors{1});
}

TEST_F(LoadDialog, ChangesNothingInTheFile) {
    showPreviews();
    openOn({11, 12});
    const jet::Bytes before = *files.files.at(kFile);
    rows.add({1, 2});
    user.type(dialog->txtFillGroupDescription, "x");
    user.click(dialog->cmdOK);
    EXPECT_EQ(*files.files.at(kFile), before);
}

// Errors that nothing but a control can cause.

TEST_F(LoadDialog, ReportsWhatFailsUnderTheNameOfEachHandler) {
    makeFile();
    addPalette("a", {11});
    addPalette("b", Colors(40, 21));
    open();
    using forms::PropertyId;
    const char* const preview = "Při zobrazování náhledů došlo k chybě...";
    const auto makeTaller = [this] { user.resize(dialog->Width, dialog->Height + 100); };
    expectReports({{&dialog->txtFillGroupDescription, PropertyId::Text,
                    [this] { user.pick(dialog->lstFillGroup, 1); }, "lstFillGroup_Click",
                    "Chyba při výběru záznamu..."},
                   {&dialog->picMainPreview, PropertyId::Visible,
                    [this] { user.click(dialog->chkPreview); }, "MakePreview", preview},
                   {&dialog->picMainPreview, PropertyId::Visible,
                    [this] { user.click(dialog->chkPreview); }, "chkPreview_Click", preview},
                   {&dialog->vsPreview, PropertyId::LargeChange, makeTaller, "SetScroll",
                    "Při změně nastavení posuvníků vzikla chyba.."},
                   {&dialog->lstFillGroup, PropertyId::Height, makeTaller, "Form_Resize",
                    "Při úpravě velikosti prvků vzikla chyba.."}});
}

TEST_F(LoadDialog, ReportsAFileDialogThatDoesNotComeUp) {
    openOn({1});
    WithoutFileDialogs without(runtime);
    const forms::RuntimeScope scopeOfOther(without);
    user.click(dialog->cmdConnectDataFile);
    EXPECT_EQ(onlyBox(), report(7, "frmLoadFill.cmdConnectDataFile_Click",
                                "Při výběru databáze došlo k chybě...", "popis"));
}

TEST_F(LoadDialog, ReportsWhatFailsWhileItOpensAndCloses) {
    const auto other = frmLoadFill::create(files);
    const char* const message = "Při zavírání formuláře došlo k chybě...";
    rows.failsOnLevels = true;
    for (auto [shown, button] :
         {std::pair(dialog, &frmLoadFill::cmdOK), std::pair(other, &frmLoadFill::cmdCancel)}) {
        shown->ShowReadData(rows);
        EXPECT_EQ(onlyBox(), report(7, "frmLoadFill.Form_Load",
                                    "Při otevírání formuláře došlo k chybě...", "popis"));
        shown->Unloaded.connect([] { throw base::Error(7, "popis"); });
        memory::Driver(*shown).click((*shown).*button);
        EXPECT_TRUE(shown->isUnloaded());
        const std::string handler = base::text("frmLoadFill.", ((*shown).*button).name(), "_Click");
        EXPECT_EQ(std::exchange(runtime.boxes, {}),
                  (std::vector{report(7, "frmLoadFill.Form_Unload", message, "popis"),
                               report(7, handler, message, "popis")}));
        EXPECT_EQ(runtime.savedSettings,
                  Names(runtime.savedSettings.size(), "Database/ShowPreview=0"));
    }
}

}  // namespace
}  // namespace huebrush::palette
