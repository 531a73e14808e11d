// SPDX-License-Identifier: MPL-2.0

#include "files/FilesContract.h"

#include <algorithm>

#include "files/Error.h"
#include "files/LocalTime.h"
#include "files/Lock.h"
#include "files/Names.h"
#include "files/OpenFile.h"
#include "files/Process_test_support.h"

namespace huebrush::files {

namespace fs = std::filesystem;

void put(const NewFile& file, const std::string& content) {
    file.write(0, {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
}

void make(const std::string& name, const std::string& content) {
    NewFile file(name);
    put(file, content);
    file.publish();
}

void replace(const std::string& name, const std::string& content) {
    const Lock lock(name);
    NewFile file(lock);
    put(file, content);
    file.publish();
}

namespace {

/// Another program, at work on the file.
std::fstream openForWriting(const std::string& name) {
    return {pathOf(name), std::ios::in | std::ios::out | std::ios::binary};
}

std::string contentOf(const OpenFile& file) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.size()));
    file.read(0, bytes);
    return {bytes.begin(), bytes.end()};
}

std::string contentOf(const std::string& name) {
    return contentOf(OpenFile(name));
}

const Way& wayNamed(const std::string& name) {
    const auto& ways = waysOfThisSystem();
    return *std::find_if(ways.begin(), ways.end(),
                         [&](const Way& way) { return way.name == name; });
}

TEST_P(FilesContract, AFileAppearsAllAtOnce) {
    run([&] {
        const std::string name = inFolder("a");
        NewFile file(name);
        put(file, "content");
        EXPECT_FALSE(exists(name));
        std::vector<std::uint8_t> part(3);
        file.read(1, part);
        EXPECT_EQ(std::string(part.begin(), part.end()), "ont");
        const OpenFile published = file.publish();
        EXPECT_EQ(read(name), "content");
        EXPECT_TRUE(published.isCurrent());
        EXPECT_EQ(contentOf(published), "content");
    });
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, AFileReplacesAnotherOne) {
    const std::string name = write("a", "old");
    run([&] { replace(name, "new"); });
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, NamesMayBeAsLongAsTheSystemAllows) {
    const std::string name = inFolder(std::string(255, 'x'));
    run([&] {
        make(name, "first");
        replace(name, "second");
        EXPECT_EQ(contentOf(name), "second");
    });
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, NamesMayHaveAnyLetters) {
    const std::string name = inFolder("Žluťoučký kůň 馬.mdb");
    run([&] {
        make(name, "first");
        replace(name, "second");
    });
    EXPECT_EQ(read(name), "second");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, NothingIsLeftOfAFileThatIsNotPublished) {
    const std::string other = write("a", "old");
    run([&] {
        put(NewFile(inFolder("b")), "content");
        const Lock lock(other);
        put(NewFile(lock), "content");
    });
    EXPECT_EQ(read(other), "old");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, ANameThatWasTakenMeanwhileStaysAsItIs) {
    run([&] {
        NewFile file(inFolder("a"));
        put(file, "ours");
        write("a", "theirs");
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::write);
    });
    EXPECT_EQ(read(inFolder("a")), "theirs");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, WhatAnotherProgramHasOpenForWritingIsNotReplaced) {
    const std::string name = write("a", "old");
    run([&] {
        {
            const std::fstream holder = openForWriting(name);
            EXPECT_EQ(problemOf([&] { replace(name, "ours"); }), Problem::inUse);
        }
        const Lock lock(name);
        NewFile file(lock);
        put(file, "ours");
        const std::fstream holder = openForWriting(name);
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::inUse);
    });
    EXPECT_EQ(read(name), "old");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, WhatAnotherProgramHasWrittenMeanwhileStays) {
    const std::string name = write("a", "old");
    run([&] {
        const Lock lock(name);
        NewFile file(lock);
        put(file, "ours");
        write("a", "new");
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::changed);
    });
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, WhatAnotherProgramHasPutThereMeanwhileStays) {
    const std::string name = write("a", "old");
    run([&] {
        const Lock lock(name);
        NewFile file(lock);
        put(file, "ours");
        fs::rename(pathOf(write("b", "theirs")), pathOf(name));
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::changed);
    });
    EXPECT_EQ(read(name), "theirs");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, AFileThatWasRemovedMeanwhileIsNotRestored) {
    const std::string name = write("a", "old");
    run([&] {
        const Lock lock(name);
        NewFile file(lock);
        put(file, "ours");
        fs::remove(pathOf(name));
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::changed);
    });
    EXPECT_EQ(filesInFolder(), 0U);
}

