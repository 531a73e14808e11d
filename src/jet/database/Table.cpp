// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Table.h"

#include <algorithm>
#include <limits>

#include "base/Text.h"
#include "jet/database/Relation.h"
#include "jet/table/Index.h"
#include "jet/table/LongValue.h"
#include "jet/table/Overflow.h"

namespace huebrush::jet {

namespace {

using base::text;

/// Up to this many characters of a memo are stored with one byte each.
constexpr std::size_t kMostCompressedMemo = 1024;
/// Where the number of distinct keys of a tree is in its definition.
constexpr std::size_t kDistinctKeys = 4;

std::string columnNames(const TableDefinition& table, const IndexTree& tree) {
    std::string names;
    for (const KeyColumn& key : tree.columns) {
        if (!names.empty()) names += ", ";
        names += table.byNumber(key.column)->name;
    }
    return names;
}

[[noreturn]] void throwDuplicate(const TableDefinition& table, const IndexTree& tree) {
    throw Error(
        ErrorNumber::kDuplicateKey,
        text("Řádek nelze zapsat: v tabulce „", table.name,
             "“ by se opakovala hodnota jedinečného klíče „", columnNames(table, tree), "“."),
        text("a row of the table ", table.name, " would repeat a value of the unique key ",
             columnNames(table, tree)));
}

[[noreturn]] void throwNull(const TableDefinition& table, const std::string& column) {
    throw Error(ErrorNumber::kNullNotAllowed,
                text("Sloupec „", column, "“ tabulky „", table.name, "“ musí mít hodnotu."),
                text("the column ", column, " of the table ", table.name, " must have a value"));
}

[[noreturn]] void throwGone(const TableDefinition& table) {
    throw Error(
        ErrorNumber::kRowChanged,
        text("Řádek tabulky „", table.name, "“ mezitím odstranil jiný program."),
        text("another program has removed a row of the table ", table.name, " in the meantime"));
}

bool sameKey(const Key& a, const Key& b) {
    return compareBytes(a.bytes, b.bytes) == 0;
}

bool inTree(const IndexTree& tree, const Key& key) {
    return !(tree.ignoreNulls && key.allNull);
}

}  // namespace

Table::Table(Database& database, const std::string& name)
    : Table(database, database.definition(name)) {}

Table::Table(Database& database, std::shared_ptr<const TableDefinition> table)
    : database_(&database), table_(std::move(table)) {}

const Column& Table::column(const std::string& name) const {
    const Column* column = table_->find(name);
    if (column == nullptr) {
        throw Error(ErrorNumber::kNoSuchColumn,
                    text("Tabulka „", table_->name, "“ nemá sloupec „", name, "“."),
                    text("the table ", table_->name, " has no column ", name));
    }
    return *column;
}

void Table::scan(const VisitRow& visit) const {
    scanTable(database_->pages(), *table_, visit);
}

void Table::visitRows(const Column& column, const Value& value,
                      const std::function<bool(RowId id)>& visit) const {
    for (const IndexTree& tree : table_->trees) {
        if (tree.columns.size() != 1 || tree.columns[0].column != column.number) continue;
        if (tree.ignoreNulls || !keysKnown(*table_, tree)) continue;
        const auto key = encodeKey(*table_, tree, [&](const Column&) { return value; });
        if (!key) continue;
        return Index(database_->pages(), tree, table_->page).visitRows(key->bytes, visit);
    }
    scan([&](RowId id, const Row& row) { return this->value(row, column) != value || visit(id); });
}

std::vector<RowId> Table::find(const Column& column, const Value& value) const {
    std::vector<RowId> found;
    visitRows(column, value, [&](RowId id) {
        found.push_back(id);
        return true;
    });
    return found;
}

ValueOf Table::valuesOf(const Fields& fields) const {
    return [&fields](const Column& column) { return fieldValue(column, fields.at(column)); };
}

Key Table::keyOf(const IndexTree& tree, const Fields& fields) const {
    auto key = encodeKey(*table_, tree, valuesOf(fields));
    if (!key) {
        throw Error(ErrorNumber::kNotSupported,
                    text("Řádek nelze zapsat: hodnota sloupce „", columnNames(*table_, tree),
                         "“ obsahuje znak, jehož pořadí v indexu není známo."),
                    text("the value of the column ", columnNames(*table_, tree),
                         " contains a character whose order in the index is not known"));
    }
    return *key;
}

RowPages Table::rowPages() {
    return {database_->pages(), database_->space(), table_->ownedMap, table_->freeMap,
            table_->page};
}

RowPages Table::longValuePages(const Column& column) {
    if (column.ownedMap.page == 0) {
        throw Error(ErrorNumber::kNotSupported,
                    text("Do sloupce „", column.name, "“ nelze zapisovat."),
                    text("the column ", column.name, " cannot be written to"));
    }
    return {database_->pages(), database_->space(), column.ownedMap, column.freeMap,
            kLongValueOwner};
}

/// A table that cannot be kept in order is not written to.
void Table::requireWritable() const {
    const auto refuse = [&](const std::string& reason, const std::string& english) {
        throw Error(ErrorNumber::kReadOnly,
                    text("Do tabulky „", table_->name, "“ nelze zapisovat: ", reason),
                    text("the table ", table_->name, " cannot be written to: ", english));
    };
    for (const IndexTree& tree : table_->trees) {
        if (!keysKnown(*table_, tree)) {
            const std::string names = columnNames(*table_, tree);
            refuse(text("pořadí indexu „", names, "“ není známo."),
                   text("the order of its index on ", names, " is not known"));
        }
    }
    if (table_->hasValidation) refuse("má ověřovací pravidla.", "it has validation rules");
    for (const LogicalIndex& index : table_->indexes) {
        const bool cascades = index.side == LogicalIndex::Side::parent &&
                              (index.cascadeDelete != 0 || index.cascadeUpdate != 0);
        if (cascades) {
            refuse("její vazba mění řádky jiné tabulky.",
                   "a relation of it changes rows of another table");
        }
    }
}

void Table::setField(Fields& fields, const Column& column, const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text != nullptr && text->empty() && column.isText() && !column.allowZeroLength) {
        throw Error(ErrorNumber::kEmptyNotAllowed,
                    base::text("Sloupec „", column.name, "“ tabulky „", table_->name,
                               "“ nesmí být prázdný text."),
                    base::text("the column ", column.name, " of the table ", table_->name,
                               " must not be empty"));
    }
    if (!column.isLongValue()) {
        fields.at(column) = encodeField(column, value);
        return;
    }
    freeLongValue(column, fields);
    fields.at(column).reset();
    if (isNull(value)) return;
    Bytes bytes;
    if (text != nullptr && column.type == ColumnType::memo) {
        bytes = encodeText(*text, column.compressed, kMostCompressedMemo);
    } else if (const auto* given = std::get_if<Bytes>(&value);
               given != nullptr && column.type == ColumnType::ole) {
        bytes = *given;
    } else {
        throw Error(ErrorNumber::kWrongType,
                    base::text("Sloupec „", column.name, "“ nemůže mít hodnotu tohoto druhu."),
                    base::text("the column ", column.name, " cannot have a value of this type"));
    }
    RowPages pages = longValuePages(column);
    fields.at(column) = long_value::store(pages, bytes);
}

