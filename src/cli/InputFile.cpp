// SPDX-License-Identifier: MPL-2.0

#include "cli/InputFile.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "cli/Failure.h"
#include "documents/DocumentFile.h"
#include "documents/package/Package.h"

namespace huebrush::cli {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLargestPackage = 2'000'000'000;

std::string bytesOf(const fs::path& file, std::streamoff at, std::size_t count) {
    std::string bytes(count, '\0');
    std::ifstream input(file, std::ios::binary);
    // A pipe has no places.
    if (at != 0) input.seekg(at);
    input.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(input.gcount()));
    return bytes;
}

/// ZIP packages, compound files, RTF, and XML in UTF-8 or UTF-16.
bool beginsLikeADocument(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    const std::size_t text = std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size());
    const auto begins = [&](std::string_view with) { return bytes.starts_with(with); };
    return begins("PK\x03\x04") || begins("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1") || begins("{\\rtf") ||
           begins("\xFF\xFE<\0"sv) || begins("\xFE\xFF\0<"sv) ||
           bytes.substr(text).starts_with('<');
}

/// The number in four bytes, lowest first.
std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i > 0; --i) {
        number = number << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return number;
}

/// Whether a compound file wraps an encrypted package: its list of parts names one.
bool wrapsEncryptedPackage(const fs::path& file, std::string_view header) {
    constexpr std::size_t kHeader = 512;
    constexpr std::size_t kSectorShift = 30;
    constexpr std::size_t kListSector = 48;
    constexpr std::size_t kEnough = 4096;
    if (!header.starts_with("\xD0\xCF\x11\xE0") || header.size() < kHeader) return false;
    const unsigned shift = static_cast<unsigned char>(header[kSectorShift]) & 0xFU;
    const auto place = (std::streamoff{numberAt(header, kListSector)} + 1) << shift;
    std::string name;
    for (const char each : std::string_view("EncryptedPackage")) name.append({each, '\0'});
    return bytesOf(file, place, kEnough).find(name) != std::string::npos;
}

}  // namespace

void requireReadable(const fs::path& file) {
    std::error_code error;
    if (!fs::exists(file, error)) throw Failure(file.string() + " does not exist");
    if (fs::is_directory(file, error)) throw Failure(file.string() + " is a folder");
    if (access(file.c_str(), R_OK) != 0) throw Failure("cannot read " + file.string());
}

std::string readBytes(const fs::path& file, std::size_t most) {
    requireReadable(file);
    std::string bytes = bytesOf(file, 0, most + 1);
    if (bytes.size() > most) {
        throw Failure(base::text(file.string(), " has more than ", most / 1'000'000, " MB"));
    }
    return bytes;
}

nlohmann::json readJson(const char* what, const fs::path& file) {
    requireReadable(file);
    std::ifstream input(file);
    nlohmann::json value = nlohmann::json::parse(input, nullptr, false);
    if (value.is_discarded())
        throw Failure(std::string(what) + " " + file.string() + " is not valid JSON");
    return value;
}

std::string documentStart(const fs::path& file) {
    constexpr std::size_t kStart = 65536;
    return bytesOf(file, 0, kStart);
}

bool requireDocument(const fs::path& file, bool hasPassword) {
    requireReadable(file);
    const std::string bytes = documentStart(file);
    if (!beginsLikeADocument(bytes)) {
        throw Failure(file.string() + " is not a document that LibreOffice can open");
    }
    if (wrapsEncryptedPackage(file, bytes)) {
        if (!hasPassword) throw Failure(file.string() + " is protected by a password");
        return true;
    }
    return hasPassword && documents::isPackage(bytes) &&
           documents::isEncrypted(readBytes(file, kLargestPackage));
}

}  // namespace huebrush::cli
