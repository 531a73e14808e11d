// SPDX-License-Identifier: MPL-2.0

#include "jet/table/LongValue.h"

#include <algorithm>

namespace huebrush::jet::long_value {

namespace {

constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
constexpr std::uint32_t kInline = 0x80000000;
constexpr std::uint32_t kSingle = 0x40000000;
constexpr std::uint32_t kChain = 0;

struct Header {
    std::size_t length;
    std::uint32_t kind;
    RowId first;
};

Header readHeader(Pages& pages, const Reader& field) {
    const std::uint32_t word = field.u32(0);
    field.require(field.size() >= kHeader, 0, rule::kLongForm);
    Header header{word & kLengthMask, word & ~kLengthMask, RowId::of(field.u32(4))};
    field.require(header.kind != (kInline | kSingle), 0, rule::kLongForm);
    if (header.kind == kInline) {
        field.require(kHeader + header.length <= field.size(), 0, rule::kLongLength);
    } else {
        // So that what a damaged length makes us collect stays below the size of the file.
        field.require(header.length / kPageSize < pages.count(), 0, rule::kLongLength);
    }
    return header;
}

/// A row of a page of long values.
Reader part(Pages& pages, RowId row, PagePointer& keep) {
    const DataPage page = DataPage::open(pages, row.page);
    keep = page.page();
    if (page.owner() != kLongValueOwner) throwDamage(row.page, 4, rule::kLongOwned);
    const DataPage::Slot slot = page.slot(row.slot);
    if (slot.flags != SlotFlag::kNone) throwDamage(row.page, slot.offset, rule::kRowExists);
    return page.row(slot);
}

/// Walks the parts of a value that is stored outside its row.
void walk(Pages& pages, const Reader& field, const Header& header,
          const std::function<void(RowId, ByteView)>& visit) {
    PagePointer keep;
    if (header.kind == kSingle) {
        const Reader bytes = part(pages, header.first, keep);
        bytes.require(bytes.size() >= header.length, 0, rule::kLongLength);
        visit(header.first, bytes.all().first(header.length));
        return;
    }
    std::size_t left = header.length;
    RowId at = header.first;
    while (at.pointer() != 0) {
        const Reader bytes = part(pages, at, keep);
        const std::size_t size = std::min(left, bytes.from(4).size());
        // Each part has some bytes, so a cycle comes to an end.
        bytes.require(size > 0, 0, rule::kLongLength);
        visit(at, bytes.bytes(4, size));
        left -= size;
        at = RowId::of(bytes.u32(0));
    }
    field.require(left == 0, 0, rule::kLongLength);
}

}  // namespace

Bytes read(Pages& pages, const Reader& field) {
    const Header header = readHeader(pages, field);
    Bytes value;
    if (header.kind == kInline) {
        const ByteView bytes = field.bytes(kHeader, header.length);
        value.assign(bytes.begin(), bytes.end());
    } else if (header.length > 0) {
        walk(pages, field, header, [&](RowId, ByteView bytes) { append(value, bytes); });
    }
    return value;
}

void visitParts(Pages& pages, const Reader& field, const Visit& visit) {
    const Header header = readHeader(pages, field);
    if (header.kind == kInline || header.first.pointer() == 0) return;
    walk(pages, field, header, [&](RowId row, ByteView) { visit(row); });
}

Bytes store(RowPages& pages, ByteView value) {
    const auto length = static_cast<std::uint32_t>(value.size());
    if (value.size() > kLengthMask) {
        throw Error(ErrorNumber::kTooLong, "Hodnota je delší než 1 GB.",
                    "a value is longer than 1 GB");
    }
    Bytes field;
    if (value.size() <= kMostInline) {
        append32(field, length | kInline);
        append64(field, 0);
        append(field, value);
        return field;
    }
    if (value.size() <= kMostSingle) {
        append32(field, length | kSingle);
        append32(field, pages.add(value).pointer());
        append32(field, 0);
        return field;
    }
    // The last piece first, because each piece names the next one.
    RowId next;
    for (std::size_t end = value.size(); end > 0;) {
        const std::size_t size = (end - 1) % kPiece + 1;
        Bytes row;
        append32(row, next.pointer());
        append(row, value.subspan(end - size, size));
        next = row.size() == kPiece + 4 ? pages.addOnNewPage(row) : pages.add(row);
        end -= size;
    }
    append32(field, length | kChain);
    append32(field, next.pointer());
    append32(field, 0);
    return field;
}

void release(Pages& pages, RowPages& owner, const Reader& field) {
    std::vector<RowId> parts;
    visitParts(pages, field, [&](RowId row) { parts.push_back(row); });
    for (const RowId& each : parts) owner.remove(each);
}

}  // namespace huebrush::jet::long_value
