// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "ports/word/com/Extensibility.h"
#include "ports/word/entry/AddInSession.h"

namespace huebrush::word {

/// The factory of the entry objects, whose add-in runs on such runtimes. Its result is that of
/// DllGetClassObject.
HRESULT getConnectFactory(MakeRuntime makeRuntime, REFIID id, void** factory) noexcept;

}  // namespace huebrush::word
