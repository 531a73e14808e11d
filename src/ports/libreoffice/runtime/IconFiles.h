// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/Picture.h"

namespace huebrush::libreoffice {

/// The component's icons, drawn separately in each of their sizes.
class IconFiles {
 public:
    /// `folder` is the component's, without a separator at its end.
    explicit IconFiles(std::string folder) : folder_(std::move(folder)) {}

    /// The icon with this number in its largest size; no picture where there is none. Those of
    /// buttons are 32-bit bitmaps, to be drawn with.
    base::Picture largest(std::int32_t number) const;
    /// The same icon in all its sizes, smallest first; only the picture itself when it is none of
    /// the icons of buttons in its largest size.
    std::vector<base::Picture> sizesOf(const base::Picture& wanted) const;
    /// A transparent bitmap in the largest size of the icons of buttons.
    static base::Picture blankFace();

 private:
    base::Picture read(std::int32_t number) const;
    base::Picture picture(std::int32_t number, std::int32_t size) const;

    std::string folder_;
    /// Each file is read once.
    mutable std::map<std::int32_t, base::Picture> largest_;
};

}  // namespace huebrush::libreoffice
