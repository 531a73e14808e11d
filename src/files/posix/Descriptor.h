// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

namespace huebrush::files {

/// Repeats a call of the system for as long as a signal interrupts it.
template <class Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

/// An open file descriptor, closed at the end of this object.
class Descriptor {
 public:
    Descriptor() = default;
    /// Opens a file, closed on exec; without success the object holds nothing and errno is set.
    Descriptor(const std::string& name, int flags, mode_t rights = 0)
        : value_(uninterrupted([&] { return ::open(name.c_str(), flags | O_CLOEXEC, rights); })) {}
    /// Takes over a descriptor that is open.
    static Descriptor of(int value) {
        Descriptor taken;
        taken.value_ = value;
        return taken;
    }
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            close();
            value_ = std::exchange(other.value_, -1);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    /// Another descriptor of the same opening: they share its locks.
    Descriptor duplicate() const { return of(::fcntl(value_, F_DUPFD_CLOEXEC, 0)); }
    int get() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }
    void close() {
        if (value_ >= 0) ::close(value_);
        value_ = -1;
    }

 private:
    int value_ = -1;
};

}  // namespace huebrush::files
