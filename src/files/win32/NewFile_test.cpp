// SPDX-License-Identifier: MPL-2.0

#include "files/NewFile.h"

#include <array>
#include <cstdint>

#include "files/FilesContract.h"
#include "files/Names.h"
#include "files/win32/System.h"

namespace huebrush::files {
namespace {

class FilesOfWindows : public Folder {
 protected:
    static std::optional<Cause> causeOfReplacing(const std::string& name) {
        try {
            replace(name, "new");
        } catch (const Error& error) {
            return error.cause();
        }
        return std::nullopt;
    }
};

/// The access list of a file, byte by byte.
std::string accessListOf(const std::string& name) {
    std::string list(1024, '\0');
    DWORD size = 0;
    const BOOL read = ::GetFileSecurityW(nativeName(name).c_str(), DACL_SECURITY_INFORMATION,
                                         list.data(), static_cast<DWORD>(list.size()), &size);
    list.resize(read != 0 ? size : 0);
    return list;
}

/// Leaves all rights to the user who runs this, and none to anybody else.
bool keepForOneself(const std::string& name) {
    HANDLE opened = nullptr;
    if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) return false;
    const Handle token(opened);
    alignas(TOKEN_USER) std::array<std::uint8_t, 256> user{};
    alignas(ACL) std::array<std::uint8_t, 256> list{};
    SECURITY_DESCRIPTOR descriptor = {};
    DWORD size = 0;
    auto* const entries = reinterpret_cast<PACL>(list.data());
    return ::GetTokenInformation(token.get(), TokenUser, user.data(),
                                 static_cast<DWORD>(user.size()), &size) != 0 &&
           ::InitializeAcl(entries, static_cast<DWORD>(list.size()), ACL_REVISION) != 0 &&
           ::AddAccessAllowedAce(entries, ACL_REVISION, FILE_ALL_ACCESS,
                                 reinterpret_cast<TOKEN_USER*>(user.data())->User.Sid) != 0 &&
           ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) != 0 &&
           ::SetSecurityDescriptorDacl(&descriptor, TRUE, entries, FALSE) != 0 &&
           ::SetFileSecurityW(nativeName(name).c_str(), DACL_SECURITY_INFORMATION, &descriptor) !=
               0;
}

TEST_F(FilesOfWindows, KeepTheAccessListOfTheFileThatTheyReplace) {
    const std::string name = write("a", "old");
    ASSERT_TRUE(keepForOneself(name));
    const std::string list = accessListOf(name);
    ASSERT_NE(list, accessListOf(write("b", "another")));
    replace(name, "new");
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(accessListOf(name), list);
}

TEST_F(FilesOfWindows, StayHidden) {
    constexpr DWORD kHidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const std::string name = write("a", "old");
    ASSERT_NE(::SetFileAttributesW(nativeName(name).c_str(), kHidden), 0);
    ASSERT_EQ(::GetFileAttributesW(nativeName(name).c_str()) & kHidden, kHidden);
    replace(name, "new");
    EXPECT_EQ(read(name), "new");
    EXPECT_EQ(::GetFileAttributesW(nativeName(name).c_str()) & kHidden, kHidden);
}

TEST_F(FilesOfWindows, AreNotReplacedWhereTheyMayOnlyBeRead) {
    const std::string name = write("a", "old");
    ASSERT_NE(::SetFileAttributesW(nativeName(name).c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_EQ(causeOfReplacing(name), Cause::notAllowed);
    EXPECT_EQ(read(name), "old");
    EXPECT_EQ(filesInFolder(), 1U);
    ASSERT_NE(::SetFileAttributesW(nativeName(name).c_str(), FILE_ATTRIBUTE_NORMAL), 0);
    EXPECT_EQ(causeOfReplacing(name), std::nullopt);
}

TEST_F(FilesOfWindows, AreNotReplacedWhileAnotherProgramReadsThem) {
    const std::string name = write("a", "old");
    {
        const Handle reader = openExisting(name, GENERIC_READ, kShareAll);
        EXPECT_EQ(problemOf([&] { replace(name, "new"); }), Problem::inUse);
    }
    EXPECT_EQ(read(name), "old");
    EXPECT_EQ(filesInFolder(), 1U);
    // A reader of ours has it open for a moment only.
    const OpenFile reader(name);
    EXPECT_EQ(problemOf([&] { replace(name, "new"); }), std::nullopt);
}

TEST_F(FilesOfWindows, AreInUseWhereAnotherProgramLetsNobodyReadThem) {
    const std::string name = write("a", "old");
    const Handle holder = openExisting(name, GENERIC_READ, 0);
    EXPECT_EQ(problemOf([&] { const OpenFile file(name); }), Problem::inUse);
    EXPECT_EQ(problemOf([&] { const Lock lock(name); }), Problem::inUse);
}

TEST_F(FilesOfWindows, AreNoDevices) {
    for (const char* const name : {"NUL", "\\\\.\\NUL"}) {
        EXPECT_EQ(problemOf([&] { const OpenFile file(name); }), Problem::notRegular) << name;
        EXPECT_EQ(problemOf([&] { const Lock lock(name); }), Problem::notRegular) << name;
    }
}

TEST_F(FilesOfWindows, HaveNamesWithBothSlashesAndDrives) {
    EXPECT_EQ(lastPartOf("C:\\Data\\fill.mdb"), "fill.mdb");
    EXPECT_EQ(folderOf("C:\\Data\\fill.mdb"), "C:\\Data\\");
    EXPECT_EQ(folderOf("C:\\Data/fill.mdb"), "C:\\Data/");
    EXPECT_EQ(folderOf("C:fill.mdb"), "C:");
    EXPECT_EQ(folderOf("fill.mdb"), ".\\");
    EXPECT_EQ(utf8Of(nativeName("C:\\a\\..\\fill.mdb")), "C:\\fill.mdb");
    const std::string longest(250, 'x');
    EXPECT_EQ(utf8Of(nativeName("C:\\" + longest)), "\\\\?\\C:\\" + longest);
    EXPECT_EQ(utf8Of(nativeName("\\\\server\\share\\" + longest)),
              "\\\\?\\UNC\\server\\share\\" + longest);
}

TEST_F(FilesOfWindows, HaveTheWordsOfTheSystemForItsReasons) {
    EXPECT_NE(textOfReason(ERROR_DISK_FULL), "");
    EXPECT_NE(textOfReason(ERROR_DISK_FULL).back(), '.');
    EXPECT_EQ(causeOf(ERROR_DISK_FULL), Cause::noSpace);
    EXPECT_EQ(causeOf(ERROR_WRITE_PROTECT), Cause::notAllowed);
    EXPECT_EQ(causeOf(ERROR_CRC), Cause::other);
}

}  // namespace
}  // namespace huebrush::files
