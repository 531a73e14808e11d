#include "jet/file/MemoryFiles.h"

#include <algorithm>

#include "base/Text.h"

namespace huebrush::jet {

namespace {

using Kind = MemoryFiles::Deed::Kind;

class MemoryFile final : public File {
 public:
    MemoryFile(MemoryFiles& system, std::string name, MemoryFiles::Content content)
        : system_(system), name_(std::move(name)), content_(std::move(content)) {}

    std::uint64_t size() override {
        system_.call("size");
        return content_->size();
    }
    void read(std::uint64_t at, std::span<std::uint8_t> out) override {
        system_.call("read");
        if (at + out.size() > content_->size()) {
            throw base::Error(ErrorNumber::kFileSystem,
                              base::text("Soubor „", name_, "“ byl během čtení zkrácen."));
        }
        std::copy_n(content_->begin() + static_cast<std::ptrdiff_t>(at), out.size(), out.begin());
    }
    void write(std::uint64_t at, ByteView bytes) override {
        system_.call("write");
        system_.note({Kind::write, name_, "", at, Bytes(bytes.begin(), bytes.end())});
        content_->resize(std::max<std::size_t>(content_->size(), at + bytes.size()));
        std::copy(bytes.begin(), bytes.end(), content_->begin() + static_cast<std::ptrdiff_t>(at));
    }
    void sync() override {
        system_.call("sync");
        system_.note({Kind::sync, name_, "", 0, {}});
    }
    bool isCurrent() override {
        const auto now = system_.files.find(name_);
        return now != system_.files.end() && now->second == content_;
    }

 private:
    MemoryFiles& system_;
    std::string name_;
    MemoryFiles::Content content_;
};

class MemoryLock final : public Lock {
 public:
    using Locked = std::shared_ptr<std::set<MemoryFiles::Content>>;

    MemoryLock(Locked locked, MemoryFiles::Content content)
        : locked_(std::move(locked)), content_(std::move(content)) {
        locked_->insert(content_);
    }
    MemoryLock(const MemoryLock&) = delete;
    MemoryLock& operator=(const MemoryLock&) = delete;
    ~MemoryLock() override { locked_->erase(content_); }

 private:
    Locked locked_;
    MemoryFiles::Content content_;
};

[[noreturn]] void throwMissing(const std::string& name) {
    throw base::Error(ErrorNumber::kFileNotFound, base::text("Soubor „", name, "“ neexistuje."));
}
[[noreturn]] void throwTaken(const std::string& name) {
    throw base::Error(ErrorNumber::kAlreadyExists, base::text("Soubor „", name, "“ už existuje."));
}

}  // namespace

void MemoryFiles::note(Deed deed) {
    if (recording) deeds.push_back(std::move(deed));
}

std::unique_ptr<File> MemoryFiles::open(const std::string& name) {
    call("open");
    const auto found = files.find(name);
    if (found == files.end()) throwMissing(name);
    return std::make_unique<MemoryFile>(*this, name, found->second);
}

std::unique_ptr<File> MemoryFiles::create(const std::string& name, const std::string&) {
    call("create");
    if (exists(name)) throwTaken(name);
    note({Deed::Kind::create, name, "", 0, {}});
    const auto content = std::make_shared<Bytes>();
    files[name] = content;
    return std::make_unique<MemoryFile>(*this, name, content);
}

void MemoryFiles::replace(const std::string& from, const std::string& to) {
    call("replace");
    if (!exists(from)) throwMissing(from);
    note({Deed::Kind::replace, from, to, 0, {}});
    files[to] = files.at(from);
    files.erase(from);
}

void MemoryFiles::moveNew(const std::string& from, const std::string& to) {
    call("moveNew");
    if (!exists(from)) throwMissing(from);
    if (exists(to)) throwTaken(to);
    note({Deed::Kind::moveNew, from, to, 0, {}});
    files[to] = files.at(from);
    files.erase(from);
}

void MemoryFiles::remove(const std::string& name) {
    call("remove");
    if (!exists(name)) throwMissing(name);
    note({Deed::Kind::remove, name, "", 0, {}});
    files.erase(name);
}

void MemoryFiles::syncFolder(const std::string& name) {
    call("syncFolder");
    note({Deed::Kind::syncFolder, name, "", 0, {}});
}

std::unique_ptr<Lock> MemoryFiles::lock(const std::string& name) {
    call("lock");
    const auto file = files.find(name);
    if (file == files.end()) throwMissing(name);
    if (locked->contains(file->second)) {
        throw base::Error(ErrorNumber::kInUse,
                          base::text("Databázi „", name, "“ má otevřenou jiný program."));
    }
    return std::make_unique<MemoryLock>(locked, file->second);
}

}  // namespace huebrush::jet
