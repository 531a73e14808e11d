// SPDX-License-Identifier: MPL-2.0

#include "palette/frmSaveFill.h"

#include <gtest/gtest.h>

#include "jet/check/Check.h"
#include "palette/OtherProgramsFile_test_support.h"
#include "palette/PaletteDialog_test_support.h"

namespace huebrush::palette {
namespace {

using forms::MsgBoxResult;
namespace KeyCode = forms::KeyCode;

constexpr const char* kNoFirst = "Databáze nemá žádné zánamy. Chcete založit nový?";
constexpr const char* kSaveFailed = "Při ukládání výplní do databáze se vyskytla chyba...";
const memory::ShownBox kUnknownTexture{
    "Výplň nemůže být uložena!\r\n"
    "Objekt jehož výplň chcete uložit do databáze používá neznámou texturu.",
    48, "Záznam neuložen"};

class SaveDialog : public PaletteDialogTest<frmSaveFill> {
 protected:
    /// Opens the dialog on the user's own file.
    void open() { dialog->ShowSaveData(rows); }
    /// Opens it on a file with three palettes of which the third one is picked.
    void openOnThird() {
        makeFile();
        for (const char* const name : {"a", "b", "c"}) addPalette(name, {1, 2});
        open();
        user.pick(dialog->lstFillGroup, 2);
    }
    /// Opens it on an empty file, and begins a palette.
    void openAndBegin() {
        makeFile();
        open();
        runtime.boxes.clear();
    }
    /// Saves the selected rows as a palette of that name.
    void save(const std::string& name) {
        user.type(dialog->txtFillGroupName, name);
        user.click(dialog->cmdApply);
    }
    /// Opens it on a file with the palette "a" in one colour.
    void openOnOne() {
        makeFile();
        addPalette("a", {1});
        open();
    }
    /// Expects the dialog to work still on that file.
    void expectFormerFile() {
        EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
        EXPECT_EQ(shown(), "a|o a|1");
        rows.add(9);
        user.click(dialog->cmdNew);
        save("nová");
        EXPECT_EQ(contents(), (Names{"1 a (1): 1@0", "2 nová (1): 9@0"}));
        EXPECT_TRUE(runtime.boxes.empty());
    }
    /// Which of the controls that the states concern are enabled.
    std::string enabled() const {
        std::string names;
        for (const forms::Control* const control : std::initializer_list<const forms::Control*>{
                 &dialog->lstFillGroup, &dialog->cmdConnectDataFile, &dialog->cmdMakeDataFile,
                 &dialog->cmdNew, &dialog->cmdEdit, &dialog->cmdErase, &dialog->cmdApply,
                 &dialog->cmdCancel}) {
            if (control->Enabled) names += control->name().substr(3) + " ";
        }
        return names;
    }
    std::string shown() const {
        return base::text(dialog->txtFillGroupName.Text.get(), "|",
                          dialog->txtFillGroupDescription.Text.get(), "|",
                          dialog->lblCount.Caption.get());
    }

    static constexpr const char* kBrowsing =
        "FillGroup ConnectDataFile MakeDataFile New Edit Erase ";
    static constexpr const char* kEditing = "Apply Cancel ";
};

// Opening and closing.

TEST_F(SaveDialog, IsModalAndShowsThePalettesOfTheLastFileByName) {
    makeFile(kOther);
    addPalette("jaro", {1, 2, 3}, kOther);
    addPalette("Čtyři", {}, kOther);
    runtime.settings[{"Huebrush", "Database", "FileName"}] = kOther;
    open();
    EXPECT_EQ(runtime.windowCalls, Names{"show frmSaveFill modal"});
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"Čtyři", "jaro"}));
    EXPECT_EQ(dialog->lstFillGroup.ItemData(0), 2);
    EXPECT_EQ(dialog->lstFillGroup.ItemData(1), 1);
    EXPECT_EQ(dialog->lstFillGroup.ListIndex, 0);
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kOther);
    EXPECT_EQ(shown(), "Čtyři|o Čtyři|0");
    EXPECT_EQ(enabled(), kBrowsing);
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(SaveDialog, AtFirstLooksForTheUsersOwnFile) {
    open();
    EXPECT_EQ(onlyBox(), missing(kFile));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), "");
    EXPECT_EQ(enabled(), "FillGroup ConnectDataFile MakeDataFile ");
}

TEST_F(SaveDialog, LowersTheRecolourDialogUntilItIsClosed) {
    makeFile();
    addPalette("a", {});
    open();
    EXPECT_EQ(rows.levels, std::vector<bool>{false});
    user.click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(rows.levels, (std::vector<bool>{false, true}));
}

TEST_F(SaveDialog, LeavesARecolourDialogLowThatWasNotTopMost) {
    makeFile();
    addPalette("a", {});
    rows.topMost = false;
    open();
    user.close();
    EXPECT_FALSE(rows.topMost);
}

