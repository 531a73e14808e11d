// SPDX-License-Identifier: MPL-2.0

#include "documents/Signatures.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "documents/ooxml/OoxmlPackage.h"
#include "documents/package/Package.h"
#include "documents/xml/Splices.h"

namespace huebrush::documents {

namespace {

/// The name of the part that an attribute names, relative to the package; empty without one.
std::string partNamedBy(const Outline& outline, ElementId element, std::string_view attribute) {
    std::string name = outline.attribute(element, attribute).value_or("");
    if (name.starts_with('/')) name.erase(0, 1);
    return name;
}

/// Removes the elements of a part that name one of the others in an attribute.
void removeMentions(const Package& package, const std::string& part, std::string_view attribute,
                    const std::set<std::string>& others, PackageChanges& changes) {
    if (!package.has(part)) return;
    const auto outline = ooxml::outlineOf(package, part);
    Splices splices;
    for (ElementId each = outline->firstChild(Outline::root()); each != kNoElement;
         each = outline->nextSibling(each)) {
        if (others.contains(partNamedBy(*outline, each, attribute))) {
            splices.remove(outline->rangeOf(each));
        }
    }
    if (!splices.empty()) changes[part] = splices.applied(outline->text());
}

}  // namespace

std::string withoutSignatures(std::string bytes) {
    if (!isPackage(bytes)) return bytes;
    const Package package(std::move(bytes));
    const std::set<std::string> signatures = signaturesIn(package);
    if (signatures.empty()) return package.bytes();
    PackageChanges changes;
    removeMentions(package, "[Content_Types].xml", "PartName", signatures, changes);
    removeMentions(package, ooxml::relationsNameOf({}), "Target", signatures, changes);
    return package.with(changes, signatures);
}

}  // namespace huebrush::documents
