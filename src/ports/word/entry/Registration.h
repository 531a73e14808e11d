// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::word {

/// The class of the entry object, in the form in which the registry has it.
inline constexpr const char* kClassId = "{32522A19-356A-449B-9663-455D4CA94F36}";
inline constexpr const char* kProgrammaticId = "Huebrush.ConnectW2000";

/// Registers the add-in for the current user: the class, which is in the file with this full name,
/// and the add-in among those that Word loads when it starts.
void registerAddIn(const std::string& file);

/// Takes back what the registration has written. Keys above it that it had to make go, too, unless
/// somebody else uses them by now.
void unregisterAddIn();

}  // namespace huebrush::word
