// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <concepts>
#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace huebrush::base {

/// The run-time errors that this code raises itself. A host's own errors carry the host's numbers.
/// The values are the classic run-time numbers of the forms runtime, so that what the user reads
/// ("Chyba č. 6") means the same on every port.
namespace ErrorNumber {
inline constexpr std::int32_t kInvalidProcedureCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kInternal = 51;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kPathAccess = 75;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kNoSuchControl = 340;
/// A host refuses to give a property.
inline constexpr std::int32_t kNotAvailable = 4605;
inline constexpr std::int32_t kUnloaded = 364;
inline constexpr std::int32_t kInvalidPicture = 481;
inline constexpr std::int32_t kCancelled = 32755;
}  // namespace ErrorNumber

/// What every layer throws: a number and a description meant for the user.
/// A number of 0 means "no error" to the reporter and is never thrown.
class Error : public std::exception {
 public:
    Error(std::int32_t number, std::string description)
        : number_(number), description_(std::move(description)) {}

    std::int32_t number() const noexcept { return number_; }
    const std::string& description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

 private:
    std::int32_t number_;
    std::string description_;
};

/// Turns any exception in flight into an Error: an Error stays as it is, a standard exception
/// becomes an internal one with its text. REQUIRES: called inside a catch block.
Error currentError();

/// Runs the body with errors suppressed. Whether it came to its end.
template <std::invocable Body>
bool ignoring(Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (...) {
        return false;
    }
}

/// The same for errors of one type; others pass.
template <class Suppressed, std::invocable Body>
bool ignoring(Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const Suppressed&) {
        return false;
    }
}

/// A number beyond the range of its type; a count beyond what a 16-bit counter holds.
[[noreturn]] void throwOverflow();
[[noreturn]] void throwCountOverflow();
[[noreturn]] void throwObjectNotSet();
/// Bytes that are not a picture.
[[noreturn]] void throwInvalidPicture();
/// The user has left a dialog without a choice.
[[noreturn]] void throwCancelled();

}  // namespace huebrush::base
