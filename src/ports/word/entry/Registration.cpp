// SPDX-License-Identifier: MPL-2.0

#include "ports/word/entry/Registration.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Text.h"
#include "ports/word/runtime/RegistryKey.h"

namespace huebrush::word {

namespace {

using base::text;

constexpr const char* kName = "Huebrush";
constexpr const char* kDescription =
    "Doplněk aplikace MS Word 2000 (97) pro skupinovou záměnu výplní grafických objektů.\r\n"
    "Testováno pro MS Word 2000 a MS Word 97 (doplněk není vhodný pro aplikace MS Word XP a "
    "vyšší)";
/// Loaded and connected when Word starts.
constexpr std::uint32_t kLoadBehavior = 3;
/// The keys that had to be made, so that they can be removed again: paths, each behind a line
/// break.
constexpr const char* kMadeKeys = "MadeKeys";

struct Value {
    std::string path;
    std::string name;
    forms::RegistryValue value;
};

std::string classPath() {
    return text(R"(Software\Classes\CLSID\)", kClassId);
}

/// All that is written.
std::vector<Value> valuesFor(const std::string& file) {
    const std::string program = text(R"(Software\Classes\)", kProgrammaticId);
    const std::string addIn = text(R"(Software\Microsoft\Office\Word\Addins\)", kProgrammaticId);
    return {
        {program, "", kName},
        {program + R"(\CLSID)", "", kClassId},
        {classPath(), "", kName},
        {classPath() + R"(\InprocServer32)", "", file},
        {classPath() + R"(\InprocServer32)", "ThreadingModel", "Apartment"},
        {classPath() + R"(\ProgID)", "", kProgrammaticId},
        {addIn, "FriendlyName", kName},
        {addIn, "Description", kDescription},
        {addIn, "LoadBehavior", kLoadBehavior},
    };
}

void write(const Value& value) {
    const RegistryKey key = RegistryKey::make(HKEY_CURRENT_USER, value.path);
    if (const auto* const number = std::get_if<std::uint32_t>(&value.value)) {
        key.setNumber(value.name, *number);
    } else {
        key.setText(value.name, std::get<std::string>(value.value));
    }
}

/// A key and those above it, from the uppermost on.
std::vector<std::string> pathsTo(const std::string& path) {
    std::vector<std::string> paths;
    for (std::size_t end = path.find('\\'); end != std::string::npos;
         end = path.find('\\', end + 1)) {
        paths.push_back(path.substr(0, end));
    }
    paths.push_back(path);
    return paths;
}

std::vector<std::string> linesOf(std::string_view lines) {
    std::vector<std::string> all;
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        all.emplace_back(lines.substr(0, end));
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
    }
    return all;
}

void removeIfEmpty(const std::string& path) {
    const RegistryKey key = RegistryKey::open(HKEY_CURRENT_USER, path);
    if (key && key.isEmpty()) RegistryKey::remove(HKEY_CURRENT_USER, path);
}

}  // namespace

void registerAddIn(const std::string& file) {
    // What an earlier registration has made is ours, too.
    std::string made =
        RegistryKey::open(HKEY_CURRENT_USER, classPath()).text(kMadeKeys).value_or("");
    for (const Value& value : valuesFor(file)) {
        for (const std::string& path : pathsTo(value.path)) {
            if (!RegistryKey::exists(HKEY_CURRENT_USER, path)) made += path + "\n";
        }
        write(value);
    }
    write({classPath(), kMadeKeys, made});
}

void unregisterAddIn() {
    const std::vector<Value> values = valuesFor({});
    std::vector<std::string> made =
        linesOf(RegistryKey::open(HKEY_CURRENT_USER, classPath()).text(kMadeKeys).value_or(""));
    for (const Value& value : values) {
        if (!RegistryKey::exists(HKEY_CURRENT_USER, value.path)) continue;
        const RegistryKey key = RegistryKey::make(HKEY_CURRENT_USER, value.path);
        key.removeValue(value.name);
        if (value.path == classPath()) key.removeValue(kMadeKeys);
        made.push_back(value.path);
    }
    // Keys are longer than those above them.
    std::sort(made.begin(), made.end(), [](const std::string& one, const std::string& other) {
        return one.size() > other.size();
    });
    for (const std::string& path : made) removeIfEmpty(path);
}

}  // namespace huebrush::word
