// SPDX-License-Identifier: MPL-2.0

#include "cli/Interrupt.h"

#include <array>
#include <cerrno>
#include <csignal>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

// The only thing that a signal handler may touch.
volatile std::sig_atomic_t interruptSeen = 0;

extern "C" void noteInterrupt(int) {
    interruptSeen = 1;
}

constexpr std::array kInterrupts{SIGINT, SIGTERM, SIGHUP};

/// Blocks the signals while it lives, so that none arrives between a check and a wait.
class InterruptsHeldBack {
 public:
    InterruptsHeldBack() {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : kInterrupts) sigaddset(&held, signal);
        sigprocmask(SIG_BLOCK, &held, &former_);
    }
    InterruptsHeldBack(const InterruptsHeldBack&) = delete;
    InterruptsHeldBack& operator=(const InterruptsHeldBack&) = delete;
    ~InterruptsHeldBack() { sigprocmask(SIG_SETMASK, &former_, nullptr); }

    const sigset_t& former() const { return former_; }

 private:
    sigset_t former_;
};

}  // namespace

void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = noteInterrupt;
    sigemptyset(&action.sa_mask);
    for (const int signal : kInterrupts) sigaction(signal, &action, nullptr);
}

bool waitForAny(std::span<pollfd> awaited) {
    const InterruptsHeldBack held;
    while (interruptSeen == 0) {
        // The signals get through while it waits, and only then.
        if (ppoll(awaited.data(), awaited.size(), nullptr, &held.former()) >= 0 || errno != EINTR) {
            return true;
        }
    }
    return false;
}

bool waitForInput(int descriptor) {
    pollfd awaited{descriptor, POLLIN, 0};
    return waitForAny(std::span(&awaited, 1));
}

void throwIfInterrupted() {
    if (interruptSeen != 0) throw Interrupted();
}

}  // namespace huebrush::cli
