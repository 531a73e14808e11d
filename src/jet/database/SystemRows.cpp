// SPDX-License-Identifier: MPL-2.0

#include "jet/database/SystemRows.h"

#include <chrono>

#include "files/LocalTime.h"
#include "jet/database/Table.h"

namespace huebrush::jet {

namespace {

/// Local time in days since 1899-12-30.
double now() {
    namespace chrono = std::chrono;
    constexpr chrono::sys_days kEpoch = chrono::December / 30 / 1899;
    constexpr double kSecondsADay = 86400;
    const std::tm local = files::localTime();
    const chrono::sys_days day = chrono::year(local.tm_year + 1900) /
                                 chrono::month(static_cast<unsigned>(local.tm_mon + 1)) /
                                 chrono::day(static_cast<unsigned>(local.tm_mday));
    const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return static_cast<double>((day - kEpoch).count()) + seconds / kSecondsADay;
}

}  // namespace

void addObject(Database& database, const NewObject& object) {
    Table table(database, database.definition(database.header().objects));
    const double created = now();
    Table::Values values{{&table.column("Id"), object.id},
                         {&table.column("ParentId"), object.parent},
                         {&table.column("Name"), object.name},
                         {&table.column("Type"), object.type},
                         {&table.column("DateCreate"), created},
                         {&table.column("DateUpdate"), created},
                         {&table.column("Owner"), object.owner},
                         {&table.column("Flags"), static_cast<std::int32_t>(object.flags)}};
    if (!object.properties.empty()) values.emplace_back(&table.column("LvProp"), object.properties);
    table.insert(values);
}

void addPermission(Database& database, std::int32_t object, const Bytes& identity,
                   std::uint32_t mask, bool inherited) {
    Table table(database, database.definition(database.header().accessEntries));
    table.insert({{&table.column("ObjectId"), object},
                  {&table.column("SID"), identity},
                  {&table.column("ACM"), static_cast<std::int32_t>(mask)},
                  {&table.column("FInheritable"), inherited}});
}

}  // namespace huebrush::jet
