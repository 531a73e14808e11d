// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace huebrush::addin {

/// The product's name: the application's title, and the name of its tool bar and settings.
inline constexpr const char* kProduct = "Huebrush";

}  // namespace huebrush::addin