TEST_F(SaveDialog, RemembersItsFile) {
    makeFile(kOther);
    addPalette("a", {}, kOther);
    open();
    connectTo(kOther);
    user.click(dialog->cmdOK);
    EXPECT_EQ(runtime.savedSettings, Names{base::text("Database/FileName=", kOther)});
}

TEST_F(SaveDialog, ThatNeverHadAFileRemembersWhatItWasToOpen) {
    runtime.settings[{"Huebrush", "Database", "FileName"}] = kOther;
    open();
    EXPECT_EQ(onlyBox(), missing(kOther));
    user.close();
    EXPECT_EQ(setting("FileName"), kOther);
}

// The file.

TEST_F(SaveDialog, OfAFileThatIsNoDatabaseSaysSoAndKeepsTheFormerOne) {
    makeFile();
    addPalette("a", {1});
    open();
    writeFile(kOther, jet::Bytes(5000, 'x'));
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    EXPECT_EQ(shown(), "a|o a|1");
    user.click(dialog->cmdErase);
    EXPECT_EQ(contents(), Names{});
}

TEST_F(SaveDialog, OfADamagedFileSaysTheSame) {
    makeFile();
    addPalette("a", {1});
    jet::Bytes cut = *files.files.at(kFile);
    cut.resize(std::size_t{3} * 4096);
    writeFile(kOther, cut);
    open();
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    EXPECT_EQ(shown(), "a|o a|1");
}

TEST_F(SaveDialog, OfFilesOfOtherKindsSaysTheSame) {
    openOnOne();
    const jet::Bytes sound = *files.files.at(kFile);
    for (const UnusableFile& each : unusableFiles(sound)) {
        SCOPED_TRACE(each.what);
        writeFile(kOther, each.content);
        connectTo(kOther);
        EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    }
    expectFormerFile();
}

TEST_F(SaveDialog, OfAFileThatMayNotBeReadSaysTheSame) {
    openOnOne();
    makeFile(kOther);
    fail("open", 3027);
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), withoutPalettes(kOther));
    files.onCall = nullptr;
    expectFormerFile();
}

TEST_F(SaveDialog, OfATableThatIsNotOneOfPalettesReportsAnErrorAndKeepsTheFormerOne) {
    openOnOne();
    makeGroupTable({{"ID", kLong}, {"Title", kText, 30}}, {});
    connectTo(kOther);
    EXPECT_EQ(onlyBox(), reportOf(3265, "ConnectDataFile", couldNotOpen(kOther),
                                  base::text("Tabulka „", kGroupTable, "“ nemá sloupec „Name“.")));
    makeGroupTable({{"ID", kText, 30}, {"Name", kText, 30}}, {});
    connectTo(kOther);
    EXPECT_EQ(onlyBox(),
              reportOf(3421, "ConnectDataFile", couldNotOpen(kOther),
                       base::text("Sloupec „ID“ tabulky „", kGroupTable, "“ není číslo.")));
    const std::string path = "/home/damaged.mdb";
    makeFile(path);
    const std::string damage = damageTable(kGroupTable, path);
    connectTo(path);
    EXPECT_EQ(onlyBox(), reportOf(3049, "ConnectDataFile", couldNotOpen(path), damage));
    expectFormerFile();
}

TEST_F(SaveDialog, OfAPaletteWithoutANameReportsAnErrorAndKeepsTheFormerOne) {
    openOnOne();
    makePaletteWithoutAName();
    connectTo(kOther);
    const memory::ShownBox box = onlyBox();
    EXPECT_EQ(box.title, "Chyba č. 94");
    EXPECT_NE(box.text.find(couldNotOpen(kOther)), std::string::npos);
    expectFormerFile();
}

TEST_F(SaveDialog, OfADatabaseWithoutFillsReportsThatWhenOneIsSaved) {
    openOnOne();
    makeGroupTable({{"ID", kLong, 0, false, true},
                    {"Name", kText, 30},
                    {"Description", kText, 255, true},
                    {"Count", kLong, 0, true}},
                   {{{"Name", std::string("b")}}});
    connectTo(kOther);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(shown(), "b||");
    rows.add(9);
    user.click(dialog->cmdNew);
    save("nová");
    EXPECT_EQ(onlyBox(),
              reportOf(3078, "cmdApply_Click", kSaveFailed,
                       base::text("Databáze „", kOther, "“ nemá tabulku „", kElementTable, "“.")));
    EXPECT_EQ(contents(), Names{"1 a (1): 1@0"});
}

TEST_F(SaveDialog, OfADatabaseWithoutTheTablesReportsAnErrorAndKeepsTheFormerOne) {
    makeFile();
    addPalette("a", {1});
    jet::createDatabase(files, kOther);
    open();
    connectTo(kOther);
    EXPECT_EQ(onlyReport(), report(3078, "frmSaveFill.ConnectDataFile", couldNotOpen(kOther)));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    EXPECT_EQ(shown(), "a|o a|1");
}

TEST_F(SaveDialog, TellsWhetherAFileWasConnected) {
    makeFile();
    addPalette("a", {});
    open();
    bool ok = false;
    dialog->ConnectDataFile("/none.mdb", ok);
    EXPECT_FALSE(ok);
    dialog->ConnectDataFile(kFile, ok);
    EXPECT_TRUE(ok);
}

