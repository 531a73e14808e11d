// SPDX-License-Identifier: MPL-2.0

#include "palette/OwnDataFile.h"

#include <cstdint>
#include <string>
#include <vector>

#include "base/Color.h"
#include "forms/Runtime.h"
#include "jet/file/MemoryFiles.h"
#include "palette/DataFile.h"
#include "palette/FillRecord.h"
#include "palette/PaletteFile.h"
#include "palette/SolidFill.h"
#include "palette/mMakeDatabase.h"

namespace huebrush::palette {

namespace {

constexpr const char* kMade = "OwnFileMade";
constexpr const char* kDraft = "/fill.mdb";

struct FirstPalette {
    const char* name;
    const char* description;
    /// As 0xRRGGBB.
    std::vector<std::int32_t> colors;
};

const std::vector<FirstPalette>& firstPalettes() {
    static const std::vector<FirstPalette> palettes{
        {"Okabe a Ito",
         "Osm barev, které rozliší i barvoslepí (M. Okabe, K. Ito, 2008)",
         {0x000000, 0xE69F00, 0x56B4E9, 0x009E73, 0xF0E442, 0x0072B2, 0xD55E00, 0xCC79A7}},
        {"Paul Tol – jasné",
         "Sedm jasných barev, které rozliší i barvoslepí (P. Tol, 2021)",
         {0x4477AA, 0xEE6677, 0x228833, 0xCCBB44, 0x66CCEE, 0xAA3377, 0xBBBBBB}},
        {"Paul Tol – tlumené",
         "Devět tlumených barev, které rozliší i barvoslepí (P. Tol, 2021)",
         {0xCC6677, 0x332288, 0xDDCC77, 0x117733, 0x88CCEE, 0x882255, 0x44AA99, 0x999933,
          0xAA4499}},
        {"Stupně šedi",
         "Osm stupňů od černé po bílou",
         {0x000000, 0x242424, 0x494949, 0x6D6D6D, 0x929292, 0xB6B6B6, 0xDBDBDB, 0xFFFFFF}},
        {"Stupně modré",
         "Sedm stupňů od tmavě po světle modrou",
         {0x08306B, 0x1B4F94, 0x3A72B5, 0x6496CC, 0x93B7DD, 0xC0D6EC, 0xE6EFF8}},
    };
    return palettes;
}

void addPalette(PaletteAdder& adder, const FirstPalette& palette) {
    const jet::Table& groups = adder.groups();
    const PaletteSink::Values group{
        {&groups.column("Name"), std::string(palette.name)},
        {&groups.column("Description"), std::string(palette.description)}};
    adder.begin(group);
    for (const std::int32_t color : palette.colors) {
        adder.fill(valuesOf(adder.elements(), solidFill(base::swapRedAndBlue(color))));
    }
    adder.end(group);
}

/// The whole file.
jet::Bytes firstFile() {
    jet::MemoryFiles files;
    MakeDatabase(kDraft, files);
    const auto database = jet::Database::open(files, kDraft);
    database->change([&] {
        PaletteAdder adder(*database);
        for (const FirstPalette& each : firstPalettes()) addPalette(adder, each);
    });
    return *files.files.at(kDraft);
}

}  // namespace

bool makeOwnDataFile(jet::FileSystem& files) {
    forms::Settings& settings = forms::Runtime::current().Settings();
    if (settings.GetSetting(kApplication, kDatabaseSection, kMade)) return false;
    const std::string path = ownDataFile();
    const bool missing = !files.exists(path);
    if (missing) {
        files.makeFolder(path.substr(0, path.find_last_of("/\\")));
        const auto file = files.create(path);
        file->write(0, firstFile());
        file->publish();
    }
    settings.SaveSetting(kApplication, kDatabaseSection, kMade, "1");
    return missing;
}

}  // namespace huebrush::palette
