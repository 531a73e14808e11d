// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "jet/table/TableDefinition.h"
#include "jet/table/Value.h"

namespace huebrush::jet {

/// The bytes by which an index orders its entries.

/// Whether the keys of a tree can be computed, judging by its columns.
bool keysKnown(const TableDefinition& table, const IndexTree& tree);

/// What a row has in a column, by the column.
using ValueOf = std::function<Value(const Column&)>;

struct Key {
    Bytes bytes;
    bool anyNull = false;
    bool allNull = true;
};

/// The key of a row. None when it contains a character whose place in the order is not known.
/// REQUIRES: keysKnown.
std::optional<Key> encodeKey(const TableDefinition& table, const IndexTree& tree,
                             const ValueOf& valueOf);

/// The part of a text key that the sort order "General" gives: its bytes compare as the texts
/// do. None for a character that it does not know.
std::optional<Bytes> generalKey(const std::string& utf8);

/// The bytes by which a query sorts a column's values; null comes first. Text is sorted as the
/// column's language says: Czech by the Czech alphabet, every other one as "General", and
/// characters that this does not know after all others. Error 3251 for values that have no order.
Bytes sortKey(const Column& column, const Value& value);

/// Whether a column's text is ordered by the order that generalKey knows.
bool isGeneralOrder(const Column& column);

}  // namespace huebrush::jet
