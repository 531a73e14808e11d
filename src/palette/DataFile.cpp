// SPDX-License-Identifier: MPL-2.0

#include "palette/DataFile.h"

#include "base/Text.h"
#include "forms/Runtime.h"

namespace huebrush::palette {

namespace {

using base::kLineBreak;
using base::text;

constexpr const char* kFileName = "FileName";
constexpr std::int32_t kExclamation = forms::MsgBoxStyle::kOk | forms::MsgBoxStyle::kExclamation;

std::string quoted(const std::string& path) {
    return text("\"", path, "\"");
}

/// What separates the parts of a path, going by a folder of this system.
char separatorOf(const std::string& folder) {
    return folder.find('\\') == std::string::npos ? '/' : '\\';
}

}  // namespace

std::string fillsOfPaletteQuery(std::int32_t id) {
    return text(kFillsQuery, " Where (GroupID =", id, ")ORDER BY OrderNumber");
}

std::string ownDataFile() {
    std::string folder = forms::Runtime::current().Component().userFolder();
    const char separator = separatorOf(folder);
    if (!folder.ends_with(separator)) folder += separator;
    return text(folder, "Data", std::string(1, separator), "fill.mdb");
}

std::string rememberedDataFile() {
    return forms::Runtime::current()
        .Settings()
        .GetSetting(kApplication, kDatabaseSection, kFileName)
        .value_or(ownDataFile());
}

void rememberDataFile(const std::string& path) {
    if (path.empty()) return;
    forms::Runtime::current().Settings().SaveSetting(kApplication, kDatabaseSection, kFileName,
                                                     path);
}

std::optional<std::string> chooseDataFile(forms::FileDialog::Purpose purpose,
                                          const std::string& title) {
    try {
        return forms::Runtime::current().ChooseFile(
            {purpose, title, "Databáze Access (*.mdb)", "*.mdb"});
    } catch (const base::Error& error) {
        if (error.number() != base::ErrorNumber::kCancelled) throw;
        return std::nullopt;
    }
}

void showMissing(const std::string& path) {
    forms::Runtime::current().MsgBox(text("Soubor databáze ", quoted(path), " nebyl nalezen!"),
                                     kExclamation, "Chyba spojení...");
}

void showWithoutPalettes(const std::string& path) {
    forms::Runtime::current().MsgBox(
        text("Zovelná databáze ", quoted(path), " není platným datovým souborem...", kLineBreak,
             "Databáze neobsahuje palety výplní."),
        kExclamation, "Chybný datový soubor...");
}

std::string couldNotOpen(const std::string& path) {
    return text("Databázi ", quoted(path), " se nezdařilo otevřít!");
}

void openDatabase(jet::Connection& connection, const std::string& path) {
    connection.Open(text("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=", path), "Admin", "");
}

std::vector<forms::ListItem> palettesOf(BoundRecordset& groups) {
    std::vector<forms::ListItem> palettes;
    for (; groups.isOnRecord(); groups.MoveNext()) {
        palettes.push_back({jet::toText(groups.Field("Name")), jet::toLong(groups.Field("ID"))});
    }
    if (groups.RecordCount() > 0) groups.MoveFirst();
    return palettes;
}

void showPalettes(forms::ListBox& list, const std::vector<forms::ListItem>& palettes) {
    list.Clear();
    for (const forms::ListItem& palette : palettes) {
        list.AddItem(palette.text);
        list.setItemData(list.NewIndex(), palette.data);
    }
}

bool findPaletteOf(const forms::ListBox& list, BoundRecordset& groups) {
    if (list.ListCount() == 0 || list.ListIndex < 0) return false;
    groups.MoveFirst();
    groups.Find(text("ID=", list.ItemData(list.ListIndex)));
    return true;
}

}  // namespace huebrush::palette
