// SPDX-License-Identifier: MPL-2.0

#include "documents/xml/Outline.h"

#include <expat.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "documents/package/DocumentError.h"

namespace huebrush::documents {

using base::text;

namespace {

bool isBlank(char each) {
    return each == ' ' || each == '\t' || each == '\r' || each == '\n';
}

/// The parts of a name with or without prefix.
std::pair<std::string_view, std::string_view> split(std::string_view name) {
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos) return {std::string_view(), name};
    return {name.substr(0, colon), name.substr(colon + 1)};
}

void addCharacter(std::string& out, std::uint32_t code) {
    constexpr std::uint32_t kLast = 0x10FFFF;
    if (code == 0 || code > kLast) return;
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | code >> 6U);
        out += static_cast<char>(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0U | code >> 12U);
        out += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    } else {
        out += static_cast<char>(0xF0U | code >> 18U);
        out += static_cast<char>(0x80U | (code >> 12U & 0x3FU));
        out += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    }
}

std::uint32_t characterNumber(std::string_view digits) {
    const bool isHex = !digits.empty() && digits.front() == 'x';
    if (isHex) digits.remove_prefix(1);
    std::uint32_t code = 0;
    for (const char each : digits) {
        std::uint32_t digit = 0;
        if (each >= '0' && each <= '9') digit = static_cast<std::uint32_t>(each - '0');
        if (each >= 'a' && each <= 'f') digit = static_cast<std::uint32_t>(each - 'a' + 10);
        if (each >= 'A' && each <= 'F') digit = static_cast<std::uint32_t>(each - 'A' + 10);
        code = code * (isHex ? 16 : 10) + digit;
        if (code > 0x10FFFF) return 0;
    }
    return code;
}

void addReference(std::string& out, std::string_view name) {
    static constexpr std::pair<std::string_view, char> kNamed[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    if (name.starts_with('#')) {
        addCharacter(out, characterNumber(name.substr(1)));
        return;
    }
    for (const auto& [each, character] : kNamed) {
        if (each == name) out += character;
    }
}

/// expat without namespaces takes some prefixes that no name can begin with. Of those that one can,
/// the unusual ones are left to their authors.
bool canBeWritten(std::string_view prefix) {
    if (prefix.empty()) return true;
    const char first = prefix.front();
    const bool isLetter = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
    return (isLetter || first == '_') && prefix.find(':') == std::string_view::npos;
}

}  // namespace

std::string resolved(std::string_view value) {
    std::string out;
    out.reserve(value.size());
    while (!value.empty()) {
        const char first = value.front();
        const std::size_t end = first == '&' ? value.find(';') : std::string_view::npos;
        if (end != std::string_view::npos) {
            addReference(out, value.substr(1, end - 1));
            value.remove_prefix(end + 1);
            continue;
        }
        out += isBlank(first) ? ' ' : first;
        value.remove_prefix(1);
    }
    return out;
}

std::string escaped(std::string_view value) {
    std::string out;
    const std::u16string characters = base::toUtf16(value);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const std::uint32_t unit = characters[i];
        if (unit == '&') {
            out += "&amp;";
        } else if (unit == '<') {
            out += "&lt;";
        } else if (unit == '"') {
            out += "&quot;";
        } else if (unit >= 0x20 && unit < 0x7F) {
            out += static_cast<char>(unit);
        } else if (unit >= 0xD800 && unit < 0xDC00 && i + 1 < characters.size()) {
            const std::uint32_t low = characters[++i];
            out += text("&#", 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00), ";");
        } else {
            out += text("&#", unit, ";");
        }
    }
    return out;
}

