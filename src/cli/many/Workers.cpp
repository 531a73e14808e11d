// SPDX-License-Identifier: MPL-2.0

#include "cli/many/Workers.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <exception>
#include <iostream>
#include <utility>

#include "cli/Failure.h"
#include "cli/Interrupt.h"
#include "files/posix/Descriptor.h"

namespace huebrush::cli {

namespace {

/// Sends all of it. False when the other side is gone.
bool sendAll(int link, const void* data, std::size_t size) {
    const char* at = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t sent =
            files::uninterrupted([&] { return ::send(link, at, size, MSG_NOSIGNAL); });
        if (sent <= 0) return false;
        at += sent;
        size -= static_cast<std::size_t>(sent);
    }
    return true;
}

/// Reads a task. False at the end of the link.
bool receiveTask(int link, std::size_t& task) {
    return files::uninterrupted([&] { return ::recv(link, &task, sizeof task, MSG_WAITALL); }) ==
           sizeof task;
}

/// The worker's side: an answer is its size and then its bytes.
[[noreturn]] void serve(int link, const Work& work) {
    // Whatever the first process dies of, this one is asked to end.
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    try {
        std::size_t task = 0;
        while (receiveTask(link, task)) {
            const std::string answer = work(task);
            const std::size_t size = answer.size();
            if (!sendAll(link, &size, sizeof size) || !sendAll(link, answer.data(), size)) break;
        }
    } catch (const std::exception&) {
        // The first process sees that it has no answer.
        ::_exit(ExitCode::kFailed);
    }
    ::_exit(ExitCode::kDone);
}

struct Worker {
    pid_t process = -1;
    files::Descriptor link;
    std::optional<std::size_t> task;
    std::string received;
};

class WorkersAtWork {
 public:
    WorkersAtWork(const std::vector<std::size_t>& tasks, const Work& work, const Answered& answered)
        : tasks_(tasks), work_(work), answered_(answered) {}
    WorkersAtWork(const WorkersAtWork&) = delete;
    WorkersAtWork& operator=(const WorkersAtWork&) = delete;
    ~WorkersAtWork() {
        for (Worker& each : workers_) end(each);
    }

    void run(std::size_t count) {
        startUpTo(count);
        while (!workers_.empty()) {
            if (!wait()) stop();
            for (Worker& each : workers_) listen(each);
            std::erase_if(workers_, [](const Worker& each) { return !each.link; });
            // For those that have died.
            startUpTo(count);
        }
        if (isStopping_) throw Interrupted();
    }

 private:
    void startUpTo(std::size_t count) {
        while (!isStopping_ && workers_.size() < count && next_ < tasks_.size()) start();
    }

    void start() {
        std::array<int, 2> ends{};
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
            throw Failure("cannot start a process");
        }
        Worker worker;
        worker.link = files::Descriptor::of(ends[0]);
        files::Descriptor theirs = files::Descriptor::of(ends[1]);
        // What is still to be written must not be written twice.
        std::cout.flush();
        worker.process = ::fork();
        if (worker.process < 0) throw Failure("cannot start a process");
        if (worker.process == 0) {
            worker.link.close();
            for (Worker& each : workers_) each.link.close();
            serve(theirs.get(), work_);
        }
        give(worker);
        workers_.push_back(std::move(worker));
    }

    /// Gives a worker the next task, or its leave when there is none.
    void give(Worker& worker) {
        worker.task.reset();
        if (isStopping_ || next_ == tasks_.size()) {
            end(worker);
            return;
        }
        worker.task = tasks_[next_++];
        // If it has died, reading from it says so.
        sendAll(worker.link.get(), &*worker.task, sizeof *worker.task);
    }

    /// Waits until a worker has sent something or has ended. False when the program is to end.
    bool wait() {
        std::vector<pollfd> awaited;
        for (const Worker& each : workers_) awaited.push_back({each.link.get(), POLLIN, 0});
        // Those who are asked to end do so soon.
        if (!isStopping_) return waitForAny(awaited);
        files::uninterrupted([&] { return ::poll(awaited.data(), awaited.size(), -1); });
        return true;
    }

    void stop() {
        isStopping_ = true;
        for (const Worker& each : workers_) ::kill(each.process, SIGTERM);
    }

    void listen(Worker& worker) {
        std::array<char, 65536> piece{};
        ssize_t size = 0;
        while ((size = files::uninterrupted([&] {
                    return ::recv(worker.link.get(), piece.data(), piece.size(), MSG_DONTWAIT);
                })) > 0) {
            worker.received.append(piece.data(), static_cast<std::size_t>(size));
        }
        takeAnswer(worker);
        if (size == 0 && worker.link) lose(worker);
    }

    void takeAnswer(Worker& worker) {
        std::size_t size = 0;
        if (worker.received.size() < sizeof size) return;
        std::memcpy(&size, worker.received.data(), sizeof size);
        if (worker.received.size() - sizeof size < size) return;
        std::string answer = worker.received.substr(sizeof size);
        worker.received.clear();
        const std::size_t task = *worker.task;
        give(worker);
        answered_(task, std::move(answer));
    }

    /// The worker has ended without having been asked to.
    void lose(Worker& worker) {
        const auto task = worker.task;
        end(worker);
        if (task && !isStopping_) answered_(*task, std::nullopt);
    }

    static void end(Worker& worker) {
        if (!worker.link) return;
        worker.link.close();
        files::uninterrupted([&] { return ::waitpid(worker.process, nullptr, 0); });
    }

    const std::vector<std::size_t>& tasks_;
    const Work& work_;
    const Answered& answered_;
    std::size_t next_ = 0;
    bool isStopping_ = false;
    std::vector<Worker> workers_;
};

}  // namespace

void runByWorkers(const std::vector<std::size_t>& tasks, std::size_t workers, const Work& work,
                  const Answered& answered) {
    WorkersAtWork(tasks, work, answered).run(workers);
}

}  // namespace huebrush::cli
