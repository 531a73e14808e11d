#include "files/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "files/Folder_test_support.h"
#include "files/RefusedCalls_test_support.h"

namespace huebrush::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAccessList = "system.posix_acl_access";

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

/// An access list as the system keeps it: rights for the owner, one more user, group, mask, others.
std::string accessList(unsigned user) {
    std::string list("\2\0\0\0", 4);
    const auto add = [&](char tag, char rights, unsigned id) {
        list += {tag, 0, rights, 0};
        for (unsigned i = 0; i < 4; ++i) list += static_cast<char>(id >> (8 * i));
    };
    constexpr unsigned kNobodyInParticular = 0xFFFFFFFFU;
    add(1, 6, kNobodyInParticular);
    add(2, 6, user);
    add(4, 4, kNobodyInParticular);
    add(16, 6, kNobodyInParticular);
    add(32, 0, kNobodyInParticular);
    return list;
}

std::string attribute(const fs::path& file, const char* name) {
    std::string value(256, '\0');
    const ssize_t size = ::getxattr(file.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
}

bool setAttribute(const fs::path& file, const char* name, const std::string& value) {
    return ::setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
}

/// Each way in which a file system may let files be made.
struct Way {
    const char* name;
    std::vector<Refusal> refusals;
};
void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

class EveryWay : public Folder, public ::testing::WithParamInterface<Way> {
 protected:
    static void run(const std::function<void()>& body) {
        std::string error;
        withRefused(GetParam().refusals, [&] {
            try {
                body();
            } catch (const std::exception& thrown) {
                error = thrown.what();
            }
        });
        EXPECT_EQ(error, "");
    }
};

TEST_P(EveryWay, AFileAppearsAllAtOnceWithTheRightsOfNewFiles) {
    run([&] {
        const mode_t mask = ::umask(027);
        const std::string name = folder / "a";
        NewFile file(name);
        ::umask(mask);
        put(file, "content");
        EXPECT_FALSE(exists(name));
        const OpenFile published = file.publish();
        EXPECT_EQ(read(name), "content");
        EXPECT_EQ(fs::status(name).permissions(), fs::perms(0640));
        EXPECT_TRUE(published.isCurrent());
        EXPECT_EQ(published.size(), 7U);
    });
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, AFileReplacesAnotherOneAndKeepsItsRights) {
    const fs::path name = write("a", "old");
    fs::permissions(name, fs::perms(0604));
    run([&] { replace(name, "new"); });
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(fs::status(name).permissions(), fs::perms(0604));
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, NamesMayBeAsLongAsTheSystemAllows) {
    const fs::path name = folder / std::string(255, 'x');
    run([&] {
        make(name, "first");
        replace(name, "second");
    });
    EXPECT_EQ(read(name), "second");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, NothingIsLeftOfAFileThatIsNotPublished) {
    const fs::path other = write("a", "old");
    run([&] {
        put(NewFile(folder / "b"), "content");
        const Lock lock(other);
        put(NewFile(lock), "content");
    });
    EXPECT_EQ(read(other), "old");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, ANameThatWasTakenMeanwhileStaysAsItIs) {
    run([&] {
        NewFile file(folder / "a");
        put(file, "ours");
        write("a", "theirs");
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::write);
    });
    EXPECT_EQ(read(folder / "a"), "theirs");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, WhatAnotherProgramHasOpenForWritingStays) {
    const fs::path name = write("a", "old");
    run([&] {
        const Lock lock(name);
        NewFile file(lock);
        put(file, "ours");
        const Descriptor holder(name, O_WRONLY);
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::inUse);
    });
    EXPECT_EQ(read(name), "old");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, WhatAnotherProgramHasWrittenMeanwhileStays) {
    const fs::path name = write("a", "old");
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

TEST_P(EveryWay, WhatAnotherProgramHasPutThereMeanwhileStays) {
    const fs::path name = write("a", "old");
    run([&] {
        const Lock lock(name);
        NewFile file(lock);
        put(file, "ours");
        fs::rename(write("b", "theirs"), name);
        EXPECT_EQ(problemOf([&] { file.publish(); }), Problem::changed);
    });
    EXPECT_EQ(read(name), "theirs");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_P(EveryWay, WhatAKilledProcessHasLeftGoesWithTheNextFile) {
    const fs::path name = write("a", "old");
    runAndKill([&] {
        withRefused(GetParam().refusals, [&] {
            const Lock lock(name);
            const NewFile replacing(lock);
            put(replacing, "half");
            const NewFile made(folder / "b");
            put(made, "half");
            ::raise(SIGKILL);
        });
    });
    EXPECT_EQ(read(name), "old");
    run([&] {
        replace(name, "new");
        make(folder / "b", "other");
    });
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(read(folder / "b"), "other");
    EXPECT_EQ(filesInFolder(), 2U);
}

TEST_P(EveryWay, TwoFilesForOneNameAreMadeSideBySide) {
    run([&] {
        NewFile first(folder / "a");
        NewFile second(folder / "a");
        put(first, "first");
        put(second, "second");
        first.publish();
        EXPECT_EQ(problemOf([&] { second.publish(); }), Problem::write);
    });
    EXPECT_EQ(read(folder / "a"), "first");
    EXPECT_EQ(filesInFolder(), 1U);
}

INSTANTIATE_TEST_SUITE_P(NewFiles, EveryWay,
                         ::testing::Values(Way{"all that there is", {}},
                                           Way{"no files without names", kNoNamelessFiles},
                                           Way{"no exchange", kNoExchange},
                                           Way{"plain renames only", kPlainRenamesOnly}));

class NewFiles : public Folder {};

TEST_F(NewFiles, HaveNoNameBeforeTheyAppearWhereTheSystemAllowsThat) {
    const fs::path old = write("a", "old");
    const NewFile made(folder / "b");
    const Lock lock(old);
    const NewFile replacing(lock);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(NewFiles, KeepExtendedAttributesAndAccessLists) {
    const fs::path name = write("a", "old");
    ASSERT_TRUE(setAttribute(name, "user.origin", "scanner"));
    ASSERT_TRUE(setAttribute(name, kAccessList, accessList(4711)));
    for (const char* const content : {"new", "newer"}) {
        replace(name, content);
        EXPECT_EQ(attribute(name, "user.origin"), "scanner");
        EXPECT_EQ(attribute(name, kAccessList), accessList(4711));
    }
}

TEST_F(NewFiles, TakeNoAccessListFromTheFolder) {
    const fs::path name = write("a", "old");
    fs::permissions(name, fs::perms(0640));
    ASSERT_TRUE(setAttribute(folder, "system.posix_acl_default", accessList(4711)));
    replace(name, "new");
    EXPECT_EQ(attribute(name, kAccessList), "none");
    EXPECT_EQ(fs::status(name).permissions(), fs::perms(0640));
    // One that replaces nothing takes it, as every new file does.
    make(folder / "b", "new");
    EXPECT_NE(attribute(folder / "b", kAccessList), "none");
}

TEST_F(NewFiles, KeepTheOwnerAndTheGroupWhereThatIsAllowed) {
    const fs::path name = write("a", "old");
    if (::chown(name.c_str(), 4711, 4712) != 0) GTEST_SKIP() << "only root may give files away";
    fs::permissions(name, fs::perms(06750));
    replace(name, "new");
    struct stat status = {};
    ASSERT_EQ(::stat(name.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 4711U);
    EXPECT_EQ(status.st_gid, 4712U);
    EXPECT_EQ(status.st_mode & 07777U, 06750U);
}

TEST_F(NewFiles, GiveAnotherGroupNoRightsThatWereNotMeantForIt) {
    const fs::path name = write("a", "old");
    ASSERT_TRUE(setAttribute(name, kAccessList, accessList(4711)));
    fs::permissions(name, fs::perms(0664));
    const std::vector<Refusal> nobodyElse{{SYS_fchown, EPERM}};
    withRefused(nobodyElse, [&] { replace(name, "new"); });
    EXPECT_EQ(attribute(name, kAccessList), "none");
    EXPECT_EQ(fs::status(name).permissions(), fs::perms(0644));
}

TEST(Interruptions, AreMetByTryingAgain) {
    int left = 3;
    EXPECT_EQ(uninterrupted([&] {
                  errno = EINTR;
                  return left-- > 0 ? -1 : 7;
              }),
              7);
    EXPECT_EQ(uninterrupted([&] {
                  errno = EIO;
                  return -1;
              }),
              -1);
}

}  // namespace
}  // namespace huebrush::files
