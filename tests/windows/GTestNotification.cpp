// SPDX-License-Identifier: MPL-2.0

#include "GTestNotification.h"

#include <windows.h>

namespace testing::internal {

Notification::Notification() : event_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

Notification::~Notification() {
    ::CloseHandle(event_);
}

void Notification::Notify() {
    ::SetEvent(event_);
}

void Notification::WaitForNotification() {
    ::WaitForSingleObject(event_, INFINITE);
}

}  // namespace testing::internal
