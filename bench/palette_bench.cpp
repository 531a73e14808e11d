// SPDX-License-Identifier: MPL-2.0

// Measures the work on palette files, and prints figures as JSON. bench/palettes.py runs it against
// other readers of the same files.
//
//     palette_bench make FOLDER ROWS    one.mdb: one palette of 100 fills; rows.mdb: ROWS fills
//     palette_bench load FILE ID RUNS   opens the file and loads the palette with that ID
//     palette_bench scan FILE RUNS      opens the file and reads each value of each fill
//     palette_bench save FOLDER RUNS    saves a palette of 100 fills in a new file
//     palette_bench insert FOLDER ROWS rising|random
//                                       adds rows of 20 columns, in one commit, to a table with
//                                       three indexes: a key that rises, one that many rows share,
//                                       and one that rises or comes in no order

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <numeric>
#include <vector>

#include "jet/database/Schema.h"
#include "jet/database/Table.h"
#include "palette/PaletteFile.h"
#include "palette/mMakeDatabase.h"

namespace {

using namespace huebrush;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::int32_t kFills = 100;
/// A preview is a picture of 81 × 25 dots with three bytes each.
constexpr std::size_t kPreviewBytes = 6154;

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double milliseconds(const std::function<void()>& work) {
    const auto start = Clock::now();
    work();
    return Milliseconds(Clock::now() - start).count();
}

/// A figure of this process in kilobytes, as the system has it.
std::size_t kilobytes(const std::string& figure) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(figure + ":")) return std::stoul(line.substr(figure.size() + 1));
    }
    throw std::runtime_error("the system does not report " + figure);
}

/// The files of the system; the time spent in writing them to the disk is recorded.
class TimedFiles final : public jet::FileSystem {
 public:
    std::string resolve(const std::string& name) override { return system().resolve(name); }
    bool exists(const std::string& name) override { return system().exists(name); }
    std::unique_ptr<jet::File> open(const std::string& name) override {
        return system().open(name);
    }
    std::unique_ptr<jet::NewFile> create(const std::string& name) override {
        return std::make_unique<TimedFile>(*this, system().create(name));
    }
    std::unique_ptr<jet::Lock> lock(const std::string& name) override {
        return std::make_unique<TimedLock>(*this, system().lock(name));
    }
    void remove(const std::string& name) override { system().remove(name); }
    void makeFolder(const std::string& name) override { system().makeFolder(name); }

    /// From the written bytes until the file is on the disk under its name.
    double syncs = 0;
    /// The lock is the last to hold a replaced file open; then the system removes it from the disk.
    double removals = 0;

 private:
    class TimedFile final : public jet::NewFile {
     public:
        TimedFile(TimedFiles& files, std::unique_ptr<jet::NewFile> file)
            : files_(files), file_(std::move(file)) {}
        void write(std::uint64_t at, jet::ByteView bytes) override { file_->write(at, bytes); }
        void read(std::uint64_t at, std::span<std::uint8_t> out) override { file_->read(at, out); }
        std::unique_ptr<jet::File> publish() override {
            std::unique_ptr<jet::File> published;
            files_.syncs += milliseconds([&] { published = file_->publish(); });
            return published;
        }

     private:
        TimedFiles& files_;
        std::unique_ptr<jet::NewFile> file_;
    };

    class TimedLock final : public jet::Lock {
     public:
        TimedLock(TimedFiles& files, std::unique_ptr<jet::Lock> lock)
            : files_(files), lock_(std::move(lock)) {}
        TimedLock(const TimedLock&) = delete;
        TimedLock& operator=(const TimedLock&) = delete;
        ~TimedLock() override {
            files_.removals += milliseconds([&] { lock_.reset(); });
        }
        std::unique_ptr<jet::NewFile> replacement() override {
            return std::make_unique<TimedFile>(files_, lock_->replacement());
        }

     private:
        TimedFiles& files_;
        std::unique_ptr<jet::Lock> lock_;
    };

    static jet::FileSystem& system() { return jet::systemFiles(); }
};

palette::Palette makePalette(std::int32_t fills, std::size_t previewBytes) {
    palette::Palette palette{{{"Name", std::string("Podzimní barvy")}}, {}};
    for (std::int32_t order = 0; order < fills; ++order) {
        palette::Record fill{{"OrderNumber", order}};
        for (const char* const name :
             {"Visible", "ForeColorRGB", "BackColorRGB", "Transparency", "GradientStyle",
              "GradientColorType", "GradientVariant", "GradientDegree", "PresetGradientType",
              "TextureType", "Type", "PresetTexture", "Pattern"}) {
            fill.emplace_back(name, order * 7);
        }
        fill.emplace_back("TextureName", std::string("Žula"));
        fill.emplace_back("PictureName", std::string());
        if (previewBytes > 0) {
            fill.emplace_back("FillPreview",
                              jet::Bytes(previewBytes, static_cast<std::uint8_t>(order)));
        }
        palette.elements.push_back(std::move(fill));
    }
    return palette;
}

std::shared_ptr<jet::Database> makeFile(const std::string& name, jet::FileSystem& files) {
    std::filesystem::remove(name);
    if (!palette::MakeDatabase(name, files)) throw std::runtime_error("cannot make " + name);
    return jet::Database::open(files, name);
}