const Task makeHalves("make halves", [](const Task::Arguments& given) {
    wayNamed(given[0]).run([&] {
        const Lock lock(given[1]);
        const NewFile replacing(lock);
        put(replacing, "half");
        const NewFile made(given[2]);
        put(made, "half");
        std::ofstream(pathOf(given[3])) << "ready";
        waitToBeKilled();
    });
    return 1;
});

TEST_P(FilesContract, WhatAKilledProcessHasLeftGoesWithTheNextFile) {
    const std::string name = write("a", "old");
    OtherProcess other("make halves", {GetParam().name, name, inFolder("b"), inFolder("ready")});
    ASSERT_TRUE(becomesTrue([&] { return read(inFolder("ready")) == "ready"; }));
    other.kill();
    EXPECT_EQ(read(name), "old");
    run([&] {
        replace(name, "new");
        make(inFolder("b"), "other");
    });
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(read(inFolder("b")), "other");
    EXPECT_EQ(filesInFolder(), 3U);
}

TEST_P(FilesContract, TwoFilesForOneNameAreMadeSideBySide) {
    run([&] {
        NewFile first(inFolder("a"));
        NewFile second(inFolder("a"));
        put(first, "first");
        put(second, "second");
        first.publish();
        EXPECT_EQ(problemOf([&] { second.publish(); }), Problem::write);
    });
    EXPECT_EQ(read(inFolder("a")), "first");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(FilesContract, AFileHasOneLockAtATimeEvenInOneThread) {
    const std::string name = write("a", "old");
    run([&] {
        const auto tryToLock = [&] {
            return problemOf([&] { const Lock lock(name, {}, std::chrono::milliseconds(30)); });
        };
        {
            const Lock lock(name);
            EXPECT_EQ(tryToLock(), Problem::inUse);
            EXPECT_EQ(problemOf([&] { const Lock other(write("b", "other")); }), std::nullopt);
        }
        EXPECT_EQ(tryToLock(), std::nullopt);
        // Nobody locks the new one before its maker has finished with it.
        {
            const Lock lock(name);
            NewFile file(lock);
            put(file, "new");
            file.publish();
        }
        EXPECT_EQ(tryToLock(), std::nullopt);
    });
}

TEST_P(FilesContract, LocksAreOnRegularFilesOnly) {
    run([&] {
        const auto tryToLock = [&](const std::string& name) {
            return problemOf([&] { const Lock lock(name); });
        };
        EXPECT_EQ(tryToLock(nameOf(folder)), Problem::notRegular);
        EXPECT_EQ(tryToLock(inFolder("none")), Problem::read);
        EXPECT_EQ(tryToLock(inFolder("none") + "/a"), Problem::read);
    });
}

/// False where the file was in use: on a busy machine a process may keep it open for longer than
/// others wait.
bool countOneMore(const std::string& name) {
    try {
        const Lock lock(name);
        const std::string count = contentOf(name);
        NewFile file(lock);
        put(file, std::to_string(std::stoi(count) + 1));
        file.publish();
        return true;
    } catch (const Error& error) {
        if (error.problem() != Problem::inUse) throw;
        return false;
    }
}

const Task countUp("count up", [](const Task::Arguments& given) {
    const int wanted = std::stoi(given[1]);
    int counted = 0;
    int refused = 0;
    while (counted < wanted && refused < wanted) ++(countOneMore(given[0]) ? counted : refused);
    return counted == wanted ? 0 : 1;
});

class TheSystemsFiles : public Folder {};

TEST_F(TheSystemsFiles, AreReplacedByOneProcessAfterTheOther) {
    const std::string name = write("a", "0");
    OtherProcess first("count up", {name, "50"});
    OtherProcess second("count up", {name, "50"});
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    EXPECT_EQ(read(name), "100");
    EXPECT_EQ(filesInFolder(), 1U);
}

const Task openAllTheTime("open all the time", [](const Task::Arguments& given) {
    for (;;) openForWriting(given[0]);
    return 1;
});

TEST_F(TheSystemsFiles, AreWaitedForWhileAnotherProgramHasThemOpenForAMoment) {
    const std::string name = write("a", "content");
    const OtherProcess opener("open all the time", {name});
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(problemOf([&] { const Lock lock(name); }), std::nullopt);
    }
}

