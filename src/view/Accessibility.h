// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "view/Scene.h"

namespace huebrush::view {

/// What a control that is painted is to readers for the blind.
enum class PartRole { text, picture, button, group };

/// Nothing for what is only decoration, for what has a native window, which says itself what it is,
/// and for what a button is made of.
std::optional<PartRole> partRoleOf(const forms::Control& control);

/// The name that a control was given, its caption, or else its tool tip.
std::string nameOf(const forms::Control& control);
/// The tool tip of a control that has another name; empty for any other.
std::string descriptionOf(const forms::Control& control);

/// Whether pressing a painted part does something while the part is usable.
bool isPressable(const forms::Control& control);
/// Does what a click on a painted part does, if the part is usable. It may end the control.
void pressPart(forms::Control& control);

/// Of the scene on a surface what readers for the blind list: the parts with a role, and all that
/// has a native window. From the lowest to the uppermost.
std::vector<Placed> readableSceneOf(const forms::Control& surface, double width, double height);

}  // namespace huebrush::view
