// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace huebrush::files {

/// Gives a new file what belongs to another one beside its content: owner and group, rights, access
/// lists and other extended attributes, each as far as the system allows. Where the group cannot be
/// kept, the new file's group may do no more than everybody.
void copyAttributes(int from, int to);

}  // namespace huebrush::files
