// SPDX-License-Identifier: MPL-2.0

#include "cli/many/Workers.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <map>
#include <numeric>
#include <set>
#include <thread>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/Interrupt.h"

namespace huebrush::cli {
namespace {

using base::text;

std::vector<std::size_t> tasksUpTo(std::size_t count) {
    std::vector<std::size_t> tasks(count);
    std::iota(tasks.begin(), tasks.end(), std::size_t{0});
    return tasks;
}

/// The answers by their tasks; "-" where there was none.
std::map<std::size_t, std::string> answersOf(std::size_t tasks, std::size_t workers,
                                             const Work& work) {
    std::map<std::size_t, std::string> answers;
    runByWorkers(tasksUpTo(tasks), workers, work,
                 [&](std::size_t task, const std::optional<std::string>& answer) {
                     EXPECT_TRUE(answers.emplace(task, answer.value_or("-")).second) << task;
                 });
    return answers;
}

TEST(Workers, DoEachTaskOnceInProcessesOfTheirOwn) {
    for (const std::size_t workers : {1U, 3U, 100U}) {
        const auto answers =
            answersOf(20, workers, [](std::size_t task) { return text(task, " ", ::getpid()); });
        ASSERT_EQ(answers.size(), 20U);
        std::set<std::string> processes;
        for (const auto& [task, answer] : answers) {
            EXPECT_TRUE(answer.starts_with(text(task, " "))) << answer;
            processes.insert(answer.substr(answer.find(' ') + 1));
        }
        EXPECT_FALSE(processes.contains(text(::getpid())));
        EXPECT_LE(processes.size(), workers);
    }
}

TEST(Workers, AnswerAtAnyLength) {
    const auto answers =
        answersOf(4, 2, [](std::size_t task) { return std::string(task * 1'000'000, 'a'); });
    for (const auto& [task, answer] : answers)
        EXPECT_EQ(answer, std::string(task * 1'000'000, 'a'));
}

TEST(Workers, HaveNothingToDoWithoutTasks) {
    EXPECT_TRUE(answersOf(0, 2, [](std::size_t) { return ""; }).empty());
}

TEST(Workers, ThatDieOfATaskHarmNoOther) {
    const auto answers = answersOf(12, 2, [](std::size_t task) -> std::string {
        if (task % 4 == 1) ::raise(SIGKILL);
        if (task % 4 == 3) throw Failure("not caught by the work");
        return "done";
    });
    ASSERT_EQ(answers.size(), 12U);
    for (const auto& [task, answer] : answers) EXPECT_EQ(answer, task % 2 == 1 ? "-" : "done");
}

TEST(WorkersDeathTest, EndWithAnInterruptedProgram) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            catchInterrupts();
            try {
                // The first task's answer interrupts the program while the others never end.
                runByWorkers(
                    tasksUpTo(4), 4,
                    [](std::size_t task) -> std::string {
                        if (task == 0) return "first";
                        for (;;) {
                            throwIfInterrupted();
                            std::this_thread::yield();
                        }
                    },
                    [](std::size_t task, const std::optional<std::string>& answer) {
                        if (task != 0 || answer != "first") std::_Exit(1);
                        ::raise(SIGTERM);
                    });
            } catch (const Interrupted&) {
                // No process of its own is left.
                std::_Exit(::waitpid(-1, nullptr, WNOHANG) == -1 ? 7 : 2);
            }
            std::_Exit(3);
        },
        testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace huebrush::cli
