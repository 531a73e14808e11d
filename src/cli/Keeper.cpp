// SPDX-License-Identifier: MPL-2.0

#include "cli/Keeper.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/UnfinishedFile.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestMessage = 1U << 16U;
constexpr int kLookAgain = 100;  // Milliseconds.

/// The first process's orders: the word that each begins with.
constexpr const char* kStart = "start";
constexpr const char* kRemoveAtEnd = "remove";

/// The other side is a process of this program, so only its end makes this fail.
void send(int link, const std::string& message) {
    files::uninterrupted(
        [&] { return ::send(link, message.data(), message.size(), MSG_NOSIGNAL); });
}

/// The next message; empty when the other side is gone, or has sent nothing yet.
std::string receive(int link, int flags = 0) {
    std::string message(kLongestMessage, '\0');
    const ssize_t size =
        files::uninterrupted([&] { return ::recv(link, message.data(), message.size(), flags); });
    message.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return message;
}

std::string joined(const std::vector<std::string>& words) {
    std::string message;
    for (const std::string& word : words) message.append(word).push_back('\0');
    return message;
}

std::vector<std::string> split(const std::string& message) {
    std::vector<std::string> words;
    for (std::size_t at = 0; at < message.size(); at += words.back().size() + 1) {
        words.emplace_back(message.c_str() + at);
    }
    return words;
}

[[noreturn]] void become(const std::vector<std::string>& command, const fs::path& folder) {
    ::setpgid(0, 0);
    ::umask(S_IRWXG | S_IRWXO);
    ::setenv("TMPDIR", folder.c_str(), 1);
    ::unsetenv("DISPLAY");
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execv(arguments.front(), arguments.data());
    ::_exit(127);
}

/// The processes whose parent is this one: those it has started, and those whose own parents have
/// ended.
std::vector<pid_t> children() {
    std::ifstream list(base::text("/proc/self/task/", ::getpid(), "/children"));
    std::vector<pid_t> found;
    for (pid_t each = 0; list >> each;) found.push_back(each);
    return found;
}

/// The files of the sockets on which the processes of a group listen, which stay when they are
/// killed.
std::vector<std::string> socketsOf(pid_t group) {
    std::vector<std::string> nodes;
    std::error_code error;
    for (const auto& process : fs::directory_iterator("/proc", error)) {
        const pid_t pid = std::atoi(process.path().filename().c_str());
        if (pid <= 0 || ::getpgid(pid) != group) continue;
        std::error_code gone;
        for (const auto& file : fs::directory_iterator(process.path() / "fd", gone)) {
            const std::string target = fs::read_symlink(file.path(), gone);
            constexpr std::string_view kSocket = "socket:[";
            if (target.starts_with(kSocket)) {
                nodes.push_back(target.substr(kSocket.size(), target.size() - kSocket.size() - 1));
            }
        }
    }
    // Each line ends in the number of the socket's node and, if it has one, the path of its file.
    std::vector<std::string> files;
    std::ifstream table("/proc/net/unix");
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string field;
        for (int i = 0; i < 7; ++i) fields >> field;
        std::string path;
        if (!(fields >> path) || !path.starts_with('/')) continue;
        if (std::find(nodes.begin(), nodes.end(), field) != nodes.end()) files.push_back(path);
    }
    return files;
}

/// The second process. It ends with the first one, or when that one releases it.
class KeeperProcess {
 public:
    explicit KeeperProcess(int link) : link_(link) {}

    [[noreturn]] void run() {
        detach();
        makeFolder();
        while (takeOrder()) reap();
        endAll();
        std::error_code ignored;
        if (!folder_.empty()) fs::remove_all(folder_, ignored);
        for (const fs::path& each : filesElsewhere_) removeWithCompanions(each);
        ::_exit(0);
    }

