// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <csignal>

namespace huebrush::files {

/// A read lease on a file that is open for reading only: while this object lives, whoever opens the
/// file for writing waits, and is noticed. Not every file system has leases, and only the owner of
/// a file gets one.
///
/// The system announces such a waiter by a signal, which by default ends the process. Here it is
/// one that the process ignores by default, and only this thread may get it, which holds it back
/// and takes it away: no handler of the process ever runs. To be used within one thread, for a
/// moment only.
class Lease {
 public:
    explicit Lease(int file);
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    ~Lease();

    /// Whether somebody has the file open for writing already.
    bool isRefused() const { return state_ == State::refused; }
    /// Whether somebody has come to open the file for writing since. False where there are no
    /// leases.
    bool isWanted() const;

 private:
    enum class State { held, refused, unavailable };

    int file_;
    sigset_t before_ = {};
    State state_ = State::unavailable;
};

}  // namespace huebrush::files
