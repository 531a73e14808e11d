// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "base/Text.h"
#include "files/Folder_test_support.h"
#include "forms/ForwardingRuntime.h"
#include "jet/database/Schema.h"
#include "jet/file/MemoryFiles.h"
#include "palette/PaletteFile.h"
#include "palette/PaletteRows.h"
#include "palette/mMakeDatabase.h"
#include "ports/memory/Driver.h"
#include "ports/memory/FailingPeer.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::palette {

/// A preview in one colour.
inline base::Picture previewIn(std::int32_t color) {
    return base::bitmapOf(1, 1, {static_cast<std::uint8_t>(color), 0, 0, 0xFF});
}

/// Rows as the recolour dialog has them: a fill that is read from a record brings its preview.
class TestRows final : public PaletteRows {
 public:
    struct Row {
        std::shared_ptr<fill::CFill> fill = std::make_shared<fill::CFill>();
        std::shared_ptr<base::Picture> preview = std::make_shared<base::Picture>();
        bool selected = true;
    };

    /// Adds a row of a solid fill, selected.
    Row& add(std::int32_t color) {
        fill::FillProperties properties;
        properties.Visible = host::MsoTriState::msoTrue;
        properties.Type = host::MsoFillType::msoFillSolid;
        properties.ForeColorRGB = color;
        Row row;
        row.fill->setDestination(properties);
        row.fill->ApplyChange();
        *row.preview = previewIn(color);
        row.fill->ReadFromRecordset.connect(
            [shown = row.preview](const base::Picture& preview) { *shown = preview; });
        rows.push_back(row);
        return rows.back();
    }
    void add(const std::vector<std::int32_t>& colors) {
        for (const std::int32_t color : colors) add(color);
    }
    std::vector<std::int32_t> colors() const {
        std::vector<std::int32_t> colors;
        for (const Row& row : rows) colors.push_back(row.fill->destination().ForeColorRGB);
        return colors;
    }
    /// Changes the destination of the row counted from 1.
    template <class Change>
    void change(std::size_t row, const Change& change) {
        fill::FillProperties properties = rows[row - 1].fill->destination();
        change(properties);
        rows[row - 1].fill->setDestination(properties);
    }

    std::int16_t lastRow() const override { return static_cast<std::int16_t>(rows.size()); }
    bool isRowSelected(std::int16_t row) const override { return at(row).selected; }
    std::int16_t selectedRows() const override {
        std::int16_t count = 0;
        for (const Row& row : rows)
            count = static_cast<std::int16_t>(count + (row.selected ? 1 : 0));
        return count;
    }
    fill::CFill& fillOf(std::int16_t row) override { return *at(row).fill; }
    base::Picture previewOf(std::int16_t row) const override { return *at(row).preview; }
    bool isTopMost() const override { return topMost; }
    void setTopMost(bool value) override {
        if (failsOnLevels) throw base::Error(7, "popis");
        topMost = value;
        levels.push_back(value);
    }

    std::vector<Row> rows;
    bool topMost = true;
    bool failsOnLevels = false;
    /// The levels that were asked for, in their order.
    std::vector<bool> levels;

 private:
    const Row& at(std::int16_t row) const { return rows.at(static_cast<std::size_t>(row) - 1); }
};

/// A file that is no database which the dialogs can open: the error, and what it says of the file.
struct UnusableFile {
    const char* what;
    jet::Bytes content;
    std::int32_t number;
    const char* reason;
};

/// Files of other kinds, those of databases made from a sound one.
inline std::vector<UnusableFile> unusableFiles(const jet::Bytes& sound) {
    const auto with = [&](const std::function<void(jet::Bytes&)>& change) {
        jet::Bytes content = sound;
        change(content);
        return content;
    };
    const auto putSignature = [](jet::Bytes& content) {
        const std::string newer = "Standard ACE DB";
        std::copy(newer.begin(), newer.end(), content.begin() + 4);
    };
    return {
        {"empty", {}, 3343, "není to databáze Accessu"},
        {"a text", jet::Bytes(5000, 'x'), 3343, "není to databáze Accessu"},
        {"Access 97", with([](jet::Bytes& content) { content[0x14] = 0; }), 3251,
         "má starší formát než Access 2000"},
        {"Access 2007", with(putSignature), 3251, "má novější formát než Access 2000"},
        {"a later engine", with([](jet::Bytes& content) { content[0x14] = 2; }), 3251,
         "má novější formát než Access 2000"},
        {"encrypted", with([](jet::Bytes& content) { content[0x3E] ^= 1; }), 3251,
         "je zašifrovaná"},
        {"with a password", with([](jet::Bytes& content) { content[0x46] ^= 'p'; }), 3031,
         "je chráněná heslem"},
        {"the beginning of one", with([](jet::Bytes& content) { content.resize(100); }), 3049,
         "soubor není celý"},
    };
}

