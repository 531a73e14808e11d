// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <vector>

#include "jet/database/StoredObjects.h"
#include "jet/page/Header.h"
#include "jet/page/PageOwners.h"
#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// A usage map that a table's definition names, and what its pages are.
struct TableMap {
    enum class Kind {
        rows,        ///< the data pages
        longValues,  ///< the pages of a long-value column
        index,       ///< the pages of a tree
        room,        ///< those of the first two that have room for more
    };

    RowId where;
    Kind kind = Kind::rows;
    std::uint16_t column = 0;  ///< the number of the column, of long values

    bool owns() const { return kind != Kind::room; }
};

std::vector<TableMap> mapsOf(const TableDefinition& table);

/// Finds the owner of every page. Damage when a page has two, or when a map names a page that is
/// not in the file: then it is not known what may be written to.
PageOwners readOwners(Pages& pages, const Header& header, const std::vector<StoredObject>& objects);

}  // namespace huebrush::jet
