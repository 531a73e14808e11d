// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "jet/database/StoredObjects.h"
#include "jet/file/FileSystem.h"
#include "jet/page/Header.h"
#include "jet/page/Space.h"
#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// A database file. Reading sees the file as of the last `refresh`, plus what this object has
/// changed; a change locks the file against other writers, and is written completely or not at all.
class Database {
 public:
    /// Errors for what cannot be opened, with the reason; see readHeader. `memory` is the number of
    /// pages kept in memory.
    static std::shared_ptr<Database> open(FileSystem& files, const std::string& name,
                                          std::size_t memory = Pages::kUsualMemory);

    /// Creates a new, empty database in a file that does not exist yet: `fill` creates its pages
    /// and rows, and then the whole file appears. An error when the name is taken.
    using Fill = std::function<void(Database& database)>;
    static void create(FileSystem& files, const std::string& name, RowId freeMap,
                       const std::function<void(Pages& pages)>& makePages, const Fill& fill);

    const std::string& name() const { return name_; }
    const Header& header();
    Pages& pages();
    Space& space();

    /// The definition of a table, by the page on which it begins; its properties are applied.
    std::shared_ptr<const TableDefinition> definition(PageNumber page);
    /// By its name; an error when there is no such table.
    std::shared_ptr<const TableDefinition> definition(const std::string& name);
    /// What the catalogue lists.
    const std::vector<StoredObject>& objects();

    /// Reads the file again if another program has replaced it.
    void refresh();

    /// Runs a body that changes pages. When it throws, everything it did is undone; otherwise
    /// the change is written, or waits for the end of the commit group.
    void change(const std::function<void()>& body);
    /// Runs a body whose changes are written in one commit, even when it ends with an error: what
    /// was done before the error stays done.
    void inOneCommit(const std::function<void()>& body);

    /// The catalogue or a definition has changed.
    void forgetDefinitions();

 private:
    Database(FileSystem& files, std::string name, std::size_t memory = Pages::kUsualMemory);
    void load();
    void writeNew();
    void commit();
    void discard();

    FileSystem* files_;
    std::string name_;
    std::size_t memory_;
    std::optional<Header> header_;
    std::unique_ptr<Pages> pages_;
    std::unique_ptr<Space> space_;
    std::unique_ptr<Lock> lock_;
    int groups_ = 0;
    std::map<PageNumber, std::shared_ptr<const TableDefinition>> definitions_;
    std::optional<std::vector<StoredObject>> objects_;
};

}  // namespace huebrush::jet
