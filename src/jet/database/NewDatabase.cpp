// SPDX-License-Identifier: MPL-2.0

// The 16 pages of a new database, as the Jet 4 provider lays them out.

#include <algorithm>
#include <array>

#include "jet/database/Schema.h"
#include "jet/database/SystemRows.h"
#include "jet/page/Header.h"
#include "jet/table/DefinitionWriter.h"
#include "jet/table/Index.h"

namespace huebrush::jet {

namespace {

constexpr PageNumber kFreeMapPage = 1;
constexpr PageNumber kFirstDefinition = 2;
constexpr PageNumber kMapPage = 6;
constexpr PageNumber kFirstRoot = 7;
constexpr PageNumber kFirstFree = 14;
constexpr std::size_t kMaps = 31;

constexpr std::uint8_t kSystemFixed = 0x13;
constexpr std::uint8_t kSystemVariable = 0x12;
constexpr std::uint8_t kScrambled = 0x32;
constexpr std::uint16_t kLongestText = 510;

struct SystemTable {
    std::vector<Column> columns;  ///< by number
    std::vector<IndexTree> trees;
    std::vector<LogicalIndex> indexes;
};

struct SystemColumn {
    const char* name;
    ColumnType type;
    bool scrambled = false;
};

std::uint16_t lengthOf(ColumnType type) {
    switch (type) {
        case ColumnType::boolean:
        case ColumnType::byte:
            return 1;
        case ColumnType::integer:
            return 2;
        case ColumnType::longInteger:
            return 4;
        case ColumnType::date:
            return 8;
        case ColumnType::ole:
        case ColumnType::memo:
            return 0;
        default:
            return kLongestText;
    }
}

bool isFixed(ColumnType type) {
    return lengthOf(type) != 0 && lengthOf(type) != kLongestText;
}

std::vector<Column> systemColumns(const std::vector<SystemColumn>& given) {
    std::vector<Column> columns;
    std::uint16_t variables = 0;
    std::uint16_t offset = 0;
    for (const SystemColumn& each : given) {
        Column column;
        column.name = each.name;
        column.type = each.type;
        column.number = static_cast<std::uint16_t>(columns.size());
        column.variableIndex = variables;
        column.sortOrder = kGeneralSortOrder;
        column.length = lengthOf(each.type);
        column.fixed = isFixed(each.type);
        column.flags = column.fixed ? kSystemFixed : kSystemVariable;
        if (each.scrambled) column.flags = kScrambled;
        if (!column.fixed) {
            ++variables;
        } else if (each.type != ColumnType::boolean) {
            column.offset = offset;
            offset = static_cast<std::uint16_t>(offset + column.length);
        }
        columns.push_back(column);
    }
    return columns;
}

IndexTree tree(std::vector<KeyColumn> columns, bool unique, bool ignoreNulls = false,
               bool required = false) {
    IndexTree made;
    made.columns = std::move(columns);
    made.unique = unique;
    made.ignoreNulls = ignoreNulls;
    made.required = required;
    return made;
}

LogicalIndex index(const char* name, std::uint32_t number, LogicalIndex::Kind kind) {
    LogicalIndex made;
    made.name = name;
    made.number = number;
    made.tree = number;
    made.kind = kind;
    return made;
}

std::array<SystemTable, 4> systemTables() {
    using T = ColumnType;
    using K = LogicalIndex::Kind;
    SystemTable objects{systemColumns({{"Id", T::longInteger},
                                       {"ParentId", T::longInteger},
                                       {"Name", T::text},
                                       {"Type", T::integer},
                                       {"DateCreate", T::date},
                                       {"DateUpdate", T::date},
                                       {"Owner", T::binary, true},
                                       {"Flags", T::longInteger},
                                       {"Database", T::memo},
                                       {"Connect", T::memo},
                                       {"ForeignName", T::text},
                                       {"RmtInfoShort", T::binary},
                                       {"RmtInfoLong", T::ole},
                                       {"Lv", T::ole},
                                       {"LvProp", T::ole},
                                       {"LvModule", T::ole},
                                       {"LvExtra", T::ole}}),
                        {tree({{1}, {2}}, true), tree({{0}}, true)},
                        {index("ParentIdName", 0, K::ordinary), index("Id", 1, K::primaryKey)}};
    SystemTable entries{systemColumns({{"ObjectId", T::longInteger},
                                       {"SID", T::binary, true},
                                       {"ACM", T::longInteger},
                                       {"FInheritable", T::boolean}}),
                        {tree({{0}}, false, false, true)},
                        {index("ObjectId", 0, K::ordinary)}};
    SystemTable queries{systemColumns({{"ObjectId", T::longInteger},
                                       {"Attribute", T::byte},
                                       {"Order", T::binary},
                                       {"Name1", T::text},
                                       {"Name2", T::text},
                                       {"Expression", T::memo},
                                       {"Flag", T::integer},
                                       {"LvExtra", T::longInteger}}),
                        {tree({{0}, {1}, {2}}, true)},
                        {index("ObjectIdAttribute", 0, K::primaryKey)}};
    SystemTable relationships{
        systemColumns({{"szRelationship", T::text},
                       {"grbit", T::longInteger},
                       {"ccolumn", T::longInteger},
                       {"icolumn", T::longInteger},
                       {"szObject", T::text},
                       {"szColumn", T::text},
                       {"szReferencedObject", T::text},
                       {"szReferencedColumn", T::text}}),
        {tree({{0}}, false, true), tree({{4}}, false, true), tree({{6}}, false, true)},
        {index("szRelationship", 0, K::ordinary), index("szObject", 1, K::ordinary),
         index("szReferencedObject", 2, K::ordinary)}};
    return {std::move(objects), std::move(entries), std::move(queries), std::move(relationships)};
}

/// The map rows of all tables are on one page, in the order in which they are needed.
class MapRows {
 public:
    RowId next() { return {kMapPage, next_++}; }

