// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "host/Application.h"

namespace huebrush::select {

/// Selects every floating shape of the active document whose line equals that of the one selected
/// shape: the same colour and visibility, or no visible line when the sample has none.
/// Groups count as one shape. Progress and result go to the status bar, and events run after each
/// shape. Errors are reported, and leave the previous selection.
void VseDleBarvyCary(host::Application& WApp);

/// The same for the fill, by the equality of fill/mFillGraficalObject.h.
void VseDleTypuVyplne(host::Application& WApp);

}  // namespace huebrush::select
