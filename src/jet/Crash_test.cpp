// SPDX-License-Identifier: MPL-2.0

// The power fails at any moment: whichever of the last writes have reached the medium, the file is
// as it was before or as it was to be. And each system call fails once, or from then on.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

using Action = MemoryFiles::Action;
using Disk = std::map<std::string, Bytes>;

/// What a medium may hold after a crash: everything that was synced, and as much of the rest as a
/// case says.
class Medium {
 public:
    Medium(const Disk& before, const std::vector<Action>& actions, std::size_t done) {
        for (const auto& [name, bytes] : before) {
            names_[name] = live_[name] = static_cast<int>(files_.size());
            files_.push_back({bytes, {}});
        }
        for (std::size_t i = 0; i < done; ++i) follow(actions[i]);
    }

    std::size_t pendingNames() const { return pendingNames_.size(); }
    /// The file that has writes which may be lost; -1 when there is none.
    int unsynced() const {
        for (std::size_t i = 0; i < files_.size(); ++i) {
            if (!files_[i].pending.empty()) return static_cast<int>(i);
        }
        return -1;
    }
    const std::vector<Action>& pending(int file) const {
        return files_[static_cast<std::size_t>(file)].pending;
    }
    /// `names`: how many changes of names arrived. `written`: how much of each pending write of the
    /// unsynced file did, in bytes.
    Disk after(std::size_t names, const std::vector<std::size_t>& written) const {
        std::map<std::string, int> byName = names_;
        for (std::size_t i = 0; i < names; ++i) rename(byName, pendingNames_[i]);
        Disk disk;
        for (const auto& [name, file] : byName) {
            const File& each = files_[static_cast<std::size_t>(file)];
            Bytes bytes = each.synced;
            if (file == unsynced()) {
                for (std::size_t i = 0; i < written.size(); ++i) {
                    write(bytes, each.pending[i], written[i]);
                }
            }
            disk[name] = std::move(bytes);
        }
        return disk;
    }

 private:
    struct File {
        Bytes synced;
        std::vector<Action> pending;
    };
    struct Name {
        Action action;
        int file;
    };

    static void write(Bytes& bytes, const Action& action, std::size_t size) {
        if (size == 0) return;
        const auto at = static_cast<std::size_t>(action.at);
        bytes.resize(std::max(bytes.size(), at + size));
        std::copy_n(action.bytes.begin(), size, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    }
    static void rename(std::map<std::string, int>& names, const Name& change) {
        switch (change.action.kind) {
            case Action::Kind::create:
                names[change.action.name] = change.file;
                break;
            case Action::Kind::remove:
                names.erase(change.action.name);
                break;
            default:
                names.erase(change.action.name);
                names[change.action.other] = change.file;
        }
    }
    void follow(const Action& action) {
        if (action.kind == Action::Kind::create) {
            live_[action.name] = static_cast<int>(files_.size());
            files_.push_back({});
        }
        if (action.kind == Action::Kind::syncFolder) {
            for (const Name& each : pendingNames_) rename(names_, each);
            pendingNames_.clear();
            return;
        }
        const int number = live_.at(action.name);
        File& file = files_[static_cast<std::size_t>(number)];
        if (action.kind == Action::Kind::write) {
            file.pending.push_back(action);
        } else if (action.kind == Action::Kind::sync) {
            for (const Action& each : file.pending) write(file.synced, each, each.bytes.size());
            file.pending.clear();
        } else {
            pendingNames_.push_back({action, number});
            rename(live_, pendingNames_.back());
        }
    }

    std::vector<File> files_;
    std::map<std::string, int> names_;  ///< as the medium has them
    std::map<std::string, int> live_;   ///< as the system sees them
    std::vector<Name> pendingNames_;
};

class Crashes : public ::testing::Test {
 protected:
    static Disk diskOf(const MemoryFiles& files) {
        Disk disk;
        for (const auto& [name, content] : files.files) disk[name] = *content;
        return disk;
    }

    /// Runs an operation and looks at the medium after each crash that could have happened.
    void crashEverywhere(MemoryFiles& files, const std::function<void()>& operation) {
        before = diskOf(files);
        files.actions.clear();
        files.record();
        operation();
        after = diskOf(files);
        ASSERT_NE(before, after);
        for (std::size_t done = 0; done <= files.actions.size(); ++done) {
            const Medium medium(before, files.actions, done);
            for (std::size_t names = 0; names <= medium.pendingNames(); ++names) {
                crash(medium, names);
            }
        }
    }
    void crash(const Medium& medium, std::size_t names) {
        const int file = medium.unsynced();
        if (file < 0) {
            verify(medium.after(names, {}));
            return;
        }
        std::vector<std::size_t> whole;
        for (const Action& each : medium.pending(file)) whole.push_back(each.bytes.size());
        verify(medium.after(names, whole));
        verify(medium.after(names, std::vector<std::size_t>(whole.size(), 0)));
        for (std::size_t lost = 0; lost + 1 < whole.size(); ++lost) {
            auto reordered = whole;
            reordered[lost] = 0;
            verify(medium.after(names, reordered));
        }
        for (const std::size_t sector : {512U, 2048U}) {
            for (std::size_t at = sector; at < whole.back(); at += sector * kShare) {
                auto torn = whole;
                torn.back() = at;
                verify(medium.after(names, torn));
            }
        }
    }

