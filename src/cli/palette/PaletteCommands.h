// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::cli {

struct PaletteOptions {
    std::string file;
    bool json = false;
    bool force = false;    ///< new: replace an existing file
    std::string input;     ///< import: the file of palettes
    std::string name;      ///< erase, import: of the palettes; otherwise: of the palette
    std::string format;    ///< import, export: the format's name; empty: by the file's ending
    std::string output;    ///< export, preview: the file to write
    std::string document;  ///< save: whose fills to keep
    bool replace = false;  ///< save: replace palettes with that name
};

/// The commands on palette files. Each does its work, prints its result and returns the exit code.
/// Errors are thrown, and nothing is written then.

/// Creates a new, empty file.
int runPaletteNew(const PaletteOptions& options);
int runPaletteList(const PaletteOptions& options);
/// Prints everything in the palettes as JSON.
int runPaletteDump(const PaletteOptions& options);
/// Adds palettes from JSON, or from a file of another program.
int runPaletteImport(const PaletteOptions& options);
/// Writes the solid fills of a palette to a file of another program.
int runPaletteExport(const PaletteOptions& options);
/// Keeps the distinct fills of a document as a palette; a file that does not exist is created.
int runPaletteSave(const PaletteOptions& options);
/// Writes a PNG of the stored previews of a palette.
int runPalettePreview(const PaletteOptions& options);
int runPaletteErase(const PaletteOptions& options);
/// Prints each rule of the format that the file breaks; if there is damage, the exit code says so.
int runPaletteCheck(const PaletteOptions& options);

}  // namespace huebrush::cli
