// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>

#include "base/Count16.h"
#include "forms/ControlArray.h"
#include "recolor/ColorElement.h"

namespace huebrush::recolor {

/// The order and the number of the dialog's rows. Rows never move; what they hold does. Neither the
/// focus nor the view is touched here.
class ElementList {
 public:
    using Rows = forms::ControlArray<ColorElement>;
    /// Exchanges what two rows hold.
    using Exchange = std::function<void(ColorElement&, ColorElement&)>;

    ElementList(Rows& rows, Exchange exchange);

    static void exchangeContents(ColorElement& first, ColorElement& second);

    /// How many rows are selected; an error beyond what a 16-bit counter holds.
    base::Count16 selectedCount() const;
    /// Whether the new fill of any row has been changed.
    bool anyChanged() const;
    void select(std::int16_t value);

    /// Exchanges a row with the nearest visible one before it (step -1) or behind it (step 1). That
    /// one; nothing where there is none.
    ColorElement* moveBy(std::int16_t from, std::int16_t step);
    /// Moves what a row holds to another place, through all places between.
    void moveTo(std::int16_t from, std::int16_t to);

    void remove(std::int16_t index);
    /// Removes the rows whose box has exactly this value.
    void removeWith(std::int16_t selectValue);
    void removeAll();

 private:
    void exchange(std::int32_t first, std::int32_t second);

    Rows& rows_;
    Exchange exchange_;
};

}  // namespace huebrush::recolor