void Table::freeLongValue(const Column& column, const Fields& fields) {
    const auto& field = fields.at(column);
    if (!field) return;
    RowPages pages = longValuePages(column);
    long_value::release(database_->pages(), pages, Reader(*field, table_->page));
}

void Table::giveAutonumbers(Fields& fields) {
    for (const Column& column : table_->columns) {
        if (!column.autonumber || column.type != ColumnType::longInteger) continue;
        const auto last =
            static_cast<std::int32_t>(readLastAutonumber(database_->pages(), table_->page));
        std::int32_t number = 0;
        if (fields.at(column)) {
            number = std::get<std::int32_t>(fieldValue(column, fields.at(column)));
        } else {
            if (last == std::numeric_limits<std::int32_t>::max()) throwOverflow();
            number = last + 1;
            fields.at(column) = encodeField(column, number);
        }
        if (number > last) {
            writeLastAutonumber(database_->pages(), table_->page,
                                static_cast<std::uint32_t>(number));
        }
    }
}

std::int32_t Table::lastAutonumber() const {
    return static_cast<std::int32_t>(readLastAutonumber(database_->pages(), table_->page));
}

void Table::checkRequired(const Fields& fields) const {
    for (const Column& column : table_->columns) {
        if (column.required && !fields.at(column) && column.type != ColumnType::boolean) {
            throwNull(*table_, column.name);
        }
    }
    for (const IndexTree& tree : table_->trees) {
        if (!tree.required) continue;
        for (const KeyColumn& key : tree.columns) {
            const Column& column = *table_->byNumber(key.column);
            if (!fields.at(column) && column.type != ColumnType::boolean) {
                throwNull(*table_, column.name);
            }
        }
    }
}

/// Each row that refers to another one refers to an existing one.
void Table::checkParents(const Fields& fields, const Fields* before) const {
    for (const Relation& each : relationsOf(*database_, table_, LogicalIndex::Side::child)) {
        const auto key = keyInOther(each, valuesOf(fields));
        if (!key) continue;
        if (before != nullptr && keyInOther(each, valuesOf(*before)) == key) continue;
        const Index parents(database_->pages(), each.otherTree(), each.otherTable->page);
        if (!parents.contains(*key)) {
            throw Error(
                ErrorNumber::kNoParent,
                text("Řádek nelze zapsat: vazba „", each.here->name,
                     "“ vyžaduje odpovídající řádek v tabulce „", each.otherTable->name, "“."),
                text("the relation ", each.here->name, " requires a matching row in the table ",
                     each.otherTable->name));
        }
    }
}

