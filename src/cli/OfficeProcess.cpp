#include "cli/OfficeProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <thread>

#include "cli/Failure.h"
#include "cli/OfficeSearch.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// How long an office may take to end by itself after its work is done.
constexpr auto kEndingTime = 10s;
constexpr auto kPollInterval = 20ms;

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

fs::path findExtensions() {
    if (const char* const given = std::getenv("HUEBRUSH_EXTENSIONS")) return fs::absolute(given);
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path folder = program.parent_path();
    for (const fs::path& place : {folder / "../extension", folder / "../lib/huebrush/extension"}) {
        if (fs::is_directory(place / "huebrush", error)) return fs::canonical(place);
    }
    throw Failure("the LibreOffice extension is missing beside the program: " + folder.string());
}

[[noreturn]] void becomeOffice(const std::vector<std::string>& command) {
    setpgid(0, 0);
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, stream);
    unsetenv("DISPLAY");
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

pid_t start(const std::vector<std::string>& command) {
    const pid_t pid = fork();
    if (pid < 0) throw Failure("cannot start LibreOffice");
    if (pid == 0) becomeOffice(command);
    // By both, so that neither runs on before it is done.
    setpgid(pid, pid);
    return pid;
}

std::string urlOf(const fs::path& path) {
    constexpr std::string_view kPlain = "/-_.~";
    std::ostringstream url;
    url << "file://" << std::hex << std::uppercase;
    for (const char character : path.string()) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPlain = (byte < 0x80 && std::isalnum(byte) != 0) ||
                             kPlain.find(character) != std::string_view::npos;
        if (isPlain) {
            url << character;
        } else {
            url << '%' << (byte >> 4U) << (byte & 0xFU);
        }
    }
    return url.str();
}

std::vector<std::string> commandOf(const Installation& installation, const fs::path& profile,
                                   const std::vector<std::string>& arguments) {
    std::vector<std::string> command{installation.office.string(),
                                     "--headless",
                                     "--norestore",
                                     "--nologo",
                                     "--nodefault",
                                     "-env:UserInstallation=" + urlOf(profile),
                                     "-env:BUNDLED_EXTENSIONS=" + urlOf(installation.extensions)};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

}  // namespace

Installation findInstallation() {
    return {findOffice({environment("HUEBRUSH_OFFICE"), environment("PATH")}), findExtensions()};
}

OfficeProcess::OfficeProcess(const Installation& installation, const fs::path& profile,
                             const std::vector<std::string>& arguments)
    : pid_(start(commandOf(installation, profile, arguments))) {}

OfficeProcess::~OfficeProcess() {
    kill(-pid_, SIGTERM);
    end();
}

bool OfficeProcess::hasEnded() {
    if (!reaped_) reaped_ = waitpid(pid_, nullptr, WNOHANG) == pid_;
    return reaped_;
}

void OfficeProcess::end() noexcept {
    const auto limit = std::chrono::steady_clock::now() + kEndingTime;
    // The group outlives its first process: the command that was started may be a script.
    while ((!hasEnded() || kill(-pid_, 0) == 0) && std::chrono::steady_clock::now() < limit) {
        std::this_thread::sleep_for(kPollInterval);
    }
    kill(-pid_, SIGKILL);
    if (!reaped_) waitpid(pid_, nullptr, 0);
    reaped_ = true;
}

}  // namespace huebrush::cli
