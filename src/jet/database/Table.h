// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "jet/database/Database.h"
#include "jet/page/RowPages.h"
#include "jet/table/Key.h"
#include "jet/table/TableScan.h"

namespace huebrush::jet {

/// The rows of a table, to read and to change. A change keeps all that depends on a row: its long
/// values, every index, the relations, the counters. It is refused with an Error that says what was
/// refused and why.
///
/// REQUIRES for insert, update and remove: inside Database::change, which undoes what a refusal
/// has left half done.
///
/// A table is a short-lived view: it must not be used once the database was refreshed or a change
/// was undone.
class Table {
 public:
    Table(Database& database, const std::string& name);
    Table(Database& database, std::shared_ptr<const TableDefinition> table);

    const TableDefinition& definition() const { return *table_; }
    /// A column by name; an error when there is none.
    const Column& column(const std::string& name) const;

    void scan(const VisitRow& visit) const;
    std::optional<Row> row(RowId id) const { return rowAt(database_->pages(), *table_, id); }
    Value value(const Row& row, const Column& column) const {
        return valueOf(database_->pages(), row, column);
    }
    /// The rows that have a value in a column; by an index if there is one. `visitRows` calls
    /// `visit` with each of them until it returns false; none may be changed meanwhile.
    std::vector<RowId> find(const Column& column, const Value& value) const;
    void visitRows(const Column& column, const Value& value,
                   const std::function<bool(RowId id)>& visit) const;

    /// Values of columns that a row gets. Columns that are not named are null, or keep what they
    /// have.
    using Values = std::vector<std::pair<const Column*, Value>>;
    RowId insert(const Values& values);
    void update(RowId id, const Values& values);
    void remove(RowId id);

    /// The number that the autonumber column got by the last insert.
    std::int32_t lastAutonumber() const;

 private:
    ValueOf valuesOf(const Fields& fields) const;
    Key keyOf(const IndexTree& tree, const Fields& fields) const;
    RowPages rowPages();
    RowPages longValuePages(const Column& column);
    void requireWritable() const;
    void setField(Fields& fields, const Column& column, const Value& value);
    void giveAutonumbers(Fields& fields);
    void checkRequired(const Fields& fields) const;
    void checkParents(const Fields& fields, const Fields* before) const;
    void checkChildren(const Fields& before, const Fields* after) const;
    void addToIndexes(RowId id, const Fields& fields, const Fields* before);
    void removeFromIndexes(RowId id, const Fields& before, const Fields* after);
    void writeRow(RowId id, const Bytes& row);
    void changeRowCount(std::int32_t by);
    void freeLongValue(const Column& column, const Fields& fields);

    Database* database_;
    std::shared_ptr<const TableDefinition> table_;
};

}  // namespace huebrush::jet
