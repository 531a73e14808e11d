// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "base/Error.h"
#include "jet/file/Rules.h"

namespace huebrush::jet {

using PageNumber = std::uint32_t;

/// The numbers of the errors that this engine raises: the classic ones of the database platform, so
/// that what the user reads ("Chyba č. 3022") means the same.
namespace ErrorNumber {
inline constexpr std::int32_t kOutOfSpace = 61;
inline constexpr std::int32_t kNoCurrentRecord = 3021;
inline constexpr std::int32_t kDuplicateKey = 3022;
inline constexpr std::int32_t kFileNotFound = 3024;
inline constexpr std::int32_t kReadOnly = 3027;
inline constexpr std::int32_t kNoSuchAccount = 3029;
inline constexpr std::int32_t kPassword = 3031;
inline constexpr std::int32_t kInUse = 3045;
inline constexpr std::int32_t kFileSystem = 3050;
inline constexpr std::int32_t kDamaged = 3049;
inline constexpr std::int32_t kNotSupported = 3251;
inline constexpr std::int32_t kNoSuchTable = 3078;
inline constexpr std::int32_t kTooLong = 3163;
inline constexpr std::int32_t kRowChanged = 3197;
inline constexpr std::int32_t kHasChildren = 3200;
inline constexpr std::int32_t kNoParent = 3201;
inline constexpr std::int32_t kAlreadyExists = 3204;
inline constexpr std::int32_t kNoSuchColumn = 3265;
inline constexpr std::int32_t kNullNotAllowed = 3314;
inline constexpr std::int32_t kEmptyNotAllowed = 3315;
inline constexpr std::int32_t kNotADatabase = 3343;
inline constexpr std::int32_t kWrongType = 3421;
inline constexpr std::int32_t kClosed = 3704;
inline constexpr std::int32_t kAlreadyOpen = 3705;
inline constexpr std::int32_t kSyntax = 3075;
}  // namespace ErrorNumber

/// An error that the command line may meet: boxes show its description, in Czech as all their
/// texts, and what() says the same in English.
class Error : public base::Error {
 public:
    Error(std::int32_t number, std::string description, std::string english)
        : base::Error(number, std::move(description)), english_(std::move(english)) {}

    const char* what() const noexcept override { return english_.c_str(); }

 private:
    std::string english_;
};

/// A file breaks a rule of the format: on which page, at which byte of it, and which rule.
class Damage : public Error {
 public:
    Damage(PageNumber page, std::size_t offset, const Rule& broken);

    PageNumber page() const { return page_; }
    std::size_t offset() const { return offset_; }
    const Rule& rule() const { return rule_; }

 private:
    PageNumber page_;
    std::size_t offset_;
    Rule rule_;
};

[[noreturn]] void throwDamage(PageNumber page, std::size_t offset, const Rule& broken);

}  // namespace huebrush::jet
