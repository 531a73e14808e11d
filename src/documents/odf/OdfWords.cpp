// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/OdfWords.h"

namespace huebrush::documents::odf {

const Vocabulary& words() {
    static const Vocabulary vocabulary(
        {{kOfficeAddress, kOffice},
         {kStyleAddress, kStyleSpace},
         {"urn:oasis:names:tc:opendocument:xmlns:text:1.0", kText},
         {kDrawAddress, kDraw},
         {"urn:oasis:names:tc:opendocument:xmlns:dr3d:1.0", kScene3d},
         {kSvgAddress, kSvg},
         {kXlinkAddress, kXlink},
         {"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0", kManifest},
         {"urn:oasis:names:tc:opendocument:xmlns:meta:1.0", kMeta},
         {kExtensionAddress, kExtension},
         {kMemoryAddress, kMemory},
         {"urn:oasis:names:tc:opendocument:xmlns:presentation:1.0", kPresentation}},
        {{kBody, kOffice, "body"},
         {kTextBody, kOffice, "text"},
         {kStyles, kOffice, "styles"},
         {kAutomaticStyles, kOffice, "automatic-styles"},
         {kDrawingBody, kOffice, "drawing"},
         {kPresentationBody, kOffice, "presentation"},
         {kPage, kDraw, "page"},
         {kNotes, kPresentation, "notes"},
         {kForms, kOffice, "forms"},
         {kAnnotation, kOffice, "annotation"},
         {kMetaElement, kOffice, "meta"},
         {kGenerator, kMeta, "generator"},
         {kBinaryData, kOffice, "binary-data"},
         {kStyle, kStyleSpace, "style"},
         {kDefaultStyle, kStyleSpace, "default-style"},
         {kGraphicProperties, kStyleSpace, "graphic-properties"},
         {kTextGraphicProperties, kExtension, "graphic-properties"},
         {kThemeColor, kExtension, "fill-complex-color"},
         {kGradient, kDraw, "gradient"},
         {kGradientStop, kExtension, "gradient-stop"},
         {kOpacity, kDraw, "opacity"},
         {kHatch, kDraw, "hatch"},
         {kFillImage, kDraw, "fill-image"},
         {kGroup, kDraw, "g"},
         {kRectangle, kDraw, "rect"},
         {kCustomShape, kDraw, "custom-shape"},
         {kEllipse, kDraw, "ellipse"},
         {kCircle, kDraw, "circle"},
         {kPolygon, kDraw, "polygon"},
         {kRegularPolygon, kDraw, "regular-polygon"},
         {kPath, kDraw, "path"},
         {kCaption, kDraw, "caption"},
         {kLine, kDraw, "line"},
         {kPolyline, kDraw, "polyline"},
         {kConnector, kDraw, "connector"},
         {kMeasure, kDraw, "measure"},
         {kControl, kDraw, "control"},
         {kScene, kScene3d, "scene"},
         {kFrame, kDraw, "frame"},
         {kTextBox, kDraw, "text-box"},
         {kImage, kDraw, "image"},
         {kObject, kDraw, "object"},
         {kFileEntry, kManifest, "file-entry"}});
    return vocabulary;
}

}  // namespace huebrush::documents::odf
