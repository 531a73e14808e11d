// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Owners.h"

#include "jet/page/UsageMap.h"

namespace huebrush::jet {

namespace {

class OwnersReader {
 public:
    explicit OwnersReader(Pages& pages) : pages_(&pages) {}

    void own(PageNumber page) {
        if (page >= pages_->count()) throwDamage(page, 0, rule::kPageExists);
        if (!owners_.add(page)) throwDamage(page, 0, rule::kOneOwner);
    }

    /// The pages of a map itself. Many maps share the page on which their rows are.
    void ownMap(RowId where) {
        if (!mapRows_.insert(where).second) throwDamage(where.page, 0, rule::kOneOwner);
        const UsageMap map(*pages_, where);
        for (const RowId row : {where, map.place()}) {
            if (mapPages_.insert(row.page).second) own(row.page);
        }
        for (const PageNumber page : map.bitmapPages()) own(page);
    }

    void ownTable(PageNumber definition) {
        if (!owners_.tables.insert(definition).second) return;
        const TableDefinition table = readDefinition(*pages_, definition);
        for (const PageNumber page : table.pages) own(page);
        for (const TableMap& map : mapsOf(table)) {
            ownMap(map.where);
            if (!map.owns()) continue;
            for (const PageNumber page : UsageMap(*pages_, map.where).all()) own(page);
        }
    }

    PageOwners take() { return std::move(owners_); }

 private:
    Pages* pages_;
    PageOwners owners_;
    std::set<PageNumber> mapPages_;
    std::set<RowId> mapRows_;
};

}  // namespace

std::vector<TableMap> mapsOf(const TableDefinition& table) {
    using Kind = TableMap::Kind;
    std::vector<TableMap> maps{{table.ownedMap, Kind::rows}, {table.freeMap, Kind::room}};
    for (const Column& column : table.columns) {
        if (!column.isLongValue() || column.ownedMap.page == 0) continue;
        maps.push_back({column.ownedMap, Kind::longValues, column.number});
        if (column.freeMap.page != 0) maps.push_back({column.freeMap, Kind::room, column.number});
    }
    for (const IndexTree& tree : table.trees) maps.push_back({tree.map, Kind::index});
    return maps;
}

PageOwners readOwners(Pages& pages, const Header& header,
                      const std::vector<StoredObject>& objects) {
    OwnersReader reader(pages);
    reader.own(0);
    reader.ownMap(header.freeMap);
    for (const PageNumber page :
         {header.objects, header.accessEntries, header.queries, header.relationships}) {
        reader.ownTable(page);
    }
    for (const StoredObject& object : objects) {
        if (object.isTable()) reader.ownTable(static_cast<PageNumber>(object.id));
    }
    return reader.take();
}

}  // namespace huebrush::jet
