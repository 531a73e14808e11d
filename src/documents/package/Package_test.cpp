// SPDX-License-Identifier: MPL-2.0

#include "documents/package/Package.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "documents/package/Bytes.h"
#include "documents/package/Deflate.h"
#include "documents/package/DocumentError.h"
#include "documents/package/PackageWriter_test_support.h"

namespace huebrush::documents {

namespace {

const std::string kLong = std::string(20000, 'x') + "end";

/// One of each kind of entry that programs write.
std::vector<WrittenEntry> mixedEntries() {
    std::vector<WrittenEntry> entries(5);
    entries[0] = {"mimetype", "application/x", true};
    entries[1] = {"content.xml", "<a/>" + kLong};
    entries[1].extra = std::string("\x55\x54\x01\x00\x07", 5);
    entries[1].comment = "a comment";
    entries[2] = {"streamed.xml", kLong};
    entries[2].descriptor = true;
    entries[3] = {"wide.xml", kLong};
    entries[3].in64 = true;
    entries[4] = {"wide streamed.xml", kLong};
    entries[4].in64 = entries[4].descriptor = true;
    return entries;
}

std::string messageOf(const std::string& bytes) {
    try {
        const Package package(bytes);
        for (const PackageEntry& each : package.entries()) package.read(each.name);
    } catch (const DocumentError& error) {
        return error.what();
    }
    return {};
}

/// What lies in a package for an entry, from its header on.
std::string_view partOf(const Package& package, const std::string& name) {
    const auto& entries = package.entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const PackageEntry& each) { return each.name == name; });
    return std::string_view(package.bytes()).substr(found->headerAt, found->end - found->headerAt);
}

}  // namespace

TEST(Package, ReadsEveryKindOfEntry) {
    for (const bool end64 : {false, true}) {
        const Package package(writtenPackage(mixedEntries(), "of the whole", end64));
        ASSERT_EQ(package.entries().size(), 5U);
        for (const WrittenEntry& each : mixedEntries()) {
            EXPECT_EQ(package.read(each.name), each.content) << each.name;
        }
    }
}

TEST(Package, WithoutChangesACopyIsTheSameBytes) {
    for (const bool end64 : {false, true}) {
        const std::string bytes = writtenPackage(mixedEntries(), "of the whole", end64);
        EXPECT_EQ(Package(bytes).with({}), bytes);
    }
}

TEST(Package, AChangeLeavesEveryOtherPartAsItLies) {
    for (const bool end64 : {false, true}) {
        const Package before(writtenPackage(mixedEntries(), "of the whole", end64));
        for (const WrittenEntry& changed : mixedEntries()) {
            SCOPED_TRACE(changed.name);
            const std::string content = "longer than it was: " + changed.content;
            const Package after(before.with({{changed.name, content}}));
            ASSERT_EQ(after.entries().size(), before.entries().size());
            for (std::size_t i = 0; i < before.entries().size(); ++i) {
                const PackageEntry& was = before.entries()[i];
                EXPECT_EQ(after.entries()[i].name, was.name);
                EXPECT_EQ(after.entries()[i].method, was.method);
                if (was.name == changed.name) {
                    EXPECT_EQ(after.read(was.name), content);
                } else {
                    EXPECT_EQ(partOf(after, was.name), partOf(before, was.name));
                }
            }
            EXPECT_TRUE(after.bytes().ends_with("of the whole"));
        }
    }
}

TEST(Package, NewPartsComeLast) {
    for (const bool end64 : {false, true}) {
        const Package before(writtenPackage(mixedEntries(), "of the whole", end64));
        const Package after(before.with({{"media/new.bmp", kLong}, {"content.xml", "<b/>"}}));
        ASSERT_EQ(after.entries().size(), 6U);
        EXPECT_EQ(after.entries().back().name, "media/new.bmp");
        EXPECT_EQ(after.read("media/new.bmp"), kLong);
        EXPECT_EQ(after.read("content.xml"), "<b/>");
        EXPECT_EQ(partOf(after, "streamed.xml"), partOf(before, "streamed.xml"));
    }
}

TEST(Package, ADirectoryThatContradictsItselfIsRefused) {
    const std::string bytes = writtenPackage(mixedEntries());
    const std::size_t end = bytes.rfind("PK\x05\x06");
    for (const std::size_t field : {8U, 10U}) {
        std::string damaged = bytes;
        setNumberAt(damaged, end + field, 2, 4);
        EXPECT_NE(messageOf(damaged), "") << field;
    }
    // The numbers of 64 bits, and then those that repeat them.
    const std::string wide = writtenPackage(mixedEntries(), {}, true);
    ASSERT_EQ(messageOf(wide), "");
    const std::size_t end64 = wide.rfind("PK\x06\x06");
    for (const std::size_t field : {24U, 32U}) {
        std::string damaged = wide;
        setNumberAt(damaged, end64 + field, 8, 4);
        EXPECT_NE(messageOf(damaged), "") << field;
    }
    const std::size_t narrow = wide.rfind("PK\x05\x06");
    for (const std::size_t field : {12U, 16U}) {
        std::string damaged = wide;
        setNumberAt(damaged, narrow + field, 4, 7);
        EXPECT_NE(messageOf(damaged), "") << field;
    }
}

