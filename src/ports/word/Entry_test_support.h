// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "ports/word/com/Extensibility.h"
#include "ports/word/com/Pointer.h"

namespace huebrush::word {

/// The entry object as a factory makes it; none where it does not.
inline Pointer<Extensibility> makeEntry(IUnknown& factory) {
    Pointer<Extensibility> entry;
    const auto maker = Pointer<IUnknown>::share(&factory).as<IClassFactory>();
    if (!maker || FAILED(maker->CreateInstance(nullptr, kExtensibility, entry.outAny()))) {
        entry.release();
    }
    return entry;
}

}  // namespace huebrush::word
