// SPDX-License-Identifier: MPL-2.0

#include "documents/package/Package.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "documents/package/Bytes.h"
#include "documents/package/Deflate.h"
#include "documents/package/DocumentError.h"

namespace huebrush::documents {

namespace {

using base::text;

constexpr std::uint32_t kHeaderSignature = 0x04034B50;
constexpr std::uint32_t kRecordSignature = 0x02014B50;
constexpr std::uint32_t kEndSignature = 0x06054B50;
constexpr std::uint32_t kEnd64Signature = 0x06064B50;
constexpr std::uint32_t kLocator64Signature = 0x07064B50;

constexpr std::size_t kHeaderSize = 30;
constexpr std::size_t kRecordSize = 46;
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kEnd64Size = 56;
constexpr std::size_t kLocator64Size = 20;
constexpr std::size_t kLongestComment = 0xFFFF;

constexpr std::uint64_t kIn64 = 0xFFFFFFFF;  ///< the value stands in the extra field
constexpr std::uint16_t kExtra64 = 1;
constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;
constexpr std::uint16_t kEncryptedFlag = 1;
constexpr std::uint16_t kDescriptorFlag = 8;
constexpr std::uint16_t kNameIsUtf8Flag = 0x800;
constexpr std::uint16_t kStrongEncryptionFlag = 0x40;

/// The places of a header's fields, and of a record's.
namespace header {
constexpr std::size_t kFlags = 6;
constexpr std::size_t kCrc = 14;
constexpr std::size_t kNameSize = 26;
constexpr std::size_t kExtraSize = 28;
}  // namespace header
namespace record {
constexpr std::size_t kFlags = 8;
constexpr std::size_t kMethod = 10;
constexpr std::size_t kCrc = 16;
constexpr std::size_t kCompressedSize = 20;
constexpr std::size_t kSize = 24;
constexpr std::size_t kNameSize = 28;
constexpr std::size_t kExtraSize = 30;
constexpr std::size_t kCommentSize = 32;
constexpr std::size_t kHeaderAt = 42;
}  // namespace record

[[noreturn]] void throwDamaged(std::string_view what) {
    throw DocumentError(text("is damaged: ", what));
}

bool hasSignature(std::string_view bytes, std::size_t at, std::size_t size,
                  std::uint32_t signature) {
    return at <= bytes.size() && bytes.size() - at >= size && numberAt(bytes, at, 4) == signature;
}

/// The place of the large numbers in a list of extra fields, and how many bytes they have.
std::pair<std::size_t, std::size_t> find64(std::string_view bytes, std::size_t at,
                                           std::size_t size) {
    const std::size_t end = at + size;
    while (end - at >= 4) {
        const std::size_t length = numberAt(bytes, at + 2, 2);
        if (end - at - 4 < length) break;
        if (numberAt(bytes, at, 2) == kExtra64) return {at + 4, length};
        at += 4 + length;
    }
    return {0, 0};
}

/// Reads the numbers of a record that are too large for their fields, in their order.
class Numbers64 {
 public:
    Numbers64(std::string_view bytes, std::size_t at, std::size_t size)
        : bytes_(bytes), place_(find64(bytes, at, size)) {}

    /// The number, or the one that takes its place; where that one stands.
    std::uint64_t resolve(std::uint64_t number) {
        if (number != kIn64) return number;
        if (place_.second < 8) throwDamaged("the directory of the package lacks a size");
        last_ = place_.first;
        place_ = {place_.first + 8, place_.second - 8};
        return numberAt(bytes_, last_, 8);
    }
    std::size_t last() const { return last_; }

