#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "jet/database/Database.h"
#include "jet/table/Key.h"
#include "jet/table/TableScan.h"

namespace huebrush::jet {

/// One broken rule: where, and in which object of the database.
struct Violation {
    PageNumber page = 0;
    std::size_t offset = 0;
    Rule rule;
    std::string object;

    /// One line, for a person.
    std::string text() const;
};

struct CheckResult {
    std::vector<Violation> violations;
    /// Pages in use that belong to nothing. The platform leaves such; this engine does not.
    std::vector<PageNumber> unowned;
};

/// Checks everything that the rules of docs/jet4-format.md say. Never throws for a damaged file:
/// what cannot be read is a violation.
CheckResult check(Database& database);

/// What the parts of the check work on.
class CheckContext {
 public:
    explicit CheckContext(Database& database) : database(database) {}

    /// A page belongs to the current object; a violation when it belongs to something already.
    void claim(PageNumber page);
    /// Pages of usage-map rows are shared by many maps.
    void claimMapPage(PageNumber page);
    void claimMap(RowId where);
    void violate(PageNumber page, std::size_t offset, const Rule& rule);
    /// Runs a part of the check; damage that ends it is a violation.
    void attempt(const std::function<void()>& part);

    Database& database;
    CheckResult result;
    std::string object;
    std::map<PageNumber, bool> claimed;  ///< by page: whether for maps
};

void checkTable(CheckContext& context, const TableDefinition& table);

/// The stored bytes of a row's key columns, kept while its table is checked.
using RowKeys = std::map<RowId, std::optional<Key>>;

/// Checks a tree against the keys that it has to hold.
void checkIndex(CheckContext& context, const TableDefinition& table, const IndexTree& tree,
                const RowKeys& rows);

/// Checks that relations are told alike in both tables and that children have parents.
void checkRelations(CheckContext& context);

}  // namespace huebrush::jet
