// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "mapping/HostFill.h"
#include "mapping/OfficeFill.h"
#include "mapping/OwnPictures.h"

namespace huebrush::mapping {

/// The office's fill in the object model's terms, approximated the same way every time where there
/// is no equivalent. `picture` is what a bitmap fill's picture was recognised as.
HostFill hostFillOf(const OfficeFill& office, const std::optional<OwnPicture>& picture);

/// What stands beside a shape whose fill the office cannot hold.
struct RememberedFill {
    HostFill host;
    /// The office's fill that was written for it: the memory counts while the shape still has that.
    OfficeFill written;
    /// For a hidden fill: what to show again.
    std::optional<OfficeFill> hidden;
};

/// One line of text, and back; nothing when the text is not one of these.
std::string toText(const RememberedFill& fill);
std::optional<RememberedFill> rememberedFillOf(const std::string& text);

/// A fill as it is now.
struct KnownFill {
    HostFill host;
    OfficeFill office;
    /// For a hidden fill: what to show again, where it is known.
    std::optional<OfficeFill> hidden;
};

/// Puts together what a shape answers: its own fill, and what is remembered beside it if that still
/// counts.
KnownFill knownFillOf(const OfficeFill& fill, const std::optional<OwnPicture>& picture,
                      const std::optional<RememberedFill>& remembered);

/// What to write so that a shape has a fill.
struct FillTarget {
    OfficeFill office;
    /// The picture of ours that a bitmap fill needs in the document's table.
    std::optional<OwnPicture> picture;
    /// What the shape answers then: the wanted fill, with the stops that it keeps.
    HostFill host;
    /// What is to stand beside the shape; nothing where the office's fill alone says it all.
    std::optional<RememberedFill> remembered;
};

/// The target for the fill `wanted` on a shape that has `now`. What stays of the shape's own fill
/// is kept as it is (a gradient that only changes its colours keeps its angle). `userPicture` is
/// the name in the document's table of the picture of a user texture.
FillTarget targetFor(const HostFill& wanted, const KnownFill& now, const std::string& userPicture);

/// The colours of a gradient's stops in the object model's terms; empty for a fill without any.
std::vector<std::int32_t> stopColorsOf(const OfficeFill& office);
/// The same fill with other colours of its stops: as many as it has.
KnownFill withStopColors(const KnownFill& fill, const std::vector<std::int32_t>& colors);

/// "0xRRGGBB" of the office from the object model's colour, and back.
std::int32_t toOfficeColor(std::int32_t color);
std::int32_t toHostColor(std::int32_t color);

}  // namespace huebrush::mapping