TEST_F(SaveDialog, AsksForADatabaseAndMayBeRefusedOne) {
    makeFile();
    addPalette("a", {});
    open();
    user.click(dialog->cmdConnectDataFile);
    ASSERT_EQ(runtime.fileDialogs.size(), 1U);
    EXPECT_EQ(runtime.fileDialogs[0].purpose, forms::FileDialog::Purpose::open);
    EXPECT_EQ(runtime.fileDialogs[0].title, "Zvol databázi...");
    EXPECT_EQ(runtime.fileDialogs[0].description, "Databáze Access (*.mdb)");
    EXPECT_EQ(runtime.fileDialogs[0].pattern, "*.mdb");
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
}

TEST_F(SaveDialog, MakesANewFileAndAsksForItsFirstPalette) {
    makeFile();
    addPalette("a", {});
    open();
    runtime.chosenFiles = {kOther};
    runtime.answers = {MsgBoxResult::no};
    user.click(dialog->cmdMakeDataFile);
    ASSERT_EQ(runtime.fileDialogs.size(), 1U);
    EXPECT_EQ(runtime.fileDialogs[0].purpose, forms::FileDialog::Purpose::save);
    EXPECT_EQ(runtime.fileDialogs[0].title, "Zvol umístění databázového souboru...");
    EXPECT_EQ(runtime.fileDialogs[0].description, "Databáze Access (*.mdb)");
    EXPECT_EQ(runtime.fileDialogs[0].pattern, "*.mdb");
    EXPECT_EQ(onlyBox(), (memory::ShownBox{kNoFirst, 36, "Dotaz..."}));
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kOther);
    EXPECT_EQ(contents(kOther), Names{});
}

TEST_F(SaveDialog, KeepsAnExistingFileUnlessItMayBeReplaced) {
    makeFile(kOther);
    addPalette("b", {}, kOther);
    makeFile();
    addPalette("a", {});
    open();
    runtime.chosenFiles = {kOther, kOther};
    runtime.answers = {MsgBoxResult::no, MsgBoxResult::yes, MsgBoxResult::no};
    user.click(dialog->cmdMakeDataFile);
    EXPECT_EQ(onlyBox(),
              (memory::ShownBox{
                  base::text("Databáze", kOther, " již existuje.\r\n\r\nMá být nahrazena novou?"),
                  52, "Dotaz..."}));
    EXPECT_EQ(contents(kOther), Names{"1 b (0):"});
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
    user.click(dialog->cmdMakeDataFile);
    EXPECT_EQ(runtime.boxes.size(), 2U);
    EXPECT_EQ(contents(kOther), Names{});
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kOther);
}

TEST_F(SaveDialog, ReplacesTheVeryFileThatItWorksOn) {
    openOnThird();
    runtime.chosenFiles = {kFile};
    runtime.answers = {MsgBoxResult::yes, MsgBoxResult::no};
    user.click(dialog->cmdMakeDataFile);
    EXPECT_EQ(runtime.boxes.size(), 2U);
    EXPECT_EQ(contents(), Names{});
    EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{});
    EXPECT_EQ(shown(), "||");
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
}

TEST_F(SaveDialog, ReportsAnExistingFileThatIsInUse) {
    makeFile(kOther);
    makeFile();
    addPalette("a", {});
    open();
    const auto held = files.lock(kOther);
    runtime.chosenFiles = {kOther};
    user.click(dialog->cmdMakeDataFile);
    ASSERT_EQ(runtime.boxes.size(), 2U);
    EXPECT_EQ(runtime.boxes[1],
              report(3045, "frmSaveFill.cmdMakeDataFile_Click",
                     "Při pokusu založit novou databázi vznikla chyba...",
                     base::text("Databázi „", kOther, "“ má otevřenou jiný program.")));
    EXPECT_EQ(contents(kOther), Names{});
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
}

TEST_F(SaveDialog, StaysWithItsFileWhenNoNewOneIsMade) {
    makeFile();
    addPalette("a", {});
    open();
    user.click(dialog->cmdMakeDataFile);
    EXPECT_TRUE(runtime.boxes.empty());
    runtime.chosenFiles = {kOther};
    runtime.answers = {MsgBoxResult::abort};
    fail("create", 3050);
    user.click(dialog->cmdMakeDataFile);
    memory::ShownBox refused = report(3050, "mMakeDatabase.MakeDatabase",
                                      "Při vytváření databáze vznikla chyba...", "popis");
    refused.style = 50;
    EXPECT_EQ(onlyBox(), refused);
    EXPECT_EQ(dialog->txtDataFile.Text.get(), kFile);
}

// A file without palettes.

