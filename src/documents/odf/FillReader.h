// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <optional>
#include <string>

#include "documents/odf/Styles.h"
#include "mapping/FillMapping.h"

namespace huebrush::documents::odf {

/// The line around a shape. The colour is 0xRRGGBB.
struct Line {
    bool visible = true;
    std::int32_t color = 0;
};

Line lineOf(const Properties& properties);

/// Recognises the picture that an element of the document's table has.
class PictureTable {
 public:
    PictureTable() = default;
    PictureTable(const PictureTable&) = delete;
    PictureTable& operator=(const PictureTable&) = delete;
    virtual ~PictureTable() = default;

    /// Which of our pictures it is; nothing for any other, or where it cannot be read.
    virtual std::optional<mapping::OwnPicture> recognise(const Place& fillImage) = 0;
};

/// Reads fills from the properties of shapes as the office reads them, its defaults included.
class FillReader {
 public:
    /// Angles of gradients that have no unit are degrees, or 1/10 degree as older offices wrote
    /// them. REQUIRES: styles and pictures outlive this.
    FillReader(const Styles& styles, PictureTable& pictures, bool hasOldAngles)
        : styles_(styles), pictures_(pictures), hasOldAngles_(hasOldAngles) {}

    mapping::KnownFill fillOf(const Properties& properties);

    /// A gradient as it is defined.
    mapping::OfficeGradient gradientOf(const Place& definition) const;
    mapping::OfficeGradient transparenceOf(const Place& definition) const;
    static mapping::OfficeHatch hatchOf(const Place& definition);

 private:
    mapping::OfficeFill officeFillOf(const Properties& properties) const;
    mapping::OfficeGradient shapeOf(const Place& definition) const;
    std::optional<mapping::OwnPicture> pictureOf(const Properties& properties,
                                                 const mapping::OfficeFill& fill);

    const Styles& styles_;
    PictureTable& pictures_;
    bool hasOldAngles_;
    std::map<std::string, std::optional<mapping::OwnPicture>> recognised_;
};

}  // namespace huebrush::documents::odf
