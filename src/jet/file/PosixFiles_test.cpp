// SPDX-License-Identifier: MPL-2.0

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <random>

#include "jet/file/SystemFolder_test_support.h"

namespace huebrush::jet {
namespace {

class PosixFiles : public SystemFolder {};

TEST_F(PosixFiles, ACommitKeepsTheRights) {
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    const auto database = Database::open(systemFiles(), file);
    addPalette(*database, "a", {100});
    EXPECT_EQ(fs::status(file).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
}

TEST_F(PosixFiles, ALinkStaysALink) {
    const fs::path link = folder / "link.mdb";
    fs::create_symlink(file, link);
    const auto database = Database::open(systemFiles(), link);
    addPalette(*database, "a", {});
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(allRows(*Database::open(systemFiles(), file), "TFillGroup").size(), 1U);
}

TEST_F(PosixFiles, PipesAreErrors) {
    const fs::path pipe = folder / "pipe.mdb";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { Database::open(systemFiles(), pipe); }), ErrorNumber::kFileSystem);
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

TEST_F(PosixFiles, SavesAndTheWritesOfAnotherProgramAreNeverLost) {
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

}  // namespace
}  // namespace huebrush::jet
