// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>

#include "base/Error.h"

namespace huebrush::word {

/// What an object says of a call that failed. Its texts are freed at the end of this object.
class FailureDetails {
 public:
    FailureDetails() = default;
    FailureDetails(const FailureDetails&) = delete;
    FailureDetails& operator=(const FailureDetails&) = delete;
    ~FailureDetails();

    EXCEPINFO* out() { return &info_; }
    /// The details, completed by the object where it has put that off until somebody asks.
    const EXCEPINFO& complete();

 private:
    EXCEPINFO info_{};
};

/// The number of a failure that the forms runtime has always given for it: its own for the failures
/// of COM that it knows (438 for a member that is missing), the host's for those that a host
/// raises (0x800Axxxx), otherwise the failure itself.
std::int32_t numberOf(HRESULT failure);

/// The error of a call that failed without details: the number as above, and the system's text.
base::Error errorOf(HRESULT failure);
/// The error of a call of an object's member. Number and text are the object's, as far as it gives
/// them.
base::Error errorOf(HRESULT failure, FailureDetails& details);

/// The error of a call of an interface that is not called by name. Its text is what the object has
/// left for the thread; REQUIRES: nothing was left there before the call (SetErrorInfo).
base::Error errorOfInterface(HRESULT failure);

/// Throws the error of a call that failed.
inline void check(HRESULT result) {
    if (FAILED(result)) throw errorOf(result);
}

}  // namespace huebrush::word
