// How the dialog finds the fills of the selected shapes, and gives the new ones to them.

#include <utility>

#include "base/Text.h"
#include "fill/mFillGraficalObject.h"
#include "forms/Runtime.h"
#include "recolor/ScanCollection.h"
#include "recolor/ScratchShape.h"
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
    error::trap(place("cmdAdd_Click", kScanFailed), [this] {
        forms::Runtime& runtime = forms::Runtime::current();
        const auto selected = requireHost().Selection()->ShapeRange();
        const std::int32_t count = selected->Count();
        if (count == 0) {
            runtime.MsgBox(kNothingSelected, forms::MsgBoxStyle::kExclamation, "Huebrush");
            return;
        }
        MousePointer = forms::MousePointerShape::hourglass;
        picLoadStatus.Visible = true;
        lblLoadStatus.Caption = std::string(kScanning);
        const ScratchShape scratch(requireHost());
        ScanCollection shapes;
        for (std::int32_t i = 1; i <= count; ++i) shapes.add(selected->Item(i));
        groupByFill(shapes, scratch);
        runtime.Clipboard().Clear();
        if (!isUnloaded()) {
            runtime.MsgBox(text(kFillsFound, Element.ubound(), "."),
                           forms::MsgBoxStyle::kInformation, kScanDone);
        }
        if (isUnloaded()) {
            // A host may have closed the scratch document along with the dialog.
            error::ignoring([&] { scratch.close(); });
            return;
        }
        scratch.close();
        SetScroll();
        if (Element.ubound() != 0) cmdRemove.Enabled = true;
        MousePointer = forms::MousePointerShape::standard;
        picLoadStatus.Visible = false;
    });
}

void frmEditGraphic::groupByFill(ScanCollection& shapes, const ScratchShape& scratch) {
    const base::Count16 total = base::Count16::of(shapes.size());
    const auto taken = [total](std::size_t left) { return static_cast<std::size_t>(total) - left; };
    while (!shapes.empty()) {
        if (!showScanned(taken(shapes.size()), total)) return;
        const host::ShapePointer firstShape = shapes.takeFirst();
        const auto group = std::make_shared<ShapeGroup>(1, firstShape);
        shapes.takeWhere(
            [&](const host::ShapePointer& shape) {
                return fill::IsSameFill(firstShape->Fill(), shape->Fill());
            },
            [&](const host::ShapePointer& shape, std::size_t left) {
                group->push_back(shape);
                return showScanned(taken(left), total);
            });
        if (isUnloaded()) return;
        addRow(firstShape, group, scratch);
    }
}

/// Lets events run. Whether the dialog is still open afterwards.
bool frmEditGraphic::showScanned(std::size_t taken, base::Count16 total) {
    progress_ = {taken, static_cast<std::size_t>(total)};
    lblLoadStatus.Caption = text("Zpracováno ", taken, " ze ", total, " objektů...");
    forms::Runtime::current().DoEvents();
    return !isUnloaded();
}

void frmEditGraphic::addRow(const host::ShapePointer& firstShape,
                            std::shared_ptr<const ShapeGroup> group, const ScratchShape& scratch) {
    fill::CopyFill(firstShape->Fill(), scratch.Fill());
    scratch.select();
    scratch.copy();
    base::Count16 counter = Element.ubound();
    ++counter;
    Element.Load(counter);
    Element[counter].FillObject().SaveOriginalFormat(firstShape->Fill());
    if (firstShape->Fill().Visible() != host::MsoTriState::msoFalse) {
        Element[counter].CliboardToSource();
    } else {
        Element[counter].setSourcePicture({});
        Element[counter].setDestinationPicture({});
    }
    Element[counter].ElementsGroup = std::move(group);
    placeRow(counter);
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
    error::trap(place("cmdDiscolour_Click", kRecolourFailed), [this] {
        cmdDiscolour.Enabled = false;
        picLoadStatus.Visible = true;
        const bool done = discolourRows();
        if (isUnloaded()) return;
        picLoadStatus.Visible = false;
        cmdDiscolour.Enabled = true;
        if (done) cmdClose.Default = true;
    });
}

/// The document under recolour. Whatever ends that, its fills that have failed late are reported.
struct frmEditGraphic::Discolouring {
    explicit Discolouring(frmEditGraphic& dialog) : dialog(dialog) {}
    Discolouring(const Discolouring&) = delete;
    Discolouring& operator=(const Discolouring&) = delete;
    ~Discolouring() { end(); }

    void begin(const std::shared_ptr<host::Document>& next) {
        document = next;
        undo = next->undoGroup(kUndoTitle);
    }
    void end() {
        error::trap(place("cmdDiscolour_Click", kRecolourFailed), [&] {
            if (const auto ended = std::exchange(undo, nullptr)) {
                dialog.reportFailed(ended->finish());
            }
        });
    }

    frmEditGraphic& dialog;
    std::shared_ptr<host::Document> document;
    std::unique_ptr<host::UndoGroup> undo;
};

/// Whether it came to the last row: the closing of the dialog ends it before, and so does a
/// document that cannot be saved.
bool frmEditGraphic::discolourRows() {
    Discolouring at(*this);
    for (base::Count16 i = 1, last = Element.ubound(); i <= last; ++i) {
        progress_ = {static_cast<std::size_t>(i), static_cast<std::size_t>(last)};
        lblLoadStatus.Caption =
            text("Upravuji ", i, ". skupinu objektů ze ", Element.ubound(), " výplní...");
        forms::Runtime::current().DoEvents();
        if (isUnloaded()) return false;
        ColorElement& row = Element[i];
        const auto current = requireHost().Selection()->Document();
        if (!at.document || !at.document->isSame(*current)) {
            at.end();
            if (current->isReadOnly()) {
                forms::Runtime::current().MsgBox(kReadOnly, forms::MsgBoxStyle::kExclamation,
                                                 "Huebrush");
                return false;
            }
            at.begin(current);
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