TEST_F(SaveDialog, WithoutPalettesAsksForTheFirstAndBeginsIt) {
    makeFile();
    runtime.answers = {MsgBoxResult::yes};
    open();
    EXPECT_EQ(onlyBox(), (memory::ShownBox{kNoFirst, 36, "Dotaz..."}));
    EXPECT_EQ(enabled(), kEditing);
    EXPECT_EQ(dialog->focused(), &dialog->txtFillGroupName);
    EXPECT_EQ(shown(), "||");
}

TEST_F(SaveDialog, WithoutPalettesMayStaySo) {
    makeFile();
    runtime.answers = {MsgBoxResult::no};
    open();
    EXPECT_EQ(onlyBox(), (memory::ShownBox{kNoFirst, 36, "Dotaz..."}));
    EXPECT_EQ(enabled(), "FillGroup ConnectDataFile MakeDataFile New Edit ");
    user.click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isUnloaded());
}

TEST_F(SaveDialog, WithoutPalettesTakesNoTextOutsideANewOne) {
    makeFile();
    runtime.answers = {MsgBoxResult::no};
    open();
    user.type(dialog->txtFillGroupName, "x");
    EXPECT_EQ(dialog->txtFillGroupName.Text.get(), "");
    EXPECT_EQ(enabled(), "FillGroup ConnectDataFile MakeDataFile New Edit ");
}

// A new palette.

TEST_F(SaveDialog, SavesTheSelectedRowsAsAPalette) {
    rows.add({10, 20, 30});
    rows.rows[1].selected = false;
    openAndBegin();
    user.type(dialog->txtFillGroupName, "Žluťoučký kůň");
    user.type(dialog->txtFillGroupDescription, "popis");
    user.click(dialog->cmdApply);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(contents(), Names{"1 Žluťoučký kůň (2): 10@0 30@1"});
    EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{"Žluťoučký kůň"});
    EXPECT_EQ(dialog->lstFillGroup.ItemData(0), 1);
    EXPECT_EQ(dialog->lstFillGroup.ListIndex, 0);
    EXPECT_EQ(shown(), "Žluťoučký kůň|popis|2");
    EXPECT_EQ(enabled(), kBrowsing);
    EXPECT_TRUE(dialog->cmdOK.Default);
}

TEST_F(SaveDialog, AppendsANewPaletteToTheListAndSelectsIt) {
    rows.add(10);
    openOnThird();
    user.click(dialog->cmdNew);
    EXPECT_EQ(shown(), "||");
    EXPECT_EQ(enabled(), kEditing);
    save("aa");
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b", "c", "aa"}));
    EXPECT_EQ(dialog->lstFillGroup.ListIndex, 3);
    EXPECT_EQ(shown(), "aa||1");
    EXPECT_EQ(contents().back(), "4 aa (1): 10@0");
}

TEST_F(SaveDialog, StoresTheDestinationFillWithItsPreview) {
    rows.add(10);
    rows.change(1, [](fill::FillProperties& fill) { fill.ForeColorRGB = 77; });
    *rows.rows[0].preview = previewIn(77);
    openAndBegin();
    save("a");
    const auto database = jet::Database::open(files, kFile);
    const auto fills = fillsOf(*database, jet::Value(1));
    ASSERT_EQ(fills.size(), 1U);
    EXPECT_EQ(valueOf(fills[0], "ForeColorRGB"), jet::Value(77));
    EXPECT_EQ(valueOf(fills[0], "FillPreview"), jet::Value(previewIn(77).bytes()));
}

TEST_F(SaveDialog, StoresNullForARowWithoutAPreview) {
    rows.add(10);
    *rows.rows[0].preview = {};
    openAndBegin();
    save("a");
    const auto database = jet::Database::open(files, kFile);
    EXPECT_EQ(valueOf(fillsOf(*database, jet::Value(1)).at(0), "FillPreview"), jet::Value());
}

TEST_F(SaveDialog, WithNoRowSelectedSaysSoAndKeepsTheNewPalettePending) {
    rows.add(10);
    rows.rows[0].selected = false;
    openAndBegin();
    save("a");
    EXPECT_EQ(onlyBox(),
              (memory::ShownBox{"Nejsou vybrány žádné položky pro uložení.", 64, "Upozornění"}));
    EXPECT_EQ(contents(), Names{});
    EXPECT_EQ(enabled(), kEditing);
    EXPECT_EQ(dialog->txtFillGroupName.Text.get(), "a");
    rows.rows[0].selected = true;
    user.click(dialog->cmdApply);
    EXPECT_EQ(contents(), Names{"1 a (1): 10@0"});
}

TEST_F(SaveDialog, LeavesOutRowsThatCannotBeWrittenWithoutAGap) {
    rows.add({10, 20, 30, 40, 50});
    rows.change(2, [](fill::FillProperties& fill) { fill.UnknownTexture = true; });
    rows.change(4, [](fill::FillProperties& fill) { fill.GradientDegree = 3e9F; });
    openAndBegin();
    save("a");
    ASSERT_EQ(runtime.boxes.size(), 2U);
    EXPECT_EQ(runtime.boxes[0], kUnknownTexture);
    EXPECT_EQ(runtime.boxes[1], report(6, "CFill.FillToRecordset",
                                       "Chyba při ukládání údajů do databáze...", "Přetečení."));
    EXPECT_EQ(contents(), Names{"1 a (3): 10@0 30@1 50@2"});
    EXPECT_EQ(shown(), "a||3");
    EXPECT_EQ(enabled(), kBrowsing);
}