 private:
    std::uint8_t next_ = 0;
};

void makeDefinition(Pages& pages, PageNumber page, SystemTable& given, MapRows& maps,
                    PageNumber& root) {
    TableDefinition table;
    table.page = page;
    table.system = true;
    table.ownedMap = maps.next();
    table.freeMap = maps.next();
    table.maxColumns = static_cast<std::uint16_t>(given.columns.size());
    for (Column& column : given.columns) {
        if (!column.fixed) ++table.variableColumns;
        if (!column.isLongValue()) continue;
        column.ownedMap = maps.next();
        column.freeMap = maps.next();
    }
    for (IndexTree& each : given.trees) {
        each.map = maps.next();
        each.root = root++;
        clearIndexPage(pages, each.root, page);
        UsageMap(pages, each.map).add(each.root, {});
    }
    table.columns = given.columns;
    table.trees = given.trees;
    table.indexes = given.indexes;
    std::sort(table.columns.begin(), table.columns.end(),
              [](const Column& a, const Column& b) { return a.name < b.name; });
    storeDefinitionPage(pages.change(page), encodeDefinition(table, {}));
}

void makeHeader(Page& page) {
    using namespace HeaderLayout;
    const Writer out(page);
    const Bytes start{0x00, 0x01, 0x00, 0x00, 'S', 't', 'a', 'n', 'd', 'a', 'r',
                      'd',  ' ',  'J',  'e',  't', ' ', 'D', 'B', 0,   1};
    out.bytes(0, start);
    out.u32(kFreeMap, RowId{kFreeMapPage, 0}.pointer());
    out.u32(kSecondMap, RowId{kFreeMapPage, 1}.pointer());
    for (std::size_t i = 0; i < 4; ++i) {
        out.u32(kSystemTables + 4 * i, kFirstDefinition + static_cast<PageNumber>(i));
    }
    out.u16(kCodePage, 1252);
    // The owners' identities go with this date; see Identity.
    const Bytes created{0x3E, 0x85, 0xD3, 0x3B, 0x3E, 0xAB, 0xE4, 0x40};
    const std::uint32_t days = 42329;
    for (std::size_t i = 0; i < kPasswordSize; i += 4) out.u32(kPassword + i, days);
    out.u16(kBuild, 9756);
    out.u32(kSortOrder, kGeneralSortOrder);
    out.bytes(kCreated, created);
    applyHeaderMask(std::span(page).subspan(kRegion, kRegionSize));
    out.u32(kConstants, 1620);
    out.bytes(kConstants + 4, Bytes{'4', '.', '0', 0});
    for (std::size_t i = 0; i < 256; ++i) out.u16(kCommits + 2 * i, i == 0 ? 0x0101 : 0x0100);
}

void makePages(Pages& pages) {
    while (pages.count() < kFirstFree) pages.append();
    makeHeader(pages.change(0));
    Page& freePage = pages.change(kFreeMapPage);
    clearDataPage(freePage, kFreeMapPage);
    Bytes free = emptyMap();
    std::fill(free.begin() + 5, free.end(), std::uint8_t{0xFF});
    addRow(freePage, kFreeMapPage, free, SlotFlag::kNone);
    addRow(freePage, kFreeMapPage, emptyMap(), SlotFlag::kNone);
    UsageMap used(pages, {kFreeMapPage, 0});
    for (PageNumber page = 0; page < kFirstFree; ++page) used.drop(page);

    Page& mapPage = pages.change(kMapPage);
    clearDataPage(mapPage, 0);
    for (std::size_t i = 0; i < kMaps; ++i) addRow(mapPage, kMapPage, emptyMap(), SlotFlag::kNone);
    MapRows maps;
    PageNumber root = kFirstRoot;
    PageNumber page = kFirstDefinition;
    for (SystemTable& table : systemTables()) makeDefinition(pages, page++, table, maps, root);
}

constexpr std::uint32_t kSystemObject = 0x80000000;
constexpr std::int32_t kDocument = 0x10000000;

void addObjects(Database& database) {
    using namespace ContainerId;
    const auto add = [&](std::int32_t id, std::int32_t parent, const char* name, std::int32_t type,
                         const Bytes& owner) {
        addObject(database, {id, parent, name, type, owner, kSystemObject});
    };
    add(kTables, kRoot, "Tables", StoredObjectType::kContainer, Identity::kEngine);
    add(kDatabases, kRoot, "Databases", StoredObjectType::kContainer, Identity::kEngine);
    add(kRelationships, kRoot, "Relationships", StoredObjectType::kContainer, Identity::kEngine);
    add(kDocument, kDatabases, "MSysDb", StoredObjectType::kDatabase, Identity::kAdmin);
    add(2, kTables, "MSysObjects", StoredObjectType::kTable, Identity::kEngine);
    add(3, kTables, "MSysACEs", StoredObjectType::kTable, Identity::kEngine);
    add(4, kTables, "MSysQueries", StoredObjectType::kTable, Identity::kEngine);
    add(5, kTables, "MSysRelationships", StoredObjectType::kTable, Identity::kEngine);
}

void addPermissions(Database& database) {
    using namespace ContainerId;
    using namespace Identity;
    addPermission(database, 2, kAdmin, 0x60000);
    addPermission(database, 3, kAdmin, 0x60000);
    addPermission(database, 4, kAdmin, 0x60000);
    addPermission(database, 5, kAdmin, 0xE0000);
    addPermission(database, kTables, kCreator, 0xF00FE, true);
    addPermission(database, kTables, kAdmin, 0x60001);
    addPermission(database, kRelationships, kCreator, 0xF00FE, true);
    addPermission(database, kRelationships, kAdmin, 0x60001);
    addPermission(database, kDatabases, kAdmin, 0x60000);
    addPermission(database, kDocument, kAdmin, 0x6000E);
    addPermission(database, kDocument, kUsers, 0x0000E);
    addPermission(database, 4, kUsers, 0x14);
    addPermission(database, 5, kUsers, 0x14);
    addPermission(database, 2, kUsers, 0x14);
    addPermission(database, kTables, kUsers, 0xFFEFF, true);
    addPermission(database, kRelationships, kUsers, 0xFFFFF, true);
}

}  // namespace

void createDatabase(FileSystem& files, const std::string& name) {
    Database::create(files, name, {kFreeMapPage, 0}, makePages, [](Database& database) {
        addObjects(database);
        addPermissions(database);
    });
}

}  // namespace huebrush::jet
