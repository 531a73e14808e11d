// SPDX-License-Identifier: MPL-2.0

#include "ports/word/testhost/AddInLoader.h"

#include <variant>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/word/com/Text.h"
#include "ports/word/runtime/RegistryKey.h"

namespace huebrush::word {

namespace {

using base::text;

constexpr const char* kAddIns = R"(Software\Microsoft\Office\Word\Addins)";
constexpr std::uint32_t kLoadAtStart = 3;
constexpr std::int32_t kCannotCreateObject = 429;

[[noreturn]] void throwNotCreated(const std::string& name) {
    throw base::Error(kCannotCreateObject, text("Objekt ", name, " nelze vytvořit."));
}

template <class Function>
Function functionOf(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

/// The names of the keys right below one of the user's.
std::vector<std::string> keysBelow(const char* path) {
    std::vector<std::string> names;
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, toWide(path).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return names;
    }
    wchar_t name[256];
    DWORD size = 256;
    while (::RegEnumKeyExW(key, static_cast<DWORD>(names.size()), name, &size, nullptr, nullptr,
                           nullptr, nullptr) == ERROR_SUCCESS) {
        names.push_back(toUtf8(std::wstring_view(name, size)));
        size = 256;
    }
    ::RegCloseKey(key);
    return names;
}

}  // namespace

std::vector<std::string> addInsToLoad() {
    std::vector<std::string> loaded;
    for (const std::string& name : keysBelow(kAddIns)) {
        const auto behavior =
            RegistryKey::open(HKEY_CURRENT_USER, text(kAddIns, "\\", name)).value("LoadBehavior");
        if (behavior == forms::RegistryValue(kLoadAtStart)) loaded.push_back(name);
    }
    return loaded;
}

AddInLoader::AddInLoader(const std::string& programmaticId) {
    // The classes of the user are read by ourselves, because Wine's COM library does not see them.
    const auto classText = RegistryKey::open(HKEY_CURRENT_USER, text(R"(Software\Classes\)",
                                                                     programmaticId, R"(\CLSID)"))
                               .text("");
    if (!classText || FAILED(::CLSIDFromString(toWide(*classText).data(), &class_))) {
        throwNotCreated(programmaticId);
    }
    const auto file = RegistryKey::open(HKEY_CURRENT_USER, text(R"(Software\Classes\CLSID\)",
                                                                *classText, R"(\InprocServer32)"))
                          .text("");
    if (file) module_ = ::LoadLibraryW(toWide(*file).c_str());
    if (module_ == nullptr) throwNotCreated(programmaticId);
}

AddInLoader::~AddInLoader() {
    ::FreeLibrary(module_);
}

Pointer<Extensibility> AddInLoader::create() const {
    const auto getClass = functionOf<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
        module_, "DllGetClassObject");
    Pointer<IUnknown> factory;
    if (FAILED(getClass(class_, IID_IUnknown, factory.outAny()))) throwNotCreated("");
    DWORD registered = 0;
    ::CoRegisterClassObject(class_, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                            &registered);
    Pointer<Extensibility> made;
    const HRESULT result =
        ::CoCreateInstance(class_, nullptr, CLSCTX_INPROC_SERVER, kExtensibility, made.outAny());
    ::CoRevokeClassObject(registered);
    if (FAILED(result)) throwNotCreated("");
    return made;
}

bool AddInLoader::canUnload() const {
    return functionOf<HRESULT(STDAPICALLTYPE*)()>(module_, "DllCanUnloadNow")() == S_OK;
}

}  // namespace huebrush::word
