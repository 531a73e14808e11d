// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "jet/database/Database.h"
#include "jet/table/Key.h"

namespace huebrush::jet {

/// One side of a relation as a table's definition describes it, with the other side found.
struct Relation {
    const LogicalIndex* here = nullptr;
    std::shared_ptr<const TableDefinition> table;
    std::shared_ptr<const TableDefinition> otherTable;
    const LogicalIndex* there = nullptr;

    const IndexTree& tree() const { return table->trees[here->tree]; }
    const IndexTree& otherTree() const { return otherTable->trees[there->tree]; }
};

/// The relations of a table in which it has a side. Damage when the other side is missing or does
/// not fit.
std::vector<Relation> relationsOf(Database& database,
                                  const std::shared_ptr<const TableDefinition>& table,
                                  LogicalIndex::Side side);

/// The key that a row has in the tree of the other table. None when a column of it is null: such a
/// row takes no part in the relation.
std::optional<Bytes> keyInOther(const Relation& relation, const ValueOf& valueOf);

}  // namespace huebrush::jet
