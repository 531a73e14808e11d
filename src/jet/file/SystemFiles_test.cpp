// SPDX-License-Identifier: MPL-2.0

// What the engine relies on, whatever the system.

#include <fstream>
#include <iterator>

#include "files/Process_test_support.h"
#include "jet/file/SystemFolder_test_support.h"

namespace huebrush::jet {
namespace {

class SystemFiles : public SystemFolder {
 protected:
    static std::string bytesOf(const std::string& name) {
        std::ifstream in(files::pathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static std::size_t palettesIn(const std::string& name) {
        return allRows(*Database::open(systemFiles(), name), "TFillGroup").size();
    }
};

TEST_F(SystemFiles, ACommitLeavesOneFile) {
    const auto database = Database::open(systemFiles(), file);
    addPalette(*database, "a", {100});
    EXPECT_EQ(filesInFolder(), 1U);
    EXPECT_EQ(faults(*Database::open(systemFiles(), file)), "");
}

TEST_F(SystemFiles, AFileThatAnotherProgramHasOpenForWritingIsReadAndNotWritten) {
    const auto database = Database::open(systemFiles(), file);
    {
        const std::fstream other(files::pathOf(file), std::ios::in | std::ios::out);
        EXPECT_EQ(errorOf([&] { addPalette(*database, "a", {}); }), ErrorNumber::kInUse);
        EXPECT_EQ(palettesIn(file), 0U);
    }
    EXPECT_EQ(errorOf([&] { addPalette(*database, "a", {}); }), 0);
}

TEST_F(SystemFiles, AFileMayBeReadByOthersWhileItIsWritten) {
    const auto reader = Database::open(systemFiles(), file);
    const auto writer = Database::open(systemFiles(), file);
    addPalette(*writer, "a", {});
    EXPECT_EQ(allRows(*reader, "TFillGroup").size(), 0U);
    reader->refresh();
    EXPECT_EQ(allRows(*reader, "TFillGroup").size(), 1U);
}

TEST_F(SystemFiles, ReplacedByAnotherProgramTheFileIsReadAnew) {
    const auto database = Database::open(systemFiles(), file);
    const std::string other = inFolder("other.mdb");
    createPaletteFile(systemFiles(), other);
    addPalette(*Database::open(systemFiles(), other), "b", {});
    fs::rename(files::pathOf(other), files::pathOf(file));
    addPalette(*database, "a", {});
    EXPECT_EQ(allRows(*database, "TFillGroup").size(), 2U);
}

TEST_F(SystemFiles, MissingFilesAndFoldersAreErrors) {
    const auto openError = [&](const std::string& name) {
        return errorOf([&] { Database::open(systemFiles(), name); });
    };
    EXPECT_EQ(openError(inFolder("none.mdb")), ErrorNumber::kFileNotFound);
    EXPECT_EQ(openError(files::nameOf(folder)), ErrorNumber::kFileSystem);
    EXPECT_EQ(errorOf([&] { createDatabase(systemFiles(), inFolder("no") + "/x.mdb"); }),
              ErrorNumber::kFileNotFound);
    EXPECT_EQ(errorOf([&] { createDatabase(systemFiles(), file); }), ErrorNumber::kAlreadyExists);
}

TEST_F(SystemFiles, ARemovedFileIsGone) {
    systemFiles().remove(file);
    EXPECT_FALSE(systemFiles().exists(file));
    EXPECT_EQ(filesInFolder(), 0U);
    EXPECT_EQ(errorOf([&] { systemFiles().remove(file); }), ErrorNumber::kFileNotFound);
    createPaletteFile(systemFiles(), file);
    EXPECT_EQ(palettesIn(file), 0U);
}

TEST_F(SystemFiles, AFileThatAnotherProgramHasOpenForWritingIsNotRemoved) {
    {
        const std::fstream other(files::pathOf(file), std::ios::in | std::ios::out);
        EXPECT_EQ(errorOf([&] { systemFiles().remove(file); }), ErrorNumber::kInUse);
    }
    EXPECT_EQ(palettesIn(file), 0U);
}

TEST_F(SystemFiles, OnlyFilesAreRemoved) {
    const std::string empty = inFolder("empty");
    fs::create_directory(files::pathOf(empty));
    EXPECT_NE(errorOf([&] { systemFiles().remove(empty); }), 0);
    EXPECT_TRUE(systemFiles().exists(empty));
}

TEST_F(SystemFiles, FoldersAreMadeWithThoseThatTheyAreIn) {
    const std::string inner = inFolder("ě") + "/š";
    systemFiles().makeFolder(inner);
    systemFiles().makeFolder(inner + "/");
    createDatabase(systemFiles(), inner + "/x.mdb");
    EXPECT_TRUE(systemFiles().exists(inner + "/x.mdb"));
    EXPECT_NE(errorOf([&] { systemFiles().makeFolder(file + "/in a file"); }), 0);
}

const files::Task addPalettes("add palettes", [](const files::Task::Arguments& given) {
    const auto database = Database::open(systemFiles(), given[0]);
    for (int left = std::stoi(given[1]); left > 0; --left) addPalette(*database, "Paleta", {});
    return 0;
});

TEST_F(SystemFiles, TwoProcessesLoseNothingOfEachOther) {
    constexpr std::size_t kPalettes = 100 / kShare;
    const files::Task::Arguments arguments{file, std::to_string(kPalettes)};
    files::OtherProcess first("add palettes", arguments);
    files::OtherProcess second("add palettes", arguments);
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    EXPECT_EQ(palettesIn(file), 2 * kPalettes);
    EXPECT_EQ(faults(*Database::open(systemFiles(), file)), "");
    EXPECT_EQ(filesInFolder(), 1U);
}

/// Files of the system, with a call after each write of a commit and before it is published.
class StoppingFiles final : public FileSystem {
 public:
    using Stop = std::function<void(const char* call)>;
    explicit StoppingFiles(Stop stop) : stop_(std::move(stop)) {}

    std::string resolve(const std::string& name) override { return systemFiles().resolve(name); }
    bool exists(const std::string& name) override { return systemFiles().exists(name); }
    std::unique_ptr<File> open(const std::string& name) override {
        return systemFiles().open(name);
    }
    std::unique_ptr<NewFile> create(const std::string& name) override {
        return systemFiles().create(name);
    }
    std::unique_ptr<Lock> lock(const std::string& name) override {
        return std::make_unique<StoppingLock>(systemFiles().lock(name), stop_);
    }
    void remove(const std::string& name) override { systemFiles().remove(name); }
    void makeFolder(const std::string& name) override { systemFiles().makeFolder(name); }

 private:
    class StoppingNewFile final : public NewFile {
     public:
        StoppingNewFile(std::unique_ptr<NewFile> file, const Stop& stop)
            : file_(std::move(file)), stop_(stop) {}
        void write(std::uint64_t at, ByteView bytes) override {
            file_->write(at, bytes);
            stop_("write");
        }
        void read(std::uint64_t at, std::span<std::uint8_t> out) override { file_->read(at, out); }
        std::unique_ptr<File> publish() override {
            stop_("publish");
            return file_->publish();
        }

     private:
        std::unique_ptr<NewFile> file_;
        const Stop& stop_;
    };
    class StoppingLock final : public Lock {
     public:
        StoppingLock(std::unique_ptr<Lock> lock, const Stop& stop)
            : lock_(std::move(lock)), stop_(stop) {}
        std::unique_ptr<NewFile> replacement() override {
            return std::make_unique<StoppingNewFile>(lock_->replacement(), stop_);
        }

     private:
        std::unique_ptr<Lock> lock_;
        const Stop& stop_;
    };

    Stop stop_;
};

const files::Task commitHalf("commit half", [](const files::Task::Arguments& given) {
    int left = std::stoi(given[2]);
    StoppingFiles stopping([&](const char* call) {
        if (given[1] != call || --left > 0) return;
        std::ofstream(files::pathOf(given[3])) << "ready";
        files::waitToBeKilled();
    });
    const auto database = Database::open(stopping, given[0]);
    database->inOneCommit([&] { addPalette(*database, "half", {50000}); });
    return 0;
});

TEST_F(SystemFiles, AProcessThatIsKilledInMidCommitLeavesTheOldFile) {
    addPalette(*Database::open(systemFiles(), file), "whole", {3U << 20U});
    std::size_t palettes = 1;
    const std::pair<const char*, const char*> stops[] = {
        {"write", "1"}, {"write", "2"}, {"write", "5"}, {"publish", "1"}};
    for (const auto& [call, count] : stops) {
        SCOPED_TRACE(std::string(call) + " " + count);
        const std::string before = bytesOf(file);
        const std::string ready = inFolder("ready");
        files::OtherProcess other("commit half", {file, call, count, ready});
        ASSERT_TRUE(files::becomesTrue([&] { return bytesOf(ready) == "ready"; }));
        other.kill();
        fs::remove(files::pathOf(ready));
        EXPECT_TRUE(bytesOf(file) == before);
        const auto database = Database::open(systemFiles(), file);
        EXPECT_EQ(faults(*database), "");
        addPalette(*database, "next", {});
        EXPECT_EQ(palettesIn(file), ++palettes);
        EXPECT_EQ(filesInFolder(), 1U);
    }
}

}  // namespace
}  // namespace huebrush::jet
