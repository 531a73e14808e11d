// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

namespace huebrush::word {

/// The module that this code is in.
HMODULE thisModule();

/// Keeps this module loaded for as long as it lives: each object of ours that the host may hold has
/// one, and so has each call from the host that is still running.
class ModuleUse {
 public:
    ModuleUse();
    ModuleUse(const ModuleUse&) : ModuleUse() {}
    ModuleUse& operator=(const ModuleUse&) = default;
    ~ModuleUse();

    /// Whether anything keeps the module loaded.
    static bool any();
};

}  // namespace huebrush::word
