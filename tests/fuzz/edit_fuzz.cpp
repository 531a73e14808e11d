// A good palette file is edited as the fuzzer says: after that it keeps all rules, and whoever
// opens it anew sees the same.

#include <cstdio>
#include <cstdlib>

#include "Edits.h"
#include "jet/check/Check.h"
#include "jet/database/Table.h"

namespace {

using namespace huebrush;
using namespace huebrush::fuzz;

using Rows = std::vector<std::pair<jet::RowId, std::vector<jet::Value>>>;

[[noreturn]] void fail(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

void requireClean(jet::Database& database) {
    const jet::CheckResult result = jet::check(database);
    if (!result.violations.empty()) fail(result.violations[0].text());
}

Rows rowsOf(jet::Database& database, const std::string& name) {
    const jet::Table table(database, name);
    Rows rows;
    table.scan([&](jet::RowId id, const jet::Row& row) {
        rows.push_back({id, {}});
        for (const jet::Column& column : table.definition().columns) {
            rows.back().second.push_back(table.value(row, column));
        }
        return true;
    });
    return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script({data, size});
    jet::MemoryFiles files;
    putFile(files, goodFile());
    std::shared_ptr<jet::Database> database = jet::Database::open(files, kFile);
    edit(database, files, script, Allowed::refusals);
    requireClean(*database);
    const auto anew = jet::Database::open(files, kFile);
    for (const jet::StoredObject& object : anew->objects()) {
        if (object.isTable() && rowsOf(*database, object.name) != rowsOf(*anew, object.name)) {
            fail("the file has other rows in " + object.name);
        }
    }
    return 0;
}
