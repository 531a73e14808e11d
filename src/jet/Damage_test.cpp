// Whatever is wrong with a file, reading, checking and editing it ends by a result or by an Error.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <random>

#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

/// How many cases, unless the environment variable HUEBRUSH_DAMAGE_CASES says so: 0 for all bits.
std::size_t casesWanted(std::size_t usual) {
    const char* const given = std::getenv("HUEBRUSH_DAMAGE_CASES");
    return given == nullptr ? usual / kShare : std::strtoull(given, nullptr, 10);
}

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
        const auto start = std::chrono::steady_clock::now();
        MemoryFiles files;
        files.files[PaletteFile::kName] = std::make_shared<Bytes>(bytes);
        attempt([&] {
            const auto database = Database::open(files, PaletteFile::kName);
            found += check(*database).violations.empty() ? 0 : 1;
            for (const char* table : {"MSysObjects", "TFillGroup", "TFillElementParameter"}) {
                attempt([&] { allRows(*database, table); });
            }
            attempt([&] { addPalette(*database, "Nová", {10, 4000 + seed % 5000}); });
            attempt([&] { erasePalette(*database, static_cast<std::int32_t>(seed % 3)); });
        });
        slowest = std::max(slowest, std::chrono::steady_clock::now() - start);
    }
    void attempt(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::Error&) {
            ++errors;
        }
    }
    void report(std::size_t cases) const {
        std::cout << cases << " files, " << found << " with violations, " << errors
                  << " errors, the slowest took "
                  << std::chrono::duration_cast<std::chrono::milliseconds>(slowest).count()
                  << " ms\n";
    }

    Bytes good;
    std::size_t found = 0;
    std::size_t errors = 0;
    std::chrono::steady_clock::duration slowest{};
};

TEST_F(DamagedFiles, OneBitIsTurned) {
    const std::size_t bits = good.size() * 8;
    const std::size_t wanted = casesWanted(12000);
    // An odd step, so that all bits of a byte have their turn.
    const std::size_t step = wanted == 0 ? 1 : bits / wanted | 1U;
    std::size_t cases = 0;
    for (std::size_t bit = 0; bit < bits; bit += step, ++cases) {
        good[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        use(good, static_cast<std::uint32_t>(bit));
        good[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
    }
    report(cases);
    EXPECT_GT(found, cases / 100);
}

TEST_F(DamagedFiles, ManyBytesAreOthers) {
    std::mt19937 random(4);
    const std::size_t cases = std::max<std::size_t>(casesWanted(8000), 1);
    const std::vector<std::uint8_t> telling{0x00, 0x01, 0x7F, 0x80, 0xFF, 0x10, 0x40, 0xC0};
    for (std::size_t i = 0; i < cases; ++i) {
        Bytes bytes = good;
        // Half of the places are at the beginnings of pages, where the structure is.
        for (std::size_t change = 0; change < 1 + random() % 12; ++change) {
            const std::size_t page = random() % (bytes.size() / kPageSize) * kPageSize;
            const std::size_t at = page + random() % (random() % 2 == 0 ? 80 : kPageSize);
            bytes[at] = random() % 2 == 0 ? telling[random() % telling.size()]
                                          : static_cast<std::uint8_t>(random());
        }
        if (random() % 20 == 0) bytes.resize(random() % (bytes.size() / kPageSize) * kPageSize);
        use(bytes, static_cast<std::uint32_t>(random()));
    }
    report(cases);
    EXPECT_GT(found, cases / 2);
}

}  // namespace
}  // namespace huebrush::jet
