// SPDX-License-Identifier: MPL-2.0

#include "cli/ProgressBar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "base/Text.h"

namespace huebrush::cli {

namespace {

constexpr std::size_t kWidest = 40;

/// How many characters fit into a line; 80 where the terminal does not say.
std::size_t terminalWidth() {
    winsize size{};
    constexpr std::size_t kUsual = 80;
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsual;
    return size.ws_col;
}

}  // namespace

std::string progressLine(std::size_t done, std::size_t total, std::size_t width) {
    const std::string count = base::text(done, "/", total);
    // The last column stays free: some terminals begin a new line with it.
    constexpr std::size_t kAround = 4;
    if (width < count.size() + kAround + 1) return count.size() < width ? count : "";
    const std::size_t size = std::min(kWidest, width - count.size() - kAround);
    const std::size_t filled = size * std::min(done, total) / total;
    return base::text("[", std::string(filled, '#'), std::string(size - filled, '.'), "] ", count);
}

ProgressBar::ProgressBar(bool enabled) : enabled_(enabled && isatty(STDERR_FILENO) != 0) {}

ProgressBar::~ProgressBar() {
    clear();
}

void ProgressBar::show(std::size_t done, std::size_t total) {
    if (!enabled_ || total == 0) return;
    std::fprintf(stderr, "\r\x1b[K%s", progressLine(done, total, terminalWidth()).c_str());
    std::fflush(stderr);
    shown_ = true;
}

void ProgressBar::clear() {
    if (!shown_) return;
    std::fputs("\r\x1b[K", stderr);
    std::fflush(stderr);
    shown_ = false;
}

}  // namespace huebrush::cli
