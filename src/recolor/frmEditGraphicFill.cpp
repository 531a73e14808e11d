// SPDX-License-Identifier: MPL-2.0

// The commands of a row's menu, which edit its new fill.

#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

void frmEditGraphic::connectFillMenu(ColorElement& row) {
    row.mnuWord.Click.connect([this, &row] {
        for (forms::MenuItem* const item : row.mnuWord.items()) {
            item->Enabled = !fillEditor_.isToolOpen();
        }
    });
    row.mnuChDColor.connect([this, &row] { Element_mnuChDColor(row.index()); });
    row.mnuChDFill.connect([this, &row] { Element_mnuChDFill(row.index()); });
    row.mnuChDFormat.connect([this, &row] { Element_mnuChDFormat(row.index()); });
    row.mnuChDNoFill.connect([this, &row](bool) { Element_mnuChDNoFill(row.index()); });
    row.mnuChDTransparency.connect(
        [this, &row](float) { Element_mnuChDTransparency(row.index()); });
}

FillEditor::Row frmEditGraphic::rowAt(std::int16_t Index) {
    return [this, Index]() -> ColorElement& { return Element[Index]; };
}

void frmEditGraphic::Element_mnuChDColor(std::int16_t Index) {
    error::trap(place("Element_mnuChDColor", "Při pokusu změnit barvu objektu vznikla chyba..."),
                [&] { fillEditor_.useColorTool(rowAt(Index)); });
}

void frmEditGraphic::Element_mnuChDFill(std::int16_t Index) {
    error::trap(
        place("Element_mnuChDFill", "Při pokusu změnit vzhled výplně objektu vznikla chyba..."),
        [&] { fillEditor_.useFillTool(rowAt(Index)); });
}

void frmEditGraphic::Element_mnuChDFormat(std::int16_t Index) {
    error::trap(place("Element_mnuChDFormat", "Při pokusu změnit formát objektu vznikla chyba..."),
                [&] { fillEditor_.useFormatTool(rowAt(Index)); });
}

void frmEditGraphic::Element_mnuChDNoFill(std::int16_t Index) {
    error::trap(place("Element_mnuChDNoFill", "Při pokusu odejmout výplň objektu vznikla chyba..."),
                [&] { fillEditor_.toggleFill(rowAt(Index)); });
}

void frmEditGraphic::Element_mnuChDTransparency(std::int16_t Index) {
    error::trap(place("Element_mnuChDTransparency",
                      "Při pokusu změnit průhlednost objektu vznikla chyba..."),
                [&] { fillEditor_.toggleTransparency(rowAt(Index)); });
}

}  // namespace huebrush::recolor
