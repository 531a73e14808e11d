// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "jet/database/Database.h"

namespace huebrush::jet {

enum class ObjectStateEnum : std::int32_t { adStateClosed = 0, adStateOpen = 1 };

/// A database that is open, with the names that the platform's data objects have. Where an object
/// is closed and ought not to be, the error is 3704; where it is open already, 3705.
class Connection {
 public:
    explicit Connection(FileSystem& files = systemFiles()) : files_(&files) {}

    /// Opens the file that a connection string names (see `dataSource`). An error for what is not a
    /// readable database, and for any account but that of a file without accounts, "Admin" with an
    /// empty password.
    void Open(const std::string& connection, const std::string& user = "Admin",
              const std::string& password = "");
    /// Open record sets stay open, and keep the file.
    void Close();
    ObjectStateEnum State() const;

    /// Deletes the elements of a palette, all or none (see `parseDelete`).
    void Execute(const std::string& command);

    /// Runs a body whose changes, those of record sets too, are written in one commit; see
    /// Database::inOneCommit.
    void inOneCommit(const std::function<void()>& body);

    /// What record sets work on.
    const std::shared_ptr<Database>& database() const;

 private:
    FileSystem* files_;
    std::shared_ptr<Database> database_;
};

}  // namespace huebrush::jet
