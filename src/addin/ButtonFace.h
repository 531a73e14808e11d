// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "base/Picture.h"
#include "host/CommandBars.h"

namespace huebrush::addin {

/// Gives a button the component's icon with a number, through the clipboard of the forms runtime,
/// whose previous content is lost: the button's own face is the canvas that the icon is drawn on.
/// Does nothing for no button.
void SetButtonFace(host::CommandBarControl* button, const std::int16_t& icon);

/// Draws an icon at the upper left corner of a bitmap, by the means of the forms runtime. The
/// result is the canvas as it is where that fails, or where either is no such picture.
base::Picture DrawIconOnPicture(const base::Picture& icon, const base::Picture& canvas);

}  // namespace huebrush::addin
