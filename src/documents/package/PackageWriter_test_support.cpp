// SPDX-License-Identifier: MPL-2.0

#include "documents/package/PackageWriter_test_support.h"

#include "documents/package/Bytes.h"
#include "documents/package/Deflate.h"

namespace huebrush::documents {

namespace {

std::string extra64(const WrittenEntry& entry, const std::vector<std::uint64_t>& numbers) {
    if (!entry.in64) return entry.extra;
    std::string out;
    addNumber(out, 2, 1);
    addNumber(out, 2, numbers.size() * 8);
    for (const std::uint64_t number : numbers) addNumber(out, 8, number);
    return entry.extra + out;
}

void addCommon(std::string& out, const WrittenEntry& entry, const std::string& data,
               std::size_t extraSize, bool inHeader) {
    const bool without = inHeader && entry.descriptor;
    const auto size = [&](std::size_t number) {
        if (without) number = 0;
        addNumber(out, 4, entry.in64 ? 0xFFFFFFFF : number);
    };
    addNumber(out, 2, entry.in64 ? 45 : 20);
    addNumber(out, 2, entry.flags | (entry.descriptor ? 8U : 0U));
    addNumber(out, 2, entry.stored ? 0 : entry.method);
    addNumber(out, 4, 0x5A215A21);
    addNumber(out, 4, without ? 0 : crc32Of(entry.content));
    size(data.size());
    size(entry.content.size());
    addNumber(out, 2, entry.name.size());
    addNumber(out, 2, extraSize);
}

void addDescriptor(std::string& out, const WrittenEntry& entry, std::size_t compressed) {
    if (!entry.descriptor) return;
    addNumber(out, 4, 0x08074B50);
    addNumber(out, 4, crc32Of(entry.content));
    addNumber(out, entry.in64 ? 8 : 4, compressed);
    addNumber(out, entry.in64 ? 8 : 4, entry.content.size());
}

}  // namespace

std::string writtenPackage(const std::vector<WrittenEntry>& entries, const std::string& comment,
                           bool end64) {
    std::string out;
    std::string records;
    for (const WrittenEntry& entry : entries) {
        const std::string data = entry.stored ? entry.content : deflated(entry.content);
        const std::size_t at = out.size();
        const std::string headerExtra = extra64(entry, {entry.content.size(), data.size()});
        addNumber(out, 4, 0x04034B50);
        addCommon(out, entry, data, headerExtra.size(), true);
        out += entry.name;
        out += headerExtra;
        out += data;
        addDescriptor(out, entry, data.size());

        const std::string recordExtra = extra64(entry, {entry.content.size(), data.size(), at});
        addNumber(records, 4, 0x02014B50);
        addNumber(records, 2, 20);
        addCommon(records, entry, data, recordExtra.size(), false);
        addNumber(records, 2, entry.comment.size());
        addNumber(records, 2, 0);
        addNumber(records, 2, 0);
        addNumber(records, 4, 0);
        addNumber(records, 4, entry.in64 ? 0xFFFFFFFF : at);
        records += entry.name + recordExtra + entry.comment;
    }
    const std::size_t directoryAt = out.size();
    out += records;
    const std::size_t end64At = out.size();
    if (end64) {
        addNumber(out, 4, 0x06064B50);
        addNumber(out, 8, 44);
        addNumber(out, 4, 0x002D002D);
        addNumber(out, 8, 0);
        addNumber(out, 8, entries.size());
        addNumber(out, 8, entries.size());
        addNumber(out, 8, records.size());
        addNumber(out, 8, directoryAt);
        addNumber(out, 4, 0x07064B50);
        addNumber(out, 4, 0);
        addNumber(out, 8, end64At);
        addNumber(out, 4, 1);
    }
    addNumber(out, 4, 0x06054B50);
    addNumber(out, 4, 0);
    addNumber(out, 2, end64 ? 0xFFFF : entries.size());
    addNumber(out, 2, end64 ? 0xFFFF : entries.size());
    addNumber(out, 4, end64 ? 0xFFFFFFFF : records.size());
    addNumber(out, 4, end64 ? 0xFFFFFFFF : directoryAt);
    addNumber(out, 2, comment.size());
    return out + comment;
}

}  // namespace huebrush::documents
