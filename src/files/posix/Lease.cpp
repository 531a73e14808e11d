// SPDX-License-Identifier: MPL-2.0

#include "files/posix/Lease.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace huebrush::files {

namespace {

constexpr int kSignal = SIGURG;

sigset_t onlyOurSignal() {
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, kSignal);
    return signals;
}

/// Directs the announcement to this thread; this has to be done for each lease.
bool directSignal(int file) {
    struct f_owner_ex owner = {F_OWNER_TID, ::gettid()};
    return ::fcntl(file, F_SETOWN_EX, &owner) == 0 && ::fcntl(file, F_SETSIG, kSignal) == 0;
}

/// Takes announcements of the lease away. A signal of the same number from somewhere else is sent
/// again.
void takeSignals(int file) {
    const sigset_t signals = onlyOurSignal();
    const timespec atOnce = {};
    siginfo_t info = {};
    bool foreign = false;
    while (::sigtimedwait(&signals, &info, &atOnce) == kSignal) {
        foreign |= info.si_code != POLL_MSG || info.si_fd != file;
    }
    if (foreign) ::kill(::getpid(), kSignal);
}

}  // namespace

Lease::Lease(int file) : file_(file) {
    const sigset_t signals = onlyOurSignal();
    ::pthread_sigmask(SIG_BLOCK, &signals, &before_);
    if (!directSignal(file_)) return;
    if (::fcntl(file_, F_SETLEASE, F_RDLCK) == 0) {
        state_ = State::held;
    } else if (errno == EAGAIN) {
        state_ = State::refused;
    }
}

Lease::~Lease() {
    if (state_ == State::held) ::fcntl(file_, F_SETLEASE, F_UNLCK);
    takeSignals(file_);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

bool Lease::isWanted() const {
    return state_ == State::held && ::fcntl(file_, F_GETLEASE) != F_RDLCK;
}

}  // namespace huebrush::files
