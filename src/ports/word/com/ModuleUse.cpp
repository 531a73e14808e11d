// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/ModuleUse.h"

namespace huebrush::word {

namespace {

/// One for the module, as the system asks for it.
LONG& count() {
    static LONG uses = 0;
    return uses;
}

}  // namespace

HMODULE thisModule() {
    // What the system has mapped at its place.
    MEMORY_BASIC_INFORMATION here{};
    ::VirtualQuery(reinterpret_cast<const void*>(&thisModule), &here, sizeof(here));
    return static_cast<HMODULE>(here.AllocationBase);
}

ModuleUse::ModuleUse() {
    ::InterlockedIncrement(&count());
}

ModuleUse::~ModuleUse() {
    ::InterlockedDecrement(&count());
}

bool ModuleUse::any() {
    return count() != 0;
}

}  // namespace huebrush::word
