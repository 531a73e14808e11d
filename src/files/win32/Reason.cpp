// SPDX-License-Identifier: MPL-2.0

#include "files/Reason.h"

#include "files/win32/System.h"

namespace huebrush::files {

Cause causeOf(int reason) {
    switch (reason) {
        case ERROR_SUCCESS:
            return Cause::none;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return Cause::missing;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return Cause::taken;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_FILE_TOO_LARGE:
            return Cause::noSpace;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_NETWORK_ACCESS_DENIED:
            return Cause::notAllowed;
        default:
            return Cause::other;
    }
}

std::string textOfReason(int reason) {
    std::wstring text(256, L'\0');
    const DWORD size = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, static_cast<DWORD>(reason), 0, text.data(),
                                        static_cast<DWORD>(text.size()), nullptr);
    text.resize(size);
    // Without the full stop and the line break at its end.
    text.resize(text.find_last_not_of(L". \r\n") + 1);
    return utf8Of(text);
}

}  // namespace huebrush::files
