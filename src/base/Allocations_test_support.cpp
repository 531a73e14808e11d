// SPDX-License-Identifier: MPL-2.0

#include "base/Allocations_test_support.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// The tests run in one thread.
struct Counters {
    std::size_t count = 0;
    std::size_t live = 0;
    std::size_t most = 0;
    std::size_t liveAtRestart = 0;
};
Counters counters;

}  // namespace

#if !defined(HUEBRUSH_SANITIZED)

// Each block has its size in front of it, and comes from what stands below these operators.
// NOLINTBEGIN(cppcoreguidelines-no-malloc)
constexpr std::size_t kFront = alignof(std::max_align_t);

void* operator new(std::size_t size) {
    auto* const block = static_cast<unsigned char*>(std::malloc(kFront + size));
    if (block == nullptr) throw std::bad_alloc();
    std::memcpy(block, &size, sizeof size);
    ++counters.count;
    counters.live += kFront + size;
    counters.most = std::max(counters.most, counters.live);
    return block + kFront;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) return;
    unsigned char* const block = static_cast<unsigned char*>(memory) - kFront;
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    counters.live -= kFront + size;
    std::free(block);
}

// NOLINTEND(cppcoreguidelines-no-malloc)

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

#endif

namespace huebrush::base {

void Allocations::restart() {
    counters.count = 0;
    counters.most = counters.live;
    counters.liveAtRestart = counters.live;
}

Allocations Allocations::sinceRestart() {
    return {counters.count, counters.most - counters.liveAtRestart};
}

}  // namespace huebrush::base