/// Drives expat over the text and keeps what it finds.
class OutlineParser {
 public:
    OutlineParser(Outline& outline, const OutlineLimits& limits)
        : outline_(outline), limits_(limits), parser_(XML_ParserCreate(nullptr), XML_ParserFree) {
        if (!parser_) throw DocumentError("cannot be read: there is not enough memory");
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), &OutlineParser::onStart, &OutlineParser::onEnd);
        XML_SetStartDoctypeDeclHandler(parser_.get(), &OutlineParser::onDoctype);
    }

    void parse() {
        const std::string& text = outline_.text_;
        if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ||
            text.find('\0') < kEncodingSeen) {
            refuse("is in an encoding of two bytes a character");
        }
        if (text.size() >= std::numeric_limits<std::int32_t>::max()) refuse("is too large");
        outline_.elements_.reserve(text.size() / kBytesPerElement);
        const XML_Status status = parsePieces(text);
        if (!problem_.empty()) refuse(problem_);
        if (status != XML_STATUS_OK) {
            refuse(base::text("is not well-formed XML in line ",
                              static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser_.get())),
                              ": ",
                              std::string_view(XML_ErrorString(XML_GetErrorCode(parser_.get())))));
        }
    }

 private:
    static constexpr std::size_t kEncodingSeen = 4;
    /// Less than most documents have, so that their elements are seldom moved.
    static constexpr std::size_t kBytesPerElement = 48;

    /// expat copies what it is given: in pieces it needs less room, and they stay in the cache.
    /// There are few of them, because it reads a tag again that goes over several.
    XML_Status parsePieces(std::string_view text) {
        constexpr std::size_t kSmallest = std::size_t{1} << 18U;
        constexpr std::size_t kMost = 16;
        const std::size_t most = std::max(kSmallest, text.size() / kMost + 1);
        for (;;) {
            const std::string_view piece = text.substr(0, most);
            const bool isLast = piece.size() == text.size();
            const XML_Status status =
                XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()),
                          isLast ? XML_TRUE : XML_FALSE);
            if (isLast || status != XML_STATUS_OK) return status;
            text.remove_prefix(piece.size());
        }
    }

    [[noreturn]] void refuse(std::string_view what) const {
        throw DocumentError(base::text("is damaged: ", outline_.name_, " ", what));
    }

    static void XMLCALL onStart(void* self, const XML_Char* name, const XML_Char** attributes) {
        static_cast<OutlineParser*>(self)->start(name, attributes);
    }
    static void XMLCALL onEnd(void* self, const XML_Char*) {
        static_cast<OutlineParser*>(self)->end();
    }
    static void XMLCALL onDoctype(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                  int) {
        static_cast<OutlineParser*>(self)->stop("has a document type declaration");
    }

    /// expat's callbacks cannot throw through it.
    void stop(std::string_view problem) {
        if (!problem_.empty()) return;
        problem_ = problem;
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    void start(std::string_view name, const XML_Char** attributes) {
        if (!problem_.empty()) return;
        if (open_.size() >= limits_.depth) return stop("nests too deeply");
        if (outline_.elements_.size() >= limits_.elements) return stop("has too many elements");
        const auto id = static_cast<ElementId>(outline_.elements_.size());
        const auto begin = static_cast<std::uint32_t>(XML_GetCurrentByteIndex(parser_.get()));
        const auto size = static_cast<std::uint32_t>(XML_GetCurrentByteCount(parser_.get()));
        const bool declares = declare(id, attributes);
        const auto [prefix, local] = split(name);
        const NameId known = nameOf(prefix, local);
        outline_.elements_.push_back({begin, begin + size, begin + size,
                                      open_.empty() ? kNoElement : open_.back(), id + 1, known,
                                      declares});
        open_.push_back(id);
    }

    void end() {
        if (!problem_.empty() || open_.empty()) return;
        const ElementId id = open_.back();
        open_.pop_back();
        Outline::Element& element = outline_.elements_[id];
        // Of an empty element expat reports as the end the place behind it.
        if (outline_.text_[element.tagEnd - 2] != '/') {
            element.end = static_cast<std::uint32_t>(XML_GetCurrentByteIndex(parser_.get()) +
                                                     XML_GetCurrentByteCount(parser_.get()));
        }
        element.next = static_cast<ElementId>(outline_.elements_.size());
        if (element.declares) forget(id);
    }

    /// Whether the element declares a prefix.
    bool declare(ElementId id, const XML_Char** attributes) {
        bool declares = false;
        for (; *attributes != nullptr; attributes += 2) {
            constexpr std::string_view kStart = "xmlns";
            if (std::strncmp(attributes[0], kStart.data(), kStart.size()) != 0) continue;
            const std::string_view name(attributes[0]);
            const auto [prefix, local] = split(name);
            if (!prefix.empty() ? prefix != "xmlns" : local != "xmlns") continue;
            const std::string declared(prefix.empty() ? std::string_view() : local);
            const NamespaceId space = outline_.vocabulary_.spaceOf(attributes[1]);
            outline_.declarations_.push_back({id, declared, space});
            prefixes_[declared].push_back({id, space});
            declares = true;
        }
        return declares;
    }

    void forget(ElementId id) {
        for (const auto& each : outline_.declarationsOf(id)) {
            auto& bound = prefixes_.at(each.prefix);
            if (!bound.empty() && bound.back().first == id) bound.pop_back();
        }
    }

    NameId nameOf(std::string_view prefix, std::string_view local) {
        const auto bound = prefixes_.find(std::string(prefix));
        if (bound == prefixes_.end() || bound->second.empty()) {
            if (!prefix.empty() && prefix != "xml") stop("uses a prefix that it does not declare");
            return kOtherName;
        }
        return outline_.vocabulary_.nameOf(bound->second.back().second, local);
    }

    Outline& outline_;
    OutlineLimits limits_;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser_;
    std::string problem_;
    std::vector<ElementId> open_;
    std::unordered_map<std::string, std::vector<std::pair<ElementId, NamespaceId>>> prefixes_;
};

