// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

namespace huebrush::cli {

/// Failure when there is no such file, when it is a folder, or may not be read.
void requireReadable(const std::filesystem::path& file);

/// The same, and Failure when the first bytes are not those of a text document that LibreOffice may
/// be able to open. Whether it is encrypted; without a password that is a Failure, too. Nothing is
/// known of old Word documents.
bool requireDocument(const std::filesystem::path& file, bool hasPassword = false);

/// The first bytes of a file, by which its format is recognised; fewer where it has no more.
std::string documentStart(const std::filesystem::path& file);

/// Reads a whole file. Failure when it has more than `most` bytes.
std::string readBytes(const std::filesystem::path& file, std::size_t most);

/// Reads a JSON file. Failure when it is not one; `what` is what it should be, for the message.
nlohmann::json readJson(const char* what, const std::filesystem::path& file);

}  // namespace huebrush::cli
