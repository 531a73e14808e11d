// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/Count16.h"
#include "error/mError.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/PopupMenu.h"
#include "host/Application.h"
#include "palette/PaletteRows.h"
#include "recolor/ColorElement.h"
#include "recolor/ElementList.h"
#include "recolor/FillEditor.h"
#include "recolor/NoFocusButton.h"

namespace huebrush::recolor {

class ScanCollection;
class ScratchShape;
class UndoSteps;

/// The recolour dialog: scans the selected shapes into groups of equal fill, one row a group, and
/// gives the new fills of the selected rows to their shapes. It stays open beside the document.
class frmEditGraphic final : public forms::Form, private palette::PaletteRows {
 public:
    /// Makes and loads the dialog. `showAbout` is what a click on the logo does.
    static std::shared_ptr<frmEditGraphic> create(std::function<void()> showAbout = {});

    /// The entry operation: keeps the host application and shows the dialog beside its document.
    void ShowDialog(host::Application& WApp);
    /// Keeps the host application without showing anything.
    void connect(host::Application& WApp) { WApp_ = &WApp; }

    forms::Label Label1{*this, "Label1"};
    forms::Label Label2{*this, "Label2"};
    forms::Label Label3{*this, "Label3"};
    forms::PictureBox picMain{*this, "picMain"};
    forms::PictureBox picElementGroup{picMain, "picElementGroup"};
    forms::VScrollBar vs{*this, "vs"};
    forms::CheckBox chkSelAll{*this, "chkSelAll"};
    NoFocusButton nfbUP{*this, "nfbUP"};
    NoFocusButton nfbDown{*this, "nfbDown"};
    forms::CommandButton cmdAdd{*this, "cmdAdd"};
    NoFocusButton cmdRemove{*this, "cmdRemove"};
    forms::CommandButton cmdDiscolour{*this, "cmdDiscolour"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::OptionButton optView0{Frame1, "optView(0)"};
    forms::OptionButton optView1{Frame1, "optView(1)"};
    forms::OptionButton optView2{Frame1, "optView(2)"};
    /// The options by their index.
    const std::array<forms::OptionButton*, 3> optView{&optView0, &optView1, &optView2};
    forms::Frame fData{*this, "fData"};
    forms::CommandButton cmdFromDatabase{fData, "cmdFromDatabase"};
    forms::CommandButton cmdToDatabase{fData, "cmdToDatabase"};
    forms::CommandButton cmdClose{*this, "cmdClose"};
    forms::PictureBox picLoadStatus{*this, "picLoadStatus"};
    forms::Label lblLoadStatus{picLoadStatus, "lblLoadStatus"};
    forms::Image imgQXLogo{*this, "imgQXLogo"};
    forms::Image imgHorn{*this, "imgHorn"};
    forms::Image imgCL{*this, "imgCL"};
    forms::Image imgBW{*this, "imgBW"};
    /// Lies below all others.
    forms::Frame frameMain{*this, "frameMain"};

    forms::PopupMenu mnuRemove{"Ostranit"};
    forms::MenuItem mnuRemoveActive{mnuRemove, "mnuRemoveActive", "&Aktuální"};
    forms::MenuItem mnuRemoveNoSelect{mnuRemove, "mnuRemoveNoSelect", "&Neoznačené"};
    forms::MenuItem mnuRemoveSelect{mnuRemove, "mnuRemoveSelect", "&Označené"};
    forms::MenuItem mnuRemoveAll{mnuRemove, "mnuRemoveAll", "&Vše"};

    /// The rows: element 0 is the hidden template, 1 … ubound() the groups in display order.
    forms::ControlArray<ColorElement> Element;

    /// The row that has the focus, or nothing.
    ColorElement* ActiveElement() const { return ActiveElement_; }
    /// The number of rows whose SelectValue is not 0, as of the last refresh of the view.
    std::int16_t selectedCount() const { return selectedCount_; }

    /// How far the scan or the recolour is: shapes or rows done, and how many there are.
    struct Progress {
        std::size_t done = 0;
        std::size_t total = 0;
    };
    /// Raised at each step of a scan or a recolour, before events run.
    base::Event<const Progress&> Progressed;
    /// The scan, or the recolour, has ended, with the first error that was reported of it; empty
    /// where there was none. What a recolour reports of single rows they raise themselves.
    base::Event<const std::string&> Scanned;
    base::Event<const std::string&> Recoloured;

    /// Not while the new fill of any row has been changed.
    bool endsByEscape() const override;

    /// Exchanges what two rows hold; rows themselves never move.
    void ReplaceColorElement(ColorElement& first, ColorElement& second);

    frmEditGraphic(const frmEditGraphic&) = delete;
    frmEditGraphic& operator=(const frmEditGraphic&) = delete;

 protected:
    void unloadElements() override;

 private:
    explicit frmEditGraphic(std::function<void()> showAbout);

    // The state of design time.
    void setTexts();
    void layOut();
    void setInitialStates();
    void connectHandlers();
    void connectListHandlers();
    void connectRow(ColorElement& row);
    void connectFillMenu(ColorElement& row);

    // Opening, closing and resizing.
    void Form_Load();
    void Form_Resize();
    void SetScroll();
    void onTop(bool value);

    // The scan.
    void cmdAdd_Click();
    std::string scan();
    std::string addRows(ScanCollection& shapes, const ScratchShape& scratch);
    std::string addRow(std::shared_ptr<const ShapeGroup> group, const ScratchShape& scratch);
    void placeRow(std::int16_t index);
    bool showScanned(std::size_t taken, base::Count16 total);
    bool showProgress(const Progress& progress, std::string caption);

    // The recolour.
    void cmdDiscolour_Click();
    bool discolourRows(UndoSteps& steps);
    void reportFailed(std::vector<host::FailedWrite> failed);

    // The new fill of a row.
    void Element_mnuChDColor(std::int16_t Index);
    void Element_mnuChDFill(std::int16_t Index);
    void Element_mnuChDFormat(std::int16_t Index);
    void Element_mnuChDNoFill(std::int16_t Index);
    void Element_mnuChDTransparency(std::int16_t Index);
    FillEditor::Row rowAt(std::int16_t Index);

    // The views and the scroll bar.
    void optView_Click(std::int16_t index);
    void showRows(std::int16_t view);
    void countSelected();
    void refreshView();
    void vs_Change();
    void scrollIntoView(const ColorElement& row);

    // The list.
    void chkSelAll_Click();
    void Element_ChangeSelect();
    void Element_GotFocus(ColorElement& row);
    void Element_LostFocus();
    void Element_KeyDel(std::int16_t shift);
    void Element_DragOver(ColorElement& row, const forms::Control& source, forms::DragState state);
    void Element_DragDrop(ColorElement& row, const forms::Control& source);
    void nfbUP_Click();
    void nfbDown_Click();
    void moveActive(std::int16_t step);
    void cmdRemove_Click();
    void mnuRemove_Click();
    void mnuRemoveActive_Click();
    void mnuRemoveAll_Click();
    void mnuRemoveNoSelect_Click();
    void mnuRemoveSelect_Click();
    void removeRowsWith(std::int16_t selectValue);
    void afterRemoval();

    // The dialogs of palettes, and what they see of this one.
    void cmdToDatabase_Click();
    void cmdFromDatabase_Click();
    void offerRecolour();
    void closePaletteDialog();
    std::int16_t lastRow() const override;
    bool isRowSelected(std::int16_t row) const override;
    std::int16_t selectedRows() const override;
    fill::CFill& fillOf(std::int16_t row) override;
    base::Picture previewOf(std::int16_t row) const override;
    bool isTopMost() const override;
    void setTopMost(bool topMost) override;

    // The logo.
    void imgQXLogo_MouseMove(const forms::MouseEvent& event);
    void imgQXLogo_Click();

    host::Application& requireHost() const;
    /// Where a procedure of the dialog stands, for its trap.
    static error::Place place(const char* procedure, const char* message);

    host::Application* WApp_ = nullptr;
    std::function<void()> showAbout_;
    double minimumWidth_ = 0;
    ColorElement* ActiveElement_ = nullptr;
    base::Count16 selectedCount_;
    std::weak_ptr<forms::Form> paletteDialog_;
    ElementList list_{Element, [this](ColorElement& first, ColorElement& second) {
                          ReplaceColorElement(first, second);
                      }};
    FillEditor fillEditor_{{[this]() -> host::Application& { return requireHost(); },
                            [this](bool value) { onTop(value); }}};

    /// While a handler changes many rows, the refreshes that they ask for become one at its end.
    class OneRefresh;
    int refreshesHeld_ = 0;
    bool refreshAsked_ = false;
};

}  // namespace huebrush::recolor
