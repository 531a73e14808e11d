// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Event.h"
#include "jet/database/Table.h"
#include "jet/records/Connection.h"
#include "jet/records/Query.h"

namespace huebrush::jet {

enum class EditModeEnum : std::int32_t {
    adEditNone = 0,
    adEditInProgress = 1,
    adEditAdd = 2,
    adEditDelete = 4,
};

/// The records that a query finds, one of them current, with the names that the platform's data
/// objects have.
///
/// The cursor is static: the set is gathered when it is opened, and a record added later is its
/// last one. (The set of all elements is gathered when it is first looked at, because saving only
/// adds to it; long values are read from the file when they are asked for.)
///
/// Locking is optimistic: values given to fields wait until Update writes them, and only then is
/// the file locked. Records are found again by their ID, so another program may have written the
/// file meanwhile; error 3197 when it has changed or removed this record. An Update that fails
/// leaves everything as it was, and pending values stay pending.
///
/// A pending new record is the current one. Moving away from a record updates it first. A
/// deleted record is current until the next move, but has no fields any more. Where there is no
/// current record and ought to be one, the error is 3021.
class Recordset {
 public:
    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// Gathers what a query finds (see `parseQuery`); the first record is current. An error when
    /// the database has no such table or column.
    void Open(const std::string& query, const Connection& connection);
    /// Pending values are discarded, here and in Requery.
    void Close();
    /// Gathers again, with what has been written to the file since.
    void Requery();
    ObjectStateEnum State() const;
    EditModeEnum EditMode() const;

    /// After the last record; and before the first, which is true only of an empty set.
    bool Eof();
    bool Bof();
    std::size_t RecordCount();

    void MoveFirst();
    void MoveNext();
    /// Moves on from the current record to the one with an ID (see `parseFind`), or past the
    /// last.
    void Find(const std::string& criteria);

    /// What a column of the current record holds, or will hold after Update.
    Value Field(const std::string& column);
    /// Gives a column a value, which is pending until Update. A long column's value is rounded at
    /// once (see `toLong`); Update enforces the table's rules. Only Update assigns an autonumber.
    void SetField(const std::string& column, const Value& value);

    /// Begins a new record, without values.
    void AddNew();
    void Update();
    /// Makes the record that was current before a new one current again.
    void CancelUpdate();
    void UpdateBatch() { Update(); }
    void CancelBatch() { CancelUpdate(); }
    /// Removes the current record; a pending new one is just discarded.
    void Delete();

    /// Raised before SetField changes a column, with its name.
    base::Event<const std::string&> WillChangeField;

 private:
    /// By the columns of the table; without long values.
    using Record = std::vector<Value>;
    /// What a query has found.
    struct Set {
        std::shared_ptr<const TableDefinition> table;
        std::size_t id = 0;  ///< the index of the column ID
        bool gathered = false;
        std::vector<Record> records;  ///< when not gathered: those that were added
    };

    static Set load(Database& database, const Query& query);

    void requireOpen() const;
    void requireCurrent();
    void show(Set set);
    void forgetWaiting();
    void gather();
    bool leaveDeleted();
    RowId rowOf(const Table& table, const Record& record) const;
    Table::Values waitingFor(const Table& table) const;
    void insertRecord();
    void updateRecord();

    std::shared_ptr<Database> database_;
    Query query_;
    Set set_;
    std::size_t position_ = 0;  ///< while a new record is pending: that of the record before it
    bool adding_ = false;
    bool deleted_ = false;                  ///< the current record
    std::map<std::size_t, Value> waiting_;  ///< by the index of the column
};

}  // namespace huebrush::jet
