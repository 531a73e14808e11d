// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Catalogue.h"

#include <algorithm>

#include "base/Text.h"
#include "jet/database/Schema.h"

namespace huebrush::jet {

namespace {

using base::text;

constexpr const char* kAutoIncrement = "AutoIncrement";
constexpr const char* kAllowZeroLength = "Jet OLEDB:Allow Zero Length";
constexpr std::string_view kProvider = "Provider=Microsoft.Jet.OLEDB.4.0;";
constexpr std::string_view kDataSource = "Data Source=";

void requireProperty(const std::string& name) {
    if (name == kAutoIncrement || name == kAllowZeroLength) return;
    throw Error(ErrorNumber::kNoSuchColumn, text("Vlastnost „", name, "“ neexistuje."),
                text("there is no property ", name));
}

[[noreturn]] void throwNotStored() {
    throw Error(ErrorNumber::kClosed, "Katalog nemá otevřenou databázi.",
                "the catalogue has no open database");
}

ColumnType typeOf(catalogue::DataType type) {
    switch (type) {
        case catalogue::DataType::adInteger:
            return ColumnType::longInteger;
        case catalogue::DataType::adVarWChar:
            return ColumnType::text;
        case catalogue::DataType::adLongVarBinary:
            return ColumnType::ole;
    }
    throw Error(ErrorNumber::kNotSupported, "Druh sloupce není podporován.",
                "columns of this type are not supported");
}

}  // namespace

std::string dataSource(const std::string& connection) {
    const std::size_t at = connection.find(kDataSource);
    if (connection.rfind(kProvider, 0) != 0 || at == std::string::npos ||
        at + kDataSource.size() == connection.size()) {
        throw Error(ErrorNumber::kNotSupported, text("Spojení „", connection, "“ nelze otevřít."),
                    text("the connection ", connection, " cannot be opened"));
    }
    return connection.substr(at + kDataSource.size());
}

namespace catalogue {

void Column::SetProperty(const std::string& name, bool value) {
    requireProperty(name);
    if (ParentCatalog == nullptr) base::throwObjectNotSet();
    properties_[name] = value;
}

bool Column::Property(const std::string& name) const {
    const auto found = properties_.find(name);
    return found != properties_.end() && found->second;
}

void Table::AppendColumn(const Column& column) {
    const auto same = [&](const Column& each) { return each.Name == column.Name; };
    if (std::any_of(columns_.begin(), columns_.end(), same)) {
        throw Error(ErrorNumber::kAlreadyExists,
                    text("Sloupec „", column.Name, "“ už v tabulce je."),
                    text("the table has a column ", column.Name, " already"));
    }
    columns_.push_back(column);
}

void Table::AppendColumn(const std::string& name, DataType type, std::size_t size) {
    Column column;
    column.Name = name;
    column.Type = type;
    column.DefinedSize = size;
    AppendColumn(column);
}

Column& Table::ColumnOf(const std::string& name) {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const Column& each) { return each.Name == name; });
    if (found == columns_.end()) {
        throw Error(ErrorNumber::kNoSuchColumn,
                    text("Tabulka „", Name, "“ nemá sloupec „", name, "“."),
                    text("the table ", Name, " has no column ", name));
    }
    return *found;
}

void Table::AppendIndex(const Index& index) {
    indexes_.push_back(index);
}

void Table::AppendKey(const std::string& name, KeyType type, const std::string& column,
                      const std::string& relatedTable, const std::string& relatedColumn) {
    if (!database_) throwNotStored();
    if (type != KeyType::adKeyForeign) {
        throw Error(ErrorNumber::kNotSupported, "Druh klíče není podporován.",
                    "keys of this type are not supported");
    }
    createRelation(*database_, {name, Name, column, relatedTable, relatedColumn});
}

void Catalog::Create(const std::string& connection) {
    const std::string name = dataSource(connection);
    createDatabase(*files_, name);
    database_ = Database::open(*files_, name);
}

Database& Catalog::open() const {
    if (!database_) throwNotStored();
    return *database_;
}

void Catalog::AppendTable(Table& table) {
    NewTable made;
    made.name = table.Name;
    for (const Column& each : table.columns_) {
        made.columns.push_back({each.Name, typeOf(each.Type), each.DefinedSize,
                                (each.Attributes & kAdColNullable) != 0,
                                each.Property(kAutoIncrement)});
    }
    for (const Index& each : table.indexes_) {
        made.indexes.push_back({each.Name, each.Columns, each.PrimaryKey, each.Unique});
    }
    createTable(open(), made);
    table.database_ = database_;
}

void Catalog::SetStoredProperty(const std::string& table, const std::string& column,
                                const std::string& name, bool value) {
    if (name != kAllowZeroLength) {
        throw Error(ErrorNumber::kNotSupported,
                    text("Vlastnost „", name, "“ uloženého sloupce nelze změnit."),
                    text("the property ", name, " of a stored column cannot be changed"));
    }
    setColumnProperty(open(), table, column, "AllowZeroLength", value);
}

}  // namespace catalogue
}  // namespace huebrush::jet
