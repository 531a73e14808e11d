// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "documents/odf/OdfWords.h"
#include "documents/xml/Outline.h"

namespace huebrush::documents::odf {

/// An element of one of a document's parts.
struct Place {
    const Outline* outline = nullptr;
    ElementId element = kNoElement;

    explicit operator bool() const { return element != kNoElement; }
    std::optional<std::string> attribute(NamespaceId space, std::string_view local) const {
        return outline->attribute(element, space, local);
    }
    Place child(NameId name) const { return {outline, outline->child(element, name)}; }
};

/// Where the properties of a shape are said, what counts most first.
class Properties {
 public:
    void add(const Place& place) {
        if (place) places_.push_back(place);
    }
    /// The first value that is one: `read` gives nothing for others.
    template <class Read>
    auto value(NamespaceId space, std::string_view local, const Read& read) const
        -> decltype(read(std::string_view())) {
        for (const Place& place : places_) {
            const auto text = place.attribute(space, local);
            if (!text) continue;
            if (auto value = read(std::string_view(*text))) return value;
        }
        return {};
    }
    std::optional<std::string> text(NamespaceId space, std::string_view local) const;

 private:
    std::vector<Place> places_;
};

/// The names of the styles of a shape; an empty one where it has none.
struct StyleNames {
    std::string graphic;
    std::string text;
    friend bool operator<(const StyleNames& a, const StyleNames& b) {
        return std::tie(a.graphic, a.text) < std::tie(b.graphic, b.text);
    }
};

/// The styles of a text document that say how its shapes look, and what they name.
class Styles {
 public:
    /// REQUIRES: the parts outlive this. `common` has the common styles and may be `content`
    /// itself; null where the document has none.
    Styles(const Outline& content, const Outline* common);

    /// Of a shape with these styles. The fill of its text's style counts before its own, as the
    /// offices read it.
    Properties propertiesOf(const StyleNames& names) const;

    /// The automatic style of that name; nothing where there is none.
    Place graphicStyle(const std::string& name) const { return find(graphics_, name); }
    Place textStyle(const std::string& name) const { return find(texts_, name); }
    /// A definition that fills refer to: a gradient, a hatch, …
    Place definition(NameId kind, const std::string& identifier) const;

    /// All of one kind, by their identifiers.
    std::vector<std::pair<std::string, Place>> definitions(NameId kind) const;

    /// Whether any style or definition has the name.
    bool isTaken(const std::string& identifier) const { return taken_.contains(identifier); }
    /// Where new automatic styles and new definitions go; nothing where there is no such place.
    Place automaticStyles() const { return automatic_; }
    Place commonStyles() const { return common_; }
    /// The root of the part with the text.
    Place root() const { return root_; }

 private:
    using Table = std::map<std::string, Place>;

    static Place find(const Table& table, const std::string& name);
    void readAutomatic();
    void readCommon(const Outline& common);
    void readStyle(const Place& style, bool isAutomatic);

    Table graphics_;
    Table texts_;
    Table commonGraphics_;
    Place default_;
    std::map<std::pair<NameId, std::string>, Place> definitions_;
    std::set<std::string> taken_;
    Place root_;
    Place automatic_;
    Place common_;
};

}  // namespace huebrush::documents::odf
