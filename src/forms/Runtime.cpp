// SPDX-License-Identifier: MPL-2.0

#include "forms/Runtime.h"

#include <utility>

#include "base/Error.h"
#include "forms/DrawIcon.h"

namespace huebrush::forms {

Runtime*& Runtime::slot() {
    static Runtime* current = nullptr;
    return current;
}

Runtime& Runtime::current() {
    if (slot() == nullptr) {
        throw base::Error(base::ErrorNumber::kInternal, "Prostředí formulářů není připraveno.");
    }
    return *slot();
}

base::Picture Runtime::DrawIcon(const base::Picture& icon, const base::Picture& canvas) {
    return drawIcon(icon, canvas);
}

RuntimeScope::RuntimeScope(Runtime& runtime) : former_(std::exchange(Runtime::slot(), &runtime)) {}

RuntimeScope::~RuntimeScope() {
    Runtime::slot() = former_;
}

}  // namespace huebrush::forms
