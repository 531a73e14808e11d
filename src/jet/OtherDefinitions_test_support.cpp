// SPDX-License-Identifier: MPL-2.0

#include "jet/OtherDefinitions_test_support.h"

#include "jet/table/DefinitionWriter.h"

namespace huebrush::jet {

void defineAsOtherProgramsDo(Database& database, const std::string& table) {
    database.change([&] {
        TableDefinition changed = *database.definition(table);
        changed.variableColumns = 0;
        for (Column& column : changed.columns) {
            column.fixed = false;
            column.flags &= static_cast<std::uint8_t>(~DefinitionLayout::kFixed);
            column.variableIndex = changed.variableColumns++;
            column.offset = 0;
            column.position = 0;
            column.compressed = column.isText();
        }
        const DefinitionCounters counters = readCounters(database.pages(), changed);
        storeDefinition(database.pages(), database.space(), changed,
                        encodeDefinition(changed, counters));
    });
    database.forgetDefinitions();
}

}  // namespace huebrush::jet
