// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>

#include "jet/page/RowPages.h"
#include "jet/table/TableDefinition.h"

/// Long values (OLE objects and memos). A row holds 12 bytes that say where the value is: right
/// after them, in a row of a page of long values, or in a chain of such rows.
namespace huebrush::jet::long_value {

inline constexpr std::size_t kHeader = 12;
inline constexpr std::size_t kMostInline = 64;
inline constexpr std::size_t kMostSingle = 4076;
inline constexpr std::size_t kPiece = 4072;

/// The value that the stored bytes of a column lead to.
Bytes read(Pages& pages, const Reader& field);

/// Calls `visit` with each part of the value in turn.
using Visit = std::function<void(RowId part)>;
void visitParts(Pages& pages, const Reader& field, const Visit& visit);

/// Stores a value; what is returned goes into the row.
Bytes store(RowPages& pages, ByteView value);

/// Frees the parts of a value.
void release(Pages& pages, RowPages& owner, const Reader& field);

}  // namespace huebrush::jet::long_value
