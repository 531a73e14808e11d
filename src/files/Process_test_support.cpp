// SPDX-License-Identifier: MPL-2.0

#include "files/Process_test_support.h"

#include <gtest/gtest.h>

#include <exception>
#include <iostream>
#include <map>

#include "files/Waiting.h"

namespace huebrush::files {

namespace {

std::map<std::string, std::function<int(const Task::Arguments&)>>& tasks() {
    static std::map<std::string, std::function<int(const Task::Arguments&)>> all;
    return all;
}

int run(const std::string& task, const Task::Arguments& arguments) {
    try {
        return tasks().at(task)(arguments);
    } catch (const std::exception& error) {
        std::cerr << task << ": " << error.what() << '\n';
        return 1;
    }
}

}  // namespace

Task::Task(const std::string& name, std::function<int(const Arguments&)> body) {
    tasks()[name] = std::move(body);
}

bool becomesTrue(const std::function<bool()>& condition) {
    const Patience patience(std::chrono::seconds(30));
    while (!condition()) {
        if (!patience.wait()) return false;
    }
    return true;
}

void waitToBeKilled() {
    for (;;) rest(std::chrono::seconds(1));
}

}  // namespace huebrush::files

/// Runs the tests, or, as another process, one task.
int main(int count, char** words) {
    const std::vector<std::string> given(words, words + count);
    if (count > 2 && given[1] == "--task") {
        return huebrush::files::run(given[2], {given.begin() + 3, given.end()});
    }
    testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
