// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "base/Picture.h"
#include "fill/CFill.h"

namespace huebrush::palette {

/// What the dialogs of palettes need of the recolour dialog: its rows, each of which is a fill with
/// a preview, and its window's level. Rows are counted from 1.
class PaletteRows {
 public:
    PaletteRows() = default;
    PaletteRows(const PaletteRows&) = delete;
    PaletteRows& operator=(const PaletteRows&) = delete;
    virtual ~PaletteRows() = default;

    /// 0 when there are no rows.
    virtual std::int16_t lastRow() const = 0;
    /// Whether the row takes part in a recolour, and how many do.
    virtual bool isRowSelected(std::int16_t row) const = 0;
    virtual std::int16_t selectedRows() const = 0;
    /// The fill of a row. When a record has been read into it, the row shows the stored preview.
    virtual fill::CFill& fillOf(std::int16_t row) = 0;
    /// The preview of the destination fill.
    virtual base::Picture previewOf(std::int16_t row) const = 0;

    /// Whether the dialog stays above all other windows.
    virtual bool isTopMost() const = 0;
    virtual void setTopMost(bool topMost) = 0;
};

}  // namespace huebrush::palette
