// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

namespace huebrush::cli {

/// Failure when there is no such file, when it is a folder, or may not be read.
void requireReadable(const std::filesystem::path& file);

/// The same, and Failure when the first bytes are not those of a text document that LibreOffice may
/// be able to open, or are those of one that is encrypted.
void requireDocument(const std::filesystem::path& file);

/// The first bytes of a file, by which its format is recognised; fewer where it has no more.
std::string documentStart(const std::filesystem::path& file);

/// Reads a whole file. Failure when it has more than `most` bytes.
std::string readBytes(const std::filesystem::path& file, std::size_t most);

/// Reads a JSON file. Failure when it is not one; `what` is what it should be, for the message.
nlohmann::json readJson(const char* what, const std::filesystem::path& file);

}  // namespace huebrush::cli
