// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace huebrush::jet {

/// The few queries for palettes. They are known letter by letter; any other text is a syntax error
/// (3075).

/// What a record set shows: all columns of some rows of a table.
struct Query {
    std::string table;
    std::optional<std::int32_t> group;  ///< only rows with this GroupID
    std::string order;                  ///< the column to sort by; empty: as the table has them
};

/// "SELECT TFillGroup.* From TFillGroup ORDER BY Name",
/// "SELECT TFillElementParameter.* From TFillElementParameter", and the latter followed by
/// " Where (GroupID =n)ORDER BY OrderNumber".
Query parseQuery(const std::string& text);

/// The palette whose elements "DELETE FROM TFillElementParameter WHERE (GroupID = n)" removes.
std::int32_t parseDelete(const std::string& text);

/// The number that "ID=n" looks for.
std::int32_t parseFind(const std::string& text);

}  // namespace huebrush::jet
