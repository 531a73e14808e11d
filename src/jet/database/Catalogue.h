// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "jet/database/Database.h"

namespace huebrush::jet {

/// What a database consists of, as objects that are created, given properties and appended to one
/// another, with the names that they have in the platform's extensions for creating a catalogue. An
/// object is described first; appending it to what is stored creates it.
namespace catalogue {

enum class DataType : std::int32_t { adInteger = 3, adVarWChar = 202, adLongVarBinary = 205 };
enum class KeyType : std::int32_t { adKeyPrimary = 1, adKeyForeign = 2 };
/// The attribute of a column that accepts nulls.
inline constexpr std::int32_t kAdColNullable = 2;

class Catalog;

class Column {
 public:
    std::string Name;
    DataType Type = DataType::adVarWChar;
    std::size_t DefinedSize = 0;
    std::int32_t Attributes = 0;
    /// Whose provider the properties below are of.
    Catalog* ParentCatalog = nullptr;

    /// "AutoIncrement", "Jet OLEDB:Allow Zero Length". An error without a parent catalogue, and for
    /// other names.
    void SetProperty(const std::string& name, bool value);
    bool Property(const std::string& name) const;

 private:
    std::map<std::string, bool> properties_;
};

struct Index {
    std::string Name;
    bool PrimaryKey = false;
    bool Unique = false;
    std::vector<std::string> Columns;
};

class Table {
 public:
    std::string Name;

    void AppendColumn(const Column& column);
    void AppendColumn(const std::string& name, DataType type, std::size_t size = 0);
    /// A column that was appended; an error when there is none of the name.
    Column& ColumnOf(const std::string& name);
    void AppendIndex(const Index& index);
    /// An error unless the table is stored.
    void AppendKey(const std::string& name, KeyType type, const std::string& column,
                   const std::string& relatedTable, const std::string& relatedColumn);

 private:
    friend class Catalog;
    std::vector<Column> columns_;
    std::vector<Index> indexes_;
    std::shared_ptr<Database> database_;
};

class Catalog {
 public:
    explicit Catalog(FileSystem& files) : files_(&files) {}

    /// Creates the file that a connection string names; an error when it exists.
    void Create(const std::string& connection);
    /// Stores a table with its columns and indexes.
    void AppendTable(Table& table);
    /// Sets a provider's property of a column of a stored table.
    void SetStoredProperty(const std::string& table, const std::string& column,
                           const std::string& name, bool value);

 private:
    Database& open() const;

    FileSystem* files_;
    std::shared_ptr<Database> database_;
};

}  // namespace catalogue

/// The file that a connection string names as its data source. An error when it names none, or
/// another provider.
std::string dataSource(const std::string& connection);

}  // namespace huebrush::jet
