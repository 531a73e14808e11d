// SPDX-License-Identifier: MPL-2.0

// Reads real files, if the environment variable HUEBRUSH_SAMPLES names a folder of them, and
// compares every row of every table with what mdb-export says.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "jet/MdbExport_test_support.h"
#include "jet/check/Check.h"
#include "jet/database/Database.h"
#include "jet/file/SystemFolder_test_support.h"

namespace huebrush::jet {
namespace {

std::vector<std::string> samples() {
    std::vector<std::string> found;
    const char* const folder = std::getenv("HUEBRUSH_SAMPLES");
    if (folder == nullptr) return found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".mdb") found.push_back(entry.path());
    }
    return found;
}

/// None when this engine refuses the file for its kind: a password, another version.
std::shared_ptr<Database> openIfReadable(const std::string& file) {
    try {
        return Database::open(systemFiles(), file);
    } catch (const base::Error& error) {
        EXPECT_TRUE(error.number() == ErrorNumber::kPassword ||
                    error.number() == ErrorNumber::kNotSupported)
            << error.description();
        std::cout << error.description() << '\n';
        return nullptr;
    }
}

void compareTable(Database& database, const std::string& file, const StoredObject& object) {
    SCOPED_TRACE(file + " " + object.name);
    const auto table = database.definition(static_cast<PageNumber>(object.id));
    Cells ours = exportTable(database, *table);
    Cells theirs = runMdbExport(file, object.name);
    // A moved row comes where its slot is, or where its bytes are.
    std::sort(ours.begin() + 1, ours.end());
    std::sort(theirs.begin() + 1, theirs.end());
    ASSERT_EQ(ours.size(), theirs.size());
    for (std::size_t row = 0; row < ours.size(); ++row) {
        ASSERT_EQ(ours[row].size(), theirs[row].size());
        for (std::size_t i = 0; i < ours[row].size(); ++i) {
            EXPECT_TRUE(sameCell(ours[row][i], theirs[row][i]))
                << "row " << row << ", " << ours[0][i] << ": " << ours[row][i].substr(0, 200)
                << " and " << theirs[row][i].substr(0, 200);
        }
    }
}

TEST(Samples, AreReadAsMdbExportReadsThem) {
    const std::vector<std::string> files = samples();
    if (files.empty()) GTEST_SKIP() << "HUEBRUSH_SAMPLES names no folder with .mdb files";
    for (const std::string& file : files) {
        const auto database = openIfReadable(file);
        if (!database) continue;
        for (const StoredObject& object : database->objects()) {
            if (object.isTable()) compareTable(*database, file, object);
        }
    }
}

TEST(Samples, KeepTheRules) {
    const std::vector<std::string> files = samples();
    if (files.empty()) GTEST_SKIP() << "HUEBRUSH_SAMPLES names no folder with .mdb files";
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        const auto database = openIfReadable(file);
        if (!database) continue;
        for (const Violation& each : check(*database).violations) {
            EXPECT_EQ(each.severity, Severity::waste) << each.text();
        }
    }
}

/// All rows of the tables that a file of another program had.
std::map<std::string, Cells> cellsOf(Database& database, const std::vector<std::string>& tables) {
    std::map<std::string, Cells> cells;
    for (const std::string& name : tables) {
        cells[name] = exportTable(database, *database.definition(name));
    }
    return cells;
}

bool hasPalettes(Database& database) {
    const auto& objects = database.objects();
    return std::any_of(objects.begin(), objects.end(),
                       [](const StoredObject& each) { return each.name == "TFillGroup"; });
}

void addAndErasePalettes(Database& database, std::size_t elements) {
    const std::int32_t first =
        addPalette(database, "Podzim", std::vector<std::size_t>(elements, 3000));
    addPalette(database, "Zima", std::vector<std::size_t>(elements / 10, 9000));
    erasePalette(database, first);
    addPalette(database, "Jaro", std::vector<std::size_t>(elements / 3, 2000));
}

TEST_F(SystemFolder, SamplesAreWrittenToAndLoseNothing) {
    const std::vector<std::string> samplesThere = samples();
    if (samplesThere.empty()) GTEST_SKIP() << "HUEBRUSH_SAMPLES names no folder with .mdb files";
    for (const std::string& sample : samplesThere) {
        SCOPED_TRACE(sample);
        fs::copy_file(sample, file, fs::copy_options::overwrite_existing);
        fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
        const auto database = openIfReadable(file);
        if (!database) continue;
        std::vector<std::string> tables;
        for (const StoredObject& object : database->objects()) {
            if (object.isUserTable() && object.name.rfind("TFill", 0) != 0) {
                tables.push_back(object.name);
            }
        }
        const auto before = cellsOf(*database, tables);
        // The elements of real palettes have more columns than ours.
        const std::size_t elements = hasPalettes(*database) ? 0 : 30;
        if (elements != 0) createPaletteTables(*database);
        for (int turn = 0; turn < 5; ++turn) {
            database->inOneCommit([&] { addAndErasePalettes(*database, elements); });
        }
        EXPECT_EQ(damage(*database), "");
        EXPECT_EQ(cellsOf(*database, tables), before);
        const auto reopened = Database::open(systemFiles(), file);
        for (const StoredObject& object : reopened->objects()) {
            if (object.isTable()) compareTable(*reopened, file, object);
        }
    }
}

}  // namespace
}  // namespace huebrush::jet