/// A row to which others refer keeps the value by which they do.
void Table::checkChildren(const Fields& before, const Fields* after) const {
    for (const Relation& each : relationsOf(*database_, table_, LogicalIndex::Side::parent)) {
        const auto key = keyInOther(each, valuesOf(before));
        if (!key || (after != nullptr && keyInOther(each, valuesOf(*after)) == key)) continue;
        const Index children(database_->pages(), each.otherTree(), each.otherTable->page);
        if (children.contains(*key)) {
            throw Error(ErrorNumber::kHasChildren,
                        text("Řádek nelze odstranit ani změnit: podle vazby „", each.there->name,
                             "“ na něj odkazují řádky tabulky „", each.otherTable->name, "“."),
                        text("by the relation ", each.there->name, ", rows of the table ",
                             each.otherTable->name, " refer to the row"));
        }
    }
}

void Table::addToIndexes(RowId id, const Fields& fields, const Fields* before) {
    Pages& pages = database_->pages();
    for (std::size_t i = 0; i < table_->trees.size(); ++i) {
        const IndexTree& tree = table_->trees[i];
        const Key key = keyOf(tree, fields);
        if (!inTree(tree, key)) continue;
        if (before != nullptr && sameKey(key, keyOf(tree, *before))) continue;
        Index index(pages, tree, table_->page, &database_->space());
        const bool mayRepeat = !tree.unique || key.anyNull;
        const bool repeats = index.insert(key.bytes, id, mayRepeat);
        if (repeats && !mayRepeat) throwDuplicate(*table_, tree);
        if (repeats) continue;
        const std::size_t at =
            DefinitionLayout::kHeader + DefinitionLayout::kTreeCounters * i + kDistinctKeys;
        const std::uint32_t distinct = Reader(*pages.read(table_->page), table_->page).u32(at);
        Writer(pages.change(table_->page)).u32(at, distinct + 1);
    }
}

void Table::removeFromIndexes(RowId id, const Fields& before, const Fields* after) {
    for (const IndexTree& tree : table_->trees) {
        const Key key = keyOf(tree, before);
        if (!inTree(tree, key)) continue;
        if (after != nullptr && sameKey(key, keyOf(tree, *after))) continue;
        Index(database_->pages(), tree, table_->page, &database_->space()).remove(key.bytes, id);
    }
}

void Table::changeRowCount(std::int32_t by) {
    const std::uint32_t count = readRowCount(database_->pages(), table_->page);
    writeRowCount(database_->pages(), table_->page, count + static_cast<std::uint32_t>(by));
}

RowId Table::insert(const Values& values) {
    requireWritable();
    Fields fields(*table_);
    // Long values come last, so that most refusals come before any of them is stored.
    for (const auto& [column, value] : values) {
        if (!column->isLongValue()) setField(fields, *column, value);
    }
    giveAutonumbers(fields);
    for (const auto& [column, value] : values) {
        if (column->isLongValue()) setField(fields, *column, value);
    }
    checkRequired(fields);
    checkParents(fields, nullptr);
    const Bytes row = encodeRow(*table_, fields);
    RowPages pages = rowPages();
    const RowId id = pages.add(row);
    addToIndexes(id, fields, nullptr);
    changeRowCount(1);
    return id;
}

void Table::update(RowId id, const Values& values) {
    requireWritable();
    const auto row = this->row(id);
    if (!row) throwGone(*table_);
    const Fields before(*table_, *row);
    Fields after = before;
    for (const auto& [column, value] : values) {
        if (!column->isLongValue()) setField(after, *column, value);
    }
    giveAutonumbers(after);
    for (const auto& [column, value] : values) {
        if (column->isLongValue()) setField(after, *column, value);
    }
    checkRequired(after);
    checkParents(after, &before);
    checkChildren(before, &after);
    removeFromIndexes(id, before, &after);
    writeRow(id, encodeRow(*table_, after));
    addToIndexes(id, after, &before);
}

/// A row that does not fit where it is moves to another page; its slot then points there.
void Table::writeRow(RowId id, const Bytes& row) {
    RowPages pages = rowPages();
    const RowId place = *placeOfRow(database_->pages(), *table_, id);
    const bool moved = place != id;
    if (pages.replace(place, row, moved ? SlotFlag::kTarget : SlotFlag::kNone)) return;
    if (moved) {
        pages.remove(place);
        if (pages.replace(id, row, SlotFlag::kNone)) return;
    }
    const RowId target = pages.add(row, SlotFlag::kTarget);
    Bytes way;
    append32(way, target.pointer());
    if (!pages.replace(id, way, SlotFlag::kMoved)) {
        throw Error(ErrorNumber::kNotSupported,
                    text("Řádek tabulky „", table_->name, "“ nelze prodloužit."),
                    text("a row of the table ", table_->name, " cannot be made longer"));
    }
}

void Table::remove(RowId id) {
    requireWritable();
    const auto row = this->row(id);
    if (!row) throwGone(*table_);
    const Fields before(*table_, *row);
    checkChildren(before, nullptr);
    removeFromIndexes(id, before, nullptr);
    for (const Column& column : table_->columns) {
        if (column.isLongValue()) freeLongValue(column, before);
    }
    RowPages pages = rowPages();
    const RowId place = *placeOfRow(database_->pages(), *table_, id);
    if (place != id) pages.remove(place);
    pages.remove(id);
    changeRowCount(-1);
}

}  // namespace huebrush::jet
