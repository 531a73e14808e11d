// SPDX-License-Identifier: MPL-2.0

#include "cli/InterruptibleInput.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <istream>
#include <string>

#include "cli/Interrupt.h"

namespace huebrush::cli {
namespace {

/// Both ends of a pipe.
struct Pipe {
    Pipe() { EXPECT_EQ(::pipe(ends.data()), 0); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        ::close(ends[0]);
        closeWriter();
    }
    void write(const std::string& text) const {
        EXPECT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void closeWriter() {
        if (ends[1] >= 0) ::close(ends[1]);
        ends[1] = -1;
    }
    std::array<int, 2> ends{};
};

TEST(InterruptibleInputs, ReturnLineByLineWhatHasArrived) {
    Pipe pipe;
    const std::string lines = "r\n" + std::string(1000, 'x') + "\nlast";
    pipe.write(lines);
    pipe.closeWriter();
    InterruptibleInput input(pipe.ends[0]);
    std::istream in(&input);
    std::string line;
    ASSERT_TRUE(std::getline(in, line));
    EXPECT_EQ(line, "r");
    ASSERT_TRUE(std::getline(in, line));
    EXPECT_EQ(line, std::string(1000, 'x'));
    ASSERT_TRUE(std::getline(in, line));
    EXPECT_EQ(line, "last");
    EXPECT_FALSE(std::getline(in, line));
}

/// Ends the process, with 0 if an interrupt ended an input that has no other end.
[[noreturn]] void readInterrupted(void (*interrupt)()) {
    const Pipe pipe;
    catchInterrupts();
    interrupt();
    InterruptibleInput input(pipe.ends[0]);
    std::istream in(&input);
    std::string line;
    std::_Exit(std::getline(in, line) ? 1 : 0);
}

TEST(InterruptibleInputs, EndWithAnInterruptThatCameBeforeTheWait) {
    EXPECT_EXIT(readInterrupted([] { std::raise(SIGINT); }), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(readInterrupted([] { std::raise(SIGTERM); }), testing::ExitedWithCode(0), "");
}

TEST(InterruptibleInputs, EndWithAnInterruptOfAnotherProcess) {
    const auto childInterrupts = [] {
        const pid_t parent = ::getpid();
        if (::fork() == 0) {
            ::kill(parent, SIGINT);
            std::_Exit(0);
        }
    };
    EXPECT_EXIT(readInterrupted(childInterrupts), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace huebrush::cli
