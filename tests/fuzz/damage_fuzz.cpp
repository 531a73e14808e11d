// SPDX-License-Identifier: MPL-2.0

// A palette file that is damaged as the fuzzer says is opened, read, checked and edited: whatever
// is wrong with it, that ends by a result or by an error of the database.

#include "Edits.h"
#include "jet/check/Check.h"
#include "jet/page/Pages.h"

namespace {

using namespace huebrush;
using namespace huebrush::fuzz;

/// Puts bytes over those of a good file.
jet::Bytes damaged(Script& script) {
    jet::Bytes file = goodFile();
    const std::size_t pages = file.size() / jet::kPageSize;
    for (std::size_t left = script.below(32); left > 0; --left) {
        std::size_t at = script.below(pages) * jet::kPageSize + script.u16() % jet::kPageSize;
        for (std::size_t bytes = 1 + script.below(8); bytes > 0 && at < file.size(); --bytes) {
            file[at++] = script.u8();
        }
    }
    if (script.below(16) == 15) file.resize(script.below(pages + 1) * jet::kPageSize);
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script({data, size});
    jet::MemoryFiles files;
    putFile(files, damaged(script));
    std::shared_ptr<jet::Database> database;
    if (!attempt(Allowed::anyError, [&] { database = jet::Database::open(files, kFile); }))
        return 0;
    attempt(Allowed::anyError, [&] { readEverything(*database, Allowed::anyError); });
    jet::check(*database);
    edit(database, files, script, Allowed::anyError);
    return 0;
}
