// SPDX-License-Identifier: MPL-2.0

// A good palette file, with its page maps as this engine or as other programs lay them out, is
// edited as the fuzzer says: after that it is sound, no more of its pages are lost than before, and
// opened again it shows the same.

#include <array>
#include <cstdio>
#include <cstdlib>

#include "Edits.h"
#include "jet/MapLayouts_test_support.h"
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

/// The orphaned pages: nothing owns them, and they are not free. Any other violation is a finding.
jet::PageNumber lostPages(jet::Database& database) {
    jet::PageNumber lost = 0;
    for (const jet::Violation& each : jet::check(database).violations) {
        if (!(each.rule == jet::rule::kOwned)) fail(each.text());
        lost += each.pages;
    }
    return lost;
}

/// One of a few layouts of the page maps; the first is this engine's own.
const jet::Bytes& fileWithLayout(std::uint8_t number) {
    constexpr std::uint8_t kLayouts = 64;
    static std::array<jet::Bytes, kLayouts> files;
    const std::uint32_t seed = number % kLayouts;
    if (seed == 0) return goodFile();
    jet::Bytes& file = files[seed];
    if (file.empty()) {
        file = jet::withOtherMaps(goodFile(), seed, jet::Layouts::ofThisEngine);
    }
    return file;
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
    // The last byte, so that the same script runs on every layout.
    const std::uint8_t layout = size == 0 ? std::uint8_t{0} : data[size - 1];
    Script script({data, size});
    jet::MemoryFiles files;
    putFile(files, fileWithLayout(layout));
    std::shared_ptr<jet::Database> database = jet::Database::open(files, kFile);
    const jet::PageNumber lost = lostPages(*database);
    edit(database, files, script, Allowed::refusals);
    if (lostPages(*database) > lost) fail("pages were lost");
    const auto reopened = jet::Database::open(files, kFile);
    for (const jet::StoredObject& object : reopened->objects()) {
        if (object.isTable() && rowsOf(*database, object.name) != rowsOf(*reopened, object.name)) {
            fail("the file has other rows in " + object.name);
        }
    }
    return 0;
}
