// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/FileDialog.h"
#include "jet/records/Connection.h"
#include "palette/BoundRecordset.h"

namespace huebrush::palette {

/// What the two dialogs of palettes do alike: the file that they work on, and the list of the
/// palettes in it.

/// The settings of the dialogs.
inline constexpr const char* kApplication = "Huebrush";
inline constexpr const char* kDatabaseSection = "Database";

/// The palettes by name; all fills; those of one palette by their order.
inline constexpr const char* kPalettesQuery = "SELECT TFillGroup.* From TFillGroup ORDER BY Name";
inline constexpr const char* kFillsQuery =
    "SELECT TFillElementParameter.* From TFillElementParameter";
std::string fillsOfPaletteQuery(std::int32_t id);

/// The user's own palette file: where it is until the user chooses another.
std::string ownDataFile();
/// The file that a dialog last worked on, as a setting; at first the user's own. A dialog that
/// could not even be opened has none to remember.
std::string rememberedDataFile();
void rememberDataFile(const std::string& path);

/// Has the user choose a file with palettes, which has the extension ".mdb". Nothing when the user
/// cancels that.
std::optional<std::string> chooseDataFile(forms::FileDialog::Purpose purpose,
                                          const std::string& title);

/// The boxes about files that are missing, or have no palettes, and the message about errors.
void showMissing(const std::string& path);
void showWithoutPalettes(const std::string& path);
std::string couldNotOpen(const std::string& path);

void openDatabase(jet::Connection& connection, const std::string& path);

/// The palettes in their order, by name and ID; the first record is current then. An error where
/// one of them has no name.
std::vector<forms::ListItem> palettesOf(BoundRecordset& groups);
/// Fills the list with palettes, each with its ID as its data.
void showPalettes(forms::ListBox& list, const std::vector<forms::ListItem>& palettes);
/// Makes the record of the list's current palette the current one. False, and nothing is done,
/// where the list has none.
bool findPaletteOf(const forms::ListBox& list, BoundRecordset& groups);

}  // namespace huebrush::palette