 private:
    std::string_view bytes_;
    std::pair<std::size_t, std::size_t> place_;
    std::size_t last_ = 0;
};

/// Gives a record another place of its header, in whichever field it stands.
void setHeaderAt(std::string& records, std::size_t at, std::size_t headerAt) {
    std::uint64_t place = numberAt(records, at + record::kHeaderAt, 4);
    if (place != kIn64) {
        setNumberAt(records, at + record::kHeaderAt, 4, headerAt);
        return;
    }
    Numbers64 numbers(records, at + kRecordSize + numberAt(records, at + record::kNameSize, 2),
                      numberAt(records, at + record::kExtraSize, 2));
    numbers.resolve(numberAt(records, at + record::kSize, 4));
    numbers.resolve(numberAt(records, at + record::kCompressedSize, 4));
    numbers.resolve(place);
    setNumberAt(records, numbers.last(), 8, headerAt);
}

/// Extra fields without the large numbers, which small ones take the place of.
std::string without64(std::string_view extra) {
    const auto [at, size] = find64(extra, 0, extra.size());
    if (at == 0) return std::string(extra);
    return text(extra.substr(0, at - 4), extra.substr(at + size));
}

/// The content of a changed part, ready to be stored.
struct Packed {
    std::string data;
    std::uint32_t crc = 0;
    std::size_t size = 0;
};

Packed packed(const std::string& content, std::uint16_t method) {
    return {method == kDeflated ? deflated(content) : content, crc32Of(content), content.size()};
}

void setSizes(std::string& bytes, std::size_t at, const Packed& part) {
    setNumberAt(bytes, at, 4, part.crc);
    setNumberAt(bytes, at + 4, 4, part.data.size());
    setNumberAt(bytes, at + 8, 4, part.size);
}

/// Clears the flag of sizes that stand behind the data.
void clearDescriptor(std::string& bytes, std::size_t at) {
    setNumberAt(bytes, at, 2, numberAt(bytes, at, 2) & ~std::uint64_t{kDescriptorFlag});
}

/// The header and data of a changed part, from the former header.
std::string changedPart(std::string_view bytes, const PackageEntry& entry, const Packed& part) {
    const std::size_t nameSize = numberAt(bytes, entry.headerAt + header::kNameSize, 2);
    const std::size_t extraSize = numberAt(bytes, entry.headerAt + header::kExtraSize, 2);
    std::string out(bytes.substr(entry.headerAt, kHeaderSize + nameSize));
    const std::string extra =
        without64(bytes.substr(entry.headerAt + kHeaderSize + nameSize, extraSize));
    clearDescriptor(out, header::kFlags);
    setSizes(out, header::kCrc, part);
    setNumberAt(out, header::kExtraSize, 2, extra.size());
    return out + extra + part.data;
}

/// The record of a changed part, from the former one.
std::string changedRecord(std::string_view bytes, const PackageEntry& entry, const Packed& part,
                          std::size_t headerAt) {
    const std::string_view former = bytes.substr(entry.recordAt, entry.recordSize);
    const std::size_t nameEnd = kRecordSize + numberAt(former, record::kNameSize, 2);
    const std::size_t extraSize = numberAt(former, record::kExtraSize, 2);
    std::string out(former.substr(0, nameEnd));
    const std::string extra = without64(former.substr(nameEnd, extraSize));
    clearDescriptor(out, record::kFlags);
    setSizes(out, record::kCrc, part);
    setNumberAt(out, record::kExtraSize, 2, extra.size());
    setNumberAt(out, record::kHeaderAt, 4, headerAt);
    return text(out, extra, former.substr(nameEnd + extraSize));
}

/// 1980-01-01, the first date that there is: the same change always gives the same file.
constexpr std::uint64_t kNoDate = 0x0021;
constexpr std::uint64_t kVersion = 20;

/// The fields that a new part's header and record have in common.
std::string commonFields(const std::string& name, const Packed& part) {
    std::string out;
    addNumber(out, 2, kVersion);
    addNumber(out, 2, kNameIsUtf8Flag);
    addNumber(out, 2, kDeflated);
    addNumber(out, 2, 0);
    addNumber(out, 2, kNoDate);
    addNumber(out, 4, part.crc);
    addNumber(out, 4, part.data.size());
    addNumber(out, 4, part.size);
    addNumber(out, 2, name.size());
    addNumber(out, 2, 0);
    return out;
}

std::string newPart(const std::string& name, const Packed& part) {
    std::string out;
    addNumber(out, 4, kHeaderSignature);
    return out + commonFields(name, part) + name + part.data;
}

std::string newRecord(const std::string& name, const Packed& part, std::size_t headerAt) {
    std::string out;
    addNumber(out, 4, kRecordSignature);
    addNumber(out, 2, kVersion);
    out += commonFields(name, part);
    // No comment, the first and only file, no attributes.
    addNumber(out, 2, 0);
    addNumber(out, 2, 0);
    addNumber(out, 2, 0);
    addNumber(out, 4, 0);
    addNumber(out, 4, headerAt);
    return out + name;
}

}  // namespace

Package::Package(std::string bytes, const PackageLimits& limits)
    : bytes_(std::move(bytes)), limits_(limits) {
    if (bytes_.size() >= kIn64) throw DocumentError("is larger than 4 GB");
    findDirectory();
    readRecords();
    findData();
}

void Package::findDirectory() {
    if (bytes_.size() < kEndSize) throwDamaged("it is too short to be a package");
    const std::size_t last = bytes_.size() - kEndSize;
    const std::size_t first = last > kLongestComment ? last - kLongestComment : 0;
    std::size_t at = last;
    // The record's comment must reach to the end of the file.
    while (!hasSignature(bytes_, at, kEndSize, kEndSignature) ||
           at + kEndSize + numberAt(bytes_, at + 20, 2) != bytes_.size()) {
        if (at == first) throwDamaged("the package has no directory; it may be cut off");
        --at;
    }
    directory_.endAt = at;
    if (numberAt(bytes_, at + 4, 2) != numberAt(bytes_, at + 6, 2)) {
        throw DocumentError("is split over several files");
    }
    if (numberAt(bytes_, at + 8, 2) != numberAt(bytes_, at + 10, 2)) {
        throwDamaged("the directory of the package contradicts itself");
    }
    directory_.count = numberAt(bytes_, at + 10, 2);
    directory_.size = numberAt(bytes_, at + 12, 4);
    directory_.at = numberAt(bytes_, at + 16, 4);
    if (at >= kLocator64Size &&
        hasSignature(bytes_, at - kLocator64Size, kLocator64Size, kLocator64Signature)) {
        readDirectory64(at - kLocator64Size);
    }
    const std::size_t end = directory_.end64At.value_or(directory_.endAt);
    if (directory_.at > end || directory_.size > end - directory_.at) {
        throwDamaged("the directory of the package lies outside it");
    }
}

void Package::readDirectory64(std::size_t locatorAt) {
    const std::size_t at = numberAt(bytes_, locatorAt + 8, 8);
    if (at > locatorAt || !hasSignature(bytes_, at, kEnd64Size, kEnd64Signature)) {
        throwDamaged("the directory of the package cannot be found");
    }
    const Directory narrow = directory_;
    directory_.end64At = at;
    directory_.count = numberAt(bytes_, at + 32, 8);
    directory_.size = numberAt(bytes_, at + 40, 8);
    directory_.at = numberAt(bytes_, at + 48, 8);
    // A narrow field has the same number, or the one that stands for "look in the wide one".
    const auto agrees = [](std::uint64_t narrowNumber, std::uint64_t most, std::uint64_t wide) {
        return narrowNumber == wide || narrowNumber == most;
    };
    if (numberAt(bytes_, at + 24, 8) != directory_.count ||
        !agrees(narrow.count, 0xFFFF, directory_.count) ||
        !agrees(narrow.size, kIn64, directory_.size) || !agrees(narrow.at, kIn64, directory_.at)) {
        throwDamaged("the directory of the package contradicts itself");
    }
}

void Package::readRecords() {
    std::size_t at = directory_.at;
    const std::size_t end = directory_.at + directory_.size;
    while (at < end) {
        if (!hasSignature(bytes_, at, kRecordSize, kRecordSignature)) {
            throwDamaged("the directory of the package cannot be read");
        }
        PackageEntry entry = recordAt(at);
        if (entry.recordSize > end - at) {
            throwDamaged("the directory of the package is cut off");
        }
        at += entry.recordSize;
        if (!places_.emplace(entry.name, entries_.size()).second) {
            throwDamaged(text("the package has two parts named ", entry.name));
        }
        entries_.push_back(std::move(entry));
    }
    if (entries_.size() != directory_.count) {
        throwDamaged("the directory of the package has another number of parts than it says");
    }
}

PackageEntry Package::recordAt(std::size_t at) const {
    const auto number = [&](std::size_t place, std::size_t size) {
        return numberAt(bytes_, at + place, size);
    };
    const std::size_t nameSize = number(record::kNameSize, 2);
    const std::size_t extraSize = number(record::kExtraSize, 2);
    PackageEntry entry;
    entry.recordAt = at;
    entry.recordSize = kRecordSize + nameSize + extraSize + number(record::kCommentSize, 2);
    if (entry.recordSize > bytes_.size() - at) {
        throwDamaged("the directory of the package is cut off");
    }
    entry.name = bytes_.substr(at + kRecordSize, nameSize);
    const std::uint64_t flags = number(record::kFlags, 2);
    if ((flags & (kEncryptedFlag | kStrongEncryptionFlag)) != 0) {
        throw DocumentError("is protected by a password");
    }
    entry.method = static_cast<std::uint16_t>(number(record::kMethod, 2));
    if (entry.method != kStored && entry.method != kDeflated) {
        throw DocumentError(text("has a part that is compressed in an unknown way: ", entry.name));
    }
    entry.crc = static_cast<std::uint32_t>(number(record::kCrc, 4));
    Numbers64 numbers(bytes_, at + kRecordSize + nameSize, extraSize);
    entry.size = numbers.resolve(number(record::kSize, 4));
    entry.compressedSize = numbers.resolve(number(record::kCompressedSize, 4));
    entry.headerAt = numbers.resolve(number(record::kHeaderAt, 4));
    return entry;
}

void Package::checkHeader(PackageEntry& entry) const {
    if (entry.headerAt > directory_.at ||
        !hasSignature(bytes_, entry.headerAt, kHeaderSize, kHeaderSignature)) {
        throwDamaged(text("a part is not where the package says: ", entry.name));
    }
    const std::size_t nameSize = numberAt(bytes_, entry.headerAt + header::kNameSize, 2);
    entry.dataAt = entry.headerAt + kHeaderSize + nameSize +
                   numberAt(bytes_, entry.headerAt + header::kExtraSize, 2);
    if (bytes_.compare(entry.headerAt + kHeaderSize, nameSize, entry.name) != 0) {
        throwDamaged(text("a part has two names, one of them ", entry.name));
    }
}

void Package::findData() {
    std::vector<PackageEntry*> inOrder;
    inOrder.reserve(entries_.size());
    for (PackageEntry& entry : entries_) {
        checkHeader(entry);
        inOrder.push_back(&entry);
    }
    std::sort(inOrder.begin(), inOrder.end(),
              [](const auto* a, const auto* b) { return a->headerAt < b->headerAt; });
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
        PackageEntry& entry = *inOrder[i];
        entry.end = i + 1 < inOrder.size() ? inOrder[i + 1]->headerAt : directory_.at;
        if (entry.dataAt > entry.end || entry.compressedSize > entry.end - entry.dataAt) {
            throwDamaged(text("parts of the package overlap, one of them ", entry.name));
        }
    }
}

