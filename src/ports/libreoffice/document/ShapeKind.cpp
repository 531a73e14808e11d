// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/ShapeKind.h"

#include <array>
#include <cstring>

namespace huebrush::libreoffice {

using host::MsoShapeType;

namespace {

struct Row {
    const char* name;
    ShapeKind kind;
};

constexpr ShapeKind kArea{true, true, true, MsoShapeType::msoAutoShape};
constexpr ShapeKind kText{true, true, true, MsoShapeType::msoTextBox};
constexpr ShapeKind kPolygon{true, true, true, MsoShapeType::msoFreeform};
constexpr ShapeKind kLine{true, false, true, MsoShapeType::msoLine};
constexpr ShapeKind kPath{true, false, true, MsoShapeType::msoFreeform};
constexpr ShapeKind kControl{true, false, false, MsoShapeType::msoFormControl};
constexpr ShapeKind kGroup{true, true, true, MsoShapeType::msoGroup};
constexpr ShapeKind kScene{true, false, false, MsoShapeType::msoAutoShape};

constexpr const char* kPrefix = "com.sun.star.drawing.";

constexpr std::array<Row, 19> kRows = {{
    {"CustomShape", kArea},
    {"RectangleShape", kArea},
    {"EllipseShape", kArea},
    {"GroupShape", kGroup},
    {"TextShape", kText},
    {"CaptionShape", kText},
    {"PolyPolygonShape", kPolygon},
    {"PolyPolygonPathShape", kPolygon},
    {"ClosedBezierShape", kPolygon},
    {"ClosedFreeHandShape", kPolygon},
    {"LineShape", kLine},
    {"ConnectorShape", kLine},
    {"MeasureShape", kLine},
    {"PolyLineShape", kPath},
    {"PolyLinePathShape", kPath},
    {"OpenBezierShape", kPath},
    {"OpenFreeHandShape", kPath},
    {"ControlShape", kControl},
    {"Shape3DSceneObject", kScene},
}};

}  // namespace

ShapeKind kindOf(const ShapeReference& shape) {
    const rtl::OUString type = shape->getShapeType();
    const auto prefix = static_cast<sal_Int32>(std::strlen(kPrefix));
    if (!type.matchAsciiL(kPrefix, prefix)) return {};
    for (const Row& row : kRows) {
        const auto length = static_cast<sal_Int32>(std::strlen(row.name));
        if (type.getLength() == prefix + length && type.matchAsciiL(row.name, length, prefix)) {
            return row.kind;
        }
    }
    return {};
}

}  // namespace huebrush::libreoffice
