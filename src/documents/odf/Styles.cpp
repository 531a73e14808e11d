// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/Styles.h"

#include "base/Text.h"
#include "documents/package/DocumentError.h"

namespace huebrush::documents::odf {

namespace {

std::string textOf(const Place& place, NamespaceId space, std::string_view local) {
    return place.attribute(space, local).value_or("");
}

bool isDefinition(NameId name) {
    return name == kGradient || name == kOpacity || name == kHatch || name == kFillImage;
}

template <class Visit>
void eachChild(const Place& place, const Visit& visit) {
    const Outline& outline = *place.outline;
    for (ElementId each = outline.firstChild(place.element); each != kNoElement;
         each = outline.nextSibling(each)) {
        visit(Place{&outline, each}, outline.nameOf(each));
    }
}

}  // namespace

std::optional<std::string> Properties::text(NamespaceId space, std::string_view local) const {
    return value(space, local,
                 [](std::string_view text) { return std::optional<std::string>(text); });
}

Styles::Styles(const Outline& content, const Outline* common) : root_{&content, Outline::root()} {
    readAutomatic();
    if (common != nullptr) readCommon(*common);
}

void Styles::readAutomatic() {
    automatic_ = root_.child(kAutomaticStyles);
    if (!automatic_) return;
    eachChild(automatic_, [&](const Place& each, NameId name) {
        if (name == kStyle) readStyle(each, true);
    });
}

void Styles::readCommon(const Outline& common) {
    common_ = Place{&common, Outline::root()}.child(kStyles);
    if (!common_) return;
    eachChild(common_, [&](const Place& each, NameId name) {
        if (name == kStyle) readStyle(each, false);
        if (name == kDefaultStyle && textOf(each, kStyleSpace, "family") == "graphic") {
            default_ = each.child(kGraphicProperties);
        }
        if (!isDefinition(name)) return;
        const std::string identifier = textOf(each, kDraw, "name");
        taken_.insert(identifier);
        definitions_.emplace(std::pair(name, identifier), each);
    });
}

void Styles::readStyle(const Place& style, bool isAutomatic) {
    const std::string name = textOf(style, kStyleSpace, "name");
    // Nothing can refer to it.
    if (name.empty()) return;
    const std::string family = textOf(style, kStyleSpace, "family");
    taken_.insert(name);
    if (family == "graphic") (isAutomatic ? graphics_ : commonGraphics_).emplace(name, style);
    // What a common one says of fills is about paragraphs.
    if (family == "paragraph" && isAutomatic) texts_.emplace(name, style);
}

Place Styles::find(const Table& table, const std::string& name) {
    const auto found = table.find(name);
    return found == table.end() ? Place() : found->second;
}

Place Styles::definition(NameId kind, const std::string& identifier) const {
    const auto found = definitions_.find({kind, identifier});
    return found == definitions_.end() ? Place() : found->second;
}

std::vector<std::pair<std::string, Place>> Styles::definitions(NameId kind) const {
    std::vector<std::pair<std::string, Place>> found;
    for (const auto& [key, place] : definitions_) {
        if (key.first == kind) found.emplace_back(key.second, place);
    }
    return found;
}

Properties Styles::propertiesOf(const StyleNames& names) const {
    Properties properties;
    if (const Place text = textStyle(names.text))
        properties.add(text.child(kTextGraphicProperties));
    Place style = graphicStyle(names.graphic);
    if (!style) style = find(commonGraphics_, names.graphic);
    for (std::size_t length = 0; style; ++length) {
        if (length > commonGraphics_.size()) {
            throw DocumentError(base::text("has a style that is its own parent: ",
                                           textOf(style, kStyleSpace, "name")));
        }
        properties.add(style.child(kGraphicProperties));
        style = find(commonGraphics_, textOf(style, kStyleSpace, "parent-style-name"));
    }
    properties.add(default_);
    return properties;
}

}  // namespace huebrush::documents::odf
