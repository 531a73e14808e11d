// SPDX-License-Identifier: MPL-2.0

#include "cli/ProgressBar.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace huebrush::cli {

namespace {
constexpr std::size_t kWidth = 40;
}

ProgressBar::ProgressBar(bool enabled) : enabled_(enabled && isatty(STDERR_FILENO) != 0) {}

ProgressBar::~ProgressBar() {
    if (shown_) std::fputs("\r\x1b[K", stderr);
}

void ProgressBar::show(std::size_t done, std::size_t total) {
    if (!enabled_ || total == 0) return;
    const std::size_t filled = kWidth * std::min(done, total) / total;
    const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
    std::fprintf(stderr, "\r[%s] %zu/%zu", bar.c_str(), done, total);
    std::fflush(stderr);
    shown_ = true;
}

}  // namespace huebrush::cli
