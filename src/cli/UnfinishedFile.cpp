// SPDX-License-Identifier: MPL-2.0

#include "cli/UnfinishedFile.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <fstream>

#include "base/Text.h"

namespace huebrush::cli {

namespace {

constexpr std::string_view kBegin = "lu";
constexpr std::string_view kEnd = ".tmp";

bool isDigit(char character) {
    return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

bool isSmallLetter(char character) {
    return std::islower(static_cast<unsigned char>(character)) != 0;
}

/// What is between the fixed parts of a name; nothing where it lacks them.
std::string numberAndRest(const std::string& name) {
    const bool fits = name.size() > kBegin.size() + kEnd.size() && name.starts_with(kBegin) &&
                      name.ends_with(kEnd);
    if (!fits) return {};
    return name.substr(kBegin.size(), name.size() - kBegin.size() - kEnd.size());
}

}  // namespace

bool isUnfinishedFileOf(pid_t process, const std::string& name,
                        const std::function<bool(pid_t)>& isOffice) {
    const std::string number = base::text(process);
    const std::string middle = numberAndRest(name);
    if (!middle.starts_with(number)) return false;
    if (!std::all_of(middle.begin(), middle.end(),
                     [](char each) { return isDigit(each) || isSmallLetter(each); })) {
        return false;
    }
    for (std::size_t size = number.size() + 1; size <= middle.size(); ++size) {
        if (!isDigit(middle[size - 1])) break;
        pid_t other = 0;
        const auto read = std::from_chars(middle.data(), middle.data() + size, other);
        if (read.ec == std::errc() && isOffice(other)) return false;
    }
    return true;
}

bool isRunningOffice(pid_t process) {
    std::ifstream file(base::text("/proc/", process, "/comm"));
    std::string name;
    return std::getline(file, name) && name == "soffice.bin";
}

}  // namespace huebrush::cli