TEST_F(SaveDialog, SavesAPaletteWithoutFillsWhereNoRowCanBeWritten) {
    rows.add(10);
    rows.change(1, [](fill::FillProperties& fill) { fill.UnknownTexture = true; });
    openAndBegin();
    save("a");
    EXPECT_EQ(onlyBox(), kUnknownTexture);
    EXPECT_EQ(contents(), Names{"1 a (0):"});
    EXPECT_EQ(shown(), "a||0");
}

TEST_F(SaveDialog, ReportsANameThatTheDatabaseRefusesAndLeavesThePalettePending) {
    rows.add(10);
    openAndBegin();
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyReport(), report(3314, "frmSaveFill.cmdApply_Click", kSaveFailed));
    user.type(dialog->txtFillGroupName, std::string(31, 'n'));
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyReport(), report(3163, "frmSaveFill.cmdApply_Click", kSaveFailed));
    EXPECT_EQ(contents(), Names{});
    EXPECT_EQ(enabled(), kEditing);
    user.type(dialog->txtFillGroupName, "");
    user.key(KeyCode::kBack);
    user.click(dialog->cmdApply);
    EXPECT_EQ(contents(), Names{base::text("1 ", std::string(30, 'n'), " (1): 10@0")});
}

TEST_F(SaveDialog, RefusesANameThatWasTakenBack) {
    rows.add(10);
    openAndBegin();
    user.type(dialog->txtFillGroupName, "a");
    user.key(KeyCode::kBack);
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyReport(), report(3315, "frmSaveFill.cmdApply_Click", kSaveFailed));
    EXPECT_EQ(enabled(), kEditing);
}

TEST_F(SaveDialog, AfterAnErrorKeepsThePaletteAndTheFillsWrittenBeforeIt) {
    rows.add({10, 20, 30});
    rows.change(2, [](fill::FillProperties& fill) { fill.TextureName = std::string(256, 't'); });
    openAndBegin();
    save("a");
    EXPECT_EQ(onlyReport(), report(3163, "frmSaveFill.cmdApply_Click", kSaveFailed));
    EXPECT_EQ(contents(), Names{"1 a (?): 10@0"});
    EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{});
}

TEST_F(SaveDialog, WritesAPaletteWhollyInOneCommit) {
    for (std::int32_t color = 1; color <= 40; ++color) rows.add(color);
    openAndBegin();
    user.type(dialog->txtFillGroupName, "a");
    // At each call of the system the file that others see is the old one or the whole new one.
    const auto before = files.files.at(kFile);
    std::size_t replaced = 0;
    std::size_t calls = 0;
    files.onCall = [&](const char* what) {
        ++calls;
        if (std::string(what) == "replace") ++replaced;
        EXPECT_EQ(files.files.at(kFile) == before, replaced == 0 || std::string(what) == "replace");
    };
    user.click(dialog->cmdApply);
    files.onCall = nullptr;
    EXPECT_EQ(replaced, 1U);
    EXPECT_GT(calls, 10U);
    ASSERT_EQ(contents().size(), 1U);
    EXPECT_EQ(contents()[0].substr(0, 10), "1 a (40): ");
}

TEST_F(SaveDialog, OfAFullDiskReportsAndLeavesTheFileAsItWas) {
    rows.add({10, 20});
    openAndBegin();
    user.type(dialog->txtFillGroupName, "a");
    fail("write", 61);
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyBox(), report(61, "frmSaveFill.cmdApply_Click", kSaveFailed, "popis"));
    files.onCall = nullptr;
    EXPECT_EQ(contents(), Names{});
    EXPECT_EQ(namesIn(dialog->lstFillGroup), Names{});
    user.click(dialog->cmdCancel);
    EXPECT_EQ(shown(), "||");
    user.click(dialog->cmdNew);
    save("b");
    EXPECT_EQ(contents(), Names{"1 b (2): 10@0 20@1"});
}

TEST_F(SaveDialog, OfAFileInUseReportsAndSavesLater) {
    rows.add(10);
    openAndBegin();
    user.type(dialog->txtFillGroupName, "a");
    {
        const auto held = files.lock(kFile);
        user.click(dialog->cmdApply);
        EXPECT_EQ(onlyBox(),
                  report(3045, "frmSaveFill.cmdApply_Click", kSaveFailed,
                         base::text("Databázi „", kFile, "“ má otevřenou jiný program.")));
        EXPECT_EQ(enabled(), kEditing);
    }
    user.click(dialog->cmdApply);
    EXPECT_EQ(contents(), Names{"1 a (1): 10@0"});
}

