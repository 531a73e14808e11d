// SPDX-License-Identifier: MPL-2.0

#include "jet/records/Recordset.h"

#include <algorithm>

#include "base/Text.h"

namespace huebrush::jet {

namespace {

using base::text;

[[noreturn]] void throwNoRecord() {
    throw Error(ErrorNumber::kNoCurrentRecord, "Žádný záznam není aktuální.",
                "no record is current");
}

[[noreturn]] void throwRecordChanged(const std::string& table) {
    throw Error(ErrorNumber::kRowChanged,
                text("Záznam tabulky „", table, "“ mezitím změnil nebo odstranil jiný program."),
                text("another program has changed or removed a record of the table ", table,
                     " in the meantime"));
}

using Record = std::vector<Value>;

std::size_t indexOf(const Table& table, const std::string& column) {
    return static_cast<std::size_t>(&table.column(column) - table.definition().columns.data());
}

/// The columns that a set shows, in a table that may have been redefined since.
std::vector<const Column*> columnsIn(const Table& table, const TableDefinition& shown) {
    std::vector<const Column*> columns;
    columns.reserve(shown.columns.size());
    for (const Column& each : shown.columns) columns.push_back(&table.column(each.name));
    return columns;
}

Record readRecord(const Table& table, const std::vector<const Column*>& columns, RowId where) {
    const auto row = table.row(where);
    if (!row) throwDamage(where.page, 0, rule::kRowExists);
    Record record;
    record.reserve(columns.size());
    for (const Column* each : columns) {
        record.push_back(each->isLongValue() ? Value() : table.value(*row, *each));
    }
    return record;
}

/// Equal ones stay in the table's order.
void sortRecords(std::vector<Record>& records, const Column& column, std::size_t at) {
    std::vector<std::pair<Bytes, Record>> keyed;
    keyed.reserve(records.size());
    for (Record& each : records) {
        Bytes key = sortKey(column, each[at]);
        keyed.emplace_back(std::move(key), std::move(each));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(keyed.begin(), keyed.end(), records.begin(),
                   [](auto& each) { return std::move(each.second); });
}

std::vector<RowId> rowsOf(const Table& table, const Query& query) {
    if (query.group) return table.find(table.column("GroupID"), *query.group);
    std::vector<RowId> rows;
    table.scan([&](RowId row, const Row&) {
        rows.push_back(row);
        return true;
    });
    return rows;
}

std::vector<Record> recordsOf(const Table& table, const Query& query) {
    const auto columns = columnsIn(table, table.definition());
    std::vector<Record> records;
    for (const RowId& row : rowsOf(table, query)) {
        records.push_back(readRecord(table, columns, row));
    }
    if (!query.order.empty()) {
        sortRecords(records, table.column(query.order), indexOf(table, query.order));
    }
    return records;
}

}  // namespace

void Recordset::Open(const std::string& query, const Connection& connection) {
    if (database_) {
        throw Error(ErrorNumber::kAlreadyOpen, "Sada záznamů už je otevřená.",
                    "the record set is open already");
    }
    const std::shared_ptr<Database>& database = connection.database();
    query_ = parseQuery(query);
    database->refresh();
    show(load(*database, query_));
    database_ = database;
}

void Recordset::Close() {
    requireOpen();
    show({});
    database_.reset();
}

void Recordset::Requery() {
    requireOpen();
    database_->refresh();
    show(load(*database_, query_));
}

ObjectStateEnum Recordset::State() const {
    return database_ ? ObjectStateEnum::adStateOpen : ObjectStateEnum::adStateClosed;
}

EditModeEnum Recordset::EditMode() const {
    requireOpen();
    if (adding_) return EditModeEnum::adEditAdd;
    if (deleted_) return EditModeEnum::adEditDelete;
    return waiting_.empty() ? EditModeEnum::adEditNone : EditModeEnum::adEditInProgress;
}

bool Recordset::Eof() {
    requireOpen();
    if (adding_) return false;
    if (set_.records.empty()) gather();
    return position_ >= set_.records.size();
}

bool Recordset::Bof() {
    return Eof() && set_.records.empty();
}

std::size_t Recordset::RecordCount() {
    requireOpen();
    gather();
    return set_.records.size() - (deleted_ ? 1 : 0);
}

void Recordset::MoveFirst() {
    Update();
    gather();
    leaveDeleted();
    if (set_.records.empty()) throwNoRecord();
    position_ = 0;
}

void Recordset::MoveNext() {
    Update();
    gather();
    if (leaveDeleted()) return;
    if (Eof()) throwNoRecord();
    ++position_;
}

void Recordset::Find(const std::string& criteria) {
    const Value id = parseFind(criteria);
    Update();
    gather();
    leaveDeleted();
    if (Eof()) throwNoRecord();
    while (!Eof() && set_.records[position_][set_.id] != id) ++position_;
}

Value Recordset::Field(const std::string& column) {
    requireCurrent();
    const std::size_t at = indexOf(Table(*database_, set_.table), column);
    if (const auto waits = waiting_.find(at); waits != waiting_.end()) return waits->second;
    if (adding_) return {};
    const Record& record = set_.records[position_];
    if (!set_.table->columns[at].isLongValue()) return record[at];
    const Table table(*database_, query_.table);
    return table.value(*table.row(rowOf(table, record)), table.column(column));
}

void Recordset::SetField(const std::string& column, const Value& value) {
    requireCurrent();
    WillChangeField(column);
    // The handlers may have moved on.
    requireCurrent();
    const std::size_t at = indexOf(Table(*database_, set_.table), column);
    const Column& changed = set_.table->columns[at];
    if (changed.autonumber) {
        throw Error(ErrorNumber::kReadOnly,
                    text("Hodnotu sloupce „", column, "“ přiděluje databáze."),
                    text("the database itself assigns the values of the column ", column));
    }
    const bool whole = changed.type == ColumnType::longInteger && !isNull(value);
    waiting_[at] = whole ? Value(toLong(value)) : value;
}

void Recordset::AddNew() {
    Update();
    leaveDeleted();
    adding_ = true;
}

void Recordset::Update() {
    requireOpen();
    if (adding_) {
        insertRecord();
    } else if (!waiting_.empty()) {
        updateRecord();
    }
    forgetWaiting();
}

void Recordset::CancelUpdate() {
    requireOpen();
    forgetWaiting();
}

void Recordset::Delete() {
    requireCurrent();
    if (!adding_) {
        database_->change([&] {
            Table table(*database_, query_.table);
            table.remove(rowOf(table, set_.records[position_]));
        });
        deleted_ = true;
    }
    forgetWaiting();
}

void Recordset::requireOpen() const {
    if (!database_) {
        throw Error(ErrorNumber::kClosed, "Sada záznamů není otevřená.",
                    "the record set is not open");
    }
}

void Recordset::requireCurrent() {
    if (Eof() || deleted_) throwNoRecord();
}

void Recordset::show(Set set) {
    set_ = std::move(set);
    position_ = 0;
    deleted_ = false;
    forgetWaiting();
}

void Recordset::forgetWaiting() {
    adding_ = false;
    waiting_.clear();
}

Recordset::Set Recordset::load(Database& database, const Query& query) {
    Set set;
    set.table = database.definition(query.table);
    const Table table(database, set.table);
    set.id = indexOf(table, "ID");
    if (set.table->columns[set.id].type != ColumnType::longInteger) {
        throw Error(ErrorNumber::kWrongType,
                    text("Sloupec „ID“ tabulky „", query.table, "“ není číslo."),
                    text("the column ID of the table ", query.table, " is not a number"));
    }
    set.gathered = !query.order.empty();
    if (set.gathered) set.records = recordsOf(table, query);
    return set;
}

/// Records added before the set was first looked at stay at its end.
void Recordset::gather() {
    if (set_.gathered) return;
    std::vector<Record> found = recordsOf(Table(*database_, query_.table), query_);
    const auto isAdded = [&](const Record& record) {
        return std::any_of(set_.records.begin(), set_.records.end(),
                           [&](const Record& added) { return added[set_.id] == record[set_.id]; });
    };
    std::erase_if(found, isAdded);
    if (!set_.records.empty()) position_ += found.size();
    std::move(set_.records.begin(), set_.records.end(), std::back_inserter(found));
    set_.records = std::move(found);
    set_.gathered = true;
}

/// Whether the current record was a deleted one. The next one is current then.
bool Recordset::leaveDeleted() {
    if (!deleted_) return false;
    set_.records.erase(set_.records.begin() + static_cast<std::ptrdiff_t>(position_));
    deleted_ = false;
    return true;
}

/// A record that is missing cannot be changed.
RowId Recordset::rowOf(const Table& table, const Record& record) const {
    const std::vector<RowId> rows = table.find(table.column("ID"), record[set_.id]);
    if (rows.size() != 1) throwRecordChanged(query_.table);
    return rows[0];
}

Table::Values Recordset::waitingFor(const Table& table) const {
    Table::Values values;
    for (const auto& [at, value] : waiting_) {
        values.emplace_back(&table.column(set_.table->columns[at].name), value);
    }
    return values;
}

void Recordset::insertRecord() {
    Record record;
    database_->change([&] {
        Table table(*database_, query_.table);
        const RowId row = table.insert(waitingFor(table));
        record = readRecord(table, columnsIn(table, *set_.table), row);
    });
    set_.records.push_back(std::move(record));
    position_ = set_.records.size() - 1;
}

void Recordset::updateRecord() {
    Record& record = set_.records[position_];
    Record changed;
    database_->change([&] {
        Table table(*database_, query_.table);
        const auto columns = columnsIn(table, *set_.table);
        const RowId row = rowOf(table, record);
        if (readRecord(table, columns, row) != record) throwRecordChanged(query_.table);
        table.update(row, waitingFor(table));
        changed = readRecord(table, columns, row);
    });
    record = std::move(changed);
}

}  // namespace huebrush::jet
