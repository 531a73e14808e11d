// SPDX-License-Identifier: MPL-2.0

#include "files/Process_test_support.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <utility>

#include "files/posix/Descriptor.h"

namespace huebrush::files {

class OtherProcess::Native {
 public:
    explicit Native(std::vector<std::string> words) {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        if (::posix_spawn(&process_, "/proc/self/exe", nullptr, nullptr, arguments.data(),
                          environ) != 0) {
            throw std::runtime_error("the other process does not start");
        }
    }
    int end() {
        if (process_ == 0) return -1;
        int status = 0;
        uninterrupted([&] { return ::waitpid(std::exchange(process_, 0), &status, 0); });
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    void kill() const {
        if (process_ != 0) ::kill(process_, SIGKILL);
    }

 private:
    pid_t process_ = 0;
};

OtherProcess::OtherProcess(const std::string& task, const Task::Arguments& arguments) {
    std::vector<std::string> words{"test", "--task", task};
    words.insert(words.end(), arguments.begin(), arguments.end());
    native_ = std::make_unique<Native>(std::move(words));
}

OtherProcess::~OtherProcess() {
    kill();
}

int OtherProcess::wait() {
    return native_->end();
}

void OtherProcess::kill() {
    native_->kill();
    native_->end();
}

}  // namespace huebrush::files
