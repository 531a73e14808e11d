// SPDX-License-Identifier: MPL-2.0

#include "cli/Channel.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace {
constexpr int kMomentMilliseconds = 100;
}

// Opened for writing, too, so that the pipe does not end when a writer closes it.
Channel::Channel(const std::filesystem::path& path) {
    if (mkfifo(path.c_str(), S_IRUSR | S_IWUSR) == 0) {
        file_ = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    }
    if (file_ < 0) throw Failure("cannot create a pipe in " + path.parent_path().string());
}

Channel::~Channel() {
    close(file_);
}

std::optional<std::string> Channel::takeLine() {
    const std::size_t end = received_.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    return line;
}

void Channel::writeLine(const std::string& line) {
    const std::string sent = line + '\n';
    if (write(file_, sent.data(), sent.size()) != static_cast<ssize_t>(sent.size())) {
        throw Failure("cannot reach LibreOffice");
    }
}

std::optional<std::string> Channel::readLine() {
    if (auto line = takeLine()) return line;
    pollfd waiting{file_, POLLIN, 0};
    poll(&waiting, 1, kMomentMilliseconds);
    char buffer[65536];
    for (ssize_t size = 0; (size = read(file_, buffer, sizeof buffer)) > 0;) {
        received_.append(buffer, static_cast<std::size_t>(size));
    }
    return takeLine();
}

}  // namespace huebrush::cli
