// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <vector>

#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// What a table's object in the catalogue keeps in addition to the definition: named values of the
/// table (an empty owner) and of its columns.
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
/// The block for properties, which are in the order of their owners.
Bytes writeProperties(const std::vector<Property>& properties);

/// Applies the properties to the columns of a table.
void applyProperties(const std::vector<Property>& properties, TableDefinition& table);

}  // namespace huebrush::jet
