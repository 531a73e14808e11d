// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "base/Text.h"
#include "jet/MdbExport_test_support.h"
#include "jet/table/TableScan.h"

namespace huebrush::jet {

namespace {

constexpr const char* kNull = "\\N";

std::string formatted(const char* format, double value) {
    std::array<char, 64> out{};
    std::snprintf(out.data(), out.size(), format, value);
    return out.data();
}

std::string hex(const Bytes& bytes) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string out;
    for (const std::uint8_t byte : bytes) {
        out += kDigits[byte >> 4U];
        out += kDigits[byte & 15U];
    }
    return out;
}

/// Days since 1899-12-30 as date and time, to the second.
std::string dateText(double days) {
    const double whole = std::floor(std::abs(days)) * (days < 0 ? -1 : 1);
    auto seconds = static_cast<int>(std::lround(std::abs(days - whole) * 86400));
    // Days from 1970-01-01 to a date of the Gregorian calendar, the other way round.
    const int z = static_cast<int>(whole) - 25569 + 719468;
    const int era = (z >= 0 ? z : z - 146096) / 146097;
    const int doe = z - era * 146097;
    const int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int mp = (5 * doy + 2) / 153;
    const int day = doy - (153 * mp + 2) / 5 + 1;
    const int month = mp < 10 ? mp + 3 : mp - 9;
    const int year = yoe + era * 400 + (month <= 2 ? 1 : 0);
    std::array<char, 64> out{};
    std::snprintf(out.data(), out.size(), "%04d-%02d-%02d %02d:%02d:%02d", year, month, day,
                  seconds / 3600, seconds / 60 % 60, seconds % 60);
    return out.data();
}

std::string guidText(const Bytes& bytes) {
    const Reader in(bytes, 0);
    std::array<char, 64> out{};
    std::snprintf(out.data(), out.size(), "{%08X-%04X-%04X-%02X%02X%02X%02X%02X%02X%02X%02X}",
                  in.u32(0), in.u16(4), in.u16(6), in.u8(8), in.u8(9), in.u8(10), in.u8(11),
                  in.u8(12), in.u8(13), in.u8(14), in.u8(15));
    return out.data();
}

struct CellText {
    const Column& column;

    std::string operator()(std::monostate) const { return kNull; }
    std::string operator()(bool value) const { return value ? "1" : "0"; }
    std::string operator()(std::int32_t value) const { return base::text(value); }
    std::string operator()(Money value) const {
        return formatted("%.4f", static_cast<double>(value.tenThousandths) / 10000);
    }
    std::string operator()(float value) const { return formatted("%.8g", value); }
    std::string operator()(double value) const {
        return column.type == ColumnType::date ? dateText(value) : formatted("%.16g", value);
    }
    /// mdb-export ends a text at its first null character.
    std::string operator()(const std::string& value) const {
        return value.substr(0, value.find('\0'));
    }
    std::string operator()(const Bytes& value) const {
        if (column.type == ColumnType::guid) {
            const std::string guid = guidText(value);
            return hex(Bytes(guid.begin(), guid.end()));
        }
        // mdb-export does not know this type, which only the office's own tables have.
        if (column.type == ColumnType::fixedBinary) return kNull;
        if (column.isLongValue()) return hex(value);
        // It truncates text and short binary values at a 0 byte.
        return hex(Bytes(value.begin(), std::find(value.begin(), value.end(), 0)));
    }
};

Cells parseCsv(const std::string& text) {
    Cells rows;
    std::vector<std::string> row;
    std::string cell;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c != '"') {
                cell += c;
            } else if (i + 1 < text.size() && text[i + 1] == '"') {
                cell += '"';
                ++i;
            } else {
                quoted = false;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',' || c == '\n') {
            row.push_back(std::move(cell));
            cell.clear();
            if (c == '\n') {
                rows.push_back(std::move(row));
                row.clear();
            }
        } else {
            cell += c;
        }
    }
    return rows;
}

bool number(const std::string& text, double& value) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    return result.ec == std::errc{} && result.ptr == end;
}

}  // namespace

Cells exportTable(Database& database, const TableDefinition& table) {
    Cells cells(1);
    for (const Column& column : table.columns) cells[0].push_back(column.name);
    scanTable(database.pages(), table, [&](RowId, const Row& row) {
        std::vector<std::string> line;
        for (const Column& column : table.columns) {
            line.push_back(std::visit(CellText{column}, valueOf(database.pages(), row, column)));
        }
        cells.push_back(std::move(line));
        return true;
    });
    return cells;
}

Cells runMdbExport(const std::string& file, const std::string& table) {
    const std::string format = "%Y-%m-%d %H:%M:%S";
    const std::string command = "mdb-export -b hex -0 '\\N' -D '" + format + "' -T '" + format +
                                "' '" + file + "' '" + table + "' 2>/dev/null";
    FILE* const pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("mdb-export does not start");
    std::string out;
    std::array<char, 65536> buffer{};
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
        out.append(buffer.data(), got);
    }
    if (::pclose(pipe) != 0) throw std::runtime_error("mdb-export fails on " + file);
    return parseCsv(out);
}

bool sameCell(const std::string& ours, const std::string& theirs) {
    if (ours == theirs || (ours.empty() && theirs == kNull)) return true;
    double a = 0;
    double b = 0;
    return number(ours, a) && number(theirs, b) && std::abs(a - b) <= 1e-6 * std::abs(a);
}

}  // namespace huebrush::jet
