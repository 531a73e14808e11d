// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Enumerations.h"
#include "mapping/FillMapping.h"

namespace huebrush::documents {

/// A fill as many shapes of a document may have it: it is kept once.
using SharedFill = std::shared_ptr<const mapping::KnownFill>;

/// A shape, or a group of them, as a document has it.
struct ShapeRecord {
    /// The name in the document; it may be empty, and others may have the same.
    std::string name;
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;
    bool canHaveFill = true;
    SharedFill fill;  ///< nothing where it cannot have one
    bool lineVisible = false;
    std::int32_t lineColor = 0;  ///< red in the low byte
    /// Of a group, in the order from back to front.
    std::vector<ShapeRecord> members;
    /// The number by which a shape is given another fill; of a group it says nothing.
    std::size_t number = 0;

    bool isGroup() const { return type == host::MsoShapeType::msoGroup; }
};

/// A fill for a shape.
struct NewFill {
    mapping::HostFill fill;
    /// The bytes of a user texture's file; empty for every other fill.
    std::string picture = {};
    /// Other colours of the stops of the gradient that the shape has, red in the low byte: `fill`
    /// is that gradient with them. Empty for every other fill.
    std::vector<std::int32_t> stops = {};
};

/// What becomes of a shape; what has no value stays.
struct ShapeChange {
    std::optional<NewFill> fill = {};
    /// The colour of the line, which the shape has, with red in the low byte.
    std::optional<std::int32_t> lineColor = {};
};

/// By the shapes' numbers.
using ShapeChanges = std::map<std::size_t, ShapeChange>;

/// A document file of one format: its shapes, and how their fills and lines are changed.
class ShapeFile {
 public:
    ShapeFile() = default;
    ShapeFile(const ShapeFile&) = delete;
    ShapeFile& operator=(const ShapeFile&) = delete;
    virtual ~ShapeFile() = default;

    /// The top-level shapes from back to front.
    virtual const std::vector<ShapeRecord>& shapes() const = 0;

    /// The bytes of the file with these changes; all else is as it is. DocumentError where that
    /// cannot be.
    virtual std::string with(const ShapeChanges& changes) const = 0;
};

}  // namespace huebrush::documents
