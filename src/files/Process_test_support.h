#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace huebrush::files {

/// Something that another process of the test program does, see OtherProcess. To be defined once
/// for each name, outside of functions.
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
    /// Ends it at once, as a fault does: nothing in it gets to know.
    void kill();

 private:
    class Native;
    std::unique_ptr<Native> native_;
};

/// Waits until something is so, for half a minute at most. Whether it is.
bool becomesTrue(const std::function<bool()>& condition);

/// What a task ends with that has said all it has to say: it waits to be killed.
[[noreturn]] void waitToBeKilled();

}  // namespace huebrush::files
