// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/Changes.h"

#include "base/Text.h"
#include "documents/ooxml/Words.h"

namespace huebrush::documents::ooxml {

using base::text;
using host::MsoFillType;
using host::MsoTextureType;

namespace {

bool isUserTexture(const mapping::HostFill& fill) {
    return fill.type == MsoFillType::msoFillTextured &&
           fill.textureType == MsoTextureType::msoTextureUserDefined;
}

Prefix prefixFor(const PartChanges& part, ElementId at, NamespaceId space, const char* usual,
                 const char* address, const char* strictAddress) {
    const auto known = part.outline.prefixFor(at, space);
    // Attributes of a namespace need a prefix.
    if (known && !(known->empty() && space == kRelations)) return {*known, {}};
    return {usual, text(" xmlns:", usual, "=\"", part.isStrict ? strictAddress : address, "\"")};
}

}  // namespace

FillChange changeTo(const NewFill& wanted, const mapping::KnownFill& now) {
    FillChange change;
    change.before = now.host;
    // The picture's bytes are at hand, and its name means nothing here.
    change.target = targetFor(wanted.fill, withStopColors(now, wanted.stops), "picture");
    if (isUserTexture(wanted.fill)) {
        change.picture = wanted.picture;
    } else if (change.target.picture && wanted.fill.shown()) {
        const auto bytes = mapping::bitmapFileOf(tileOf(*change.target.picture));
        change.picture.assign(bytes.begin(), bytes.end());
    }
    return change;
}

std::string Prefix::name(std::string_view local) const {
    return prefix.empty() ? std::string(local) : text(prefix, ":", local);
}

Prefix drawingPrefix(const PartChanges& part, ElementId at) {
    return prefixFor(part, at, kDrawing, "a",
                     "http://schemas.openxmlformats.org/drawingml/2006/main",
                     "http://purl.oclc.org/ooxml/drawingml/main");
}

Prefix relationPrefix(const PartChanges& part, ElementId at) {
    return prefixFor(part, at, kRelations, "r",
                     "http://schemas.openxmlformats.org/officeDocument/2006/relationships",
                     "http://purl.oclc.org/ooxml/officeDocument/relationships");
}

}  // namespace huebrush::documents::ooxml
