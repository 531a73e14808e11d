// SPDX-License-Identifier: MPL-2.0

#include <thread>

#include "files/LocalTime.h"
#include "files/Waiting.h"

namespace huebrush::files {

std::tm clockTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return local;
}

void rest(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

}  // namespace huebrush::files
