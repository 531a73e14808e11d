// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Key.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

#include "base/Text.h"
#include "jet/table/GeneralOrder.h"

namespace huebrush::jet {

namespace {

constexpr std::uint8_t kPresent = 0x7F;
constexpr std::size_t kMostCharacters = 255;
constexpr std::uint16_t kCzech = 0x0405;

/// Floats in an order that their bits do not have: the bits of negative ones grow the other way.
std::uint64_t orderedBits(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    constexpr std::uint64_t kSign = 1ULL << 63U;
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}
std::uint32_t orderedBits(float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    constexpr std::uint32_t kSign = 1U << 31U;
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

/// The value as the type that its column has.
template <class Type>
const Type& as(const Value& value) {
    const Type* typed = std::get_if<Type>(&value);
    if (typed == nullptr) {
        throw Error(ErrorNumber::kWrongType, "Hodnota klíče není téhož druhu jako sloupec.",
                    "the value of a key is not of the column's type");
    }
    return *typed;
}

/// What the key of a text is composed of.
class TextKey {
 public:
    void addLetter(unsigned code, std::uint8_t accent) {
        if (code > 0xFF) append8(letters_, code >> 8U);
        append8(letters_, code);
        append8(accents_, accent == 0 ? kNoAccent : accent);
    }
    void add(const GeneralWeight& weight) {
        if (weight.kind == GeneralWeight::Kind::letter) {
            addLetter(weight.code, weight.accent);
        } else if (weight.kind == GeneralWeight::Kind::unprintable) {
            appendBig(unprintables_, 0x8000U | (7 + 4 * accents_.size()), 2);
            append8(unprintables_, 6);
            append8(unprintables_, weight.code);
        }
    }
    /// A character without a known weight: after all that have one, by its number.
    void addUnknown(char16_t character) {
        append8(letters_, 0xFF);
        addLetter(character, 0);
    }
    Bytes bytes() const {
        Bytes out = letters_;
        Bytes accents = accents_;
        while (!accents.empty() && accents.back() <= kNoAccent) accents.pop_back();
        append8(out, 1);
        append(out, accents);
        if (!unprintables_.empty()) {
            append(out, Bytes{1, 1, 1});
            append(out, unprintables_);
        }
        append8(out, 0);
        return out;
    }

 private:
    static constexpr std::uint8_t kNoAccent = 2;

    Bytes letters_;
    Bytes accents_;
    Bytes unprintables_;
};

/// The part of a text that counts in comparisons.
std::u16string comparedText(const std::string& utf8) {
    std::u16string text = base::toUtf16(utf8);
    text.resize(std::min(text.size(), kMostCharacters));
    while (!text.empty() && text.back() == u' ') text.pop_back();
    return text;
}

/// The letters that in Czech are not accented ones but follow another letter, in the gaps that
/// the codes of "General" leave there.
struct CzechLetter {
    std::u16string_view small;
    std::u16string_view capital;
    std::uint8_t code;
};
constexpr std::array<CzechLetter, 6> kCzechLetters{{{u"č", u"Č", 0x4E},
                                                    {u"ch", u"CH", 0x58},
                                                    {u"ch", u"Ch", 0x58},
                                                    {u"ř", u"Ř", 0x6A},
                                                    {u"š", u"Š", 0x6C},
                                                    {u"ž", u"Ž", 0x79}}};

const CzechLetter* czechLetter(std::u16string_view rest) {
    for (const CzechLetter& each : kCzechLetters) {
        if (rest.starts_with(each.small) || rest.starts_with(each.capital)) return &each;
    }
    return nullptr;
}

Bytes sortedText(const std::string& utf8, bool czech) {
    const std::u16string text = comparedText(utf8);
    TextKey key;
    for (std::u16string_view rest = text; !rest.empty();) {
        std::size_t size = 1;
        if (const CzechLetter* letter = czech ? czechLetter(rest) : nullptr) {
            key.addLetter(letter->code, 0);
            size = letter->small.size();
        } else if (const GeneralWeight* weight = generalWeight(rest[0])) {
            key.add(*weight);
        } else {
            key.addUnknown(rest[0]);
        }
        rest.remove_prefix(size);
    }
    return key.bytes();
}

std::optional<Bytes> dataOf(const Column& column, const Value& value) {
    Bytes out;
    switch (column.type) {
        case ColumnType::boolean:
            append8(out, as<bool>(value) ? 0x00 : 0xFF);
            return out;
        case ColumnType::byte:
            append8(out, static_cast<std::size_t>(as<std::int32_t>(value)));
            return out;
        case ColumnType::integer:
            appendBig(out, static_cast<std::uint64_t>(as<std::int32_t>(value)) ^ 0x8000U, 2);
            return out;
        case ColumnType::longInteger:
            appendBig(out, static_cast<std::uint32_t>(as<std::int32_t>(value)) ^ 0x80000000U, 4);
            return out;
        case ColumnType::money:
            appendBig(out,
                      static_cast<std::uint64_t>(as<Money>(value).tenThousandths) ^ (1ULL << 63U),
                      8);
            return out;
        case ColumnType::single:
            appendBig(out, orderedBits(as<float>(value)), 4);
            return out;
        case ColumnType::real:
        case ColumnType::date:
            appendBig(out, orderedBits(as<double>(value)), 8);
            return out;
        case ColumnType::text:
            return generalKey(as<std::string>(value));
        default:
            return std::nullopt;
    }
}

bool keyKnown(const Column& column) {
    switch (column.type) {
        case ColumnType::text:
            return isGeneralOrder(column);
        case ColumnType::binary:
        case ColumnType::ole:
        case ColumnType::memo:
        case ColumnType::guid:
        case ColumnType::numeric:
        case ColumnType::fixedBinary:
            return false;
        default:
            return true;
    }
}

void appendDescending(Bytes& out, const Bytes& data, bool text) {
    append8(out, static_cast<std::uint8_t>(~kPresent));
    for (const std::uint8_t byte : data) append8(out, static_cast<std::uint8_t>(~byte));
    if (text) append8(out, 0);
}

}  // namespace

bool isGeneralOrder(const Column& column) {
    return column.sortOrder == kGeneralSortOrder && column.sortVersion == 0;
}

bool keysKnown(const TableDefinition& table, const IndexTree& tree) {
    return std::all_of(tree.columns.begin(), tree.columns.end(), [&](const KeyColumn& key) {
        const Column* column = table.byNumber(key.column);
        return column != nullptr && keyKnown(*column);
    });
}

std::optional<Bytes> generalKey(const std::string& utf8) {
    TextKey key;
    for (const char16_t character : comparedText(utf8)) {
        const GeneralWeight* weight = generalWeight(character);
        if (weight == nullptr) return std::nullopt;
        key.add(*weight);
    }
    return key.bytes();
}

Bytes sortKey(const Column& column, const Value& value) {
    Bytes key;
    if (isNull(value)) return key;
    append8(key, kPresent);
    if (column.isText()) {
        append(key, sortedText(as<std::string>(value), column.sortOrder == kCzech));
    } else if (const auto data = dataOf(column, value)) {
        append(key, *data);
    } else {
        throw Error(ErrorNumber::kNotSupported,
                    base::text("Podle sloupce „", column.name, "“ nelze řadit."),
                    base::text("rows cannot be sorted by the column ", column.name));
    }
    return key;
}

std::optional<Key> encodeKey(const TableDefinition& table, const IndexTree& tree,
                             const ValueOf& valueOf) {
    Key key;
    for (const KeyColumn& each : tree.columns) {
        const Column& column = *table.byNumber(each.column);
        const Value value = valueOf(column);
        if (isNull(value)) {
            key.anyNull = true;
            append8(key.bytes, each.ascending ? 0x00 : 0xFF);
            continue;
        }
        key.allNull = false;
        const auto data = dataOf(column, value);
        if (!data) return std::nullopt;
        if (each.ascending) {
            append8(key.bytes, kPresent);
            append(key.bytes, *data);
        } else {
            appendDescending(key.bytes, *data, column.type == ColumnType::text);
        }
    }
    return key;
}

}  // namespace huebrush::jet
