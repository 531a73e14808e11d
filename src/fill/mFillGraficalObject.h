// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "host/FillFormat.h"

namespace huebrush::fill {

/// Whether two fills count as the same fill, read from the host at this moment: both without fill,
/// or equal in every property that their type uses and in those that it doesn't. No tolerance.
///
/// After the first step every comparison is made, even when the result is already false. A host
/// error makes the result false and is not reported; so two user textures whose names the host
/// refuses are never the same.
bool IsSameFill(host::FillFormat& SampleFill, host::FillFormat& Fill);

/// Gives one fill to another shape's: visibility, colours, what the type needs, transparency. The
/// fill of a picture or background gives no more than visibility, colours and transparency. A user
/// texture that the host cannot name or read leaves the target's type as it is; other host errors
/// pass to the caller.
void CopyFill(host::FillFormat& SourceFill, host::FillFormat& TargetFill);

}  // namespace huebrush::fill
