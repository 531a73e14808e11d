// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Schema.h"

#include <algorithm>
#include <limits>
#include <set>

#include "base/Text.h"
#include "jet/database/Relation.h"
#include "jet/database/SystemRows.h"
#include "jet/database/Table.h"
#include "jet/table/DefinitionWriter.h"
#include "jet/table/Index.h"
#include "jet/table/Properties.h"

namespace huebrush::jet {

namespace {

using base::text;

constexpr std::size_t kLongestName = 64;
constexpr std::size_t kMostTextCharacters = 255;
constexpr std::size_t kMostBinaryBytes = 510;
constexpr std::uint32_t kTableRights = 0xFFEFF;
constexpr std::uint32_t kRelationOwnerRights = 0xF00FE;
constexpr std::uint32_t kRelationRights = 0xFFFFF;

void checkName(const std::string& name) {
    const std::size_t length = base::lengthInCharacters(name);
    if (length == 0 || length > kLongestName || !generalKey(name)) {
        throw Error(ErrorNumber::kNotSupported, text("Jméno „", name, "“ nelze v databázi použít."),
                    text("the database cannot have the name ", name));
    }
}

[[noreturn]] void throwWrongSize(const NewColumn& column) {
    throw Error(ErrorNumber::kTooLong,
                text("Sloupec „", column.name, "“ nemůže mít tuto velikost."),
                text("the column ", column.name, " cannot have this size"));
}

Column makeColumn(const NewColumn& given, std::size_t number) {
    Column column;
    column.name = given.name;
    column.type = given.type;
    column.number = static_cast<std::uint16_t>(number);
    column.position = column.number;
    column.sortOrder = kGeneralSortOrder;
    column.autonumber = given.autonumber;
    switch (given.type) {
        case ColumnType::longInteger:
            column.fixed = true;
            column.length = 4;
            break;
        case ColumnType::text:
            if (given.size == 0 || given.size > kMostTextCharacters) {
                throwWrongSize(given);
            }
            column.length = static_cast<std::uint16_t>(2 * given.size);
            break;
        case ColumnType::binary:
            if (given.size == 0 || given.size > kMostBinaryBytes) {
                throwWrongSize(given);
            }
            column.length = static_cast<std::uint16_t>(given.size);
            break;
        case ColumnType::ole:
        case ColumnType::memo:
            break;
        default:
            throw Error(
                ErrorNumber::kNotSupported,
                text("Sloupec „", given.name, "“ nelze založit: jeho druh není podporován."),
                text("the column ", given.name, " cannot be created: its type is not supported"));
    }
    if (given.autonumber && given.type != ColumnType::longInteger) {
        throw Error(ErrorNumber::kWrongType,
                    text("Sloupec „", given.name, "“ nemůže mít automatické číslo."),
                    text("the column ", given.name, " cannot be numbered automatically"));
    }
    column.flags = static_cast<std::uint8_t>(
        DefinitionLayout::kAlways | (column.fixed ? DefinitionLayout::kFixed : 0) |
        (column.autonumber ? DefinitionLayout::kAutonumber : 0));
    return column;
}

/// Allocates rows for usage maps on a page, and on another page when it is full.
class MapSource {
 public:
    MapSource(Pages& pages, Space& space, PageNumber page)
        : pages_(&pages), space_(&space), page_(page) {}

    RowId next() {
        if (page_ == 0 || !fitsOn(DataPage::open(*pages_, page_), emptyMap().size())) {
            page_ = space_->take();
            clearDataPage(pages_->change(page_), 0);
        }
        return {page_, addRow(pages_->change(page_), page_, emptyMap(), SlotFlag::kNone)};
    }

