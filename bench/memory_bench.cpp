// SPDX-License-Identifier: MPL-2.0

// The logic's own time, on the memory host with its log off: no office is in it.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "forms/Runtime.h"
#include "ports/memory/MemoryHost.h"
#include "ports/memory/MemoryRuntime.h"
#include "select/mToolbarFunction.h"

namespace {

using namespace huebrush;

std::shared_ptr<memory::MemoryDocument> makeDocument(memory::MemoryApplication& host,
                                                     std::int64_t shapes, std::int64_t fills) {
    auto document = host.open("Bench");
    for (std::int64_t i = 0; i < shapes; ++i) {
        document->addSolid("Shape " + std::to_string(i), static_cast<std::int32_t>(i % fills));
    }
    return document;
}

void reportPerShape(benchmark::State& state) {
    state.counters["ns_per_shape"] = benchmark::Counter(
        static_cast<double>(state.range(0)) * 1e-9,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void scan(benchmark::State& state) {
    memory::MemoryRuntime platform;
    memory::MemoryApplication host;
    const auto document = makeDocument(host, state.range(0), state.range(1));
    for (auto unused : state) {
        static_cast<void>(unused);
        batch::BatchRuntime runtime(platform);
        const forms::RuntimeScope scope(runtime);
        batch::Session session(host, document);
        benchmark::DoNotOptimize(session.scan());
    }
    reportPerShape(state);
}
BENCHMARK(scan)
    ->Args({4000, 8})
    ->Args({16000, 8})
    ->Args({16000, 2000})
    ->Unit(benchmark::kMillisecond);

void selectByFill(benchmark::State& state) {
    memory::MemoryRuntime runtime;
    const forms::RuntimeScope scope(runtime);
    memory::MemoryApplication host;
    const auto document = makeDocument(host, state.range(0), state.range(1));
    for (auto unused : state) {
        static_cast<void>(unused);
        document->select({document->shapes.front()});
        select::VseDleTypuVyplne(host);
    }
    reportPerShape(state);
}
BENCHMARK(selectByFill)->Args({16000, 8})->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
