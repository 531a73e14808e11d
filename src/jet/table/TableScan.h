// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>

#include "jet/table/Row.h"

namespace huebrush::jet {

/// Calls `visit` with each row of a table, in the order of its pages, until it returns false.
using VisitRow = std::function<bool(RowId where, const Row& row)>;
void scanTable(Pages& pages, const TableDefinition& table, const VisitRow& visit);

/// Where the bytes of a row are: elsewhere, if it was moved. None for a row that does not exist.
std::optional<RowId> placeOfRow(Pages& pages, const TableDefinition& table, RowId row);

/// A row by its identity, even when it was moved. None when the row does not exist (any more).
std::optional<Row> rowAt(Pages& pages, const TableDefinition& table, RowId row);

/// What a column of a row holds, long values included.
Value valueOf(Pages& pages, const Row& row, const Column& column);

}  // namespace huebrush::jet
