// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>

#include "mapping/OwnPictures.h"

namespace huebrush::documents::ooxml {

/// The pictures of one part of a document, by the numbers of its relations.
class Pictures {
 public:
    Pictures() = default;
    Pictures(const Pictures&) = delete;
    Pictures& operator=(const Pictures&) = delete;
    virtual ~Pictures() = default;

    /// Which of our pictures it is; nothing for any other, or where it cannot be read.
    virtual std::optional<mapping::OwnPicture> recognise(const std::string& relation) = 0;
};

/// Takes pictures into a document.
class NewPictures {
 public:
    NewPictures() = default;
    NewPictures(const NewPictures&) = delete;
    NewPictures& operator=(const NewPictures&) = delete;
    virtual ~NewPictures() = default;

    /// The relation of the part to a picture with these bytes: a BMP, PNG, GIF, JPEG or TIFF file.
    virtual std::string add(const std::string& bytes) = 0;
};

}  // namespace huebrush::documents::ooxml
