// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Properties.h"

#include <algorithm>

namespace huebrush::jet {

namespace {

constexpr std::uint32_t kPropertiesMark = 0x0032524D;  // "MR2"
constexpr std::uint16_t kNames = 0x80;
constexpr std::uint16_t kOfColumn = 1;

Bytes plainText(const std::string& utf8) {
    return encodeText(utf8, false, 0);
}

std::vector<std::string> readNames(const Reader& in) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at < in.size();) {
        const std::size_t length = in.u16(at);
        names.push_back(decodeText(in.bytes(at + 2, length)));
        at += 2 + length;
    }
    return names;
}

void readRecords(const Reader& in, const std::vector<std::string>& names,
                 std::vector<Property>& found) {
    const std::size_t header = in.u32(0);
    const std::string owner = decodeText(in.bytes(6, in.u16(4)));
    for (std::size_t at = header; at < in.size();) {
        const std::size_t length = in.u16(at);
        const Reader record = in.part(at, length);
        const std::size_t name = record.u16(4);
        record.require(length >= 8 && name < names.size(), 0, rule::kProperties);
        const ByteView value = record.bytes(8, record.u16(6));
        found.push_back({owner, names[name], static_cast<ColumnType>(record.u8(3)),
                         record.u8(2) != 0, Bytes(value.begin(), value.end())});
        at += length;
    }
}

void appendChunk(Bytes& out, std::uint16_t type, const Bytes& body) {
    append32(out, static_cast<std::uint32_t>(body.size() + 6));
    append16(out, type);
    append(out, body);
}

Bytes recordOf(const Property& property, std::size_t name) {
    Bytes record;
    append16(record, 8 + property.value.size());
    append8(record, property.byDesigner ? 1 : 0);
    append8(record, static_cast<std::uint8_t>(property.type));
    append16(record, name);
    append16(record, property.value.size());
    append(record, property.value);
    return record;
}

}  // namespace

std::vector<Property> readProperties(ByteView block) {
    std::vector<Property> found;
    if (block.empty()) return found;
    const Reader in(block, 0);
    in.require(in.u32(0) == kPropertiesMark, 0, rule::kProperties);
    std::vector<std::string> names;
    for (std::size_t at = 4; at < in.size();) {
        const std::size_t length = in.u32(at);
        in.require(length >= 6, at, rule::kProperties);
        const Reader body = in.part(at, length).from(6);
        if (in.u16(at + 4) == kNames) {
            names = readNames(body);
        } else {
            readRecords(body, names, found);
        }
        at += length;
    }
    return found;
}

Bytes writeProperties(const std::vector<Property>& properties) {
    std::vector<std::string> names;
    Bytes nameBody;
    for (const Property& each : properties) {
        if (std::find(names.begin(), names.end(), each.name) != names.end()) continue;
        names.push_back(each.name);
        const Bytes name = plainText(each.name);
        append16(nameBody, name.size());
        append(nameBody, name);
    }
    Bytes out;
    append32(out, kPropertiesMark);
    appendChunk(out, kNames, nameBody);
    for (auto at = properties.begin(); at != properties.end();) {
        const std::string& owner = at->owner;
        const Bytes name = plainText(owner);
        Bytes body;
        append32(body, static_cast<std::uint32_t>(6 + name.size()));
        append16(body, name.size());
        append(body, name);
        for (; at != properties.end() && at->owner == owner; ++at) {
            const auto index = std::find(names.begin(), names.end(), at->name) - names.begin();
            append(body, recordOf(*at, static_cast<std::size_t>(index)));
        }
        appendChunk(out, owner.empty() ? 0 : kOfColumn, body);
    }
    return out;
}

void applyProperties(const std::vector<Property>& properties, TableDefinition& table) {
    for (const Property& property : properties) {
        if (property.name == "ValidationRule" && !property.value.empty()) {
            table.hasValidation = true;
        }
        for (Column& column : table.columns) {
            if (column.name != property.owner) continue;
            if (property.name == "Required") column.required = property.isTrue();
            if (property.name == "AllowZeroLength") column.allowZeroLength = property.isTrue();
        }
    }
}

}  // namespace huebrush::jet
