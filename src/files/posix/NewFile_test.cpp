// SPDX-License-Identifier: MPL-2.0

#include "files/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "files/FilesContract.h"
#include "files/posix/Descriptor.h"
#include "files/posix/RefusedCalls_test_support.h"

namespace huebrush::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAccessList = "system.posix_acl_access";

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

class RightsOfNewFiles : public FilesContract {};

TEST_P(RightsOfNewFiles, AreThoseThatNewFilesHave) {
    run([&] {
        const mode_t mask = ::umask(027);
        make(inFolder("a"), "content");
        ::umask(mask);
    });
    EXPECT_EQ(fs::status(folder / "a").permissions(), fs::perms(0640));
}

TEST_P(RightsOfNewFiles, AreThoseOfTheFilesThatTheyReplace) {
    const fs::path name = write("a", "old");
    fs::permissions(name, fs::perms(0604));
    run([&] { replace(name, "new"); });
    EXPECT_EQ(fs::status(name).permissions(), fs::perms(0604));
}

INSTANTIATE_TEST_SUITE_P(EveryWay, RightsOfNewFiles, ::testing::ValuesIn(waysOfThisSystem()));

class NewFiles : public Folder {};

TEST_F(NewFiles, HaveNoNameBeforeTheyAppearWhereTheSystemAllowsThat) {
    const fs::path old = write("a", "old");
    const NewFile made(inFolder("b"));
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
    make(inFolder("b"), "new");
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
