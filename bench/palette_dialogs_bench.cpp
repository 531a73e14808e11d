// SPDX-License-Identifier: MPL-2.0

// The dialogs of palettes on large files of this system, over the recolour dialog on the memory
// host: no office and no screen is in it. The files are made in the folder that is the last
// argument.

#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "base/Text.h"
#include "palette/FillRecord.h"
#include "palette/PaletteFile.h"
#include "palette/SolidFill.h"
#include "palette/frmLoadFill.h"
#include "palette/frmSaveFill.h"
#include "palette/mMakeDatabase.h"
#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"
#include "recolor/frmEditGraphic.h"

namespace {

using namespace huebrush;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// What the system has been asked to bring to the disk.
struct Syncs {
    std::size_t count = 0;
    double seconds = 0;
};
Syncs syncs;

}  // namespace

/// Stands before the system's own, which it calls.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's begins with __
extern "C" int fsync(int file) {
    using Call = int (*)(int);
    static const auto kSystem = reinterpret_cast<Call>(dlsym(RTLD_NEXT, "fsync"));
    const auto start = Clock::now();
    const int result = kSystem(file);
    syncs.seconds += secondsSince(start);
    ++syncs.count;
    return result;
}

namespace {

constexpr int kPalettes = 500;
constexpr int kFillsOfPalette = 50;
constexpr std::int32_t kSavedFills = 100;

/// A preview as an office draws it: 81 × 25 dots of three bytes.
base::Picture previewIn(std::int32_t color) {
    constexpr std::int32_t kWidth = 81;
    constexpr std::int32_t kHeight = 25;
    std::vector<std::uint8_t> pixels;
    for (std::int32_t i = 0; i < kWidth * kHeight; ++i) {
        for (int channel = 0; channel < 3; ++channel) {
            pixels.push_back(static_cast<std::uint8_t>(color >> (8 * channel)));
        }
    }
    return {base::PictureFormat::bitmap, base::bitmapFile(kWidth, kHeight, 3, pixels)};
}

/// The folder of all files, and the files in it: with many palettes, and with none.
struct Places {
    std::string folder;
    std::string large = folder + "/large.mdb";
    std::string empty = folder + "/empty.mdb";
};
Places places;

/// The recolour dialog with selected rows, each of its own colour, and a user at it.
class Scene {
 public:
    explicit Scene(const std::string& file) {
        test.runtime.temporary = places.folder;
        test.runtime.settings[{"Huebrush", "Database", "FileName"}] = file;
        test.runtime.settings[{"Huebrush", "Database", "ShowPreview"}] = base::text(1);
        for (std::int32_t color = 1; color <= kSavedFills; ++color) {
            test.document->addSolid(base::text("Shape ", color), color);
        }
        test.document->selectAll();
        dialog->connect(test.application);
        user.click(dialog->cmdAdd);
        user.click(dialog->chkSelAll);
        for (std::int16_t row = 1; row <= dialog->Element.ubound(); ++row) {
            dialog->Element[row].setDestinationPicture(previewIn(row));
        }
        test.runtime.boxes.clear();
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    ~Scene() { dialog->Unload(); }

    /// Opens a dialog by its button, uses it, and closes it. How long it took until it was there.
    template <class Dialog>
    double open(forms::CommandButton& button,
                const std::function<void(Dialog&, const memory::Driver&)>& use = {}) {
        double seconds = 0;
        const auto start = Clock::now();
        test.runtime.onModal = [&](forms::Form& form) {
            seconds = secondsSince(start);
            if (use) use(dynamic_cast<Dialog&>(form), memory::Driver(form));
            form.Unload();
        };
        user.click(button);
        return seconds;
    }
    /// A box means that something else was measured than is said.
    void requireNoBox() const {
        if (test.runtime.boxes.empty()) return;
        throw std::runtime_error(test.runtime.boxes.front().text);
    }

    memory::TestHost test;
    std::shared_ptr<recolor::frmEditGraphic> dialog = recolor::frmEditGraphic::create();
    memory::Driver user{*dialog};
};

/// Records the time of one run, and keeps the longest.
void record(benchmark::State& state, double seconds) {
    state.SetIterationTime(seconds);
    benchmark::Counter& slowest = state.counters["slowest_ms"];
    slowest = std::max(slowest.value, seconds * 1000);
}

void openSaving(benchmark::State& state) {
    Scene scene(places.large);
    for (auto unused : state) {
        static_cast<void>(unused);
        record(state, scene.open<palette::frmSaveFill>(scene.dialog->cmdToDatabase));
    }
    scene.requireNoBox();
}

void openLoading(benchmark::State& state) {
    Scene scene(places.large);
    for (auto unused : state) {
        static_cast<void>(unused);
        record(state, scene.open<palette::frmLoadFill>(
                          scene.dialog->cmdFromDatabase,
                          [](palette::frmLoadFill& shown, const memory::Driver&) {
                              if (shown.picElement.ubound() != kFillsOfPalette) {
                                  throw std::runtime_error("previews are missing");
                              }
                          }));
    }
    scene.requireNoBox();
}

/// Palettes all over the file, with their previews.
void choose(benchmark::State& state) {
    Scene scene(places.large);
    scene.open<palette::frmLoadFill>(scene.dialog->cmdFromDatabase,
                                     [&](palette::frmLoadFill& shown, const memory::Driver& user) {
                                         int next = 0;
                                         for (auto unused : state) {
                                             static_cast<void>(unused);
                                             next = (next + 171) % kPalettes;
                                             const auto start = Clock::now();
                                             user.pick(shown.lstFillGroup,
                                                       static_cast<std::int16_t>(next));
                                             record(state, secondsSince(start));
                                         }
                                     });
    scene.requireNoBox();
}

/// From the click on “Uložit” until the palette is in the file, without the syncs.
void save(benchmark::State& state, const std::string& file) {
    Scene scene(file);
    double synced = 0;
    std::size_t calls = 0;
    scene.test.runtime.answers = {forms::MsgBoxResult::no};
    scene.open<palette::frmSaveFill>(
        scene.dialog->cmdToDatabase, [&](palette::frmSaveFill& shown, const memory::Driver& user) {
            // An empty file is asked about.
            scene.test.runtime.boxes.clear();
            int number = 0;
            for (auto unused : state) {
                static_cast<void>(unused);
                user.click(shown.cmdNew);
                user.type(shown.txtFillGroupName, base::text("Saved ", ++number));
                const Syncs before = syncs;
                const auto start = Clock::now();
                user.click(shown.cmdApply);
                const double whole = secondsSince(start);
                record(state, whole - (syncs.seconds - before.seconds));
                synced += syncs.seconds - before.seconds;
                calls += syncs.count - before.count;
                if (shown.lblCount.Caption.get() != base::text(kSavedFills)) {
                    throw std::runtime_error("not all fills were saved");
                }
            }
        });
    scene.requireNoBox();
    using benchmark::Counter;
    state.counters["syncs"] = Counter(static_cast<double>(calls), Counter::kAvgIterations);
    state.counters["sync_ms"] = Counter(synced * 1000, Counter::kAvgIterations);
}

void saveInLarge(benchmark::State& state) {
    save(state, places.large);
}
void saveInSmall(benchmark::State& state) {
    save(state, places.empty);
}

BENCHMARK(openSaving)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(openLoading)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(choose)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(saveInLarge)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(saveInSmall)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

void addPalette(palette::PaletteAdder& adder, int number) {
    const palette::PaletteSink::Values group{
        {&adder.groups().column("Name"), base::text("Paleta ", number)},
        {&adder.groups().column("Description"), base::text("Popis palety ", number)}};
    adder.begin(group);
    for (int i = 0; i < kFillsOfPalette; ++i) {
        const std::int32_t color = number * kFillsOfPalette + i;
        auto fill = palette::valuesOf(adder.elements(), palette::solidFill(color));
        for (auto& [column, value] : fill) {
            if (column->name == "FillPreview") value = previewIn(color).bytes();
        }
        adder.fill(fill);
    }
    adder.end(group);
}

void makeFiles() {
    memory::MemoryRuntime runtime;
    const forms::RuntimeScope scope(runtime);
    for (const std::string& file : {places.large, places.empty}) {
        if (!palette::MakeDatabase(file)) throw std::runtime_error("cannot make " + file);
    }
    const auto large = jet::Database::open(jet::systemFiles(), places.large);
    large->change([&] {
        palette::PaletteAdder adder(*large);
        for (int number = 0; number < kPalettes; ++number) addPalette(adder, number);
    });
}

}  // namespace

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        if (argc != 2) throw std::runtime_error("palette_dialogs_bench FOLDER");
        places = Places{argv[1]};
        makeFiles();
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