/// Palette files in memory.
class PaletteFilesTest : public files::Folder {
 protected:
    using Names = std::vector<std::string>;
    using Colors = std::vector<std::int32_t>;

    /// The file that is the user's own, and another one.
    static constexpr const char* kFile = "/huebrush/Data/fill.mdb";
    static constexpr const char* kOther = "/home/other.mdb";

    PaletteFilesTest() {
        runtime.temporary = files::nameOf(folder);
        runtime.UnhandledError.connect(
            [this](const base::Error& error) { unhandled.push_back(error.description()); });
    }
    ~PaletteFilesTest() override { EXPECT_EQ(unhandled, Names{}); }

    void makeFile(const std::string& path = kFile) { ASSERT_TRUE(MakeDatabase(path, files)); }
    static constexpr auto kLong = jet::ColumnType::longInteger;
    static constexpr auto kText = jet::ColumnType::text;
    /// Adds a palette of solid fills in these colours.
    void addPalette(const std::string& name, const Colors& colors,
                    const std::string& path = kFile) {
        Palette palette{{{"Name", name}, {"Description", "o " + name}}, {}};
        for (const std::int32_t color : colors) palette.elements.push_back(element(color));
        addPalettes(*jet::Database::open(files, path), {palette});
    }
    /// Makes a file that has a table of palettes with these columns, and no other; the palettes
    /// have the values given.
    void makeGroupTable(const std::vector<jet::NewColumn>& columns,
                        const std::vector<Record>& palettes) {
        files.files.erase(kOther);
        jet::createDatabase(files, kOther);
        const auto database = jet::Database::open(files, kOther);
        jet::createTable(*database, {kGroupTable, columns, {}});
        database->change([&] {
            jet::Table table(*database, kGroupTable);
            for (const Record& palette : palettes) {
                jet::Table::Values values;
                for (const auto& [name, value] : palette) {
                    values.emplace_back(&table.column(name), value);
                }
                table.insert(values);
            }
        });
    }
    /// A file of which a dialog reads the first palette and fails at the second.
    void makePaletteWithoutAName() {
        makeGroupTable({{"ID", kLong}, {"Name", kText, 30, true}, {"Count", kLong, 0, true}},
                       {{{"ID", 1}, {"Name", std::string("b")}}, {{"ID", 2}}});
    }
    /// Spoils the page on which the definition of a table begins. What the error says then.
    std::string damageTable(const std::string& table, const std::string& path) {
        const jet::PageNumber page = jet::Database::open(files, path)->definition(table)->page;
        jet::Bytes content = *files.files.at(path);
        content.at(std::size_t{page} * jet::kPageSize) = 9;
        writeFile(path, std::move(content));
        return base::text("Soubor databáze je poškozený: strana ", page, ", bajt 0 (pravidlo F3).");
    }
    static Record element(std::int32_t color) {
        Record record;
        for (const char* const column :
             {"Transparency", "BackColorRGB", "GradientStyle", "GradientColorType",
              "GradientVariant", "GradientDegree", "PresetGradientType", "TextureType",
              "PresetTexture", "Pattern"}) {
            record.emplace_back(column, 0);
        }
        record.emplace_back("Visible", -1);
        record.emplace_back("Type", 1);
        record.emplace_back("ForeColorRGB", color);
        record.emplace_back("TextureName", std::string());
        record.emplace_back("PictureName", std::string());
        record.emplace_back("FillPreview", previewIn(color).bytes());
        return record;
    }
    /// What the file holds: each palette as "ID name (Count): colour at OrderNumber, …".
    Names contents(const std::string& path = kFile) {
        const auto database = jet::Database::open(files, path);
        Names lines;
        for (const Record& group : listPalettes(*database)) {
            const jet::Value& count = valueOf(group, "Count");
            std::string line = base::text(jet::toLong(valueOf(group, "ID")), " ",
                                          jet::toText(valueOf(group, "Name")), " (",
                                          jet::isNull(count) ? "?" : jet::toText(count), "):");
            for (const Record& fill : fillsOf(*database, valueOf(group, "ID"))) {
                line += base::text(" ", jet::toLong(valueOf(fill, "ForeColorRGB")), "@",
                                   jet::toLong(valueOf(fill, "OrderNumber")));
            }
            lines.push_back(line);
        }
        return lines;
    }
    void writeFile(const std::string& path, jet::Bytes content) {
        files.files[path] = std::make_shared<jet::Bytes>(std::move(content));
    }
    /// The calls of the system that MemoryFiles knows fail with an error from now on.
    void fail(const std::string& call, std::int32_t number) {
        files.onCall = [call, number](const char* what) {
            if (what == call) throw base::Error(number, "popis");
        };
    }

