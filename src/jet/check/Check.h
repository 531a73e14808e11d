// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "jet/database/Database.h"
#include "jet/database/Owners.h"
#include "jet/table/Key.h"
#include "jet/table/TableScan.h"

namespace huebrush::jet {

/// What a broken rule costs.
enum class Severity {
    damage,  ///< data is lost, or will be when the file is written to
    waste,   ///< space that nothing uses; other programs leave it, this engine does not
};

/// One broken rule: where, in which object of the database, and what was found there.
struct Violation {
    Severity severity = Severity::damage;
    PageNumber page = 0;
    /// The number of consecutive pages for which this holds.
    PageNumber pages = 1;
    std::size_t offset = 0;
    Rule rule;
    std::string object;
    std::string found;

    /// One line, for a person.
    std::string text() const;
};

struct CheckResult {
    std::vector<Violation> violations;

    bool isDamaged() const;
};

/// Checks everything that the rules of docs/jet4-format.md say. Never throws for a damaged file:
/// whatever cannot be read is a violation.
CheckResult check(Database& database);

/// What the parts of the check work on.
class CheckContext {
 public:
    explicit CheckContext(Database& database) : database(database) {}

    /// A page belongs to the current object; a violation when it already belongs to something.
    void claim(PageNumber page);
    /// Pages of usage-map rows are shared by many maps.
    void claimMapPage(PageNumber page);
    void claimMap(RowId where);
    void violate(PageNumber page, std::size_t offset, const Rule& rule, std::string found = {});
    void waste(PageNumber page, std::size_t offset, const Rule& rule, std::string found = {});
    /// Runs a part of the check; damage that ends it is a violation.
    void attempt(const std::function<void()>& part);
    /// Where a row begins on its page, to locate what is wrong with it.
    std::size_t offsetOf(RowId row);

    Database& database;
    CheckResult result;
    std::string object;

    struct Claim {
        std::string object;
        bool map;  ///< for the rows of maps
    };
    std::map<PageNumber, Claim> claimed;
    std::set<RowId> mapRows;
    /// Something could not be read, so some pages that have an owner are not claimed.
    bool incomplete = false;

 private:
    void add(Violation violation);
};

void checkTable(CheckContext& context, const TableDefinition& table);

/// The stored bytes of a row's key columns, kept while its table is checked.
using RowKeys = std::map<RowId, std::optional<Key>>;

/// Checks a tree against the keys that it must hold.
void checkIndex(CheckContext& context, const TableDefinition& table, const IndexTree& tree,
                const RowKeys& rows);

/// Checks that the four records of each relation agree and that children have parents.
void checkRelations(CheckContext& context);

}  // namespace huebrush::jet
