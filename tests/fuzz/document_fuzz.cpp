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

/// A package with the input as its main part, or as a part that the main one refers to.
std::string packageWith(const std::string& mainType, const std::string& main,
                        const std::string& relations, std::string_view input) {
    return documents::writtenPackage(
        {{"[Content_Types].xml",
          "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"><Override "
          "PartName=\"/d.xml\" ContentType=\"application/vnd.openxmlformats-officedocument." +
              mainType + ".main+xml\"/></Types>"},
         {"_rels/.rels",
          "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
          "<Relationship Id=\"r\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
          "relationships/officeDocument\" Target=\"d.xml\"/></Relationships>"},
         {"d.xml", main.empty() ? std::string(input) : main},
         {"_rels/d.xml.rels", relations},
         {"slide.xml", main.empty() ? "<none/>" : std::string(input)},
         {"other.xml", "<other/>"}});
}

/// The first byte says what the others are: a whole file, the text of a slide, or that of a
/// document of Word.
std::string fileOf(std::string_view input) {
    constexpr char kSlide = 'S';
    const char kind = input.empty() ? '\0' : input.front();
    input.remove_prefix(input.empty() ? 0 : 1);
    const std::string none =
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>";
    if (kind == kSlide) {
        return packageWith(
            "presentationml.presentation",
            "<p:presentation "
            "xmlns:p=\"http://schemas.openxmlformats.org/presentationml/2006/main\" "
            "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">"
            "<p:sldIdLst><p:sldId r:id=\"s\"/></p:sldIdLst></p:presentation>",
            "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
            "<Relationship Id=\"s\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
            "relationships/slide\" Target=\"slide.xml\"/></Relationships>",
            input);
    }
    if (kind % 2 == 0) return std::string(input);
    return packageWith("wordprocessingml.document", {}, none, input);
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
    constexpr std::int32_t kLineColor = 0x123456;
    documents::ShapeChanges changes;
    const Leaves before = leavesOf(*file);
    for (const ShapeRecord* each : before) {
        documents::ShapeChange& change = changes[each->number];
        if (each->canHaveFill) change.fill = documents::NewFill{fill};
        if (each->lineVisible) change.lineColor = kLineColor;
    }
    const std::string changed = file->with(changes);
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
        if (before[i]->lineVisible != after[i]->lineVisible) fail("another line");
        if (before[i]->lineVisible && after[i]->lineColor != kLineColor) fail("another colour");
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
