// SPDX-License-Identifier: MPL-2.0

#include "jet/file/MemoryFiles.h"

#include <algorithm>

#include "base/Text.h"

namespace huebrush::jet {

namespace {

using Kind = MemoryFiles::Action::Kind;

void readFrom(const Bytes& content, const std::string& name, std::uint64_t at,
              std::span<std::uint8_t> out) {
    if (at + out.size() > content.size()) {
        throw Error(ErrorNumber::kFileSystem,
                    base::text("Soubor „", name, "“ byl během čtení zkrácen."),
                    base::text(name, " was cut off while it was read"));
    }
    std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(at), out.size(), out.begin());
}

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
        readFrom(*content_, name_, at, out);
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

/// A lock, held as long as the object lives.
class Hold {
 public:
    Hold(MemoryFiles& system, MemoryFiles::Content content)
        : locked_(system.locked), content_(std::move(content)) {
        locked_->insert(content_);
    }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { locked_->erase(content_); }

 private:
    std::shared_ptr<std::set<MemoryFiles::Content>> locked_;
    MemoryFiles::Content content_;
};

[[noreturn]] void throwMissing(const std::string& name) {
    throw Error(ErrorNumber::kFileNotFound, base::text("Soubor „", name, "“ neexistuje."),
                base::text(name, " does not exist"));
}
[[noreturn]] void throwTaken(const std::string& name) {
    throw Error(ErrorNumber::kAlreadyExists, base::text("Soubor „", name, "“ už existuje."),
                base::text(name, " already exists"));
}

/// What a killed program has left is overwritten.
class MemoryNewFile final : public NewFile {
 public:
    MemoryNewFile(MemoryFiles& system, std::string name, bool replaces)
        : system_(system),
          name_(std::move(name)),
          beside_(MemoryFiles::beside(name_)),
          replaces_(replaces) {
        system_.call("create");
        if (system_.exists(beside_)) remove();
        system_.note({Kind::create, beside_, "", 0, {}});
        system_.files[beside_] = content_;
        hold_ = std::make_unique<Hold>(system_, content_);
    }
    MemoryNewFile(const MemoryNewFile&) = delete;
    MemoryNewFile& operator=(const MemoryNewFile&) = delete;
    ~MemoryNewFile() override {
        const auto left = system_.files.find(beside_);
        if (left == system_.files.end() || left->second != content_) return;
        try {
            system_.call("remove");
            remove();
        } catch (const base::Error&) {  // NOLINT(bugprone-empty-catch): another error is reported
        }
    }

    void write(std::uint64_t at, ByteView bytes) override {
        system_.call("write");
        system_.note({Kind::write, beside_, "", at, Bytes(bytes.begin(), bytes.end())});
        const auto place = static_cast<std::size_t>(at);
        content_->resize(std::max(content_->size(), place + bytes.size()));
        std::copy(bytes.begin(), bytes.end(),
                  content_->begin() + static_cast<std::ptrdiff_t>(place));
    }
    void read(std::uint64_t at, std::span<std::uint8_t> out) override {
        system_.call("read");
        readFrom(*content_, beside_, at, out);
    }
    std::unique_ptr<File> publish() override {
        system_.call("sync");
        system_.note({Kind::sync, beside_, "", 0, {}});
        system_.call(replaces_ ? "replace" : "moveNew");
        if (!replaces_ && system_.exists(name_)) throwTaken(name_);
        system_.note({replaces_ ? Kind::replace : Kind::moveNew, beside_, name_, 0, {}});
        system_.files[name_] = content_;
        system_.files.erase(beside_);
        system_.call("syncFolder");
        system_.note({Kind::syncFolder, name_, "", 0, {}});
        return std::make_unique<MemoryFile>(system_, name_, content_);
    }

 private:
    void remove() {
        system_.note({Kind::remove, beside_, "", 0, {}});
        system_.files.erase(beside_);
    }

    MemoryFiles& system_;
    std::string name_;
    std::string beside_;
    bool replaces_;
    MemoryFiles::Content content_ = std::make_shared<Bytes>();
    std::unique_ptr<Hold> hold_;
};

class MemoryLock final : public Lock {
 public:
    MemoryLock(MemoryFiles& system, std::string name, MemoryFiles::Content content)
        : system_(system), name_(std::move(name)), hold_(system, std::move(content)) {}

    std::unique_ptr<NewFile> replacement() override {
        return std::make_unique<MemoryNewFile>(system_, name_, true);
    }

 private:
    MemoryFiles& system_;
    std::string name_;
    Hold hold_;
};

}  // namespace

void MemoryFiles::note(Action action) {
    if (recording) actions.push_back(std::move(action));
}

std::unique_ptr<File> MemoryFiles::open(const std::string& name) {
    call("open");
    const auto found = files.find(name);
    if (found == files.end()) throwMissing(name);
    return std::make_unique<MemoryFile>(*this, name, found->second);
}

std::unique_ptr<NewFile> MemoryFiles::create(const std::string& name) {
    return std::make_unique<MemoryNewFile>(*this, name, false);
}

std::unique_ptr<Lock> MemoryFiles::lock(const std::string& name) {
    call("lock");
    const auto file = files.find(name);
    if (file == files.end()) throwMissing(name);
    if (locked->contains(file->second)) {
        throw Error(ErrorNumber::kInUse,
                    base::text("Databázi „", name, "“ má otevřenou jiný program."),
                    base::text("another program has ", name, " open"));
    }
    return std::make_unique<MemoryLock>(*this, name, file->second);
}

void MemoryFiles::remove(const std::string& name) {
    static_cast<void>(lock(name));
    call("remove");
    note({Kind::remove, name, "", 0, {}});
    files.erase(name);
}

}  // namespace huebrush::jet
