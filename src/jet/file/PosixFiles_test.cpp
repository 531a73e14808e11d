#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <random>

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

/// Another program, which opens and closes the file all the time, and writes a counter into it once
/// in a while: into the last of
/// the commit counters on its first page.
class OtherProgram {
 public:
    explicit OtherProgram(const fs::path& file) : before_(counterIn(file)), process_(::fork()) {
        if (process_ != 0) return;
        std::mt19937 random(1);
        for (std::uint32_t written = before_;;) {
            const int open = ::open(file.c_str(), O_RDWR);
            std::uint32_t found = 0;
            if (::pread(open, &found, sizeof found, kPlace) != sizeof found) ::_exit(kFailed);
            if (found != written) ::_exit(kLost);
            if (random() % 128 == 0) {
                ++written;
                if (::pwrite(open, &written, sizeof written, kPlace) < 0) ::_exit(kFailed);
            }
            ::close(open);
            // Most of the time it has the file open for reading only, or not at all.
            for (int i = 0; i < 4; ++i) counterIn(file);
        }
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() { end(); }

    /// Ends it; the exit code with which it ended before, or 0.
    int end() {
        if (process_ == 0) return 0;
        ::kill(process_, SIGKILL);
        int status = 0;
        ::waitpid(std::exchange(process_, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    }
    std::uint32_t writesIn(const fs::path& file) const { return counterIn(file) - before_; }

    static constexpr int kLost = 2;
    static constexpr int kFailed = 3;

 private:
    static std::uint32_t counterIn(const fs::path& file) {
        std::ifstream in(file, std::ios::binary);
        std::uint32_t count = 0;
        in.seekg(kPlace).read(reinterpret_cast<char*>(&count), sizeof count);
        return count;
    }

    static constexpr off_t kPlace = kPageSize - 4;
    std::uint32_t before_;
    pid_t process_;
};

TEST_F(PosixFolder, SavesAndTheWritesOfAnotherProgramAreNeverLost) {
    const std::size_t saves = casesOf(10000, 200);
    const auto database = Database::open(systemFiles(), file);
    addPalette(*database, "0", {});
    OtherProgram other(file);
    std::size_t refused = 0;
    for (std::size_t done = 0; done < saves;) {
        const std::int32_t error = errorOf([&] {
            database->change([&] {
                Table table(*database, "TFillGroup");
                const auto row = table.find(table.column("ID"), 1).at(0);
                ASSERT_EQ(table.value(*table.row(row), table.column("Name")),
                          Value(std::to_string(done)));
                table.update(row, {{&table.column("Name"), std::to_string(done + 1)}});
            });
        });
        ASSERT_FALSE(HasFatalFailure()) << "a save is lost";
        ASSERT_TRUE(error == 0 || error == ErrorNumber::kInUse) << error;
        ++(error == 0 ? done : refused);
    }
    EXPECT_EQ(other.end(), 0) << "a write of the other program is lost";
    std::cout << saves << " saves, " << refused << " refused, " << other.writesIn(file)
              << " writes of the other program\n";
    EXPECT_GT(other.writesIn(file), saves / 100);
    EXPECT_EQ(faults(*Database::open(systemFiles(), file)), "");
    EXPECT_EQ(filesInFolder(), 1U);
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
