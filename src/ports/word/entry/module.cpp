// SPDX-License-Identifier: MPL-2.0

// What the system calls of the module.

#include <windows.h>

#include <memory>
#include <optional>
#include <utility>

#include "base/Error.h"
#include "palette/OwnDataFile.h"
#include "ports/word/com/ModuleUse.h"
#include "ports/word/com/Text.h"
#include "ports/word/entry/ConnectObject.h"
#include "ports/word/entry/Registration.h"
#include "ports/word/runtime/WindowsRuntime.h"

namespace {

using namespace huebrush;

/// Whether an id is that of the class of the entry object.
bool isConnectClass(REFCLSID id) {
    CLSID connect{};
    return SUCCEEDED(::CLSIDFromString(word::toWide(word::kClassId).data(), &connect)) &&
           id == connect;
}

/// The runtime of a session, with the user's palettes beside this file.
std::unique_ptr<forms::Runtime> makeRuntime(word::Enter enter) {
    auto runtime = std::make_unique<word::WindowsRuntime>(std::move(enter));
    const forms::RuntimeScope scope(*runtime);
    base::ignoring([] { palette::makeOwnDataFile(); });
    return runtime;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    HRESULT result = CLASS_E_CLASSNOTAVAILABLE;
    base::ignoring([&] {
        if (!isConnectClass(classId)) return;
        result = word::getConnectFactory(&makeRuntime, id, object);
    });
    return result;
}

STDAPI DllCanUnloadNow() {
    return word::ModuleUse::any() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
    return base::ignoring([] { word::registerAddIn(word::moduleFile()); }) ? S_OK : E_FAIL;
}

STDAPI DllUnregisterServer() {
    return base::ignoring([] { word::unregisterAddIn(); }) ? S_OK : E_FAIL;
}