 private:
    Pages* pages_;
    Space* space_;
    PageNumber page_;
};

IndexTree makeTree(Database& database, MapSource& maps, PageNumber table,
                   std::vector<KeyColumn> columns) {
    IndexTree tree;
    tree.columns = std::move(columns);
    tree.map = maps.next();
    tree.root = database.space().take();
    clearIndexPage(database.pages(), tree.root, table);
    UsageMap(database.pages(), tree.map).add(tree.root, database.space().pageSource());
    return tree;
}

void addColumns(TableDefinition& table, const std::vector<NewColumn>& columns) {
    std::uint16_t offset = 0;
    for (const NewColumn& each : columns) {
        checkName(each.name);
        if (table.find(each.name) != nullptr) {
            throw Error(ErrorNumber::kAlreadyExists,
                        text("Sloupec „", each.name, "“ už v tabulce je."),
                        text("the table has a column ", each.name, " already"));
        }
        Column column = makeColumn(each, table.columns.size());
        column.variableIndex = table.variableColumns;
        if (column.fixed) {
            column.offset = offset;
            offset = static_cast<std::uint16_t>(offset + column.length);
        } else {
            ++table.variableColumns;
        }
        table.columns.push_back(column);
    }
    table.maxColumns = static_cast<std::uint16_t>(table.columns.size());
}

void addIndex(Database& database, MapSource& maps, TableDefinition& table, const NewIndex& given) {
    checkName(given.name);
    std::vector<KeyColumn> keys;
    for (const std::string& name : given.columns) {
        const Column* column = table.find(name);
        if (column == nullptr) {
            throw Error(ErrorNumber::kNoSuchColumn,
                        text("Index „", given.name, "“: tabulka nemá sloupec „", name, "“."),
                        text("the index ", given.name, ": the table has no column ", name));
        }
        keys.push_back({column->number});
    }
    LogicalIndex index;
    index.name = given.name;
    index.number = static_cast<std::uint32_t>(table.indexes.size());
    index.tree = static_cast<std::uint32_t>(table.trees.size());
    index.kind = given.primaryKey ? LogicalIndex::Kind::primaryKey : LogicalIndex::Kind::ordinary;
    IndexTree tree = makeTree(database, maps, table.page, std::move(keys));
    tree.unique = given.unique || given.primaryKey;
    tree.required = given.primaryKey;
    table.trees.push_back(tree);
    table.indexes.push_back(index);
}

Property flag(const std::string& column, const std::string& name, bool value) {
    return {column, name, ColumnType::boolean, true,
            Bytes{value ? std::uint8_t{1} : std::uint8_t{0}}};
}

Bytes columnProperties(const std::vector<NewColumn>& columns) {
    std::vector<Property> properties;
    for (const NewColumn& column : columns) {
        if (column.autonumber) continue;
        properties.push_back(flag(column.name, "Required", !column.nullable));
        if (column.type == ColumnType::text || column.type == ColumnType::memo) {
            properties.push_back(flag(column.name, "AllowZeroLength", false));
        }
    }
    return writeProperties(properties);
}

bool taken(Database& database, std::int32_t parent, const std::string& name) {
    const auto& objects = database.objects();
    return std::any_of(objects.begin(), objects.end(), [&](const StoredObject& each) {
        return each.parent == parent && generalKey(each.name) == generalKey(name);
    });
}

const StoredObject& objectOf(Database& database, const std::string& table) {
    const PageNumber page = database.definition(table)->page;
    for (const StoredObject& object : database.objects()) {
        if (object.isTable() && object.id == static_cast<std::int32_t>(page)) return object;
    }
    throwDamage(page, 0, rule::kCatalog);
}

/// The tree of a unique index on one column.
std::optional<std::uint32_t> uniqueTree(const TableDefinition& table, const Column& column) {
    for (std::uint32_t i = 0; i < table.trees.size(); ++i) {
        const IndexTree& tree = table.trees[i];
        if (tree.unique && tree.columns.size() == 1 && tree.columns[0].column == column.number) {
            return i;
        }
    }
    return std::nullopt;
}

std::uint32_t nextIndexNumber(const TableDefinition& table) {
    std::uint32_t number = 0;
    for (const LogicalIndex& each : table.indexes) number = std::max(number, each.number + 1);
    return number;
}

/// The name of the parent's side: ".rB", ".rC" and so on.
std::string hiddenName(const TableDefinition& table) {
    std::set<std::string> names;
    for (const LogicalIndex& each : table.indexes) names.insert(each.name);
    for (const char letter : std::string("BCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")) {
        std::string name = ".r";
        name += letter;
        if (!names.contains(name)) return name;
    }
    throw Error(ErrorNumber::kNotSupported,
                text("Tabulka „", table.name, "“ má příliš mnoho vazeb."),
                text("the table ", table.name, " has too many relations"));
}

const Column& requireColumn(const TableDefinition& table, const std::string& name) {
    const Column* column = table.find(name);
    if (column == nullptr) {
        throw Error(ErrorNumber::kNoSuchColumn,
                    text("Tabulka „", table.name, "“ nemá sloupec „", name, "“."),
                    text("the table ", table.name, " has no column ", name));
    }
    return *column;
}

/// The child's tree on its column: an existing one, or a new one with the existing rows.
std::uint32_t childTree(Database& database, TableDefinition& table, const Column& column,
                        DefinitionCounters& counters) {
    for (std::uint32_t i = 0; i < table.trees.size(); ++i) {
        const IndexTree& tree = table.trees[i];
        if (tree.columns.size() == 1 && tree.columns[0].column == column.number &&
            !tree.ignoreNulls) {
            return i;
        }
    }
    MapSource maps(database.pages(), database.space(), table.ownedMap.page);
    table.trees.push_back(makeTree(database, maps, table.page, {{column.number}}));
    const IndexTree& tree = table.trees.back();
    if (!keysKnown(table, tree)) {
        throw Error(ErrorNumber::kNotSupported,
                    text("Pořadí hodnot sloupce „", column.name, "“ v indexu není známo."),
                    text("the order of the column ", column.name, " in an index is not known"));
    }
    Index index(database.pages(), tree, table.page, &database.space());
    std::uint32_t distinct = 0;
    scanTable(database.pages(), table, [&](RowId id, const Row& row) {
        const auto key = encodeKey(
            table, tree, [&](const Column& each) { return valueOf(database.pages(), row, each); });
        if (!key) {
            throw Error(ErrorNumber::kNotSupported,
                        text("Sloupec „", column.name,
                             "“ obsahuje znak, jehož pořadí v indexu není známo."),
                        text("the column ", column.name,
                             " has a character whose order in an index is not known"));
        }
        if (!index.contains(key->bytes)) ++distinct;
        index.insert(key->bytes, id);
        return true;
    });
    counters.distinctKeys.push_back(distinct);
    return static_cast<std::uint32_t>(table.trees.size() - 1);
}

void requireParents(Database& database, const TableDefinition& table, const IndexTree& tree,
                    const TableDefinition& parent, const IndexTree& parentTree) {
    const Index children(database.pages(), tree, table.page);
    const Index parents(database.pages(), parentTree, parent.page);
    constexpr std::uint8_t kNull = 0;
    children.walk([&](ByteView key, RowId) {
        if (key[0] != kNull && !parents.contains(key)) {
            throw Error(ErrorNumber::kNoParent,
                        text("Vazbu nelze založit: řádky tabulky „", table.name,
                             "“ nemají odpovídající řádky v tabulce „", parent.name, "“."),
                        text("the relation cannot be created: rows of the table ", table.name,
                             " have no matching row in the table ", parent.name));
        }
        return true;
    });
}

void listRelation(Database& database, const NewRelation& relation) {
    Table table(database, database.definition(database.header().relationships));
    table.insert({{&table.column("szRelationship"), relation.name},
                  {&table.column("grbit"), 0},
                  {&table.column("ccolumn"), 1},
                  {&table.column("icolumn"), 0},
                  {&table.column("szObject"), relation.table},
                  {&table.column("szColumn"), relation.column},
                  {&table.column("szReferencedObject"), relation.parentTable},
                  {&table.column("szReferencedColumn"), relation.parentColumn}});
    std::int32_t id = std::numeric_limits<std::int32_t>::min();
    for (const StoredObject& object : database.objects()) {
        if (object.id < 0) id = std::max(id, object.id + 1);
    }
    addObject(database, {id, ContainerId::kRelationships, relation.name,
                         StoredObjectType::kRelation, Identity::kAdmin});
    addPermission(database, id, Identity::kAdmin, kRelationOwnerRights);
    addPermission(database, id, Identity::kUsers, kRelationRights);
}

void makeRelation(Database& database, const NewRelation& given) {
    TableDefinition child = *database.definition(given.table);
    TableDefinition parent = *database.definition(given.parentTable);
    const Column& column = requireColumn(child, given.column);
    const Column& parentColumn = requireColumn(parent, given.parentColumn);
    const auto parentTree = uniqueTree(parent, parentColumn);
    if (!parentTree || column.type != parentColumn.type || child.page == parent.page) {
        throw Error(
            ErrorNumber::kNotSupported,
            text("Vazbu „", given.name, "“ nelze založit: sloupec „", given.parentColumn,
                 "“ tabulky „", given.parentTable, "“ není jedinečným klíčem téhož druhu."),
            text("the relation ", given.name, " cannot be created: the column ", given.parentColumn,
                 " of the table ", given.parentTable, " is not a unique key of the same type"));
    }
    DefinitionCounters childCounters = readCounters(database.pages(), child);
    LogicalIndex here;
    here.name = given.name;
    here.number = nextIndexNumber(child);
    here.tree = childTree(database, child, column, childCounters);
    here.side = LogicalIndex::Side::child;
    here.kind = LogicalIndex::Kind::foreignKey;
    here.otherTable = parent.page;
    LogicalIndex there = here;
    there.name = hiddenName(parent);
    there.number = nextIndexNumber(parent);
    there.tree = *parentTree;
    there.side = LogicalIndex::Side::parent;
    there.otherTable = child.page;
    here.partner = static_cast<std::int32_t>(there.number);
    there.partner = static_cast<std::int32_t>(here.number);
    requireParents(database, child, child.trees[here.tree], parent, parent.trees[there.tree]);
    child.indexes.push_back(here);
    parent.indexes.push_back(there);
    storeDefinition(database.pages(), database.space(), child,
                    encodeDefinition(child, childCounters));
    storeDefinition(database.pages(), database.space(), parent,
                    encodeDefinition(parent, readCounters(database.pages(), parent)));
    listRelation(database, given);
}

}  // namespace

void createTable(Database& database, const NewTable& given) {
    database.change([&] {
        checkName(given.name);
        if (taken(database, ContainerId::kTables, given.name)) {
            throw Error(ErrorNumber::kAlreadyExists,
                        text("Tabulka „", given.name, "“ už existuje."),
                        text("the table ", given.name, " already exists"));
        }
        TableDefinition table;
        table.name = given.name;
        table.page = database.space().take();
        table.pages = {table.page};
        MapSource maps(database.pages(), database.space(), 0);
        table.ownedMap = maps.next();
        table.freeMap = maps.next();
        addColumns(table, given.columns);
        for (Column& column : table.columns) {
            if (!column.isLongValue()) continue;
            column.ownedMap = maps.next();
            column.freeMap = maps.next();
        }
        for (const NewIndex& index : given.indexes) addIndex(database, maps, table, index);
        storeDefinition(database.pages(), database.space(), table, encodeDefinition(table, {}));
        const auto id = static_cast<std::int32_t>(table.page);
        addObject(database, {id, ContainerId::kTables, given.name, StoredObjectType::kTable,
                             Identity::kAdmin, 0, columnProperties(given.columns)});
        addPermission(database, id, Identity::kAdmin, kTableRights);
        addPermission(database, id, Identity::kUsers, kTableRights);
        database.forgetDefinitions();
    });
}

void setColumnProperty(Database& database, const std::string& tableName, const std::string& column,
                       const std::string& property, bool value) {
    database.change([&] {
        requireColumn(*database.definition(tableName), column);
        const StoredObject object = objectOf(database, tableName);
        std::vector<Property> properties = readProperties(object.properties);
        const Property wanted = flag(column, property, value);
        const auto same = [&](const Property& each) {
            return each.owner == column && each.name == property;
        };
        const auto found = std::find_if(properties.begin(), properties.end(), same);
        if (found != properties.end()) {
            found->value = wanted.value;
        } else {
            // After the column's other ones, which are together.
            auto at = properties.end();
            while (at != properties.begin() && std::prev(at)->owner != column) --at;
            properties.insert(at == properties.begin() ? properties.end() : at, wanted);
        }
        Table objects(database, database.definition(database.header().objects));
        objects.update(object.row, {{&objects.column("LvProp"), writeProperties(properties)}});
        database.forgetDefinitions();
    });
}

void createRelation(Database& database, const NewRelation& relation) {
    database.change([&] {
        checkName(relation.name);
        if (taken(database, ContainerId::kRelationships, relation.name)) {
            throw Error(ErrorNumber::kAlreadyExists,
                        text("Vazba „", relation.name, "“ už existuje."),
                        text("the relation ", relation.name, " already exists"));
        }
        makeRelation(database, relation);
        database.forgetDefinitions();
    });
}

}  // namespace huebrush::jet
