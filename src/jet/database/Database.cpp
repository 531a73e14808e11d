// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Database.h"

#include "base/Text.h"
#include "jet/database/Owners.h"
#include "jet/table/Properties.h"

namespace huebrush::jet {

Database::Database(FileSystem& files, std::string name, std::size_t memory)
    : files_(&files), name_(std::move(name)), memory_(memory) {}

std::shared_ptr<Database> Database::open(FileSystem& files, const std::string& name,
                                         std::size_t memory) {
    std::shared_ptr<Database> database(new Database(files, files.resolve(name), memory));
    database->load();
    return database;
}

void Database::load() {
    std::shared_ptr<File> file = files_->open(name_);
    header_ = readHeader(*file, name_);
    // The scratch file has the rights of the file, and is removed before the lock is.
    pages_ = std::make_unique<Pages>(
        std::move(file), [this] { return lock_->replacement(); }, memory_);
    space_ = std::make_unique<Space>(*pages_, header_->freeMap);
    forgetDefinitions();
}

const Header& Database::header() {
    pages();
    return *header_;
}

void Database::create(FileSystem& files, const std::string& name, RowId freeMap,
                      const std::function<void(Pages& pages)>& makePages, const Fill& fill) {
    Database database(files, name);
    database.pages_ = std::make_unique<Pages>([&] { return files.create(name); });
    makePages(*database.pages_);
    database.header_ = Header{freeMap, 2, 3, 4, 5};
    database.space_ = std::make_unique<Space>(*database.pages_, freeMap);
    fill(database);
    database.writeNew();
}

void Database::writeNew() {
    if (files_->exists(name_)) {
        throw Error(ErrorNumber::kAlreadyExists, base::text("Databáze „", name_, "“ už existuje."),
                    base::text("the database ", name_, " already exists"));
    }
    const std::unique_ptr<NewFile> file = files_->create(name_);
    pages_->writeTo(*file);
    file->publish();
}

Pages& Database::pages() {
    if (!pages_) load();
    return *pages_;
}

Space& Database::space() {
    pages();
    return *space_;
}

void Database::forgetDefinitions() {
    definitions_.clear();
    objects_.reset();
}

const std::vector<StoredObject>& Database::objects() {
    if (!objects_) objects_ = readStoredObjects(pages(), header().objects);
    return *objects_;
}

std::shared_ptr<const TableDefinition> Database::definition(PageNumber page) {
    auto& known = definitions_[page];
    if (known) return known;
    auto table = std::make_shared<TableDefinition>(readDefinition(pages(), page));
    for (const StoredObject& object : objects()) {
        if (!object.isTable() || object.id != static_cast<std::int32_t>(page)) continue;
        table->name = object.name;
        applyProperties(readProperties(object.properties), *table);
    }
    known = table;
    return known;
}

std::shared_ptr<const TableDefinition> Database::definition(const std::string& name) {
    for (const StoredObject& object : objects()) {
        if (object.isTable() && object.name == name) {
            return definition(static_cast<PageNumber>(object.id));
        }
    }
    throw Error(ErrorNumber::kNoSuchTable,
                base::text("Databáze „", name_, "“ nemá tabulku „", name, "“."),
                base::text(name_, " has no table ", name));
}

void Database::refresh() {
    if (lock_ || (pages_ && pages_->file()->isCurrent())) return;
    load();
}

void Database::discard() {
    pages_.reset();
    space_.reset();
    forgetDefinitions();
}

void Database::change(const std::function<void()>& body) {
    if (!lock_) {
        lock_ = files_->lock(name_);
        try {
            if (!pages_ || !pages_->file()->isCurrent()) load();
            space_->requireWhole();
            space_->begin(readOwners(*pages_, *header_, objects()));
        } catch (...) {
            lock_.reset();
            throw;
        }
    }
    pages_->mark();
    try {
        body();
    } catch (...) {
        pages_->undo();
        space_->restart();
        forgetDefinitions();
        if (groups_ == 0) lock_.reset();
        throw;
    }
    if (groups_ == 0) commit();
}

void Database::inOneCommit(const std::function<void()>& body) {
    ++groups_;
    try {
        body();
    } catch (...) {
        if (--groups_ == 0) commit();
        throw;
    }
    if (--groups_ == 0) commit();
}

/// Writes a whole new file, which takes the place of the old one: other programs see one or the
/// other. If that fails, what was to be written is discarded.
void Database::commit() {
    const std::unique_ptr<Lock> lock = std::move(lock_);
    if (!pages_ || !pages_->changed()) return;
    try {
        const std::unique_ptr<NewFile> file = lock->replacement();
        pages_->writeTo(*file);
        pages_->adopt(file->publish());
    } catch (...) {
        discard();
        throw;
    }
}

}  // namespace huebrush::jet
