// SPDX-License-Identifier: MPL-2.0

// What the dialog has to do with palettes: it opens their dialogs, and these see its rows.

#include "palette/frmLoadFill.h"
#include "palette/frmSaveFill.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

namespace {

// The system gives these handlers no message of their own.
constexpr const char* kPaletteFailed = "Při práci s databází výplní došlo k chybě...";

}  // namespace

void frmEditGraphic::cmdToDatabase_Click() {
    error::trap(place("cmdToDatabase_Click", kPaletteFailed), [this] {
        const auto dialog = palette::frmSaveFill::create();
        paletteDialog_ = dialog;
        dialog->ShowSaveData(*this);
        offerRecolour();
    });
}

void frmEditGraphic::cmdFromDatabase_Click() {
    error::trap(place("cmdFromDatabase_Click", kPaletteFailed), [this] {
        const auto dialog = palette::frmLoadFill::create();
        paletteDialog_ = dialog;
        dialog->ShowReadData(*this);
        offerRecolour();
    });
}

/// What the user most likely does after the work on a palette.
void frmEditGraphic::offerRecolour() {
    if (isUnloaded()) return;
    cmdDiscolour.SetFocus();
    cmdDiscolour.Default = true;
}

/// A palette's dialog does not outlive the rows that it works on.
void frmEditGraphic::closePaletteDialog() {
    if (const auto dialog = paletteDialog_.lock()) dialog->Unload();
}

std::int16_t frmEditGraphic::lastRow() const {
    return Element.ubound();
}

bool frmEditGraphic::isRowSelected(std::int16_t row) const {
    return Element[row].isSelected();
}

std::int16_t frmEditGraphic::selectedRows() const {
    return selectedCount();
}

fill::CFill& frmEditGraphic::fillOf(std::int16_t row) {
    return Element[row].FillObject();
}

base::Picture frmEditGraphic::previewOf(std::int16_t row) const {
    return Element[row].DestinationPicture();
}

bool frmEditGraphic::isTopMost() const {
    return TopMost;
}

void frmEditGraphic::setTopMost(bool topMost) {
    if (!isUnloaded()) onTop(topMost);
}

}  // namespace huebrush::recolor
