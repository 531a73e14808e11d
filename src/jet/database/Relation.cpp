// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Relation.h"

#include <algorithm>

namespace huebrush::jet {

namespace {

Relation findOtherSide(Database& database, const std::shared_ptr<const TableDefinition>& table,
                       const LogicalIndex& index) {
    Relation relation{&index, table, database.definition(index.otherTable), nullptr};
    const auto mirrored = index.side == LogicalIndex::Side::child ? LogicalIndex::Side::parent
                                                                  : LogicalIndex::Side::child;
    for (const LogicalIndex& other : relation.otherTable->indexes) {
        if (other.side == mirrored && other.otherTable == table->page &&
            static_cast<std::int32_t>(other.number) == index.partner &&
            other.partner == static_cast<std::int32_t>(index.number)) {
            relation.there = &other;
        }
    }
    if (relation.there == nullptr ||
        relation.tree().columns.size() != relation.otherTree().columns.size()) {
        throwDamage(table->page, 0, rule::kRelation);
    }
    return relation;
}

}  // namespace

std::vector<Relation> relationsOf(Database& database,
                                  const std::shared_ptr<const TableDefinition>& table,
                                  LogicalIndex::Side side) {
    std::vector<Relation> found;
    for (const LogicalIndex& index : table->indexes) {
        if (index.side == side && index.otherTable != 0) {
            found.push_back(findOtherSide(database, table, index));
        }
    }
    return found;
}

std::optional<Bytes> keyInOther(const Relation& relation, const ValueOf& valueOf) {
    const auto& mine = relation.tree().columns;
    const IndexTree& other = relation.otherTree();
    const auto key = encodeKey(*relation.otherTable, other, [&](const Column& column) {
        const auto at =
            std::find_if(other.columns.begin(), other.columns.end(),
                         [&](const KeyColumn& each) { return each.column == column.number; });
        const auto i = static_cast<std::size_t>(at - other.columns.begin());
        const Column& here = *relation.table->byNumber(mine[i].column);
        if (here.type != column.type) throwDamage(relation.table->page, 0, rule::kRelation);
        return valueOf(here);
    });
    if (!key || key->anyNull) return std::nullopt;
    return key->bytes;
}

}  // namespace huebrush::jet
