// SPDX-License-Identifier: MPL-2.0

// How the dialog finds the fills of the selected shapes, and gives the new ones to them.

#include <utility>

#include "base/Text.h"
#include "fill/mFillGraficalObject.h"
#include "forms/Runtime.h"
#include "recolor/ScanCollection.h"
#include "recolor/ScratchShape.h"
#include "recolor/UndoSteps.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

namespace {

using base::text;

constexpr const char* kUndoTitle = "Přebarvení grafických objektů";
constexpr const char* kScanning = "Prohledávám označené objekty...";
constexpr const char* kNothingSelected = "Nejsou vybrány žádné grafické objekty.";
constexpr const char* kReadOnly =
    "Dokument je otevřen jen pro čtení, výplně jeho objektů proto nelze změnit.";
constexpr const char* kScanDone = "Zpracování je dokončeno...";
constexpr const char* kFillsFound = "Celkový počet nalezených výplní.. ";
constexpr const char* kScanFailed =
    "Při vyhledávání typů výplní ve vybraných objektech vzikla chyba...";
constexpr const char* kRecolourFailed = "Při převádění výplní došlo k chybě...";

}  // namespace

// The scan.

void frmEditGraphic::cmdAdd_Click() {
    std::string failure;
    const std::string ending =
        error::trap(place("cmdAdd_Click", kScanFailed), [&] { failure = scan(); });
    Scanned(failure.empty() ? ending : failure);
}

/// What was reported of the first row that could not take its fill or preview.
std::string frmEditGraphic::scan() {
    forms::Runtime& runtime = forms::Runtime::current();
    const auto selected = requireHost().Selection()->ShapeRange();
    const std::int32_t count = selected->Count();
    if (count == 0) {
        runtime.MsgBox(kNothingSelected, forms::MsgBoxStyle::kExclamation, "Huebrush");
        return {};
    }
    MousePointer = forms::MousePointerShape::hourglass;
    picLoadStatus.Visible = true;
    lblLoadStatus.Caption = std::string(kScanning);
    const ScratchShape scratch(requireHost());
    ScanCollection shapes;
    for (std::int32_t i = 1; i <= count; ++i) shapes.add(selected->Item(i));
    std::string failure = addRows(shapes, scratch);
    runtime.Clipboard().Clear();
    if (!isUnloaded()) {
        runtime.MsgBox(text(kFillsFound, Element.ubound(), "."), forms::MsgBoxStyle::kInformation,
                       kScanDone);
    }
    if (isUnloaded()) {
        // A host may have closed the scratch document along with the dialog.
        error::ignoring([&] { scratch.close(); });
        return failure;
    }
    scratch.close();
    SetScroll();
    if (Element.ubound() != 0) cmdRemove.Enabled = true;
    MousePointer = forms::MousePointerShape::standard;
    picLoadStatus.Visible = false;
    return failure;
}

std::string frmEditGraphic::addRows(ScanCollection& shapes, const ScratchShape& scratch) {
    std::string failure;
    groupByFill(shapes, {[this](std::size_t taken, base::Count16 total) {
                             return showScanned(taken, total);
                         },
                         [&](std::shared_ptr<const ShapeGroup> group) {
                             if (isUnloaded()) return false;
                             const std::string ofRow = addRow(std::move(group), scratch);
                             if (failure.empty()) failure = ofRow;
                             return true;
                         }});
    return failure;
}

bool frmEditGraphic::showScanned(std::size_t taken, base::Count16 total) {
    return showProgress({taken, static_cast<std::size_t>(total)},
                        text("Zpracováno ", taken, " ze ", total, " objektů..."));
}

/// Lets events run. Whether the dialog is still open afterwards.
bool frmEditGraphic::showProgress(const Progress& progress, std::string caption) {
    lblLoadStatus.Caption = std::move(caption);
    Progressed(progress);
    forms::Runtime::current().DoEvents();
    return !isUnloaded();
}

/// What was reported of the row.
std::string frmEditGraphic::addRow(std::shared_ptr<const ShapeGroup> group,
                                   const ScratchShape& scratch) {
    const host::ShapePointer& firstShape = group->front();
    fill::CopyFill(firstShape->Fill(), scratch.Fill());
    scratch.select();
    scratch.copy();
    base::Count16 counter = Element.ubound();
    ++counter;
    Element.Load(counter);
    std::string failure = Element[counter].FillObject().SaveOriginalFormat(firstShape->Fill());
    if (firstShape->Fill().Visible() != host::MsoTriState::msoFalse) {
        Element[counter].CliboardToSource();
    } else {
        Element[counter].setSourcePicture({});
        Element[counter].setDestinationPicture({});
    }
    Element[counter].setElementsGroup(std::move(group));
    placeRow(counter);
    return failure;
}

void frmEditGraphic::placeRow(std::int16_t index) {
    ColorElement& row = Element[index];
    const ColorElement& previous = Element[static_cast<std::int16_t>(index - 1)];
    row.Top = previous.Top + previous.Height;
    row.Visible = true;
    row.Show();
    picElementGroup.Height = row.Top + row.Height;
}

// The recolour.

void frmEditGraphic::cmdDiscolour_Click() {
    std::string failure;
    const auto note = [&failure](const std::string& reported) {
        if (failure.empty()) failure = reported;
    };
    note(error::trap(place("cmdDiscolour_Click", kRecolourFailed), [&] {
        cmdDiscolour.Enabled = false;
        picLoadStatus.Visible = true;
        // Whatever ends the work on a document, its fills that have failed late are reported.
        UndoSteps steps(kUndoTitle, [&](std::vector<host::FailedWrite> failed) {
            note(error::trap(place("cmdDiscolour_Click", kRecolourFailed),
                             [&] { reportFailed(std::move(failed)); }));
        });
        const bool done = discolourRows(steps);
        steps.end();
        if (isUnloaded()) return;
        picLoadStatus.Visible = false;
        cmdDiscolour.Enabled = true;
        if (done) cmdClose.Default = true;
    }));
    Recoloured(failure);
}

/// Whether it came to the last row: the closing of the dialog ends it before, and so does a
/// document that cannot be saved.
bool frmEditGraphic::discolourRows(UndoSteps& steps) {
    for (base::Count16 i = 1, last = Element.ubound(); i <= last; ++i) {
        if (!showProgress(
                {static_cast<std::size_t>(i), static_cast<std::size_t>(last)},
                text("Upravuji ", i, ". skupinu objektů ze ", Element.ubound(), " výplní..."))) {
            return false;
        }
        ColorElement& row = Element[i];
        const auto current = requireHost().Selection()->Document();
        if (!steps.isIn(*current)) {
            steps.end();
            if (current->isReadOnly()) {
                forms::Runtime::current().MsgBox(kReadOnly, forms::MsgBoxStyle::kExclamation,
                                                 "Huebrush");
                return false;
            }
            steps.begin(current);
        }
        row.Discolour(*current);
        if (isUnloaded()) return false;
    }
    return true;
}

/// Reports fills as their rows would have done, had they failed there; of no row, as the dialog's.
void frmEditGraphic::reportFailed(std::vector<host::FailedWrite> failed) {
    for (base::Count16 i = 1; !failed.empty() && i <= Element.ubound(); ++i) {
        Element[i].reportFailed(failed);
    }
    if (!failed.empty()) throw base::Error(failed.front().error);
}

}  // namespace huebrush::recolor
