// Reads real files, if the environment variable HUEBRUSH_SAMPLES names a folder of them, and
// compares every row of every table with what mdb-export says.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "jet/MdbExport_test_support.h"
#include "jet/check/Check.h"
#include "jet/database/Database.h"

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

/// None when this engine refuses the file for what it is: a password, another version.
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

}  // namespace
}  // namespace huebrush::jet
