#include "jet/table/Key.h"

#include <algorithm>
#include <bit>

#include "base/Text.h"
#include "jet/table/GeneralOrder.h"

namespace huebrush::jet {

namespace {

constexpr std::uint8_t kPresent = 0x7F;
constexpr std::size_t kMostCharacters = 255;
constexpr std::uint16_t kEnglish = 0x0409;

void appendBigEndian(Bytes& out, std::uint64_t value, unsigned size) {
    for (unsigned i = size; i > 0; --i) {
        out.push_back(static_cast<std::uint8_t>(value >> (8U * (i - 1))));
    }
}

/// Floats in an order that their bits do not have: negative ones grow the other way.
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
        throw base::Error(ErrorNumber::kWrongType, "Hodnota klíče není téhož druhu jako sloupec.");
    }
    return *typed;
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
            appendBigEndian(out, static_cast<std::uint64_t>(as<std::int32_t>(value)) ^ 0x8000U, 2);
            return out;
        case ColumnType::longInteger:
            appendBigEndian(out, static_cast<std::uint32_t>(as<std::int32_t>(value)) ^ 0x80000000U,
                            4);
            return out;
        case ColumnType::money:
            appendBigEndian(
                out, static_cast<std::uint64_t>(as<Money>(value).tenThousandths) ^ (1ULL << 63U),
                8);
            return out;
        case ColumnType::single:
            appendBigEndian(out, orderedBits(as<float>(value)), 4);
            return out;
        case ColumnType::real:
        case ColumnType::date:
            appendBigEndian(out, orderedBits(as<double>(value)), 8);
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
    return column.sortOrder == kEnglish && column.sortVersion == 0;
}

bool keysKnown(const TableDefinition& table, const IndexTree& tree) {
    return std::all_of(tree.columns.begin(), tree.columns.end(), [&](const KeyColumn& key) {
        const Column* column = table.byNumber(key.column);
        return column != nullptr && keyKnown(*column);
    });
}

std::optional<Bytes> generalKey(const std::string& utf8) {
    std::u16string text = base::toUtf16(utf8);
    text.resize(std::min(text.size(), kMostCharacters));
    while (!text.empty() && text.back() == u' ') text.pop_back();

    constexpr std::uint8_t kNoAccent = 2;
    Bytes out;
    Bytes accents;
    Bytes unprintables;
    for (const char16_t character : text) {
        const GeneralWeight* weight = generalWeight(character);
        if (weight == nullptr) return std::nullopt;
        if (weight->kind == GeneralWeight::Kind::letter) {
            if (weight->code > 0xFF) append8(out, weight->code >> 8U);
            append8(out, weight->code);
            append8(accents, weight->accent == 0 ? kNoAccent : weight->accent);
        } else if (weight->kind == GeneralWeight::Kind::unprintable) {
            appendBigEndian(unprintables, 0x8000U | (7 + 4 * accents.size()), 2);
            append8(unprintables, 6);
            append8(unprintables, weight->code);
        }
    }
    while (!accents.empty() && accents.back() <= kNoAccent) accents.pop_back();
    append8(out, 1);
    append(out, accents);
    if (!unprintables.empty()) {
        append(out, Bytes{1, 1, 1});
        append(out, unprintables);
    }
    append8(out, 0);
    return out;
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
