// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <string_view>

#include "documents/model/ShapeFile.h"
#include "documents/ooxml/Pictures.h"
#include "documents/xml/Outline.h"
#include "documents/xml/Splices.h"

namespace huebrush::documents::ooxml {

/// What a fill is to become: the wanted one, and how the mapping paints it.
struct FillChange {
    mapping::FillTarget target;
    mapping::HostFill before;
    /// The bytes of the picture that the fill needs; empty without one.
    std::string picture;
};

FillChange changeTo(const NewFill& wanted, const mapping::KnownFill& now);

/// A part that is being changed.
struct PartChanges {
    const Outline& outline;
    Splices& splices;
    NewPictures& pictures;
    bool isStrict = false;
};

/// A prefix for new elements and attributes, and its declaration where the place has none.
struct Prefix {
    std::string prefix;
    std::string declaration;  ///< with a blank before it, or empty

    std::string name(std::string_view local) const;
};
Prefix drawingPrefix(const PartChanges& part, ElementId at);
Prefix relationPrefix(const PartChanges& part, ElementId at);

}  // namespace huebrush::documents::ooxml
