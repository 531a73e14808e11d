// SPDX-License-Identifier: MPL-2.0

#include "files/Lock.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <array>
#include <atomic>
#include <csignal>
#include <thread>

#include "files/Folder_test_support.h"
#include "files/NewFile.h"
#include "files/posix/Descriptor.h"
#include "files/posix/Lease.h"
#include "files/posix/RefusedCalls_test_support.h"

namespace huebrush::files {
namespace {

namespace fs = std::filesystem;

class Locks : public Folder {};

std::atomic<int> handled = 0;

/// Counts what reaches the process, as a program with handlers of its own would see it.
class Handlers {
 public:
    Handlers() {
        handled = 0;
        struct sigaction counting = {};
        counting.sa_handler = [](int) { ++handled; };
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            ::sigaction(kSignals[i], &counting, &former_[i]);
        }
    }
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;
    ~Handlers() {
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            ::sigaction(kSignals[i], &former_[i], nullptr);
        }
    }

 private:
    static constexpr std::array kSignals{SIGIO, SIGURG};
    std::array<struct sigaction, kSignals.size()> former_ = {};
};

/// Opens a file for writing all the time, in a process of its own; for a lifetime.
class Opener {
 public:
    explicit Opener(const fs::path& name) : process_(::fork()) {
        while (process_ == 0) const Descriptor file(name, O_WRONLY);
    }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;
    ~Opener() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }

 private:
    pid_t process_;
};

TEST_F(Locks, SendNoSignalToAnyThreadWhenSomebodyOpensTheFile) {
    const fs::path name = write("a", "content");
    const Descriptor file(name, O_RDONLY);
    const Handlers handlers;
    {
        // Before the thread: of a process with several, a copy may lack a lock's holder.
        const Opener opener(name);
        std::atomic<bool> over = false;
        // A thread that holds back nothing.
        std::thread other([&] {
            while (!over) std::this_thread::yield();
        });
        for (int wanted = 0; wanted < 100;) {
            const Lease lease(file.get());
            if (lease.isRefused()) continue;
            while (!lease.isWanted()) std::this_thread::yield();
            ++wanted;
        }
        over = true;
        other.join();
    }
    EXPECT_EQ(handled, 0);
    // A signal of somebody else still arrives.
    { const Lease lease(file.get()); }
    ::raise(SIGURG);
    EXPECT_EQ(handled, 1);
}

TEST_F(Locks, LeaveASignalFromSomewhereElseToItsHandler) {
    const Descriptor file(write("a", "content"), O_RDONLY);
    const Handlers handlers;
    {
        const Lease lease(file.get());
        // To this thread, which holds it back.
        ::pthread_kill(::pthread_self(), SIGURG);
        EXPECT_EQ(handled, 0);
    }
    EXPECT_EQ(handled, 1);
}

TEST_F(Locks, AreOnNoPipeAndNoDevice) {
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const fs::path& name : {pipe, fs::path("/dev/null")}) {
        EXPECT_EQ(problemOf([&] { const Lock lock(name); }), Problem::notRegular) << name;
    }
}

TEST_F(Locks, SeeTheLocksOnAFileBeside) {
    const fs::path name = write("a.mdb", "content");
    const fs::path beside = write("a.ldb", "");
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t session = ::fork();
    if (session == 0) {
        const Descriptor file(beside, O_RDWR);
        struct flock range = {};
        range.l_type = F_WRLCK;
        range.l_start = 0x10000001;
        range.l_len = 1;
        ::fcntl(file.get(), F_SETLK, &range);
        [[maybe_unused]] const ssize_t written = ::write(ready[1], "x", 1);
        ::pause();
    }
    char letter = 0;
    ASSERT_EQ(::read(ready[0], &letter, 1), 1);
    EXPECT_EQ(problemOf([&] { const Lock lock(name, beside); }), Problem::inUse);
    EXPECT_EQ(problemOf([&] { const Lock lock(name); }), std::nullopt);
    ::kill(session, SIGKILL);
    ::waitpid(session, nullptr, 0);
    EXPECT_EQ(problemOf([&] { const Lock lock(name, beside); }), std::nullopt);
}

TEST_F(Locks, WhereThereAreNoneOnlyWhatOthersWriteIsNoticed) {
    const fs::path name = write("a", "old");
    std::optional<Problem> whenUnchanged;
    std::optional<Problem> whenChanged;
    withRefused(kNoLocks, [&] {
        const auto replace = [&](const std::function<void()>& meanwhile) {
            return problemOf([&] {
                const Descriptor holder(name, O_WRONLY);
                const Lock lock(name);
                NewFile file(lock);
                meanwhile();
                file.publish();
            });
        };
        whenChanged = replace([&] { write("a", "theirs"); });
        EXPECT_EQ(read(name), "theirs");
        whenUnchanged = replace([] {});
    });
    EXPECT_EQ(whenChanged, Problem::changed);
    EXPECT_EQ(whenUnchanged, std::nullopt);
    EXPECT_EQ(read(name), "");
    EXPECT_EQ(filesInFolder(), 1U);
}

}  // namespace
}  // namespace huebrush::files
