// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace testing::internal {

/// The class of this name that the test library would make of std::mutex, which this compiler has
/// not got.
class Notification {
 public:
    Notification();
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification();

    /// Lets the threads go on that wait, or will wait.
    void Notify();
    void WaitForNotification();

 private:
    void* event_;
};

}  // namespace testing::internal
