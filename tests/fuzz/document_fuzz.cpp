// SPDX-License-Identifier: MPL-2.0

// Bytes that claim to be a document, or the text of one, are read, and every shape is given another
// fill: that ends by the error of a document that cannot be read, or by one that has the same
// shapes with the new fill and in which all else is as it was.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "documents/DocumentFile.h"
#include "documents/package/DocumentError.h"
#include "documents/package/Package.h"
#include "documents/package/PackageWriter_test_support.h"

namespace {

using namespace huebrush;
using documents::ShapeRecord;

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// The first byte says what the others are: a whole file, or the text of a document of Word.
std::string fileOf(std::string_view input) {
    const bool isWhole = input.empty() || input.front() % 2 == 0;
    input.remove_prefix(input.empty() ? 0 : 1);
    if (isWhole) return std::string(input);
    return documents::writtenPackage(
        {{"[Content_Types].xml",
          "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"><Override "
          "PartName=\"/d.xml\" ContentType=\"application/vnd.openxmlformats-officedocument."
          "wordprocessingml.document.main+xml\"/></Types>"},
         {"_rels/.rels",
          "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
          "<Relationship Id=\"r\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
          "relationships/officeDocument\" Target=\"d.xml\"/></Relationships>"},
         {"d.xml", std::string(input)},
         {"other.xml", "<other/>"}});
}

using Leaves = std::vector<const ShapeRecord*>;

void collectLeaves(const std::vector<ShapeRecord>& records, Leaves& leaves) {
    for (const ShapeRecord& each : records) {
        if (each.isGroup()) {
            collectLeaves(each.members, leaves);
        } else {
            leaves.push_back(&each);
        }
    }
}

Leaves leavesOf(const documents::ShapeFile& file) {
    Leaves leaves;
    collectLeaves(file.shapes(), leaves);
    return leaves;
}

/// One of a few, by the last byte of the input.
mapping::HostFill fillFor(std::uint8_t choice) {
    constexpr std::int32_t kFore = 0x123456;
    constexpr std::int32_t kBack = 0xABCDEF;
    mapping::FillWrites writes;
    writes.visible = host::MsoTriState::msoTrue;
    writes.foreColor = kFore;
    writes.build = mapping::solidBuild();
    if (choice % 4 == 1) writes.build = mapping::patternBuild(13);
    if (choice % 4 == 2) writes.build = mapping::twoColorBuild(1, 2);
    if (choice % 4 != 0) writes.backColor = kBack;
    if (choice % 4 == 3) {
        writes = {};
        writes.visible = host::MsoTriState::msoFalse;
    }
    return edited(mapping::HostFill(), writes);
}

bool isAsWanted(const mapping::HostFill& wanted, const mapping::HostFill& stored) {
    if (!wanted.shown()) return !stored.shown();
    return stored.shown() && stored.type == wanted.type && stored.foreColor == wanted.foreColor &&
           (!wanted.usesBackColor() || stored.backColor == wanted.backColor);
}

/// Whether all entries are still there; those that no fill has touched with the same bytes.
void requireOthersKept(const std::string& before, const std::string& after) {
    const documents::Package was(before);
    const documents::Package is(after);
    if (is.entries().size() < was.entries().size()) fail("an entry is gone");
    for (std::size_t i = 0; i < was.entries().size(); ++i) {
        if (was.entries()[i].name != is.entries()[i].name) fail("entries in another order");
    }
    if (was.has("other.xml") && was.read("other.xml") != is.read("other.xml")) {
        fail("a part without shapes has changed");
    }
}

void recolour(const std::string& bytes, std::uint8_t choice) {
    const auto file = documents::openDocument(bytes);
    if (file->with({}) != bytes) fail("without a change the file is another one");
    const mapping::HostFill fill = fillFor(choice);
    documents::NewFills fills;
    const Leaves before = leavesOf(*file);
    for (const ShapeRecord* each : before) {
        if (each->canHaveFill) fills[each->number].fill = fill;
    }
    const std::string changed = file->with(fills);
    std::unique_ptr<documents::ShapeFile> stored;
    try {
        stored = documents::openDocument(changed);
    } catch (const std::exception& error) {
        fail(error.what());
    }
    const Leaves after = leavesOf(*stored);
    if (after.size() != before.size()) fail("other shapes");
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i]->name != after[i]->name) fail("another name");
        if (before[i]->canHaveFill != after[i]->canHaveFill) fail("another kind of shape");
        if (before[i]->canHaveFill && !isAsWanted(fill, after[i]->fill->host)) fail("another fill");
    }
    if (documents::isPackage(bytes)) requireOthersKept(bytes, changed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    try {
        recolour(fileOf(input), size == 0 ? 0 : data[size - 1]);
    } catch (const documents::DocumentError& error) {
        const std::string_view line = error.what();
        if (line.empty() || line.find('\n') != std::string_view::npos) fail("not one line");
    }
    return 0;
}