    static Names namesIn(const forms::ListBox& list) {
        Names names;
        for (const forms::ListItem& item : list.items()) names.push_back(item.text);
        return names;
    }
    /// The only box shown; forgotten then.
    memory::ShownBox onlyBox() {
        if (runtime.boxes.size() != 1) {
            return {base::text(runtime.boxes.size(), " boxes"), 0, ""};
        }
        memory::ShownBox box = runtime.boxes[0];
        runtime.boxes.clear();
        return box;
    }
    /// What an error's report shows of a procedure and its message.
    static memory::ShownBox report(std::int32_t number, const std::string& source,
                                   const std::string& message,
                                   const std::string& description = {}) {
        return {base::text("Chyba v modulu \"Huebrush.", source, "\"...\r\n\r\n", message,
                           kBeforeDescription, description),
                16, base::text("Chyba č. ", number)};
    }
    /// The only box shown, without the system's description of the error, which there must be.
    memory::ShownBox onlyReport() {
        memory::ShownBox box = onlyBox();
        const std::size_t found = box.text.find(kBeforeDescription);
        if (found == std::string::npos) return box;
        const std::size_t end = found + std::string(kBeforeDescription).size();
        EXPECT_GT(box.text.size(), end);
        box.text.resize(end);
        return box;
    }
    static memory::ShownBox missing(const std::string& path) {
        return {base::text("Soubor databáze \"", path, "\" nebyl nalezen!"), 48,
                "Chyba spojení..."};
    }
    static memory::ShownBox withoutPalettes(const std::string& path) {
        return {base::text("Zovelná databáze \"", path,
                           "\" není platným datovým souborem...\r\n"
                           "Databáze neobsahuje palety výplní."),
                48, "Chybný datový soubor..."};
    }
    static std::string couldNotOpen(const std::string& path) {
        return base::text("Databázi \"", path, "\" se nezdařilo otevřít!");
    }
    std::string setting(const std::string& key) {
        return runtime.settings[{"Huebrush", "Database", key}];
    }

    static constexpr const char* kBeforeDescription = "\r\n\r\nSystémový popis výjimky:\r\n";

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    jet::MemoryFiles files;
    Names unhandled;
};

/// Something that fails while the user does something, and under what it is reported.
struct Failure {
    forms::Control* control;
    forms::PropertyId property;
    std::function<void()> action;
    const char* procedure;
    const char* message;
};

/// A dialog of palettes, and the rows that it works on.
template <class Dialog>
class PaletteDialogTest : public PaletteFilesTest {
 protected:
    ~PaletteDialogTest() override {
        files.onCall = nullptr;
        if (!dialog->isUnloaded()) dialog->Unload();
    }
    /// The user has the dialog work on another file.
    void connectTo(const std::string& path) {
        runtime.chosenFiles = {path};
        user.click(dialog->cmdConnectDataFile);
    }
    memory::ShownBox reportOf(std::int32_t number, const char* procedure,
                              const std::string& message, const std::string& description) {
        return report(number, base::text(dialog->name(), ".", procedure), message, description);
    }
    /// Each failure gives one report.
    void expectReports(const std::vector<Failure>& failures) {
        for (const Failure& each : failures) {
            SCOPED_TRACE(each.procedure);
            each.control->setPeer(std::make_unique<memory::FailingPeer>(each.property));
            each.action();
            each.control->setPeer(nullptr);
            EXPECT_EQ(onlyBox(), reportOf(7, each.procedure, each.message, "popis"));
        }
    }

    TestRows rows;
    std::shared_ptr<Dialog> dialog = Dialog::create(files);
    memory::Driver user{*dialog};
};

/// A runtime whose dialogs of files do not come up.
class WithoutFileDialogs final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;
    std::string ChooseFile(const forms::FileDialog&) override { throw base::Error(7, "popis"); }
};

}  // namespace huebrush::palette
