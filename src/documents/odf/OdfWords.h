// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "documents/xml/Vocabulary.h"

namespace huebrush::documents::odf {

enum Space : NamespaceId {
    kOffice = 1,
    kStyleSpace,
    kText,
    kDraw,
    kScene3d,
    kSvg,
    kXlink,
    kManifest,
    kMeta,
    kExtension,
    kMemory,
    kPresentation,
};

enum Word : NameId {
    // the parts of a document
    kBody = 1,
    kTextBody,
    kDrawingBody,
    kPresentationBody,
    kPage,
    kNotes,
    kStyles,
    kAutomaticStyles,
    kForms,
    kAnnotation,
    kMetaElement,
    kGenerator,
    kBinaryData,
    // styles
    kStyle,
    kDefaultStyle,
    kGraphicProperties,
    kTextGraphicProperties,  ///< of a paragraph style
    kThemeColor,
    // what fills refer to by name
    kGradient,
    kGradientStop,
    kOpacity,
    kHatch,
    kFillImage,
    // shapes
    kGroup,
    kRectangle,
    kCustomShape,
    kEllipse,
    kCircle,
    kPolygon,
    kRegularPolygon,
    kPath,
    kCaption,
    kLine,
    kPolyline,
    kConnector,
    kMeasure,
    kControl,
    kScene,
    kFrame,
    kTextBox,
    kImage,
    kObject,
    // the list of files
    kFileEntry,
};

const Vocabulary& words();

/// The addresses of the namespaces that are declared where a document does not have them.
inline constexpr const char* kDrawAddress = "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0";
inline constexpr const char* kStyleAddress = "urn:oasis:names:tc:opendocument:xmlns:style:1.0";
inline constexpr const char* kOfficeAddress = "urn:oasis:names:tc:opendocument:xmlns:office:1.0";
inline constexpr const char* kSvgAddress =
    "urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0";
inline constexpr const char* kXlinkAddress = "http://www.w3.org/1999/xlink";
inline constexpr const char* kExtensionAddress =
    "urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0";
inline constexpr const char* kMemoryAddress = "urn:huebrush:fill:1.0";

}  // namespace huebrush::documents::odf