TEST_F(TheSystemsFiles, ShowWhatTheyWereWhenTheyWereOpened) {
    const std::string name = write("a", "old");
    const OpenFile file(name);
    EXPECT_TRUE(file.isCurrent());
    replace(name, "newer");
    EXPECT_FALSE(file.isCurrent());
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_EQ(contentOf(name), "newer");
}

TEST_F(TheSystemsFiles, ShowAWriteThatComesAtOnceAfterAnother) {
    const std::string name = write("a", "0");
    for (int i = 1; i < 60; ++i) {
        const std::string content(1, static_cast<char>('0' + i % 10));
        const OpenFile before(name);
        write("a", content);
        EXPECT_FALSE(before.isCurrent());
    }
}

TEST_F(TheSystemsFiles, AreErrorsWhereTheyCannotBeRead) {
    const auto errorOf = [&](const std::string& name) {
        try {
            const OpenFile file(name);
        } catch (const Error& error) {
            return error;
        }
        return Error(Problem::changed, name);
    };
    EXPECT_EQ(errorOf(nameOf(folder)).problem(), Problem::notRegular);
    const Error missing = errorOf(inFolder("none"));
    EXPECT_EQ(missing.problem(), Problem::read);
    EXPECT_EQ(missing.cause(), Cause::missing);
    EXPECT_NE(missing.textOfReason(), "");
    EXPECT_EQ(errorOf(inFolder("none") + "/a").cause(), Cause::missing);
    EXPECT_EQ(std::string(missing.what()).find("cannot read " + inFolder("none") + ": "), 0U);
    const OpenFile file(write("a", "content"));
    std::vector<std::uint8_t> eight(8);
    EXPECT_EQ(problemOf([&] { file.read(0, eight); }), Problem::cutOff);
    EXPECT_EQ(problemOf([&] { file.read(7, {eight.data(), 1}); }), Problem::cutOff);
}

TEST_F(TheSystemsFiles, AreErrorsWhereTheyCannotBeMade) {
    const auto causeOfMaking = [&](const std::string& name) {
        try {
            make(name, "content");
        } catch (const Error& error) {
            return error.cause();
        }
        return Cause::none;
    };
    EXPECT_EQ(causeOfMaking(inFolder("none") + "/a"), Cause::missing);
    EXPECT_EQ(causeOfMaking(write("a", "old")), Cause::taken);
    EXPECT_EQ(read(inFolder("a")), "old");
}

TEST_F(TheSystemsFiles, HaveNamesInFolders) {
    EXPECT_EQ(lastPartOf("a/b/c.mdb"), "c.mdb");
    EXPECT_EQ(folderOf("a/b/c.mdb"), "a/b/");
    EXPECT_EQ(lastPartOf("c.mdb"), "c.mdb");
    EXPECT_EQ(lastPartOf("a/"), "");
    EXPECT_EQ(folderOf("/c.mdb"), "/");
    EXPECT_TRUE(exists(folderOf("c.mdb")));
}

TEST_F(TheSystemsFiles, AreTheSameUnderTheirResolvedNames) {
    const std::string name = write("a", "content");
    fs::create_directory(folder / "b");
    const std::string roundabout = nameOf(folder) + "/b/../a";
    EXPECT_EQ(read(resolve(roundabout)), "content");
    EXPECT_EQ(resolve(roundabout), resolve(name));
    // One that is not there yet, too.
    EXPECT_EQ(resolve(nameOf(folder) + "/b/../c"), resolve(inFolder("c")));
}

TEST(LocalTime, IsTheTimeOfTheSystemsClock) {
    std::tm local = localTime();
    local.tm_isdst = -1;
    const double behind = std::difftime(std::time(nullptr), std::mktime(&local));
    EXPECT_GE(behind, -1);
    EXPECT_LE(behind, 60);
}

INSTANTIATE_TEST_SUITE_P(EveryWay, FilesContract, ::testing::ValuesIn(waysOfThisSystem()));

}  // namespace
}  // namespace huebrush::files
