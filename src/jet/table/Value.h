// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "jet/file/Bytes.h"

namespace huebrush::jet {

/// The types of columns, by their codes in the file.
enum class ColumnType : std::uint8_t {
    boolean = 1,
    byte = 2,
    integer = 3,
    longInteger = 4,
    money = 5,
    single = 6,
    real = 7,
    date = 8,
    binary = 9,
    text = 10,
    ole = 11,
    memo = 12,
    guid = 15,
    numeric = 16,
    fixedBinary = 17,
};

/// An amount in ten-thousandths.
struct Money {
    std::int64_t tenThousandths = 0;
    friend bool operator==(const Money&, const Money&) = default;
};

/// What a column of a row holds: nothing (null), a truth value, a whole number (byte, integer, long
/// integer), an amount, a number (dates are days since 1899-12-30), text in UTF-8, or bytes
/// (binary, OLE object, GUID, numeric).
using Value =
    std::variant<std::monostate, bool, std::int32_t, Money, float, double, std::string, Bytes>;

inline bool isNull(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

/// What an assignment to a long column makes of a value: a float is rounded half to even.
/// Overflow error (6) beyond 32 bits; type mismatch (13) for what is not a number; error 94 for
/// null.
std::int32_t toLong(const Value& value);
/// The same for a number in single precision.
float toSingle(const Value& value);
/// A text, or a whole number as one; type mismatch (13) for anything else, error 94 for null.
std::string toText(const Value& value);

/// Text as the file keeps it, plain or compressed, from and to UTF-8. Text that takes up to
/// `mostCompressed` characters is compressed if all of it can be.
std::string decodeText(ByteView bytes);
Bytes encodeText(const std::string& utf8, bool compressed, std::size_t mostCompressed);

}  // namespace huebrush::jet
