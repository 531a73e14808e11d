// SPDX-License-Identifier: MPL-2.0

#include "files/Reason.h"

#include <cerrno>
#include <cstring>

namespace huebrush::files {

Cause causeOf(int reason) {
    switch (reason) {
        case 0:
            return Cause::none;
        case ENOENT:
        case ENOTDIR:
            return Cause::missing;
        case EEXIST:
            return Cause::taken;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return Cause::noSpace;
        case EACCES:
        case EROFS:
        case EPERM:
            return Cause::notAllowed;
        default:
            return Cause::other;
    }
}

std::string textOfReason(int reason) {
    return std::strerror(reason);
}

}  // namespace huebrush::files
