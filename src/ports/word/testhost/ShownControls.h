// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace huebrush::word {

/// What the visible windows of this thread show, except `host`; read from the windows themselves.
/// Places are in pixels of the inside of the window that all lies in. Fields are separated by tabs:
///
///   window   WIDTH HEIGHT  CAPTION
///   control  CLASS STYLE ENABLED VALUE LEFT TOP WIDTH HEIGHT  TEXT    for each of the system's
///   item     LEFT TOP WIDTH HEIGHT  TEXT                              for each line of a list
///   text     LEFT TOP  TEXT                                          for each that is painted
///
/// CLASS is that of the system's control and STYLE the kind of button; VALUE is the state of a
/// button (0, 1, or 2 for neither) and the position of a scroll bar, otherwise 0.
std::vector<std::string> shownControls(HWND host);

}  // namespace huebrush::word
