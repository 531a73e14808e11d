// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <vector>

#include "jet/database/Database.h"

namespace huebrush::jet {

/// Creates databases and what they consist of, as the Jet 4 provider does.

struct NewColumn {
    std::string name;
    ColumnType type = ColumnType::longInteger;
    std::size_t size = 0;  ///< of text, in characters; of binary, in bytes
    bool nullable = false;
    bool autonumber = false;
};

struct NewIndex {
    std::string name;
    std::vector<std::string> columns;
    bool primaryKey = false;
    bool unique = false;
};

struct NewTable {
    std::string name;
    std::vector<NewColumn> columns;
    std::vector<NewIndex> indexes;
};

struct NewRelation {
    std::string name;
    std::string table;
    std::string column;
    std::string parentTable;
    std::string parentColumn;
};

/// An empty database of 16 pages: the system tables and nothing else. An error when the name is
/// taken.
void createDatabase(FileSystem& files, const std::string& name);

/// Text columns do not allow the empty text, and columns that are not nullable are required, until
/// their properties say otherwise.
void createTable(Database& database, const NewTable& given);

/// Sets a property of a column that is true or false ("Required", "AllowZeroLength").
void setColumnProperty(Database& database, const std::string& tableName, const std::string& column,
                       const std::string& property, bool value);

/// A relation that is enforced and does not cascade. Existing rows must satisfy it.
void createRelation(Database& database, const NewRelation& relation);

}  // namespace huebrush::jet
