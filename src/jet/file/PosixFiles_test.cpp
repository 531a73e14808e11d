#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "jet/file/PosixFolder_test_support.h"

namespace huebrush::jet {
namespace {

TEST_F(PosixFolder, ACommitLeavesOneFileWithItsRights) {
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    const auto database = Database::open(systemFiles(), file);
    addPalette(*database, "a", {100});
    EXPECT_EQ(filesInFolder(), 1U);
    EXPECT_EQ(fs::status(file).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    EXPECT_EQ(faults(*Database::open(systemFiles(), file)), "");
}

TEST_F(PosixFolder, ALinkStaysALink) {
    const fs::path link = folder / "link.mdb";
    fs::create_symlink(file, link);
    const auto database = Database::open(systemFiles(), link);
    addPalette(*database, "a", {});
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(allRows(*Database::open(systemFiles(), file), "TFillGroup").size(), 1U);
}

TEST_F(PosixFolder, AFileThatAnotherProgramHasOpenForWritingIsReadAndNotWritten) {
    const auto database = Database::open(systemFiles(), file);
    {
        const std::fstream other(file, std::ios::in | std::ios::out);
        EXPECT_EQ(errorOf([&] { addPalette(*database, "a", {}); }), ErrorNumber::kInUse);
        EXPECT_EQ(allRows(*Database::open(systemFiles(), file), "TFillGroup").size(), 0U);
    }
    EXPECT_EQ(errorOf([&] { addPalette(*database, "a", {}); }), 0);
}

TEST_F(PosixFolder, AFileMayBeReadByOthersWhileItIsWritten) {
    const auto reader = Database::open(systemFiles(), file);
    const auto writer = Database::open(systemFiles(), file);
    addPalette(*writer, "a", {});
    EXPECT_EQ(allRows(*reader, "TFillGroup").size(), 0U);
    reader->refresh();
    EXPECT_EQ(allRows(*reader, "TFillGroup").size(), 1U);
}

TEST_F(PosixFolder, ReplacedByAnotherProgramTheFileIsReadAnew) {
    const auto database = Database::open(systemFiles(), file);
    const fs::path other = folder / "other.mdb";
    createPaletteFile(systemFiles(), other);
    addPalette(*Database::open(systemFiles(), other), "b", {});
    fs::rename(other, file);
    addPalette(*database, "a", {});
    EXPECT_EQ(allRows(*database, "TFillGroup").size(), 2U);
}

TEST_F(PosixFolder, MissingFilesFoldersAndPipesAreErrors) {
    const auto openError = [&](const fs::path& name) {
        return errorOf([&] { Database::open(systemFiles(), name); });
    };
    EXPECT_EQ(openError(folder / "none.mdb"), ErrorNumber::kFileNotFound);
    EXPECT_EQ(openError(folder), ErrorNumber::kFileSystem);
    const fs::path pipe = folder / "pipe.mdb";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(openError(pipe), ErrorNumber::kFileSystem);
    EXPECT_EQ(errorOf([&] { createDatabase(systemFiles(), folder / "no" / "x.mdb"); }),
              ErrorNumber::kFileNotFound);
    EXPECT_EQ(errorOf([&] { createDatabase(systemFiles(), file); }), ErrorNumber::kAlreadyExists);
}

TEST_F(PosixFolder, TwoProcessesLoseNothingOfEachOther) {
    constexpr int kPalettes = 500 / static_cast<int>(kShare);
    std::vector<pid_t> processes;
    for (int process = 0; process < 2; ++process) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            int done = 0;
            try {
                const auto database = Database::open(systemFiles(), file);
                for (; done < kPalettes; ++done) addPalette(*database, "Paleta", {});
            } catch (const base::Error& error) {
                std::cerr << error.description() << '\n';
            }
            ::_exit(done == kPalettes ? 0 : 1);
        }
        processes.push_back(child);
    }
    for (const pid_t process : processes) {
        int status = 0;
        ASSERT_EQ(::waitpid(process, &status, 0), process);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    const auto database = Database::open(systemFiles(), file);
    EXPECT_EQ(allRows(*database, "TFillGroup").size(), 2U * kPalettes);
    EXPECT_EQ(faults(*database), "");
    EXPECT_EQ(filesInFolder(), 1U);
}

}  // namespace
}  // namespace huebrush::jet
