// SPDX-License-Identifier: MPL-2.0

#include "jet/database/StoredObjects.h"

#include "jet/table/LongValue.h"
#include "jet/table/TableScan.h"

namespace huebrush::jet {

namespace {

constexpr std::uint32_t kSystemFlags = 0x80000002;

const Column& required(const TableDefinition& table, const char* name, ColumnType type) {
    const Column* column = table.find(name);
    if (column == nullptr || column->type != type) throwDamage(table.page, 45, rule::kCatalog);
    return *column;
}

std::int32_t numberIn(const Row& row, const Column& column) {
    const auto field = row.field(column);
    return field ? std::get<std::int32_t>(decodeField(column, *field)) : 0;
}

}  // namespace

bool StoredObject::isUserTable() const {
    return isTable() && (static_cast<std::uint32_t>(flags) & kSystemFlags) == 0 &&
           name.rfind("MSys", 0) != 0;
}

std::vector<StoredObject> readStoredObjects(Pages& pages, PageNumber definition) {
    const TableDefinition table = readDefinition(pages, definition);
    const Column& id = required(table, "Id", ColumnType::longInteger);
    const Column& parent = required(table, "ParentId", ColumnType::longInteger);
    const Column& name = required(table, "Name", ColumnType::text);
    const Column& type = required(table, "Type", ColumnType::integer);
    const Column& flags = required(table, "Flags", ColumnType::longInteger);
    const Column& properties = required(table, "LvProp", ColumnType::ole);
    std::vector<StoredObject> objects;
    scanTable(pages, table, [&](RowId where, const Row& row) {
        StoredObject object;
        object.row = where;
        object.id = numberIn(row, id);
        object.parent = numberIn(row, parent);
        if (const auto field = row.field(name)) object.name = decodeText(field->all());
        object.type = numberIn(row, type);
        object.flags = numberIn(row, flags);
        if (const auto field = row.field(properties)) {
            object.properties = long_value::read(pages, *field);
        }
        objects.push_back(std::move(object));
        return true;
    });
    return objects;
}

}  // namespace huebrush::jet
