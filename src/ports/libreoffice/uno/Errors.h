// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/uno/Exception.hpp>
#include <utility>

#include "base/Error.h"

namespace huebrush::libreoffice {

/// The numbers of the object model for what goes wrong in the host itself.
namespace HostErrorNumber {
inline constexpr std::int32_t kCommandFailed = 4198;
inline constexpr std::int32_t kNoDocument = 4248;
}  // namespace HostErrorNumber

/// The office's exception that is being handled as an error of the host, with the office's own
/// text. REQUIRES: called inside a catch block for com.sun.star.uno.Exception.
base::Error currentHostError();
/// Any exception in flight, one of the office included, as an error. REQUIRES: called inside a
/// catch block.
base::Error currentFailure();

/// Runs calls of the office; an exception of theirs becomes base::Error.
template <class Calls>
decltype(auto) officeCalls(Calls&& calls) {
    try {
        return std::forward<Calls>(calls)();
    } catch (const com::sun::star::uno::Exception&) {
        throw currentHostError();
    }
}

/// Runs calls of the office whose failure means nothing. Whether they came to their end.
template <class Calls>
bool ignoringOffice(Calls&& calls) {
    return base::ignoring<com::sun::star::uno::Exception>(std::forward<Calls>(calls));
}

}  // namespace huebrush::libreoffice