std::string Package::read(const std::string& name) const {
    const auto found = places_.find(name);
    if (found == places_.end()) throwDamaged(text("it has no part ", name));
    const PackageEntry& entry = entries_[found->second];
    if (entry.size > limits_.part) {
        throw DocumentError(text("has a part of more than ", limits_.part >> 20U, " MB: ", name));
    }
    if (entry.size > limits_.ratioFrom && entry.size / limits_.ratio > entry.compressedSize) {
        throw DocumentError(text("has a part that is compressed beyond reason: ", name));
    }
    const std::string_view data =
        std::string_view(bytes_).substr(entry.dataAt, entry.compressedSize);
    std::string content =
        entry.method == kDeflated ? inflated(data, entry.size) : std::string(data);
    if (content.size() != entry.size || crc32Of(content) != entry.crc) {
        throwDamaged(text("the sum of a part is wrong: ", name));
    }
    return content;
}

std::string Package::with(const PackageChanges& changes,
                          const std::set<std::string>& removed) const {
    std::vector<std::size_t> inOrder(entries_.size());
    for (std::size_t i = 0; i < inOrder.size(); ++i) inOrder[i] = i;
    std::sort(inOrder.begin(), inOrder.end(), [this](std::size_t a, std::size_t b) {
        return entries_[a].headerAt < entries_[b].headerAt;
    });

    const std::string_view bytes = bytes_;
    std::vector<std::string> records(entries_.size());
    std::string out(
        bytes.substr(0, inOrder.empty() ? directory_.at : entries_[inOrder.front()].headerAt));
    for (const std::size_t place : inOrder) {
        const PackageEntry& entry = entries_[place];
        if (removed.contains(entry.name)) continue;
        const std::size_t headerAt = out.size();
        const auto change = changes.find(entry.name);
        if (change == changes.end()) {
            out += bytes.substr(entry.headerAt, entry.end - entry.headerAt);
            records[place] = bytes.substr(entry.recordAt, entry.recordSize);
            setHeaderAt(records[place], 0, headerAt);
        } else {
            const Packed part = packed(change->second, entry.method);
            out += changedPart(bytes, entry, part);
            records[place] = changedRecord(bytes, entry, part, headerAt);
        }
    }
    std::uint64_t count = entries_.size() - removed.size();
    for (const auto& [name, content] : changes) {
        if (has(name)) continue;
        const Packed part = packed(content, kDeflated);
        records.push_back(newRecord(name, part, out.size()));
        out += newPart(name, part);
        ++count;
    }

    const std::size_t directoryAt = out.size();
    for (const std::string& each : records) out += each;
    const std::size_t directorySize = out.size() - directoryAt;
    const std::size_t tailAt = directory_.at + directory_.size;
    const std::size_t moved = out.size() - tailAt;
    out += bytes.substr(tailAt);
    if (out.size() >= kIn64) throw DocumentError("would become larger than 4 GB");

    // What ends the package keeps its fields as wide as they are.
    const auto set = [&out](std::size_t at, std::size_t size, std::uint64_t number) {
        const std::uint64_t most = size == 2 ? 0xFFFF : kIn64;
        if (size < 8 && numberAt(out, at, size) == most) return;
        if (size < 8 && number >= most) throw DocumentError("would get too many parts");
        setNumberAt(out, at, size, number);
    };
    const std::size_t endAt = directory_.endAt + moved;
    set(endAt + 8, 2, count);
    set(endAt + 10, 2, count);
    set(endAt + 12, 4, directorySize);
    set(endAt + 16, 4, directoryAt);
    if (directory_.end64At) {
        const std::size_t end64At = *directory_.end64At + moved;
        set(end64At + 24, 8, count);
        set(end64At + 32, 8, count);
        set(end64At + 40, 8, directorySize);
        set(end64At + 48, 8, directoryAt);
        set(endAt - kLocator64Size + 8, 8, end64At);
    }
    return out;
}

std::set<std::string> signaturesIn(const Package& package) {
    std::set<std::string> signatures;
    for (const PackageEntry& each : package.entries()) {
        if (each.name.starts_with("_xmlsignatures/") ||
            each.name == "META-INF/documentsignatures.xml") {
            signatures.insert(each.name);
        }
    }
    return signatures;
}

bool isPackage(std::string_view bytes) {
    return bytes.starts_with("PK\x03\x04");
}

}  // namespace huebrush::documents