TEST_F(SaveDialog, OfAReadOnlyFileReportsAndKeepsThePalettePending) {
    rows.add(10);
    openAndBegin();
    user.type(dialog->txtFillGroupName, "a");
    fail("lock", 3027);
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyBox(), report(3027, "frmSaveFill.cmdApply_Click", kSaveFailed, "popis"));
    EXPECT_EQ(enabled(), kEditing);
    EXPECT_EQ(contents(), Names{});
}

// Editing.

TEST_F(SaveDialog, ShowsThePaletteThatIsPicked) {
    openOnThird();
    EXPECT_EQ(shown(), "c|o c|2");
    user.pick(dialog->lstFillGroup, 1);
    EXPECT_EQ(shown(), "b|o b|2");
    EXPECT_EQ(enabled(), kBrowsing);
}

TEST_F(SaveDialog, EditSelectsTheWholeName) {
    openOnThird();
    user.click(dialog->cmdEdit);
    EXPECT_EQ(enabled(), kEditing);
    EXPECT_EQ(dialog->focused(), &dialog->txtFillGroupName);
    EXPECT_EQ(dialog->txtFillGroupName.SelText(), "c");
}

TEST_F(SaveDialog, SavesAnEditedPaletteUnderItsNewName) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.type("nová");
    user.type(dialog->txtFillGroupDescription, "!");
    user.click(dialog->cmdApply);
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b", "nová"}));
    EXPECT_EQ(contents(), (Names{"1 a (2): 1@0 2@1", "2 b (2): 1@0 2@1", "3 nová (2): 1@0 2@1"}));
    EXPECT_EQ(shown(), "nová|o c!|2");
    EXPECT_EQ(enabled(), kBrowsing);
}

TEST_F(SaveDialog, BeginsAnEditWithTheFirstKey) {
    openOnThird();
    user.type(dialog->txtFillGroupDescription, "x");
    EXPECT_EQ(enabled(), "New Edit Erase Apply Cancel ");
    user.click(dialog->cmdApply);
    EXPECT_EQ(shown(), "c|o cx|2");
    EXPECT_EQ(enabled(), kBrowsing);
}

TEST_F(SaveDialog, SavesNothingWhereNothingWasTyped) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.click(dialog->cmdApply);
    EXPECT_EQ(enabled(), kEditing);
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(SaveDialog, LeavesAnEditPendingWhileTheFileIsInUse) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.type("nová");
    {
        const auto held = files.lock(kFile);
        user.click(dialog->cmdApply);
        EXPECT_EQ(onlyBox(),
                  reportOf(3045, "cmdApply_Click", kSaveFailed,
                           base::text("Databázi „", kFile, "“ má otevřenou jiný program.")));
        EXPECT_EQ(enabled(), kEditing);
        EXPECT_EQ(dialog->txtFillGroupName.Text.get(), "nová");
        EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b", "c"}));
    }
    user.click(dialog->cmdApply);
    EXPECT_EQ(contents()[2], "3 nová (2): 1@0 2@1");
    EXPECT_EQ(enabled(), kBrowsing);
}

TEST_F(SaveDialog, ChangesAFileOfAnotherProgram) {
    rows.add({31, 32});
    writeFile(kFile, fileOfAnotherProgram());
    open();
    user.pick(dialog->lstFillGroup, 1);
    EXPECT_EQ(shown(), base::text(kLongestName, "|popis|4"));
    user.click(dialog->cmdNew);
    save("nová");
    user.pick(dialog->lstFillGroup, 1);
    user.click(dialog->cmdEdit);
    user.type("Jiná");
    user.click(dialog->cmdApply);
    user.pick(dialog->lstFillGroup, 0);
    user.click(dialog->cmdErase);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"Jiná", "nová"}));
    EXPECT_EQ(contents(), (Names{"1 Jiná (4): 11@0 12@1 13@2 14@3", "3 nová (2): 31@0 32@1"}));
    const auto database = jet::Database::open(files, kFile);
    for (const jet::Column& column : database->definition(kElementTable)->columns) {
        EXPECT_FALSE(column.fixed) << column.name;
    }
    // The other program has lost pages; that is no damage.
    for (const jet::Violation& each : jet::check(*database).violations) {
        EXPECT_EQ(each.severity, jet::Severity::waste) << each.text();
    }
}

TEST_F(SaveDialog, LeavesAnEditedNameThatIsRefusedPending) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.key(KeyCode::kDelete);
    user.click(dialog->cmdApply);
    EXPECT_EQ(onlyReport(), report(3315, "frmSaveFill.cmdApply_Click", kSaveFailed));
    EXPECT_EQ(enabled(), kEditing);
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b", "c"}));
}

TEST_F(SaveDialog, CancelTakesAnEditBackAndFindsThePaletteOfTheListAgain) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.type("x");
    user.click(dialog->cmdCancel);
    EXPECT_EQ(shown(), "c|o c|2");
    EXPECT_EQ(enabled(), kBrowsing);
    EXPECT_EQ(contents()[2], "3 c (2): 1@0 2@1");
    user.click(dialog->cmdErase);
    EXPECT_EQ(contents(), (Names{"1 a (2): 1@0 2@1", "2 b (2): 1@0 2@1"}));
}

