// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace huebrush::files {

/// A call that the system refuses, as some file systems do.
struct Refusal {
    long call;
    int reason;
    /// Only where an argument, seen through a mask, is this value; with no mask always.
    int argument = 0;
    unsigned mask = 0;
    unsigned value = 0;
};

/// What O_TMPFILE has beside O_DIRECTORY.
inline constexpr unsigned kNameless = O_TMPFILE & ~O_DIRECTORY;

/// File systems without locks and leases; without files that have no name; without the exchange of
/// two names; and without any but the plain renaming.
inline const std::vector<Refusal> kNoLocks{
    {SYS_flock, ENOLCK},
    {SYS_fcntl, ENOLCK, 1, ~0U, F_GETLK},
    {SYS_fcntl, EINVAL, 1, ~0U, F_SETLEASE},
};
inline const std::vector<Refusal> kNoNamelessFiles{
    {SYS_openat, EOPNOTSUPP, 2, kNameless, kNameless}};
inline const std::vector<Refusal> kNoExchange{
    {SYS_renameat2, EINVAL, 4, RENAME_EXCHANGE, RENAME_EXCHANGE}};
inline const std::vector<Refusal> kPlainRenamesOnly{
    {SYS_openat, EOPNOTSUPP, 2, kNameless, kNameless},
    {SYS_renameat2, EINVAL},
#ifdef SYS_link
    {SYS_link, EPERM},
#endif
    {SYS_linkat, EPERM}};

/// Runs a body in a thread of its own, for which the system refuses some calls.
inline void withRefused(const std::vector<Refusal>& refusals, const std::function<void()>& body) {
    std::vector<sock_filter> filter;
    const auto add = [&](int code, unsigned value, unsigned ifTrue, unsigned ifFalse) {
        filter.push_back({static_cast<__u16>(code), static_cast<__u8>(ifTrue),
                          static_cast<__u8>(ifFalse), value});
    };
    for (const Refusal& each : refusals) {
        const bool always = each.mask == 0;
        add(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr), 0, 0);
        add(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(each.call), 0, always ? 1 : 4);
        if (!always) {
            const auto place =
                offsetof(seccomp_data, args) + 8 * static_cast<size_t>(each.argument);
            add(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(place), 0, 0);
            add(BPF_ALU | BPF_AND | BPF_K, each.mask, 0, 0);
            add(BPF_JMP | BPF_JEQ | BPF_K, each.value, 0, 1);
        }
        add(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(each.reason), 0, 0);
    }
    add(BPF_RET | BPF_K, SECCOMP_RET_ALLOW, 0, 0);
    bool refused = false;
    std::thread([&] {
        const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
        refused = ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
                  ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
        if (refused) body();
    }).join();
    if (!refused) throw std::runtime_error("the system cannot refuse calls");
}

}  // namespace huebrush::files
