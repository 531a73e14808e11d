#pragma once

#include <string>

namespace huebrush::cli {

struct PaletteOptions {
    std::string file;
    bool json = false;
    bool force = false;  ///< new: replace a file that is there
    std::string input;   ///< import: the file of JSON
    std::string name;    ///< erase: of the palettes
};

/// The commands on palette files. Each does its work and prints its result; the exit code is
/// returned. What goes wrong is thrown, and nothing is written then.

/// Makes a new, empty file.
int runPaletteNew(const PaletteOptions& options);
int runPaletteList(const PaletteOptions& options);
/// Prints all that the palettes hold, as JSON.
int runPaletteDump(const PaletteOptions& options);
int runPaletteImport(const PaletteOptions& options);
int runPaletteErase(const PaletteOptions& options);
/// Prints each rule of the format that the file breaks; that there are any is a failure.
int runPaletteCheck(const PaletteOptions& options);

}  // namespace huebrush::cli
