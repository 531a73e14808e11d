// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/Form.h"

namespace huebrush::view {

/// The usable control whose caption marks this letter as its access key; of several, the next after
/// the one that has the focus. Nothing where there is none.
forms::Control* controlOfAccessKey(forms::Form& form, char letter);

/// What invoking a control by its access key does: a button is pressed, a box toggled, an option
/// chosen.
void callByAccessKey(forms::Control& control);

}  // namespace huebrush::view