Outline::Outline(std::string text, const Vocabulary& vocabulary, std::string name,
                 const OutlineLimits& limits)
    : text_(std::move(text)), vocabulary_(vocabulary), name_(std::move(name)) {
    OutlineParser(*this, limits).parse();
}

ElementId Outline::firstChild(ElementId element) const {
    return elements_[element].next > element + 1 ? element + 1 : kNoElement;
}

ElementId Outline::nextSibling(ElementId element) const {
    const ElementId parent = elements_[element].parent;
    const ElementId next = elements_[element].next;
    return parent != kNoElement && next < elements_[parent].next ? next : kNoElement;
}

ElementId Outline::child(ElementId element, NameId name) const {
    ElementId each = firstChild(element);
    while (each != kNoElement && nameOf(each) != name) each = nextSibling(each);
    return each;
}

ByteRange Outline::rangeOf(ElementId element) const {
    return {elements_[element].begin, elements_[element].end};
}

ByteRange Outline::startTagOf(ElementId element) const {
    return {elements_[element].begin, elements_[element].tagEnd};
}

bool Outline::isEmptyTag(ElementId element) const {
    return elements_[element].tagEnd == elements_[element].end;
}

ByteRange Outline::contentOf(ElementId element) const {
    const ByteRange range = rangeOf(element);
    const std::size_t begin = elements_[element].tagEnd;
    if (isEmptyTag(element)) return {begin, begin};
    return {begin, text_.rfind('<', range.end - 1)};
}

std::string_view Outline::writtenName(ElementId element) const {
    const std::string_view tag = textOf(startTagOf(element)).substr(1);
    const auto* const end = std::find_if(tag.begin(), tag.end(),
                                         [](char c) { return isBlank(c) || c == '/' || c == '>'; });
    return tag.substr(0, static_cast<std::size_t>(end - tag.begin()));
}

