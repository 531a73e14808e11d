// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "documents/xml/Vocabulary.h"

namespace huebrush::documents {

/// An element by its place in the order of the start tags.
using ElementId = std::uint32_t;
inline constexpr ElementId kNoElement = 0xFFFFFFFF;

/// A range of bytes of a part.
struct ByteRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t size() const { return end - begin; }
    friend bool operator==(const ByteRange&, const ByteRange&) = default;
};

/// An attribute where it stands in a start tag.
struct Attribute {
    ByteRange whole;  ///< from its name to the closing quotation mark
    ByteRange value;  ///< what stands between the quotation marks
    std::string_view prefix;
    std::string_view local;
};

/// How deep elements may nest, and how many there may be.
struct OutlineLimits {
    std::size_t depth = 256;
    std::size_t elements = 20'000'000;
};

/// The elements of an XML document, each with the bytes that it stands in. The document is kept as
/// the text that it is: what is known of it beside that is where elements begin and end.
///
/// DocumentError for what is not well-formed, for a document type declaration, for an encoding of
/// two bytes a character, and beyond the limits.
class Outline {
 public:
    /// `name` is what messages call the part. REQUIRES: the vocabulary outlives this.
    Outline(std::string text, const Vocabulary& vocabulary, std::string name,
            const OutlineLimits& limits = {});

    const std::string& text() const { return text_; }
    const std::string& name() const { return name_; }
    std::size_t size() const { return elements_.size(); }
    static constexpr ElementId root() { return 0; }

    NameId nameOf(ElementId element) const { return elements_[element].name; }
    ElementId parentOf(ElementId element) const { return elements_[element].parent; }
    /// kNoElement where there is none.
    ElementId firstChild(ElementId element) const;
    ElementId nextSibling(ElementId element) const;
    /// The first element that is not inside this one.
    ElementId endOf(ElementId element) const { return elements_[element].next; }
    /// The first child of that name; kNoElement where there is none.
    ElementId child(ElementId element, NameId name) const;

    /// All of an element; its start tag; what stands between its tags, nothing for `<a/>`.
    ByteRange rangeOf(ElementId element) const;
    ByteRange startTagOf(ElementId element) const;
    ByteRange contentOf(ElementId element) const;
    bool isEmptyTag(ElementId element) const;
    std::string_view textOf(const ByteRange& range) const {
        return std::string_view(text_).substr(range.begin, range.size());
    }
    /// The name as it stands in the start tag, with its prefix.
    std::string_view writtenName(ElementId element) const;

    std::vector<Attribute> attributesOf(ElementId element) const;
    /// The value of an attribute without a prefix, its references resolved; nothing where it is not
    /// there.
    std::optional<std::string> attribute(ElementId element, std::string_view local) const;
    /// The same of an attribute in a namespace.
    std::optional<std::string> attribute(ElementId element, NamespaceId space,
                                         std::string_view local) const;
    std::optional<Attribute> findAttribute(ElementId element, NamespaceId space,
                                           std::string_view local) const;

    /// The namespace that a prefix stands for in an element.
    NamespaceId spaceOfPrefix(ElementId element, std::string_view prefix) const;
    /// Whether a prefix stands for any namespace in an element.
    bool isDeclared(ElementId element, std::string_view prefix) const;
    /// A prefix that stands for the namespace inside an element and can be written; nothing where
    /// there is none. An empty one stands for the namespace of names without prefix.
    std::optional<std::string> prefixFor(ElementId element, NamespaceId space) const;

 private:
    friend class OutlineParser;
    struct Element {
        std::uint32_t begin;
        std::uint32_t tagEnd;
        std::uint32_t end;
        ElementId parent;
        ElementId next;
        NameId name;
        bool declares;  ///< whether it declares prefixes
    };
    /// The declarations of an element, in the order of their elements.
    struct Declaration {
        ElementId element;
        std::string prefix;
        NamespaceId space;
    };

    std::span<const Declaration> declarationsOf(ElementId element) const;
    /// Calls `found` for the attributes of an element until it returns true.
    template <class Found>
    void eachAttribute(ElementId element, const Found& found) const;
    /// Calls `found` for the declarations in force in an element, the innermost first, until it
    /// returns true.
    template <class Found>
    void eachDeclaration(ElementId element, const Found& found) const;

    std::string text_;
    const Vocabulary& vocabulary_;
    std::string name_;
    std::vector<Element> elements_;
    std::vector<Declaration> declarations_;
};

/// The text of an attribute's value, with references resolved and blanks as XML reads them.
std::string resolved(std::string_view value);
/// The text as it may stand in an attribute's value between double quotation marks, in any encoding
/// that agrees with ASCII.
std::string escaped(std::string_view value);

}  // namespace huebrush::documents