 private:
    /// Nothing that is done to the first process, its terminal or its group reaches this one.
    void detach() {
        ::setsid();
        // Under another name, so that killing all processes of the program's name spares this one.
        ::prctl(PR_SET_NAME, "office-keeper");
        // Any process that loses its parent becomes a child of this one, and cannot escape.
        ::prctl(PR_SET_CHILD_SUBREAPER, 1);
        const int nowhere = ::open("/dev/null", O_RDWR);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            ::dup2(nowhere, stream);
        }
        // What the first process has open, files and locks, must not outlive it here.
        link_ = ::dup2(link_, STDERR_FILENO + 1);
        ::close_range(static_cast<unsigned>(link_) + 1, ~0U, 0);
        ::fcntl(link_, F_SETFD, FD_CLOEXEC);
        sigset_t ends;
        ::sigemptyset(&ends);
        ::sigaddset(&ends, SIGCHLD);
        ::sigprocmask(SIG_SETMASK, &ends, nullptr);
        signals_ = ::signalfd(-1, &ends, SFD_CLOEXEC | SFD_NONBLOCK);
    }

    void makeFolder() {
        std::error_code error;
        const fs::path parent = fs::temp_directory_path(error);
        std::string name = ((error ? fs::path("/tmp") : parent) / "huebrush-XXXXXX");
        if (::mkdtemp(name.data()) != nullptr) folder_ = name;
        ::send(link_, name.data(), folder_.empty() ? 0 : name.size(), MSG_NOSIGNAL);
    }

    /// Waits for something to do. False when the first process is no longer interested.
    bool takeOrder() {
        std::array<pollfd, 2> awaited{{{link_, POLLIN, 0}, {signals_, POLLIN, 0}}};
        ::poll(awaited.data(), awaited.size(), -1);
        if (awaited[0].revents == 0) return true;
        const std::string order = receive(link_);
        if (order.empty()) return false;
        std::vector<std::string> words = split(order);
        const std::string kind = words.front();
        words.erase(words.begin());
        if (kind == kStart) start(words);
        if (kind == kRemoveAtEnd) filesElsewhere_.emplace_back(words.front());
        return true;
    }

    void start(const std::vector<std::string>& command) {
        program_ = ::fork();
        if (program_ == 0) become(command, folder_);
        if (program_ < 0) send(link_, "ended");
        // By both, so that neither runs on before it is done.
        ::setpgid(program_, program_);
    }

    /// False when there are no children left.
    bool reap() {
        std::array<char, sizeof(signalfd_siginfo)> seen{};
        while (::read(signals_, seen.data(), seen.size()) > 0) {
        }
        pid_t pid = 0;
        while ((pid = ::waitpid(-1, nullptr, WNOHANG)) > 0) {
            ended_.push_back(pid);
            if (pid == program_) send(link_, "ended");
        }
        return pid == 0;
    }

    /// While it stores a file, the office keeps beside it its lock and an unfinished file.
    void removeWithCompanions(const fs::path& file) const {
        const fs::path folder = file.parent_path();
        std::error_code ignored;
        fs::remove(file, ignored);
        fs::remove(folder / base::text(".~lock.", file.filename().string(), "#"), ignored);
        std::vector<fs::path> unfinished;
        for (const auto& each : fs::directory_iterator(folder, ignored)) {
            const std::string name = each.path().filename();
            const bool isOurs = std::any_of(ended_.begin(), ended_.end(), [&](pid_t process) {
                return isUnfinishedFileOf(process, name, isRunningOffice);
            });
            if (isOurs) unfinished.push_back(each.path());
        }
        for (const fs::path& each : unfinished) fs::remove(each, ignored);
    }

    void endAll() {
        // The number of a group whose processes have all ended may belong to others by now.
        siginfo_t child = {};
        if (::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) != 0) return;
        // Nobody creates anything more while it is examined.
        ::kill(-program_, SIGSTOP);
        const std::vector<std::string> sockets = socketsOf(program_);
        ::kill(-program_, SIGKILL);
        while (reap()) {
            for (const pid_t each : children()) ::kill(each, SIGKILL);
            // The list may miss one while others end, so it is read again in any case.
            pollfd ended{signals_, POLLIN, 0};
            ::poll(&ended, 1, kLookAgain);
        }
        for (const std::string& each : sockets) ::unlink(each.c_str());
    }

    int link_;
    int signals_ = -1;
    pid_t program_ = -1;
    fs::path folder_;
    std::vector<fs::path> filesElsewhere_;
    std::vector<pid_t> ended_;
};

}  // namespace

Keeper::Keeper() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw Failure("cannot start a process");
    }
    link_ = files::Descriptor::of(ends[0]);
    files::Descriptor theirs = files::Descriptor::of(ends[1]);
    process_ = ::fork();
    if (process_ < 0) throw Failure("cannot start a process");
    if (process_ == 0) {
        link_.close();
        KeeperProcess(theirs.get()).run();
    }
    theirs.close();
    folder_ = receive(link_.get());
    if (!folder_.empty()) return;
    letGo();
    std::error_code error;
    throw Failure("cannot create a temporary folder in " + fs::temp_directory_path(error).string());
}

Keeper::~Keeper() {
    letGo();
}

void Keeper::letGo() {
    link_.close();
    files::uninterrupted([&] { return ::waitpid(process_, nullptr, 0); });
}

void Keeper::start(const std::vector<std::string>& command) {
    std::vector<std::string> order{kStart};
    order.insert(order.end(), command.begin(), command.end());
    send(link_.get(), joined(order));
}

void Keeper::removeAtEnd(const fs::path& file) {
    send(link_.get(), joined({kRemoveAtEnd, file}));
}

bool Keeper::hasEnded() {
    if (ended_) return true;
    pollfd awaited{link_.get(), POLLIN, 0};
    // A message says so, and so does the end of the keeper.
    ended_ = ::poll(&awaited, 1, 0) > 0;
    return ended_;
}

}  // namespace huebrush::cli
