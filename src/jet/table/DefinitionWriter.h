// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <vector>

#include "jet/page/Space.h"
#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// What a definition contains that changes with the rows.
struct DefinitionCounters {
    std::uint32_t rows = 0;
    std::uint32_t lastAutonumber = 0;
    std::vector<std::uint32_t> distinctKeys;  ///< by tree
};

DefinitionCounters readCounters(Pages& pages, const TableDefinition& table);

/// The bytes of a definition, from its first page's header on. The columns are written in the order
/// in which they are given; the indexes in the order of their names.
Bytes encodeDefinition(const TableDefinition& table, const DefinitionCounters& counters);

/// Puts the bytes of a definition on its pages, and takes or frees pages as needed.
void storeDefinition(Pages& pages, Space& space, TableDefinition& table, const Bytes& bytes);

/// Puts a definition of one page there.
void storeDefinitionPage(Page& page, const Bytes& bytes);

}  // namespace huebrush::jet
