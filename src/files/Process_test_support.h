// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace huebrush::files {

/// What another process of the test program can be asked to do, see OtherProcess. One object for
/// each name, defined outside functions.
class Task {
 public:
    using Arguments = std::vector<std::string>;
    /// `body` returns the exit code of the process.
    Task(const std::string& name, std::function<int(const Arguments&)> body);
};

/// Another process of this test program, in which a task runs. It is killed with this object.
class OtherProcess {
 public:
    OtherProcess(const std::string& task, const Task::Arguments& arguments);
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess();

    /// Waits for its end. The exit code.
    int wait();
    /// Ends it at once, as a crash does: none of its code runs any more.
    void kill();

 private:
    class Native;
    std::unique_ptr<Native> native_;
};

/// Waits until the condition holds, for half a minute at most. Whether it does.
bool becomesTrue(const std::function<bool()>& condition);

/// For a task that waits to be killed: never returns.
[[noreturn]] void waitToBeKilled();

}  // namespace huebrush::files
