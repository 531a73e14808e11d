// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <vector>

#include "jet/page/Pages.h"
#include "jet/page/RowId.h"
#include "jet/table/Value.h"

namespace huebrush::jet {

/// The identities of the catalogue's containers, and the kinds of its objects.
namespace ContainerId {
inline constexpr std::int32_t kRoot = 0x0F000000;
inline constexpr std::int32_t kTables = 0x0F000001;
inline constexpr std::int32_t kDatabases = 0x0F000002;
inline constexpr std::int32_t kRelationships = 0x0F000003;
}  // namespace ContainerId

namespace StoredObjectType {
inline constexpr std::int32_t kTable = 1;
inline constexpr std::int32_t kDatabase = 2;
inline constexpr std::int32_t kContainer = 3;
inline constexpr std::int32_t kRelation = 8;
}  // namespace StoredObjectType

/// A row of the catalogue, MSysObjects.
struct StoredObject {
    RowId row;
    std::int32_t id = 0;  ///< of a table, the page of its definition
    std::int32_t parent = 0;
    std::string name;
    std::int32_t type = 0;
    std::int32_t flags = 0;
    Bytes properties;

    bool isTable() const { return type == StoredObjectType::kTable; }
    /// Neither one of the system's own objects nor hidden by it.
    bool isUserTable() const;
};

std::vector<StoredObject> readStoredObjects(Pages& pages, PageNumber definition);

}  // namespace huebrush::jet
