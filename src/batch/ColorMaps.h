// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <vector>

#include "base/Color.h"
#include "fill/FillProperties.h"

namespace huebrush::batch {

/// One colour is to become another; the transparency stays.
struct ColorMapping {
    base::Rgb from = 0;
    base::Rgb to = 0;
};

/// What a mapping of colours changes.
struct MappingScope {
    /// Colours that are that near to `from`, by CIEDE2000, are taken for it.
    double tolerance = 0;
    /// The colours of gradients, of patterns and of lines, too, beside those of solid fills.
    bool gradients = false;
    bool patterns = false;
    bool lines = false;
    /// Whether a colour that the document does not have is no error.
    bool mayBeMissing = false;
};

/// Some mappings of colours at work. Where several apply to a colour, the nearest one does, and of
/// equal ones the last.
class ColorMaps {
 public:
    ColorMaps(const std::vector<ColorMapping>& mappings, MappingScope scope);

    /// The fill with its colours mapped; nothing where none of them is.
    std::optional<fill::FillProperties> mapped(const fill::FillProperties& fill);
    /// Other colours, mapped; nothing where none of them is.
    std::optional<std::vector<base::Rgb>> mapped(std::vector<base::Rgb> colors);

    /// The first mapping's colour that nothing has had.
    std::optional<base::Rgb> missing() const;

 private:
    struct Entry {
        ColorMapping mapping;
        bool found = false;
    };

    const Entry* entryOf(base::Rgb color);
    bool map(base::Rgb& color);

    std::vector<Entry> entries_;
    MappingScope scope_;
};

}  // namespace huebrush::batch