TEST_F(SaveDialog, CancelTakesANewPaletteBack) {
    openOnThird();
    user.click(dialog->cmdNew);
    user.type("x");
    user.click(dialog->cmdCancel);
    EXPECT_EQ(shown(), "c|o c|2");
    EXPECT_EQ(enabled(), kBrowsing);
    EXPECT_EQ(contents().size(), 3U);
}

TEST_F(SaveDialog, CancelShowsWhatOthersHaveWrittenMeanwhile) {
    openOnThird();
    user.click(dialog->cmdEdit);
    jet::Database::open(files, kFile)->change([] {});
    const auto other = jet::Database::open(files, kFile);
    other->change([&] {
        jet::Table table(*other, "TFillGroup");
        table.update(table.find(table.column("ID"), 3).at(0), {{&table.column("Name"), "jiná"}});
    });
    user.click(dialog->cmdCancel);
    EXPECT_EQ(shown(), "jiná|o c|2");
}

TEST_F(SaveDialog, ReportsACancelThatFails) {
    openOnThird();
    user.click(dialog->cmdEdit);
    files.files.erase(kFile);
    user.click(dialog->cmdCancel);
    EXPECT_EQ(onlyReport(),
              report(3024, "frmSaveFill.cmdCancel_Click", "Příkaz se nezdařilo odvolat..."));
}

TEST_F(SaveDialog, EscapeCancelsAnEditAndClosesTheDialog) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.type("x");
    user.key(KeyCode::kEscape);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(contents()[2], "3 c (2): 1@0 2@1");
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(SaveDialog, ClosingWithAPendingPaletteWritesNothing) {
    rows.add(10);
    openAndBegin();
    user.type(dialog->txtFillGroupName, "a");
    user.click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isUnloaded());
    EXPECT_EQ(contents(), Names{});
}

TEST_F(SaveDialog, ReturnInTheNameGoesOnToTheDescription) {
    openOnThird();
    user.click(dialog->cmdEdit);
    user.type("x\n");
    EXPECT_EQ(dialog->focused(), &dialog->txtFillGroupDescription);
    user.type("1\n2");
    EXPECT_FALSE(dialog->isUnloaded());
    user.click(dialog->cmdApply);
    EXPECT_EQ(dialog->txtFillGroupName.Text.get(), "x");
    EXPECT_NE(dialog->txtFillGroupDescription.Text.get().find("1\r\n2"), std::string::npos);
}

TEST_F(SaveDialog, NewReportsAnEditThatCannotBeLeft) {
    openOnThird();
    user.type(dialog->txtFillGroupName, std::string(40, 'x'));
    user.click(dialog->cmdNew);
    EXPECT_EQ(onlyReport(),
              report(3163, "frmSaveFill.cmdNew_Click", "Založení nového záznamu se nepodařilo..."));
    user.click(dialog->cmdCancel);
    EXPECT_EQ(enabled(), kBrowsing);
}

// Erasing.

TEST_F(SaveDialog, ErasesAPaletteWithItsFillsWithoutAQuestion) {
    openOnThird();
    user.pick(dialog->lstFillGroup, 1);
    user.click(dialog->cmdErase);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(contents(), (Names{"1 a (2): 1@0 2@1", "3 c (2): 1@0 2@1"}));
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "c"}));
    EXPECT_EQ(dialog->lstFillGroup.ListIndex, 0);
    EXPECT_EQ(shown(), "a|o a|2");
    EXPECT_EQ(dialog->focused(), &dialog->lstFillGroup);
    EXPECT_EQ(jet::Table(*jet::Database::open(files, kFile), "TFillElementParameter")
                  .find(jet::Table(*jet::Database::open(files, kFile), "TFillElementParameter")
                            .column("GroupID"),
                        2)
                  .size(),
              0U);
}

