// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>

#include "base/Picture.h"
#include "jet/table/Value.h"

namespace huebrush::preview {

/// The previews of palettes' fills, between pictures in memory and the column FillPreview, which
/// holds the whole file of a picture, or null. A picture goes through one temporary file. Every
/// error is reported, and the user may repeat or skip the step that failed.

/// The FillPreview of the current record, read when it is called; an empty one stands for a field
/// that is absent.
using Field = std::function<jet::Value()>;

/// The full name of the temporary file. It stays the same for as long as the component is loaded.
/// Empty when the user has aborted.
std::string getTmpFile();

/// The picture in a field. No picture when the field is absent or null, and when it does not hold
/// one (see base::loadPicture), which is reported.
base::Picture ReadPictureFromRS(const Field& field);

/// What the field is to be given for a picture: null for no picture.
jet::Value WritePictureToRS(const base::Picture& picture);

}  // namespace huebrush::preview
