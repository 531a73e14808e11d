// SPDX-License-Identifier: MPL-2.0

// What the system refuses is an error, and the file stays as it was.

#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "jet/file/SystemFolder_test_support.h"

namespace huebrush::jet {
namespace {

constexpr uid_t kNobody = 65534;
constexpr int kCannotTry = 77;

class PosixRefusals : public SystemFolder {
 protected:
    /// Runs a body in a process of its own, which may give up rights for good: its result, or 1
    /// after an error.
    static int inChild(const std::function<int()>& body) {
        const pid_t child = ::fork();
        if (child == 0) {
            int result = 1;
            try {
                result = body();
            } catch (const std::exception& error) {
                std::cerr << error.what() << '\n';
            }
            ::_exit(result);
        }
        int status = 0;
        if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return 1;
        return WEXITSTATUS(status);
    }
    /// What must hold in a child process; it reports the first thing that does not.
    static bool holds(bool condition, const char* what) {
        if (!condition) std::cerr << "does not hold: " << what << '\n';
        return condition;
    }
    static Bytes bytesOf(const fs::path& name) {
        std::ifstream in(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static std::size_t palettesIn(const fs::path& name) {
        return allRows(*Database::open(systemFiles(), name), "TFillGroup").size();
    }
    /// Root may write everywhere, so it becomes another user while a body runs.
    int asNobody(const std::function<int()>& body) const {
        const bool root = ::geteuid() == 0;
        if (root) {
            for (const fs::path& each : {folder, fs::path(file)}) {
                if (::chown(each.c_str(), kNobody, kNobody) != 0) return kCannotTry;
            }
        }
        return inChild([&] {
            if (root && (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 ||
                         ::setuid(kNobody) != 0 || ::access(file.c_str(), R_OK) != 0)) {
                return kCannotTry;
            }
            return body();
        });
    }
};

TEST_F(PosixRefusals, OfAFileThatGrowsTooLargeLeaveTheOldOne) {
    const int result = inChild([&] {
        const Bytes before = bytesOf(file);
        const auto database = Database::open(systemFiles(), file);
        ::signal(SIGXFSZ, SIG_IGN);
        struct rlimit limit = {};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        const rlim_t old = limit.rlim_cur;
        limit.rlim_cur = before.size() + 2 * kPageSize;
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kCannotTry;
        const std::int32_t number =
            errorOf([&] { database->inOneCommit([&] { addPalette(*database, "a", {100000}); }); });
        limit.rlim_cur = old;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        if (!holds(number == ErrorNumber::kOutOfSpace, "no space is the error")) return 1;
        if (!holds(bytesOf(file) == before, "the file is unchanged")) return 1;
        if (!holds(filesInFolder() == 1, "nothing is left beside it")) return 1;
        addPalette(*database, "a", {100000});
        return holds(faults(*database).empty(), "the file is sound") ? 0 : 1;
    });
    ASSERT_NE(result, kCannotTry) << "the size of files cannot be limited";
    EXPECT_EQ(result, 0);
}

TEST_F(PosixRefusals, OfAFullDiskLeaveTheOldFileAndMakeNoHalfOne) {
    const int result = inChild([&] {
        const fs::path disk = folder / "disk";
        fs::create_directory(disk);
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", disk.c_str(), "tmpfs", 0, "size=400k") != 0) {
            return kCannotTry;
        }
        const fs::path onDisk = disk / "fill.mdb";
        createPaletteFile(systemFiles(), onDisk);
        const auto database = Database::open(systemFiles(), onDisk);
        std::int32_t number = 0;
        Bytes before;
        for (int i = 0; i < 100 && number == 0; ++i) {
            before = bytesOf(onDisk);
            number = errorOf(
                [&] { database->inOneCommit([&] { addPalette(*database, "Paleta", {20000}); }); });
        }
        if (!holds(number == ErrorNumber::kOutOfSpace, "no space is the error")) return 1;
        if (!holds(bytesOf(onDisk) == before, "the file is unchanged")) return 1;
        if (!holds(faults(*database).empty(), "the file is sound")) return 1;
        std::ofstream(disk / "rest") << std::string(400000, 'x');
        number = errorOf([&] { createDatabase(systemFiles(), disk / "new.mdb"); });
        if (!holds(number == ErrorNumber::kOutOfSpace, "no space for a new file")) return 1;
        return holds(std::distance(fs::directory_iterator(disk), fs::directory_iterator()) == 2,
                     "no half of it is left")
                   ? 0
                   : 1;
    });
    if (result == kCannotTry) GTEST_SKIP() << "no small disk can be mounted here";
    EXPECT_EQ(result, 0);
}

TEST_F(PosixRefusals, OfAFolderThatMayNotBeWrittenLeaveTheFileReadable) {
    const int result = asNobody([&] {
        const Bytes before = bytesOf(file);
        fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
        const auto database = Database::open(systemFiles(), file);
        const std::int32_t number = errorOf([&] { addPalette(*database, "a", {10}); });
        const std::int32_t creating =
            errorOf([&] { createDatabase(systemFiles(), folder / "new.mdb"); });
        const std::size_t palettes = palettesIn(file);
        fs::permissions(folder, fs::perms::owner_all);
        if (!holds(number == ErrorNumber::kReadOnly, "the file may not be replaced")) return 1;
        if (!holds(creating == ErrorNumber::kReadOnly, "no file may be made")) return 1;
        if (!holds(palettes == 0, "the file can be read")) return 1;
        if (!holds(bytesOf(file) == before, "the file is unchanged")) return 1;
        addPalette(*database, "a", {10});
        return holds(palettesIn(file) == 1, "with rights again it is written") ? 0 : 1;
    });
    if (result == kCannotTry) GTEST_SKIP() << "root cannot become somebody else here";
    EXPECT_EQ(result, 0);
}

TEST_F(PosixRefusals, OfAFileThatMayNotBeWrittenLeaveItReadable) {
    const int result = asNobody([&] {
        fs::permissions(file, fs::perms::owner_read);
        const Bytes before = bytesOf(file);
        const auto database = Database::open(systemFiles(), file);
        const std::int32_t number = errorOf([&] { addPalette(*database, "a", {10}); });
        if (!holds(number == ErrorNumber::kReadOnly, "the file may not be written")) return 1;
        if (!holds(bytesOf(file) == before, "the file is unchanged")) return 1;
        return holds(palettesIn(file) == 0, "the file can be read") ? 0 : 1;
    });
    if (result == kCannotTry) GTEST_SKIP() << "root cannot become somebody else here";
    EXPECT_EQ(result, 0);
}

TEST_F(PosixRefusals, OfGrowthBeyond2GBLeaveTheFile) {
    // All but the beginning is a hole.
    constexpr std::uintmax_t kLargest = 524287ULL * kPageSize;
    const Bytes before = bytesOf(file);
    fs::resize_file(file, kLargest);
    const auto written = fs::last_write_time(file);
    const auto database = Database::open(systemFiles(), file);
    // More than the pages that the map of free pages still knows of.
    EXPECT_EQ(errorOf([&] {
                  database->inOneCommit([&] {
                      database->change([&] {
                          Table table(*database, "TFillGroup");
                          table.insert({{&table.column("Name"), std::string("a")}});
                          Table elements(*database, "TFillElementParameter");
                          elements.insert({{&elements.column("GroupID"), 1},
                                           {&elements.column("OrderNumber"), 0},
                                           {&elements.column("FillPreview"),
                                            patternBytes(std::size_t{3} << 20U, 1)}});
                      });
                  });
              }),
              ErrorNumber::kOutOfSpace);
    EXPECT_EQ(fs::file_size(file), kLargest);
    EXPECT_EQ(fs::last_write_time(file), written);
    EXPECT_EQ(allRows(*database, "TFillGroup").size(), 0U);
    fs::resize_file(file, before.size());
    EXPECT_EQ(bytesOf(file), before);
    fs::resize_file(file, kLargest + kPageSize);
    EXPECT_EQ(errorOf([&] { Database::open(systemFiles(), file); }), ErrorNumber::kDamaged);
}

TEST_F(PosixRefusals, OfAFileThatIsCutOffLeaveItAsItIs) {
    {
        const auto database = Database::open(systemFiles(), file);
        addPalette(*database, "a", {100, 30000});
    }
    const std::size_t size = fs::file_size(file);
    // Somewhere in a page; then whole pages, which only some rows miss.
    for (const std::size_t cut : {size - 100, size - 4 * kPageSize, 8 * kPageSize, kPageSize}) {
        const auto open = Database::open(systemFiles(), file);
        const Bytes whole = bytesOf(file);
        fs::resize_file(file, cut);
        const Bytes before = bytesOf(file);
        EXPECT_NE(errorOf([&] { addPalette(*open, "b", {30000}); }), 0) << cut;
        EXPECT_NE(errorOf([&] { allRows(*open, "TFillElementParameter"); }), 0) << cut;
        EXPECT_NE(errorOf([&] {
                      const auto again = Database::open(systemFiles(), file);
                      allRows(*again, "TFillElementParameter");
                  }),
                  0)
            << cut;
        EXPECT_EQ(bytesOf(file), before) << cut;
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(whole.data()),
                   static_cast<std::streamsize>(whole.size()));
    }
    EXPECT_EQ(faults(*Database::open(systemFiles(), file)), "");
}

}  // namespace
}  // namespace huebrush::jet