TEST(Package, WhatIsNoPackageIsRefused) {
    EXPECT_NE(messageOf(""), "");
    EXPECT_NE(messageOf("PK\x03\x04"), "");
    EXPECT_NE(messageOf(std::string(100000, 'x')), "");
}

TEST(Package, APackageThatIsCutOffIsRefusedWhereverItEnds) {
    const std::string bytes = writtenPackage(mixedEntries(), "of the whole");
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_NE(messageOf(bytes.substr(0, size)), "") << size;
    }
}

TEST(Package, HostileEntriesAreRefusedByName) {
    auto entries = mixedEntries();
    entries[1].flags = 1;
    EXPECT_EQ(messageOf(writtenPackage(entries)), "is protected by a password");
    entries = mixedEntries();
    entries[1].method = 12;
    EXPECT_EQ(messageOf(writtenPackage(entries)),
              "has a part that is compressed in an unknown way: content.xml");
    entries = mixedEntries();
    entries[2].name = entries[1].name;
    EXPECT_EQ(messageOf(writtenPackage(entries)),
              "is damaged: the package has two parts named content.xml");
}

TEST(Package, OverlappingEntriesAreRefused) {
    // Two records that share one header's data, as bombs have them.
    std::string bytes = writtenPackage({{"a", kLong}, {"b", kLong}});
    const Package sound(bytes);
    const PackageEntry& second = sound.entries()[1];
    setNumberAt(bytes, second.recordAt + 42, 4, sound.entries()[0].headerAt);
    EXPECT_EQ(messageOf(bytes), "is damaged: a part has two names, one of them b");
    bytes = sound.bytes();
    setNumberAt(bytes, sound.entries()[0].recordAt + 20, 4, second.end);
    EXPECT_EQ(messageOf(bytes), "is damaged: parts of the package overlap, one of them a");
}

TEST(Package, AWrongSumIsNoticed) {
    std::string bytes = writtenPackage({{"a", kLong, true}});
    bytes[100] = 'y';
    EXPECT_EQ(messageOf(bytes), "is damaged: the sum of a part is wrong: a");
}

TEST(Package, TooLargePartsAreRefusedBeforeTheyAreRead) {
    const std::string bytes = writtenPackage({{"a", std::string(1U << 20U, '\0')}});
    PackageLimits limits;
    limits.part = 1U << 19U;
    EXPECT_THROW(Package(bytes, limits).read("a"), DocumentError);
    limits = {};
    limits.ratioFrom = 1000;
    limits.ratio = 50;
    EXPECT_THROW(Package(bytes, limits).read("a"), DocumentError);
    limits.ratio = 2000;
    EXPECT_EQ(Package(bytes, limits).read("a").size(), 1U << 20U);
}

TEST(Package, AnEntryThatHoldsMoreThanItSaysIsRefused) {
    std::string bytes = writtenPackage({{"a", kLong}});
    const Package sound(bytes);
    setNumberAt(bytes, sound.entries()[0].recordAt + 24, 4, 10);
    EXPECT_EQ(messageOf(bytes), "is damaged: the compressed data of a part cannot be read");
}

TEST(Package, AFlippedByteNeverDoesMoreThanRefuse) {
    const std::string sound = writtenPackage(mixedEntries(), "of the whole", true);
    std::mt19937 random(1);
    int refused = 0;
    for (int i = 0; i < 4000; ++i) {
        std::string bytes = sound;
        bytes[random() % bytes.size()] = static_cast<char>(random());
        if (!messageOf(bytes).empty()) ++refused;
    }
    EXPECT_GT(refused, 1000);
}

TEST(Deflate, GivesBackWhatItTook) {
    std::mt19937 random(1);
    for (const std::size_t size : {0U, 1U, 1000U, 3000000U}) {
        std::string bytes(size, '\0');
        for (char& each : bytes) each = static_cast<char>(random() % 7);
        EXPECT_EQ(inflated(deflated(bytes), size), bytes);
        EXPECT_THROW(inflated(deflated(bytes), size + 1), DocumentError);
    }
}

}  // namespace huebrush::documents
