// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "error/mError.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "jet/file/FileSystem.h"
#include "palette/BoundRecordset.h"
#include "palette/PaletteRows.h"

namespace huebrush::palette {

/// The dialog that lays a palette onto the selected rows of the recolour dialog: the k-th selected
/// row gets the k-th fill of the palette. It chooses the file and the palette, and shows the
/// previews of the palette's fills. It is modal over the recolour dialog.
class frmLoadFill final : public forms::Form {
 public:
    static std::shared_ptr<frmLoadFill> create(jet::FileSystem& files = jet::systemFiles());

    /// The entry operation: keeps the recolour dialog's rows, loads the dialog with the last file
    /// and shows it until it is closed. REQUIRES: the rows live that long.
    void ShowReadData(PaletteRows& rows);
    /// Works on a file from now on; `ok` becomes true when it does. A file that is missing, or is a
    /// database without palettes, gives a box, and any other error a report. The former file stays
    /// connected until the new one's palettes are open.
    void ConnectDataFile(const std::string& path, bool& ok);
    /// Shows the previews of the current palette's fills, one below the other.
    void MakePreview();
    /// Sets the scroll bar up for the height of the previews.
    void SetScroll();

    forms::Label Label1{*this, "Label1"};
    forms::TextBox txtDataFile{*this, "txtDataFile"};
    forms::CommandButton cmdConnectDataFile{*this, "cmdConnectDataFile"};
    forms::Label Label2{*this, "Label2"};
    forms::ListBox lstFillGroup{*this, "lstFillGroup"};
    forms::Label Label3{*this, "Label3"};
    forms::TextBox txtFillGroupDescription{*this, "txtFillGroupDescription"};
    forms::Label Label4{*this, "Label4"};
    forms::Label lblCount{*this, "lblCount"};
    forms::CheckBox chkPreview{*this, "chkPreview"};
    forms::Frame fraMainPreview{*this, "fraMainPreview"};
    forms::PictureBox picMainPreview{fraMainPreview, "picMainPreview"};
    forms::PictureBox picGroupElement{picMainPreview, "picGroupElement"};
    forms::VScrollBar vsPreview{fraMainPreview, "vsPreview"};
    forms::PictureBox picCMD{*this, "picCMD"};
    forms::CommandButton cmdApply{picCMD, "cmdApply"};
    forms::CommandButton cmdOK{picCMD, "cmdOK"};
    forms::CommandButton cmdCancel{picCMD, "cmdCancel"};
    forms::Image imgHorn{*this, "imgHorn"};

    /// The previews: element 0 is the hidden template, 1 … ubound() the fills in their order.
    forms::ControlArray<forms::PictureBox> picElement;

 protected:
    void unloadElements() override;

 private:
    explicit frmLoadFill(jet::FileSystem& files);

    // The state of design time.
    void setTexts();
    void layOut();
    void setInitialStates();
    void connectHandlers();

    void Form_Load();
    void Form_Unload();
    void Form_Resize();
    void takeOver(std::shared_ptr<jet::Connection> connection,
                  std::shared_ptr<BoundRecordset> groups);
    void showFile(const std::vector<forms::ListItem>& palettes, const std::string& path);

    void cmdConnectDataFile_Click();
    void lstFillGroup_Click();
    void chkPreview_Click();
    void vsPreview_Change();
    void cmdApply_Click();
    void applyFills();
    void cmdOK_Click();
    void cmdCancel_Click();

    void hidePreview();
    void addPreviews();
    void openFills();
    void closeFills();
    bool hasPalette() const;
    /// Where a procedure of the dialog stands, for its trap.
    static error::Place place(const char* procedure, std::string message);

    jet::FileSystem& files_;
    PaletteRows* rows_ = nullptr;
    bool wasTopMost_ = false;
    /// The file that the dialog works on; before it works on any, the one remembered.
    std::string path_;
    std::shared_ptr<jet::Connection> connection_;
    std::shared_ptr<BoundRecordset> rsGroup_;
    /// The fills of the current palette; closed while nobody needs them.
    jet::Recordset rsElement_;
    double minimumWidth_ = 0;
};

}  // namespace huebrush::palette