TEST_F(SaveDialog, ErasesTheLastPalette) {
    makeFile();
    addPalette("a", {1});
    open();
    user.click(dialog->cmdErase);
    EXPECT_EQ(contents(), Names{});
    EXPECT_EQ(shown(), "||");
    EXPECT_EQ(enabled(), "FillGroup ConnectDataFile MakeDataFile New Edit ");
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(SaveDialog, ErasingTakesAPendingEditBackFirst) {
    openOnThird();
    user.type(dialog->txtFillGroupName, "x");
    user.click(dialog->cmdErase);
    EXPECT_EQ(contents(), (Names{"1 a (2): 1@0 2@1", "2 b (2): 1@0 2@1"}));
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b"}));
    EXPECT_EQ(enabled(), kBrowsing);
}

TEST_F(SaveDialog, ReportsAPaletteThatCannotBeErased) {
    openOnThird();
    fail("lock", 3027);
    user.click(dialog->cmdErase);
    EXPECT_EQ(onlyBox(), report(3027, "frmSaveFill.cmdErase_Click",
                                "Při pokusu odstranit záznam vznikla chyba...", "popis"));
    files.onCall = nullptr;
    EXPECT_EQ(contents().size(), 3U);
    EXPECT_EQ(namesIn(dialog->lstFillGroup).size(), 3U);
}

TEST_F(SaveDialog, ErasesTheFillsBeforeThePalette) {
    openOnThird();
    // Another program's table refers to the palette, which therefore stays; its fills are gone.
    const auto other = jet::Database::open(files, kFile);
    other->change([&] {
        jet::createTable(*other, {"Notes", {{"GroupID", jet::ColumnType::longInteger}}, {}});
        jet::createRelation(*other, {"Noted", "Notes", "GroupID", kGroupTable, "ID"});
    });
    other->change([&] {
        jet::Table notes(*other, "Notes");
        const jet::Table::Values note{{&notes.column("GroupID"), 3}};
        notes.insert(note);
    });
    user.click(dialog->cmdErase);
    EXPECT_EQ(onlyReport(), report(3200, "frmSaveFill.cmdErase_Click",
                                   "Při pokusu odstranit záznam vznikla chyba..."));
    EXPECT_EQ(contents(), (Names{"1 a (2): 1@0 2@1", "2 b (2): 1@0 2@1", "3 c (2):"}));
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b", "c"}));
}

TEST_F(SaveDialog, ReportsAPaletteThatAnotherProgramHasErased) {
    openOnThird();
    erasePalettes(*jet::Database::open(files, kFile), "b");
    user.pick(dialog->lstFillGroup, 1);
    EXPECT_EQ(shown(), "b|o b|2");
    EXPECT_TRUE(runtime.boxes.empty());
    user.click(dialog->cmdErase);
    EXPECT_EQ(onlyReport(), report(3197, "frmSaveFill.cmdErase_Click",
                                   "Při pokusu odstranit záznam vznikla chyba..."));
}

// The list.

TEST_F(SaveDialog, SortsTheListByNameOnlyWhenItConnects) {
    rows.add(10);
    openOnThird();
    user.click(dialog->cmdEdit);
    user.type("0");
    user.click(dialog->cmdApply);
    user.click(dialog->cmdNew);
    save("aa");
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"a", "b", "0", "aa"}));
    connectTo(kFile);
    EXPECT_EQ(namesIn(dialog->lstFillGroup), (Names{"0", "a", "aa", "b"}));
}

// Errors that nothing but a control can cause.

TEST_F(SaveDialog, ReportsWhatFailsUnderTheNameOfEachHandler) {
    openOnThird();
    using forms::PropertyId;
    expectReports(
        {{&dialog->txtFillGroupName, PropertyId::Text,
          [this] { user.pick(dialog->lstFillGroup, 1); }, "lstFillGroup_Click",
          "Chyba při výběru záznamu..."},
         {&dialog->lstFillGroup, PropertyId::Enabled, [this] { user.click(dialog->cmdNew); },
          "cmdNew_Click", "Založení nového záznamu se nepodařilo..."},
         {&dialog->cmdNew, PropertyId::Enabled, [this] { user.click(dialog->cmdEdit); },
          "cmdEdit_Click", "Záznam se nepodařilo upravit..."},
         {dialog.get(), PropertyId::Focus, [this] { dialog->txtFillGroupName.KeyPress(u'\r'); },
          "txtFillGroupName_KeyPress", "Záznam se nepodařilo upravit..."},
         {&dialog->cmdNew, PropertyId::Enabled, [this] { user.click(dialog->cmdCancel); },
          "cmdCancel_Click", "Příkaz se nezdařilo odvolat..."}});
}

TEST_F(SaveDialog, ReportsFileDialogsThatDoNotComeUp) {
    openOnThird();
    WithoutFileDialogs without(runtime);
    const forms::RuntimeScope scopeOfOther(without);
    user.click(dialog->cmdConnectDataFile);
    EXPECT_EQ(onlyBox(), report(7, "frmSaveFill.cmdConnectDataFile_Click",
                                "Při výběru databáze došlo k chybě...", "popis"));
    user.click(dialog->cmdMakeDataFile);
    EXPECT_EQ(onlyBox(), report(7, "frmSaveFill.cmdMakeDataFile_Click",
                                "Při pokusu založit novou databázi vznikla chyba...", "popis"));
}

TEST_F(SaveDialog, ReportsWhatFailsWhileItOpensAndCloses) {
    makeFile();
    rows.failsOnLevels = true;
    open();
    EXPECT_EQ(onlyBox(), report(7, "frmSaveFill.Form_Load",
                                "Při otevírání formuláře došlo k chybě...", "popis"));
    dialog->Unloaded.connect([] { throw base::Error(7, "popis"); });
    user.click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isUnloaded());
    const char* const message = "Při zavírání formuláře došlo k chybě...";
    EXPECT_EQ(runtime.boxes, (std::vector{report(7, "frmSaveFill.Form_Unload", message, "popis"),
                                          report(7, "frmSaveFill.cmdOK_Click", message, "popis")}));
    EXPECT_EQ(runtime.savedSettings, Names{});
}

}  // namespace
}  // namespace huebrush::palette
