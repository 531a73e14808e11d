// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>

namespace huebrush::base {

/// What this program has allocated since the last `restart`, so that a test can bound the memory
/// and the work of what it calls, whatever the speed of the machine. Counted where the sanitizers
/// do not allocate themselves.
struct Allocations {
#if defined(HUEBRUSH_SANITIZED)
    static constexpr bool kCounted = false;
#else
    static constexpr bool kCounted = true;
#endif

    std::size_t count = 0;
    std::size_t most = 0;  ///< bytes at one time, beyond those of the restart

    static void restart();
    static Allocations sinceRestart();
};

}  // namespace huebrush::base
