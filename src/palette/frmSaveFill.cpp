// SPDX-License-Identifier: MPL-2.0

#include "palette/frmSaveFill.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "base/Text.h"
#include "forms/Runtime.h"
#include "palette/DataFile.h"
#include "palette/mMakeDatabase.h"
#include "preview/mDBMakeFillPreview.h"

namespace huebrush::palette {

namespace {

using base::kLineBreak;
using base::text;
using forms::FileDialog;
using forms::MsgBoxResult;
namespace MsgBoxStyle = forms::MsgBoxStyle;

// Where the system gives a handler no message of its own.
constexpr const char* kLoadFailed = "Při otevírání formuláře došlo k chybě...";
constexpr const char* kUnloadFailed = "Při zavírání formuláře došlo k chybě...";
constexpr const char* kChoiceFailed = "Při výběru databáze došlo k chybě...";
constexpr const char* kEditFailed = "Záznam se nepodařilo upravit...";

}  // namespace

// Opening and closing.

std::shared_ptr<frmSaveFill> frmSaveFill::create(jet::FileSystem& files) {
    return std::shared_ptr<frmSaveFill>(new frmSaveFill(files));
}

frmSaveFill::frmSaveFill(jet::FileSystem& files) : Form("frmSaveFill"), files_(files) {
    setTexts();
    layOut();
    setInitialStates();
    connectHandlers();
}

void frmSaveFill::connectHandlers() {
    Unloaded.connect([this] { Form_Unload(); });
    cmdConnectDataFile.Click.connect([this] { cmdConnectDataFile_Click(); });
    cmdMakeDataFile.Click.connect([this] { cmdMakeDataFile_Click(); });
    lstFillGroup.Click.connect([this] { lstFillGroup_Click(); });
    txtFillGroupName.KeyPress.connect(
        [this](char16_t character) { txtFillGroupName_KeyPress(character); });
    cmdNew.Click.connect([this] { cmdNew_Click(); });
    cmdEdit.Click.connect([this] { cmdEdit_Click(); });
    cmdErase.Click.connect([this] { cmdErase_Click(); });
    cmdApply.Click.connect([this] { cmdApply_Click(); });
    cmdCancel.Click.connect([this] { cmdCancel_Click(); });
    cmdOK.Click.connect([this] { cmdOK_Click(); });
}

void frmSaveFill::ShowSaveData(PaletteRows& rows) {
    rows_ = &rows;
    handle([this] { Form_Load(); });
    Show(true);
}

void frmSaveFill::Form_Load() {
    error::trap(place("Form_Load", kLoadFailed), [this] {
        wasTopMost_ = rows_->isTopMost();
        rows_->setTopMost(false);
        path_ = rememberedDataFile();
        bool ok = false;
        ConnectDataFile(path_, ok);
    });
}

void frmSaveFill::Form_Unload() {
    error::trap(place("Form_Unload", kUnloadFailed), [this] {
        rememberDataFile(path_);
        rows_->setTopMost(wasTopMost_);
    });
}

// The file.

void frmSaveFill::ConnectDataFile(const std::string& path, bool& ok) {
    error::trap(place("ConnectDataFile", couldNotOpen(path)), [&] {
        if (!files_.exists(path)) return showMissing(path);
        auto connection = std::make_shared<jet::Connection>(files_);
        if (!error::ignoring([&] { openDatabase(*connection, path); })) {
            return showWithoutPalettes(path);
        }
        auto groups = std::make_shared<BoundRecordset>();
        groups->Open(kPalettesQuery, *connection);
        const auto palettes = palettesOf(*groups);
        takeOver(std::move(connection), std::move(groups));
        showFile(palettes, path);
        ok = true;
        if (rsGroup_->RecordCount() > 0) return;
        const auto answer = forms::Runtime::current().MsgBox(
            "Databáze nemá žádné zánamy. Chcete založit nový?",
            MsgBoxStyle::kYesNo | MsgBoxStyle::kQuestion, "Dotaz...");
        if (answer == MsgBoxResult::yes) cmdNew_Click();
    });
}

void frmSaveFill::takeOver(std::shared_ptr<jet::Connection> connection,
                           std::shared_ptr<BoundRecordset> groups) {
    connection_ = std::move(connection);
    rsGroup_ = std::move(groups);
    rsGroup_->WillChangeField.connect([this](const std::string&) { setEditing(); });
    txtFillGroupDescription.bind(rsGroup_, "Description");
    txtFillGroupName.bind(rsGroup_, "Name");
    lblCount.bind(rsGroup_, "Count");
}

void frmSaveFill::showFile(const std::vector<forms::ListItem>& palettes, const std::string& path) {
    setBrowsing();
    showPalettes(lstFillGroup, palettes);
    path_ = path;
    txtDataFile.Text = path;
    if (lstFillGroup.ListCount() > 0) {
        lstFillGroup.ListIndex = 0;
    } else {
        cmdErase.Enabled = false;
        cmdCancel.Enabled = false;
    }
}

void frmSaveFill::cmdConnectDataFile_Click() {
    error::trap(place("cmdConnectDataFile_Click", kChoiceFailed), [this] {
        const auto chosen = chooseDataFile(FileDialog::Purpose::open, "Zvol databázi...");
        bool ok = false;
        if (chosen) ConnectDataFile(*chosen, ok);
    });
}

void frmSaveFill::cmdMakeDataFile_Click() {
    error::trap(
        place("cmdMakeDataFile_Click", "Při pokusu založit novou databázi vznikla chyba..."),
        [this] {
            const auto chosen =
                chooseDataFile(FileDialog::Purpose::save, "Zvol umístění databázového souboru...");
            if (!chosen) return;
            if (files_.exists(*chosen)) {
                if (!mayReplace(*chosen)) return;
                files_.remove(*chosen);
            }
            bool ok = false;
            if (MakeDatabase(*chosen, files_)) ConnectDataFile(*chosen, ok);
        });
}

bool frmSaveFill::mayReplace(const std::string& path) {
    const auto answer = forms::Runtime::current().MsgBox(
        text("Databáze", path, " již existuje.", kLineBreak, kLineBreak, "Má být nahrazena novou?"),
        MsgBoxStyle::kYesNo | MsgBoxStyle::kExclamation, "Dotaz...");
    return answer == MsgBoxResult::yes;
}

// The palettes.

void frmSaveFill::lstFillGroup_Click() {
    error::trap(place("lstFillGroup_Click", "Chyba při výběru záznamu..."), [this] {
        if (findPaletteOf(lstFillGroup, *rsGroup_)) cmdErase.Enabled = true;
    });
}

void frmSaveFill::txtFillGroupName_KeyPress(char16_t character) {
    error::trap(place("txtFillGroupName_KeyPress", kEditFailed), [&] {
        if (character == forms::KeyCode::kReturn && txtFillGroupDescription.Enabled) {
            txtFillGroupDescription.SetFocus();
        }
    });
}

void frmSaveFill::cmdNew_Click() {
    error::trap(place("cmdNew_Click", "Založení nového záznamu se nepodařilo..."), [this] {
        lstFillGroup.Enabled = false;
        cmdConnectDataFile.Enabled = false;
        cmdMakeDataFile.Enabled = false;
        if (!isOpen()) return;
        rsGroup_->AddNew();
        cmdNew.Enabled = false;
        cmdErase.Enabled = false;
        cmdEdit.Enabled = false;
        cmdCancel.Enabled = true;
        setEditing();
        txtFillGroupName.SetFocus();
    });
}

void frmSaveFill::cmdEdit_Click() {
    error::trap(place("cmdEdit_Click", kEditFailed), [this] {
        setEditing();
        cmdNew.Enabled = false;
        cmdErase.Enabled = false;
        cmdEdit.Enabled = false;
        txtFillGroupName.SetFocus();
        txtFillGroupName.setSelStart(0);
        txtFillGroupName.setSelLength(std::numeric_limits<std::int32_t>::max());
    });
}

void frmSaveFill::cmdErase_Click() {
    error::trap(place("cmdErase_Click", "Při pokusu odstranit záznam vznikla chyba..."), [this] {
        if (!isOpen() || !rsGroup_->isOnRecord()) return;
        if (rsGroup_->isEditing()) cmdCancel_Click();
        connection_->inOneCommit([this] {
            connection_->Execute(text("DELETE FROM TFillElementParameter WHERE (GroupID = ",
                                      jet::toLong(rsGroup_->Field("ID")), ")"));
            rsGroup_->Delete();
        });
        rsGroup_->Requery();
        lstFillGroup.RemoveItem(lstFillGroup.ListIndex);
        if (lstFillGroup.ListCount() > 0) {
            lstFillGroup.ListIndex = 0;
        } else {
            cmdApply.Enabled = false;
            cmdErase.Enabled = false;
            cmdCancel.Enabled = false;
        }
        cmdNew.Enabled = true;
        lstFillGroup.SetFocus();
    });
}

void frmSaveFill::cmdApply_Click() {
    error::trap(place("cmdApply_Click", "Při ukládání výplní do databáze se vyskytla chyba..."),
                [this] {
                    if (!isOpen()) return;
                    txtFillGroupName.SetFocus();
                    txtFillGroupDescription.SetFocus();
                    cmdApply.SetFocus();
                    const jet::EditModeEnum mode = rsGroup_->EditMode();
                    if (mode == jet::EditModeEnum::adEditInProgress) saveEdited();
                    if (mode == jet::EditModeEnum::adEditAdd) saveNew();
                });
}

void frmSaveFill::saveEdited() {
    rsGroup_->Update();
    lstFillGroup.setList(lstFillGroup.ListIndex, jet::toText(rsGroup_->Field("Name")));
    setBrowsing();
}

void frmSaveFill::saveNew() {
    if (rows_->selectedRows() == 0) {
        forms::Runtime::current().MsgBox("Nejsou vybrány žádné položky pro uložení.",
                                         MsgBoxStyle::kOk | MsgBoxStyle::kInformation,
                                         "Upozornění");
        return;
    }
    connection_->inOneCommit([this] { writeNew(); });
    lstFillGroup.AddItem(jet::toText(rsGroup_->Field("Name")));
    lstFillGroup.setItemData(lstFillGroup.NewIndex(), jet::toLong(rsGroup_->Field("ID")));
    lstFillGroup.ListIndex = lstFillGroup.NewIndex();
    setBrowsing();
    cmdOK.Default = true;
}

void frmSaveFill::writeNew() {
    rsGroup_->Update();
    const std::int32_t count = writeFills(jet::toLong(rsGroup_->Field("ID")));
    lstFillGroup.Enabled = true;
    cmdConnectDataFile.Enabled = true;
    cmdMakeDataFile.Enabled = true;
    rsGroup_->SetField("Count", count);
    rsGroup_->Update();
}

/// Adds the fills of the selected rows to a palette. How many there are: a row whose fill could not
/// be written is left out.
std::int32_t frmSaveFill::writeFills(std::int32_t id) {
    jet::Recordset elements;
    elements.Open(kFillsQuery, *connection_);
    std::int32_t order = 0;
    for (std::int16_t row = 1; row <= rows_->lastRow(); ++row) {
        if (!rows_->isRowSelected(row)) continue;
        elements.AddNew();
        if (!rows_->fillOf(row).FillToRecordset(elements)) {
            elements.CancelBatch();
            continue;
        }
        elements.SetField("FillPreview", preview::WritePictureToRS(rows_->previewOf(row)));
        elements.SetField("GroupID", id);
        elements.SetField("OrderNumber", order);
        elements.UpdateBatch();
        ++order;
    }
    return order;
}

void frmSaveFill::cmdCancel_Click() {
    error::trap(place("cmdCancel_Click", "Příkaz se nezdařilo odvolat..."), [this] {
        if (isOpen()) {
            if (rsGroup_->isEditing()) rsGroup_->CancelUpdate();
            rsGroup_->Requery();
            // The list's palette is the current one again, which the next command means.
            if (rsGroup_->isOnRecord()) findPaletteOf(lstFillGroup, *rsGroup_);
        }
        setBrowsing();
    });
}

void frmSaveFill::cmdOK_Click() {
    error::trap(place("cmdOK_Click", kUnloadFailed), [this] {
        if (cmdCancel.Enabled) cmdCancel_Click();
        Unload();
    });
}

// The two states.

bool frmSaveFill::isOpen() const {
    return connection_ && rsGroup_ && rsGroup_->isOpen();
}

void frmSaveFill::setBrowsing() {
    for (forms::CommandButton* const button : {&cmdCancel, &cmdApply}) button->Enabled = false;
    for (forms::CommandButton* const button :
         {&cmdNew, &cmdErase, &cmdEdit, &cmdConnectDataFile, &cmdMakeDataFile}) {
        button->Enabled = true;
    }
    lstFillGroup.Enabled = true;
}

void frmSaveFill::setEditing() {
    lstFillGroup.Enabled = false;
    cmdConnectDataFile.Enabled = false;
    cmdMakeDataFile.Enabled = false;
    cmdApply.Enabled = true;
    cmdCancel.Enabled = true;
}

error::Place frmSaveFill::place(const char* procedure, std::string message) {
    return {"Huebrush.frmSaveFill.", procedure, std::move(message)};
}

}  // namespace huebrush::palette
