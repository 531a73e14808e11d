// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace huebrush::documents {

/// One file of a package, where it lies in the package's bytes.
struct PackageEntry {
    std::string name;
    std::uint16_t method = 0;
    std::uint32_t crc = 0;
    std::size_t size = 0;            ///< of the content
    std::size_t compressedSize = 0;  ///< of the data
    std::size_t headerAt = 0;
    std::size_t dataAt = 0;
    /// Up to the next entry or the directory: the data, and whatever stands behind it.
    std::size_t end = 0;
    /// The entry's record in the directory.
    std::size_t recordAt = 0;
    std::size_t recordSize = 0;
};

/// How large a part may be.
struct PackageLimits {
    std::size_t part = 256U << 20U;
    /// How many times its compressed size a part may have, where it is larger than `ratioFrom`.
    std::size_t ratio = 400;
    std::size_t ratioFrom = 10U << 20U;
};

/// Content of parts that are to replace others or to be added, by their names.
using PackageChanges = std::map<std::string, std::string>;

/// A ZIP package, as documents are. Reading it changes nothing; a changed copy has every other byte
/// as it lies here: headers, order, compressed data, comments and what stands between.
///
/// Every function throws DocumentError with one line for the user. A package is refused as a whole
/// when entries overlap, have the same name, are encrypted or compressed in an unknown way, when
/// its directory contradicts their headers, and when it is split over several files.
class Package {
 public:
    explicit Package(std::string bytes, const PackageLimits& limits = {});

    const std::vector<PackageEntry>& entries() const { return entries_; }
    bool has(const std::string& name) const { return places_.contains(name); }
    /// The content of a part; DocumentError where there is none, or it is damaged or too large.
    std::string read(const std::string& name) const;

    /// The package with these parts, and without the `removed` ones. A part of a known name takes
    /// the place of the former one, and is compressed if that was; a new one comes last.
    std::string with(const PackageChanges& changes,
                     const std::set<std::string>& removed = {}) const;

    const std::string& bytes() const { return bytes_; }

 private:
    struct Directory {
        std::size_t at = 0;
        std::size_t size = 0;
        std::uint64_t count = 0;
        std::size_t endAt = 0;  ///< the record that ends the package
        std::optional<std::size_t> end64At = std::nullopt;
    };

    void findDirectory();
    void readDirectory64(std::size_t locatorAt);
    void readRecords();
    PackageEntry recordAt(std::size_t at) const;
    void findData();
    void checkHeader(PackageEntry& entry) const;

    std::string bytes_;
    PackageLimits limits_;
    Directory directory_;
    std::vector<PackageEntry> entries_;  ///< in the directory's order
    std::unordered_map<std::string, std::size_t> places_;
};

/// The parts that hold the signatures of a document, by the names that Office Open XML and
/// OpenDocument have for them.
std::set<std::string> signaturesIn(const Package& package);

/// Whether the bytes begin as those of a package do.
bool isPackage(std::string_view bytes);

}  // namespace huebrush::documents
