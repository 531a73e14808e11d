// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "error/mError.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "jet/file/FileSystem.h"
#include "palette/BoundRecordset.h"
#include "palette/PaletteRows.h"

namespace huebrush::palette {

/// The dialog that saves palettes: it makes a palette of the selected rows of the recolour dialog,
/// renames, describes and erases palettes, and chooses or makes the file that they are in. It is
/// modal over the recolour dialog.
///
/// It has two states. In one the user browses; in the other a palette is being edited or added, and
/// the list and the file stay as they are until it is saved or cancelled.
///
/// A new palette and its fills go into the file in one commit group: a program that is killed
/// meanwhile leaves a file with the whole palette or with nothing of it. The group delays the
/// writing and takes nothing back: where an error ends the saving, the palette and the fills that
/// were written before it are in the file all the same.
class frmSaveFill final : public forms::Form {
 public:
    static std::shared_ptr<frmSaveFill> create(jet::FileSystem& files = jet::systemFiles());

    /// The entry operation: keeps the recolour dialog's rows, loads the dialog with the last file
    /// and shows it until it is closed. REQUIRES: the rows live that long.
    void ShowSaveData(PaletteRows& rows);
    /// Works on a file from now on; `ok` becomes true when it does. A file that is missing, or is
    /// no database, gives a box, and any later error a report; without palettes, the user is asked
    /// whether to begin one. The former file stays connected until the new one's palettes are open.
    void ConnectDataFile(const std::string& path, bool& ok);

    forms::Label Label1{*this, "Label1"};
    forms::TextBox txtDataFile{*this, "txtDataFile"};
    forms::CommandButton cmdConnectDataFile{*this, "cmdConnectDataFile"};
    forms::CommandButton cmdMakeDataFile{*this, "cmdMakeDataFile"};
    forms::Label Label2{*this, "Label2"};
    forms::ListBox lstFillGroup{*this, "lstFillGroup"};
    forms::Label Label3{*this, "Label3"};
    forms::TextBox txtFillGroupName{*this, "txtFillGroupName"};
    forms::Label Label4{*this, "Label4"};
    forms::TextBox txtFillGroupDescription{*this, "txtFillGroupDescription"};
    forms::Label Label5{*this, "Label5"};
    forms::Label lblCount{*this, "lblCount"};
    forms::CommandButton cmdNew{*this, "cmdNew"};
    forms::CommandButton cmdEdit{*this, "cmdEdit"};
    forms::CommandButton cmdErase{*this, "cmdErase"};
    forms::CommandButton cmdApply{*this, "cmdApply"};
    forms::CommandButton cmdCancel{*this, "cmdCancel"};
    forms::CommandButton cmdOK{*this, "cmdOK"};

 private:
    explicit frmSaveFill(jet::FileSystem& files);

    // The state of design time.
    void setTexts();
    void layOut();
    void setInitialStates();
    void connectHandlers();

    void Form_Load();
    void Form_Unload();
    void takeOver(std::shared_ptr<jet::Connection> connection,
                  std::shared_ptr<BoundRecordset> groups);
    void showFile(const std::vector<forms::ListItem>& palettes, const std::string& path);

    void cmdConnectDataFile_Click();
    void cmdMakeDataFile_Click();
    bool mayReplace(const std::string& path);
    void lstFillGroup_Click();
    void txtFillGroupName_KeyPress(char16_t character);
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdErase_Click();
    void cmdApply_Click();
    void saveEdited();
    void saveNew();
    void writeNew();
    std::int32_t writeFills(std::int32_t id);
    void cmdCancel_Click();
    void cmdOK_Click();

    bool isOpen() const;
    void setBrowsing();
    void setEditing();
    /// Where a procedure of the dialog stands, for its trap.
    static error::Place place(const char* procedure, std::string message);

    jet::FileSystem& files_;
    PaletteRows* rows_ = nullptr;
    bool wasTopMost_ = false;
    /// The file that the dialog works on; before it works on any, the one remembered.
    std::string path_;
    std::shared_ptr<jet::Connection> connection_;
    std::shared_ptr<BoundRecordset> rsGroup_;
};

}  // namespace huebrush::palette
