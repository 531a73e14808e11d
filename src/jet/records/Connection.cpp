// SPDX-License-Identifier: MPL-2.0

#include "jet/records/Connection.h"

#include "base/Text.h"
#include "jet/database/Catalogue.h"
#include "jet/database/Table.h"
#include "jet/records/Query.h"

namespace huebrush::jet {

void Connection::Open(const std::string& connection, const std::string& user,
                      const std::string& password) {
    if (database_) {
        throw Error(ErrorNumber::kAlreadyOpen, "Spojení už je otevřené.",
                    "the connection is open already");
    }
    if (user != "Admin" || !password.empty()) {
        throw Error(ErrorNumber::kNoSuchAccount,
                    base::text("Databáze nezná uživatele „", user, "“ s tímto heslem."),
                    base::text("the database has no user ", user, " with this password"));
    }
    const auto database = Database::open(*files_, dataSource(connection));
    // A file that only begins like a database is refused now and not by the first query.
    database->objects();
    database_ = database;
}

void Connection::Close() {
    database();
    database_.reset();
}

ObjectStateEnum Connection::State() const {
    return database_ ? ObjectStateEnum::adStateOpen : ObjectStateEnum::adStateClosed;
}

void Connection::Execute(const std::string& command) {
    const std::int32_t group = parseDelete(command);
    Database& open = *database();
    open.change([&] {
        Table elements(open, "TFillElementParameter");
        for (const RowId& row : elements.find(elements.column("GroupID"), group)) {
            elements.remove(row);
        }
    });
}

void Connection::inOneCommit(const std::function<void()>& body) {
    // The body may close the connection.
    const std::shared_ptr<Database> open = database();
    open->inOneCommit(body);
}

const std::shared_ptr<Database>& Connection::database() const {
    if (!database_) {
        throw Error(ErrorNumber::kClosed, "Spojení s databází není otevřené.",
                    "the connection is not open");
    }
    return database_;
}

}  // namespace huebrush::jet
