// SPDX-License-Identifier: MPL-2.0

#include "batch/ColorMaps.h"

#include <limits>

#include "base/ColorDifference.h"

namespace huebrush::batch {

namespace {

using host::MsoFillType;
using host::MsoGradientColorType;

/// Which of a fill's two colours can be seen, and are to be mapped.
struct Colors {
    bool fore = false;
    bool back = false;
};

Colors colorsOf(const fill::FillProperties& fill, const MappingScope& scope) {
    if (fill.Visible == host::MsoTriState::msoFalse) return {};
    switch (fill.Type) {
        case MsoFillType::msoFillSolid:
            return {true, false};
        case MsoFillType::msoFillPatterned:
            return {scope.patterns, scope.patterns};
        case MsoFillType::msoFillGradient:
            if (!scope.gradients) return {};
            return {fill.GradientColorType != MsoGradientColorType::msoGradientPresetColors,
                    fill.GradientColorType == MsoGradientColorType::msoGradientTwoColors};
        default:
            return {};
    }
}

}  // namespace

ColorMaps::ColorMaps(const std::vector<ColorMapping>& mappings, MappingScope scope)
    : scope_(scope) {
    for (const ColorMapping& each : mappings) entries_.push_back({each});
}

std::optional<fill::FillProperties> ColorMaps::mapped(const fill::FillProperties& fill) {
    fill::FillProperties result = fill;
    const Colors colors = colorsOf(fill, scope_);
    bool isMapped = colors.fore && map(result.ForeColorRGB);
    isMapped |= colors.back && map(result.BackColorRGB);
    if (!isMapped) return std::nullopt;
    return result;
}

std::optional<std::vector<base::Rgb>> ColorMaps::mapped(std::vector<base::Rgb> colors) {
    bool isMapped = false;
    for (base::Rgb& each : colors) isMapped |= map(each);
    if (!isMapped) return std::nullopt;
    return colors;
}

std::optional<base::Rgb> ColorMaps::missing() const {
    for (const Entry& each : entries_) {
        if (!each.found && !scope_.mayBeMissing) return each.mapping.from;
    }
    return std::nullopt;
}

const ColorMaps::Entry* ColorMaps::entryOf(base::Rgb color) {
    const Entry* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (Entry& each : entries_) {
        const double distance =
            each.mapping.from == color ? 0 : base::deltaE2000(each.mapping.from, color);
        if (distance > scope_.tolerance) continue;
        each.found = true;
        if (distance > least) continue;
        nearest = &each;
        least = distance;
    }
    return nearest;
}

bool ColorMaps::map(base::Rgb& color) {
    const Entry* const entry = entryOf(color);
    if (entry == nullptr || entry->mapping.to == color) return false;
    color = entry->mapping.to;
    return true;
}

}  // namespace huebrush::batch
