// SPDX-License-Identifier: MPL-2.0

#include "files/posix/Attributes.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace huebrush::files {

namespace {

using Names = std::vector<std::string>;

Names attributesOf(int file) {
    const ssize_t size = ::flistxattr(file, nullptr, 0);
    if (size <= 0) return {};
    std::string list(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::flistxattr(file, list.data(), list.size());
    Names names;
    for (std::size_t at = 0; got > 0 && at < static_cast<std::size_t>(got);) {
        names.emplace_back(list.c_str() + at);
        at += names.back().size() + 1;
    }
    return names;
}

void copyAttribute(int from, int to, const char* name) {
    const ssize_t size = ::fgetxattr(from, name, nullptr, 0);
    if (size < 0) return;
    std::vector<char> value(static_cast<std::size_t>(size));
    const ssize_t got = ::fgetxattr(from, name, value.data(), value.size());
    if (got >= 0) ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0);
}

bool isAccessList(std::string_view name) {
    return name == "system.posix_acl_access";
}

/// Others' rights for a group that is not the one the rights were meant for.
mode_t withoutGroup(mode_t rights) {
    constexpr mode_t kGroup = 070;
    const mode_t others = (rights & 07U) << 3U;
    return (rights & ~kGroup) | (rights & others);
}

}  // namespace

void copyAttributes(int from, int to) {
    struct stat status = {};
    if (::fstat(from, &status) != 0) return;
    mode_t rights = status.st_mode & 07777U;
    bool groupKept = true;
    // Only root may give a file another owner, and only a member of a group may give it that group.
    if (::fchown(to, status.st_uid, status.st_gid) != 0) {
        rights &= 0777U;
        groupKept = ::fchown(to, static_cast<uid_t>(-1), status.st_gid) == 0;
        if (!groupKept) rights = withoutGroup(rights);
    }
    const Names wanted = attributesOf(from);
    // The folder may have given the new file an access list of its own.
    for (const std::string& name : attributesOf(to)) {
        if (isAccessList(name) && std::find(wanted.begin(), wanted.end(), name) == wanted.end()) {
            ::fremovexattr(to, name.c_str());
        }
    }
    ::fchmod(to, rights);
    // An access list contains the rights, so it comes after them.
    for (const std::string& name : wanted) {
        if (groupKept || !isAccessList(name)) copyAttribute(from, to, name.c_str());
    }
}

}  // namespace huebrush::files
