// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/Enumerations.h"
#include "host/FillFormat.h"

namespace huebrush::host {

/// The line of a shape.
class LineFormat {
 public:
    LineFormat() = default;
    LineFormat(const LineFormat&) = delete;
    LineFormat& operator=(const LineFormat&) = delete;
    virtual ~LineFormat() = default;

    virtual MsoTriState Visible() = 0;
    virtual void setVisible(MsoTriState visible) = 0;
    /// `ForeColor.RGB` of the host, red in the low byte.
    virtual std::int32_t ForeColorRGB() = 0;
    virtual void setForeColorRGB(std::int32_t color) = 0;
};

class Shape;
using ShapePointer = std::shared_ptr<Shape>;

/// A counted list of shapes; Item counts from 1, and an index outside it is an error.
class ShapeList {
 public:
    ShapeList() = default;
    ShapeList(const ShapeList&) = delete;
    ShapeList& operator=(const ShapeList&) = delete;
    virtual ~ShapeList() = default;

    virtual std::int32_t Count() = 0;
    virtual ShapePointer Item(std::int32_t index) = 0;
};

/// A drawing shape of a document. Holding one does not keep it alive in its document: using a shape
/// that has been deleted is an error of that use.
class Shape {
 public:
    Shape() = default;
    Shape(const Shape&) = delete;
    Shape& operator=(const Shape&) = delete;
    virtual ~Shape() = default;

    /// The name under which Shapes::Range finds the shape again.
    virtual std::string Name() = 0;
    virtual MsoShapeType Type() = 0;
    /// The members of a group, groups among them as groups. REQUIRES: Type() is msoGroup.
    virtual std::shared_ptr<ShapeList> GroupItems() = 0;
    /// Both live as long as this object.
    virtual FillFormat& Fill() = 0;
    virtual LineFormat& Line() = 0;
    /// Makes this shape the selection of its document.
    virtual void Select() = 0;
};

/// Some shapes of a document that are addressed together.
class ShapeRange : public ShapeList {
 public:
    /// One fill for all: a write reaches every shape. Lives as long as this object.
    virtual FillFormat& Fill() = 0;
    /// Makes these shapes the selection, replacing the previous one.
    virtual void Select() = 0;
};

}  // namespace huebrush::host
