// SPDX-License-Identifier: MPL-2.0

#include "files/LocalTime.h"
#include "files/Waiting.h"
#include "files/win32/System.h"

namespace huebrush::files {

std::tm clockTime() {
    SYSTEMTIME now = {};
    ::GetLocalTime(&now);
    std::tm local = {};
    local.tm_year = now.wYear - 1900;
    local.tm_mon = now.wMonth - 1;
    local.tm_mday = now.wDay;
    local.tm_wday = now.wDayOfWeek;
    local.tm_hour = now.wHour;
    local.tm_min = now.wMinute;
    local.tm_sec = now.wSecond;
    local.tm_isdst = -1;
    return local;
}

void rest(std::chrono::milliseconds time) {
    ::Sleep(static_cast<DWORD>(time.count()));
}

}  // namespace huebrush::files
