// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <tuple>

#include "forms/Controls.h"

namespace huebrush::view {

/// The kinds of controls that have native ones: those that take the focus, and scroll bars. A port
/// makes native controls for all of these.
using NativeKinds = std::tuple<forms::CommandButton, forms::CheckBox, forms::OptionButton,
                               forms::VScrollBar, forms::ListBox, forms::TextBox>;

/// Calls `use` with the control as its kind, if it is one of these. Returns whether it is.
template <class Use, class... Kinds>
bool visitNativeKind(const forms::Control& control, const Use& use, const std::tuple<Kinds...>*) {
    const auto visitAs = [&](const auto* kind) {
        if (kind != nullptr) use(*kind);
        return kind != nullptr;
    };
    return (visitAs(dynamic_cast<const Kinds*>(&control)) || ...);
}
template <class Use>
bool visitNativeKind(const forms::Control& control, const Use& use) {
    return visitNativeKind(control, use, static_cast<const NativeKinds*>(nullptr));
}

}  // namespace huebrush::view
