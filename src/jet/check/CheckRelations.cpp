// SPDX-License-Identifier: MPL-2.0

// Relations: the same in both tables and in the catalogue, and satisfied by the rows.

#include <algorithm>

#include "jet/check/Check.h"
#include "jet/database/Relation.h"
#include "jet/table/Index.h"

namespace huebrush::jet {

namespace {

std::string textIn(Pages& pages, const Row& row, const TableDefinition& table, const char* name) {
    const Column* column = table.find(name);
    if (column == nullptr) return {};
    const Value value = valueOf(pages, row, *column);
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? std::string() : *text;
}

void checkChildren(CheckContext& context, const Relation& relation) {
    if (!keysKnown(*relation.otherTable, relation.otherTree())) return;
    Pages& pages = context.database.pages();
    const Index parents(pages, relation.otherTree(), relation.otherTable->page);
    scanTable(pages, *relation.table, [&](RowId where, const Row& row) {
        const auto key =
            keyInOther(relation, [&](const Column& column) { return valueOf(pages, row, column); });
        if (key && !parents.contains(*key)) {
            context.violate(where.page, context.offsetOf(where), rule::kParentExists,
                            relation.otherTable->name);
        }
        return true;
    });
}

/// Whether the table of relations and the catalogue name the relation.
void checkListed(CheckContext& context, const Relation& relation) {
    Database& database = context.database;
    const auto& objects = database.objects();
    const bool object = std::any_of(objects.begin(), objects.end(), [&](const auto& each) {
        return each.type == StoredObjectType::kRelation && each.name == relation.here->name;
    });
    bool listed = false;
    const auto table = database.definition(database.header().relationships);
    scanTable(database.pages(), *table, [&](RowId, const Row& row) {
        listed = listed ||
                 (textIn(database.pages(), row, *table, "szRelationship") == relation.here->name &&
                  textIn(database.pages(), row, *table, "szObject") == relation.table->name &&
                  textIn(database.pages(), row, *table, "szReferencedObject") ==
                      relation.otherTable->name);
        return !listed;
    });
    if (object && listed) return;
    context.violate(relation.table->page, 0, rule::kRelation,
                    relation.here->name + " is not listed in the catalogue");
}

}  // namespace

void checkRelations(CheckContext& context) {
    Database& database = context.database;
    for (const StoredObject& object : database.objects()) {
        if (!object.isTable()) continue;
        context.object = "table " + object.name;
        context.attempt([&] {
            const auto table = database.definition(static_cast<PageNumber>(object.id));
            relationsOf(database, table, LogicalIndex::Side::parent);
            for (const Relation& each : relationsOf(database, table, LogicalIndex::Side::child)) {
                checkChildren(context, each);
                checkListed(context, each);
            }
        });
    }
}

}  // namespace huebrush::jet