template <class Found>
void Outline::eachAttribute(ElementId element, const Found& found) const {
    const ByteRange tag = startTagOf(element);
    const std::string_view all(text_);
    std::size_t at = tag.begin + 1 + writtenName(element).size();
    for (;;) {
        while (at < tag.end && isBlank(all[at])) ++at;
        if (at >= tag.end || all[at] == '/' || all[at] == '>') return;
        std::size_t nameEnd = at;
        while (all[nameEnd] != '=' && !isBlank(all[nameEnd])) ++nameEnd;
        std::size_t quote = nameEnd;
        while (all[quote] != '"' && all[quote] != '\'') ++quote;
        const std::size_t end = all.find(all[quote], quote + 1);
        const auto [prefix, local] = split(all.substr(at, nameEnd - at));
        if (found(Attribute{{at, end + 1}, {quote + 1, end}, prefix, local})) return;
        at = end + 1;
    }
}

std::vector<Attribute> Outline::attributesOf(ElementId element) const {
    std::vector<Attribute> all;
    eachAttribute(element, [&](const Attribute& each) {
        all.push_back(each);
        return false;
    });
    return all;
}

std::optional<std::string> Outline::attribute(ElementId element, std::string_view local) const {
    std::optional<std::string> value;
    eachAttribute(element, [&](const Attribute& each) {
        if (!each.prefix.empty() || each.local != local) return false;
        value = resolved(textOf(each.value));
        return true;
    });
    return value;
}

std::optional<Attribute> Outline::findAttribute(ElementId element, NamespaceId space,
                                                std::string_view local) const {
    std::optional<Attribute> attribute;
    eachAttribute(element, [&](const Attribute& each) {
        if (each.local != local) return false;
        // An attribute without prefix is in no namespace.
        const NamespaceId own =
            each.prefix.empty() ? kOtherNamespace : spaceOfPrefix(element, each.prefix);
        if (own != space || each.prefix.empty() != (space == kOtherNamespace)) return false;
        attribute = each;
        return true;
    });
    return attribute;
}

std::optional<std::string> Outline::attribute(ElementId element, NamespaceId space,
                                              std::string_view local) const {
    const auto found = findAttribute(element, space, local);
    if (!found) return {};
    return resolved(textOf(found->value));
}

std::span<const Outline::Declaration> Outline::declarationsOf(ElementId element) const {
    const auto first =
        std::lower_bound(declarations_.begin(), declarations_.end(), element,
                         [](const Declaration& one, ElementId id) { return one.element < id; });
    const auto last = std::find_if(first, declarations_.end(), [&](const Declaration& each) {
        return each.element != element;
    });
    return {first, last};
}

template <class Found>
void Outline::eachDeclaration(ElementId element, const Found& found) const {
    for (ElementId each = element; each != kNoElement; each = elements_[each].parent) {
        if (!elements_[each].declares) continue;
        for (const Declaration& declaration : declarationsOf(each)) {
            if (found(declaration)) return;
        }
    }
}

NamespaceId Outline::spaceOfPrefix(ElementId element, std::string_view prefix) const {
    NamespaceId space = kOtherNamespace;
    eachDeclaration(element, [&](const Declaration& each) {
        if (each.prefix != prefix) return false;
        space = each.space;
        return true;
    });
    return space;
}

bool Outline::isDeclared(ElementId element, std::string_view prefix) const {
    bool isDeclared = false;
    eachDeclaration(element, [&](const Declaration& each) {
        isDeclared = each.prefix == prefix;
        return isDeclared;
    });
    return isDeclared;
}

std::optional<std::string> Outline::prefixFor(ElementId element, NamespaceId space) const {
    std::optional<std::string> prefix;
    eachDeclaration(element, [&](const Declaration& each) {
        if (!canBeWritten(each.prefix)) return false;
        // An inner declaration may have given the prefix another meaning.
        if (each.space != space || spaceOfPrefix(element, each.prefix) != space) return false;
        prefix = each.prefix;
        return true;
    });
    return prefix;
}

}  // namespace huebrush::documents