    void verify(const Disk& disk) {
        ++cases;
        const auto now = disk.find(PaletteFile::kName);
        const auto old = before.find(PaletteFile::kName);
        const bool isOld = (now == disk.end() && old == before.end()) ||
                           (now != disk.end() && old != before.end() && now->second == old->second);
        const bool isNew = now != disk.end() && now->second == after.at(PaletteFile::kName);
        ASSERT_TRUE(isOld || isNew) << "case " << cases;
        // Whatever else a crash leaves behind does no harm.
        if (cases % 500 != 0 || now == disk.end()) return;
        MemoryFiles files;
        for (const auto& [name, bytes] : disk) files.files[name] = std::make_shared<Bytes>(bytes);
        const auto database = Database::open(files, PaletteFile::kName);
        ASSERT_EQ(faults(*database), "");
        addPalette(*database, "po havárii", {100});
        ASSERT_EQ(faults(*database), "");
        ASSERT_EQ(files.files.size(), names(disk));
    }
    /// All files but what a commit has left unfinished, which the next one removes.
    static std::size_t names(const Disk& disk) {
        return disk.size() - disk.count(MemoryFiles::beside(PaletteFile::kName));
    }

    Disk before;
    Disk after;
    std::size_t cases = 0;
};

TEST_F(Crashes, LeaveTheFileAsBeforeOrAsAfter) {
    MemoryFiles empty;
    crashEverywhere(empty, [&] { createDatabase(empty, PaletteFile::kName); });
    PaletteFile file;
    std::int32_t id = 0;
    for (const std::size_t elements : {1U, 16U, 255U}) {
        crashEverywhere(file.files, [&] {
            file.database->inOneCommit([&] {
                id = addPalette(*file.database, "Paleta", std::vector<std::size_t>(elements, 2000));
            });
        });
        ASSERT_EQ(faults(*file.database), "");
    }
    crashEverywhere(file.files, [&] {
        file.database->change([&] {
            Table table(*file.database, "TFillGroup");
            table.update(table.find(table.column("ID"), id).at(0),
                         {{&table.column("Name"), std::string("Jiné jméno")}});
        });
    });
    crashEverywhere(file.files, [&] { erasePalette(*file.database, id); });
    ASSERT_EQ(faults(*file.database), "");
    std::cout << cases << " crashes\n";
    EXPECT_GE(cases, 10000U / kShare);
}

/// Runs operations on a system whose n-th call fails: once, or from then on.
class Failures : public ::testing::Test {
 protected:
    void failEverywhere(std::size_t memory);
    static void failAt(MemoryFiles& files, std::size_t at, bool lasting, std::size_t& calls) {
        calls = 0;
        files.onCall = [at, lasting, &calls](const char* what) {
            const std::size_t number = calls++;
            if (number == at || (lasting && number > at)) {
                throw base::Error(ErrorNumber::kFileSystem, what);
            }
        };
    }

    std::size_t cases = 0;
};

TEST_F(Failures, OfAnyCallLeaveTheFileAsBeforeOrAsAfter) {
    failEverywhere(Pages::kUsualMemory);
    EXPECT_GE(cases, 16U);
}

TEST_F(Failures, OfAnyCallWithFewPagesInMemoryDoSoToo) {
    failEverywhere(4);
    EXPECT_GE(cases, 60U);
}

void Failures::failEverywhere(std::size_t memory) {
    for (const bool lasting : {false, true}) {
        for (std::size_t at = 0;; ++at) {
            PaletteFile file;
            addPalette(*file.database, "první", {100, 5000});
            file.database = Database::open(file.files, PaletteFile::kName, memory);
            const Bytes before = *file.files.files.at(PaletteFile::kName);
            std::size_t calls = 0;
            failAt(file.files, at, lasting, calls);
            bool failed = false;
            try {
                file.database->inOneCommit([&] {
                    erasePalette(*file.database, 1);
                    addPalette(*file.database, "druhá", {3000, 9000, 10});
                });
            } catch (const base::Error&) {
                failed = true;
            }
            file.files.onCall = nullptr;
            ++cases;
            const auto again = Database::open(file.files, PaletteFile::kName);
            ASSERT_EQ(faults(*again), "") << at;
            const auto groups = allRows(*again, "TFillGroup");
            const std::size_t elements = allRows(*again, "TFillElementParameter").size();
            const bool isNew = groups.size() == 1 && groups[0][1] == Value(std::string("druhá"));
            const bool isOld = *file.files.files.at(PaletteFile::kName) == before;
            const bool isWhole = isNew && elements == 3;
            // Only a change that puts pages away can fail before the commit; those before it stay.
            const bool isPart = memory != Pages::kUsualMemory && (isNew || groups.empty());
            ASSERT_TRUE(isWhole || isOld || isPart) << at;
            ASSERT_TRUE(isNew || isOld || elements == 0) << at;
            ASSERT_TRUE(isWhole || failed) << at;
            // The same object works again when the system does.
            file.database->refresh();
            addPalette(*file.database, "třetí", {1});
            ASSERT_EQ(faults(*file.database), "");
            ASSERT_LE(file.files.files.size(), lasting ? 2U : 1U);
            if (at >= calls) break;
        }
    }
    std::cout << cases << " failures\n";
}

TEST_F(Failures, OfAnyCallLeaveNoFileOrAWholeNewOne) {
    for (const bool lasting : {false, true}) {
        for (std::size_t at = 0;; ++at) {
            MemoryFiles files;
            std::size_t calls = 0;
            failAt(files, at, lasting, calls);
            try {
                createDatabase(files, PaletteFile::kName);
            } catch (const base::Error&) {
                EXPECT_LE(at, calls);
            }
            files.onCall = nullptr;
            if (files.exists(PaletteFile::kName)) {
                const auto database = Database::open(files, PaletteFile::kName);
                ASSERT_EQ(faults(*database), "");
            }
            if (at >= calls) break;
        }
    }
}

}  // namespace
}  // namespace huebrush::jet