void makeFiles(const std::string& folder, std::int32_t rows) {
    const auto one = makeFile(folder + "/one.mdb", jet::systemFiles());
    palette::addPalettes(*one, {makePalette(kFills, kPreviewBytes)});
    const auto many = makeFile(folder + "/rows.mdb", jet::systemFiles());
    many->inOneCommit([&] {
        for (std::int32_t left = rows; left > 0; left -= kFills) {
            palette::addPalettes(*many, {makePalette(std::min(left, kFills), 0)});
        }
    });
}

/// Work that returns how many fills it has met, done several times over.
void measureReading(int runs, const std::function<std::size_t()>& work) {
    const std::size_t before = kilobytes("VmRSS");
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(runs));
    std::size_t fills = 0;
    for (int run = 0; run < runs; ++run) {
        times.push_back(milliseconds([&] { fills = work(); }));
    }
    std::cout << R"({"ms":)" << median(times) << R"(,"fills":)" << fills << R"(,"memory_kb":)"
              << kilobytes("VmHWM") - before << "}\n";
}

std::size_t load(const std::string& file, std::int32_t id) {
    const auto database = jet::Database::open(jet::systemFiles(), file);
    const jet::Table groups(*database, palette::kGroupTable);
    const auto rows = groups.find(groups.column("ID"), id);
    return rows.empty() ? 0 : palette::fillsOf(*database, id).size();
}

std::size_t scan(const std::string& file) {
    const auto database = jet::Database::open(jet::systemFiles(), file);
    const jet::Table fills(*database, palette::kElementTable);
    std::size_t rows = 0;
    fills.scan([&](jet::RowId, const jet::Row& row) {
        for (const jet::Column& column : fills.definition().columns) fills.value(row, column);
        ++rows;
        return true;
    });
    return rows;
}

void measureSaving(const std::string& folder, int runs) {
    const palette::Palette saved = makePalette(kFills, kPreviewBytes);
    std::vector<double> times;
    std::vector<double> syncs;
    std::vector<double> removals;
    TimedFiles files;
    for (int run = 0; run < runs; ++run) {
        const auto database = makeFile(folder + "/saved.mdb", files);
        files.syncs = 0;
        files.removals = 0;
        const double time = milliseconds([&] { palette::addPalettes(*database, {saved}); });
        times.push_back(time - files.syncs);
        syncs.push_back(files.syncs);
        removals.push_back(files.removals);
    }
    std::cout << R"({"ms":)" << median(times) << R"(,"sync_ms":)" << median(syncs)
              << R"(,"removal_ms":)" << median(removals) << "}\n";
}

constexpr int kColumns = 20;

void createWideTable(jet::Database& database) {
    jet::NewTable wide{"Wide", {{"ID", jet::ColumnType::longInteger, 0, false, true}}, {}};
    while (wide.columns.size() < kColumns - 1) {
        wide.columns.push_back(
            {"Number" + std::to_string(wide.columns.size()), jet::ColumnType::longInteger});
    }
    wide.columns.push_back({"Text", jet::ColumnType::text, 255, true});
    wide.indexes = {{"PrimaryKey", {"ID"}, true, true},
                    {"Shared", {"Number1"}, false, false},
                    {"Own", {"Number2"}, true, false}};
    database.change([&] { jet::createTable(database, wide); });
}

/// Takes every number below 2^32 once, in no order.
std::int32_t scattered(std::int32_t number) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number) * 2654435761U);
}

void measureInserting(const std::string& folder, std::int32_t rows, bool rising) {
    TimedFiles files;
    const auto database = makeFile(folder + "/wide.mdb", files);
    createWideTable(*database);
    files.syncs = 0;
    const double whole = milliseconds([&] {
        database->change([&] {
            jet::Table table(*database, "Wide");
            jet::Table::Values values;
            for (const jet::Column& column : table.definition().columns) {
                if (!column.autonumber) values.emplace_back(&column, std::string("Žula"));
            }
            for (std::int32_t row = 0; row < rows; ++row) {
                for (std::size_t i = 0; i + 1 < values.size(); ++i) {
                    values[i].second = row + static_cast<std::int32_t>(i);
                }
                values[0].second = row / kFills;
                values[1].second = rising ? row : scattered(row);
                table.insert(values);
            }
        });
    });
    std::cout << R"({"us_a_row":)" << (whole - files.syncs) * 1000 / rows << R"(,"memory_kb":)"
              << kilobytes("VmHWM") << "}\n";
}

int run(const std::vector<std::string>& arguments) {
    const std::string command = arguments.empty() ? "" : arguments[0];
    if (command == "make" && arguments.size() == 3) {
        makeFiles(arguments[1], std::stoi(arguments[2]));
    } else if (command == "load" && arguments.size() == 4) {
        const std::int32_t id = std::stoi(arguments[2]);
        measureReading(std::stoi(arguments[3]), [&] { return load(arguments[1], id); });
    } else if (command == "scan" && arguments.size() == 3) {
        measureReading(std::stoi(arguments[2]), [&] { return scan(arguments[1]); });
    } else if (command == "save" && arguments.size() == 3) {
        measureSaving(arguments[1], std::stoi(arguments[2]));
    } else if (command == "insert" && arguments.size() == 4) {
        measureInserting(arguments[1], std::stoi(arguments[2]), arguments[3] == "rising");
    } else {
        std::cerr << "palette_bench make|load|scan|save|insert …\n";
        return 2;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
