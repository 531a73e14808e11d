// SPDX-License-Identifier: MPL-2.0

#include "documents/xml/Edits.h"

#include "base/Text.h"

namespace huebrush::documents {

using base::text;

namespace {

std::string_view localOf(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

/// Makes `<a/>` into `<a>…</a>`.
void fillEmptyTag(const Outline& outline, Splices& splices, ElementId parent,
                  const std::string& elements) {
    const std::size_t end = outline.startTagOf(parent).end;
    splices.replace({end - 2, end}, text(">", elements, "</", outline.writtenName(parent), ">"));
}

}  // namespace

void setAttribute(const Outline& outline, Splices& splices, ElementId element, NamespaceId space,
                  std::string_view name, const std::optional<std::string>& value) {
    const auto former = outline.findAttribute(element, space, localOf(name));
    if (former && value) {
        splices.replace(former->value, escaped(*value));
    } else if (former) {
        removeAttribute(outline, splices, *former);
    } else if (value) {
        const std::size_t at =
            outline.startTagOf(element).begin + 1 + outline.writtenName(element).size();
        splices.insert(at, text(" ", name, "=\"", escaped(*value), "\""));
    }
}

void removeAttribute(const Outline& outline, Splices& splices, const Attribute& attribute) {
    constexpr std::string_view kBlanks = " \t\r\n";
    ByteRange range = attribute.whole;
    while (kBlanks.find(outline.text()[range.begin - 1]) != std::string_view::npos) --range.begin;
    splices.remove(range);
}

void insertFirst(const Outline& outline, Splices& splices, ElementId parent,
                 const std::string& elements) {
    if (outline.isEmptyTag(parent)) {
        fillEmptyTag(outline, splices, parent, elements);
    } else {
        splices.insert(outline.contentOf(parent).begin, elements);
    }
}

void insertLast(const Outline& outline, Splices& splices, ElementId parent,
                const std::string& elements) {
    if (outline.isEmptyTag(parent)) {
        fillEmptyTag(outline, splices, parent, elements);
    } else {
        splices.insert(outline.contentOf(parent).end, elements);
    }
}

std::string_view prefixOf(std::string_view writtenName) {
    const std::size_t colon = writtenName.find(':');
    return colon == std::string_view::npos ? std::string_view() : writtenName.substr(0, colon);
}

std::string withPrefix(std::string_view prefix, std::string_view local) {
    return prefix.empty() ? std::string(local) : text(prefix, ":", local);
}

}  // namespace huebrush::documents
