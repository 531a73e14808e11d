// SPDX-License-Identifier: MPL-2.0

// Whatever is wrong with a file, reading, checking and editing it ends with a result or an Error,
// and takes neither much memory nor much time.

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <random>

#include "base/Allocations_test_support.h"
#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

using base::Allocations;

/// For one file: the peak memory, and the pieces of work. A system call is a piece of work, and so
/// is an allocation, because reading a page, a row, an index entry or a value takes at least one.
constexpr std::size_t kMostMemory = std::size_t{64} << 20U;
constexpr std::size_t kMostWork = 20000;

class DamagedFiles : public ::testing::Test {
 protected:
    DamagedFiles() {
        PaletteFile file;
        addPalette(*file.database, "Podzim", {0, 30, 2000, 5000});
        addPalette(*file.database, "Zima", {70, 9000});
        good = *file.files.files.at(PaletteFile::kName);
    }

    /// Opens, reads everything, checks, and edits.
    void use(const Bytes& bytes, std::uint32_t seed) {
        MemoryFiles files;
        files.files[PaletteFile::kName] = std::make_shared<Bytes>(bytes);
        std::size_t calls = 0;
        files.onCall = [&](const char*) { ++calls; };
        Allocations::restart();
        const std::clock_t start = std::clock();
        attempt([&] {
            const auto database = Database::open(files, PaletteFile::kName);
            found += check(*database).violations.empty() ? 0 : 1;
            for (const char* table : {"MSysObjects", "TFillGroup", "TFillElementParameter"}) {
                attempt([&] { allRows(*database, table); });
            }
            attempt([&] { addPalette(*database, "Nová", {10, 4000 + seed % 5000}); });
            attempt([&] { erasePalette(*database, static_cast<std::int32_t>(seed % 3)); });
        });
        const std::clock_t time = std::clock() - start;
        const Allocations taken = Allocations::sinceRestart();
        ++cases;
        slowest = std::max(slowest, time);
        if (time > CLOCKS_PER_SEC / 10) ++slow;
        mostMemory = std::max(mostMemory, taken.most);
        mostWork = std::max(mostWork, taken.count + calls);
        ASSERT_LE(taken.most, kMostMemory) << "case " << cases;
        ASSERT_LE(taken.count + calls, kMostWork) << "case " << cases;
    }
    void attempt(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::Error&) {
            ++errors;
        }
    }
    void report() const {
        std::cout << cases << " files, " << found << " with violations, " << errors
                  << " errors; at most " << mostMemory / 1024 << " KB at one time, " << mostWork
                  << " pieces of work and " << slowest * 1000 / CLOCKS_PER_SEC << " ms of time; "
                  << slow << " took more than 100 ms\n";
    }

    Bytes good;
    std::size_t cases = 0;
    std::size_t found = 0;
    std::size_t errors = 0;
    std::size_t slow = 0;
    std::size_t mostMemory = 0;
    std::size_t mostWork = 0;
    std::clock_t slowest = 0;
};

constexpr std::size_t kParts = 4;

/// In parts, which run in parallel: each has every fourth of the bits that are tried.
class DamagedFilesByPart : public DamagedFiles,
                           public ::testing::WithParamInterface<std::size_t> {};

TEST_P(DamagedFilesByPart, OneBitIsFlipped) {
    const std::size_t bits = good.size() * 8;
    const std::size_t wanted = casesOf(bits, 40000);
    // An odd step, so that each bit of a byte gets its turn.
    const std::size_t step = bits / wanted | 1U;
    for (std::size_t bit = GetParam() * step; bit < bits && !HasFatalFailure();
         bit += kParts * step) {
        good[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        use(good, static_cast<std::uint32_t>(bit));
        good[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
    }
    report();
    EXPECT_GE(cases, wanted / kParts / 2);
    EXPECT_GT(found, cases / 100);
}

INSTANTIATE_TEST_SUITE_P(All, DamagedFilesByPart, ::testing::Range(std::size_t{0}, kParts));

/// In four parts, too.
class DamagedFilesBySeed : public DamagedFiles, public ::testing::WithParamInterface<unsigned> {};

TEST_P(DamagedFilesBySeed, ManyBytesAreChanged) {
    std::mt19937 random(GetParam());
    const std::size_t wanted = 25000 / kShare;
    const std::vector<std::uint8_t> telling{0x00, 0x01, 0x7F, 0x80, 0xFF, 0x10, 0x40, 0xC0};
    while (cases < wanted && !HasFatalFailure()) {
        Bytes bytes = good;
        // Half of the places are at the beginnings of pages, where the structure is.
        const std::size_t changes = 1 + random() % 12;
        for (std::size_t change = 0; change < changes; ++change) {
            const std::size_t page = random() % (bytes.size() / kPageSize) * kPageSize;
            const std::size_t at = page + random() % (random() % 2 == 0 ? 80 : kPageSize);
            bytes[at] = random() % 2 == 0 ? telling[random() % telling.size()]
                                          : static_cast<std::uint8_t>(random());
        }
        if (random() % 20 == 0) bytes.resize(random() % (bytes.size() / kPageSize) * kPageSize);
        use(bytes, static_cast<std::uint32_t>(random()));
    }
    report();
    EXPECT_GT(found, cases / 2);
}

INSTANTIATE_TEST_SUITE_P(All, DamagedFilesBySeed, ::testing::Values(4U, 5U, 6U, 7U));

TEST(Allocations, AreCounted) {
    if (!Allocations::kCounted) GTEST_SKIP() << "the sanitizers allocate themselves";
    Allocations::restart();
    { const Bytes bytes(100000); }
    const Bytes kept(1000);
    const Allocations taken = Allocations::sinceRestart();
    EXPECT_EQ(taken.count, 2U);
    EXPECT_GE(taken.most, 100000U);
    EXPECT_LT(taken.most, 110000U);
}

}  // namespace
}  // namespace huebrush::jet
