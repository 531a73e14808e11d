// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/WindowsComponent.h"

#include "ports/word/com/ModuleUse.h"
#include "ports/word/com/Text.h"
#include "ports/word/graphics/Icons.h"

namespace huebrush::word {

namespace {

/// The part of a name before its last separator, or the part behind it.
std::string before(const std::string& name, char separator) {
    return name.substr(0, name.rfind(separator));
}
std::string behind(const std::string& name, char separator) {
    return name.substr(name.rfind(separator) + 1);
}

}  // namespace

std::string moduleFile() {
    std::wstring name(32768, L'\0');
    name.resize(::GetModuleFileNameW(thisModule(), name.data(), static_cast<DWORD>(name.size())));
    return toUtf8(name);
}

std::string WindowsComponent::version() const {
    return HUEBRUSH_VERSION;
}

std::string WindowsComponent::name() const {
    return before(behind(moduleFile(), '\\'), '.');
}

std::string WindowsComponent::folder() const {
    return before(moduleFile(), '\\');
}

std::string WindowsComponent::temporaryFolder() const {
    std::wstring name(MAX_PATH + 1, L'\0');
    name.resize(::GetTempPathW(static_cast<DWORD>(name.size()), name.data()));
    return before(toUtf8(name), '\\');
}

base::Picture WindowsComponent::icon(std::int32_t number) const {
    const base::Picture found = iconOf(thisModule(), number);
    // Bitmaps stand on white where they are drawn, icons on what is below.
    return found.empty() || found.format() == base::PictureFormat::icon ? found : asIcon(found);
}

char WindowsComponent::decimalSeparator() const {
    wchar_t separator[8]{};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 8);
    return separator[0] == L',' ? ',' : '.';
}

}  // namespace huebrush::word
