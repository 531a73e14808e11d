// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>

#include "forms/Form.h"
#include "view/Key.h"

namespace huebrush::view {

/// Something that the user does to a form.
using FormAction = std::function<void(forms::Form&)>;

/// What a key that goes down in a form does there; nothing where it is left to the native control
/// that has the focus.
FormAction actionOfKey(forms::Form& form, const Key& key);

/// Reports a key that goes down to the text box that has the focus, before the key does anything;
/// nothing where none listens.
FormAction reportOfKey(const forms::Form& form, const Key& key);

/// What a released key does: the check box or text box that has the focus gets it.
FormAction actionOfReleasedKey(const forms::Form& form, const Key& key);

}  // namespace huebrush::view
