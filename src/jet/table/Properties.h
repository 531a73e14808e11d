#pragma once

#include <string>
#include <vector>

#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// What a table's object in the catalogue keeps beside the definition: named values of the table
/// (an empty owner) and of its columns.
struct Property {
    std::string owner;
    std::string name;
    ColumnType type = ColumnType::boolean;
    bool byDesigner = true;  ///< only a designer may change it
    Bytes value;

    bool isTrue() const { return !value.empty() && value[0] != 0; }
};

/// Reads a block of properties. Damage when it breaks a rule.
std::vector<Property> readProperties(ByteView block);
/// The block for properties, which stand in the order of their owners.
Bytes writeProperties(const std::vector<Property>& properties);

/// Tells the columns of a table what the properties say of them.
void applyProperties(const std::vector<Property>& properties, TableDefinition& table);

}  // namespace huebrush::jet
