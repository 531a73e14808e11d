#include "jet/Allocations_test_support.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
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

void* operator new(std::size_t size) {
    void* const memory = std::malloc(std::max<std::size_t>(size, 1));
    if (memory == nullptr) throw std::bad_alloc();
    ++counters.count;
    counters.live += ::malloc_usable_size(memory);
    counters.most = std::max(counters.most, counters.live);
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) return;
    counters.live -= ::malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

#endif

namespace huebrush::jet {

void Allocations::restart() {
    counters.count = 0;
    counters.most = counters.live;
    counters.liveAtRestart = counters.live;
}

Allocations Allocations::sinceRestart() {
    return {counters.count, counters.most - counters.liveAtRestart};
}

}  // namespace huebrush::jet
