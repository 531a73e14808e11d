// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Color.h"
#include "fill/FillProperties.h"
#include "host/Document.h"

namespace huebrush::batch {

/// The fill of a shape, and the row that gave it; no row for a shape that was left as it is.
struct GivenFill {
    GivenFill() = default;
    GivenFill(std::int32_t row, fill::FillProperties fill)
        : GivenFill(row, std::make_shared<const fill::FillProperties>(std::move(fill))) {}
    GivenFill(std::int32_t row, std::shared_ptr<const fill::FillProperties> fill)
        : row(row), fill(std::move(fill)) {}

    std::int32_t row = 0;
    /// Shapes of a row share it.
    std::shared_ptr<const fill::FillProperties> fill;
    /// The colours of its stops, where those were given.
    std::vector<base::Rgb> stops = {};
    /// The colour that its line was given.
    std::optional<base::Rgb> line = std::nullopt;

    bool isNew() const { return row != 0; }
};
/// By the names of the shapes.
using GivenFills = std::unordered_map<std::string, GivenFill>;

/// Shapes of one row that a stored file holds with another fill than the one they were given.
struct StoredDifference {
    std::int32_t row = 0;
    std::size_t shapes = 0;
    fill::FillProperties asked;
    fill::FillProperties stored;
    /// What file formats are known to do to such a fill; empty where the difference has no name.
    std::string reason;
};

struct StoredResult {
    /// Shapes that have their new fill in the stored file.
    std::size_t confirmed = 0;
    std::vector<StoredDifference> differences;
    /// Lines that have their new colour there, and those that have another one.
    std::size_t linesConfirmed = 0;
    std::size_t linesOtherwise = 0;
    /// Shapes that could not be found again.
    std::size_t notFound = 0;

    bool isAsAsked() const { return differences.empty() && linesOtherwise == 0 && notFound == 0; }
};

/// The fills that a recolour gave to the shapes of a document, to be compared with those in the
/// file that the document was stored to.
class StoredFills {
 public:
    /// Remembers where in the document the shapes stand.
    StoredFills(host::Document& document, GivenFills given);
    StoredFills(StoredFills&&) noexcept;
    StoredFills& operator=(StoredFills&&) noexcept;
    ~StoredFills();

    /// Compares with the stored document. No format keeps all there is to know a shape by: names
    /// are lost by some, the order is changed by others. Of the two ways to pair the shapes of a
    /// page or group, the one is taken that explains more. Where both are lost the shapes that
    /// remain are distinguished by their fills, those left as they are first: all that have a fill
    /// must be there again.
    StoredResult compare(host::Document& stored) const;

    struct Node;

 private:
    std::vector<Node> tree_;
};

/// A fill as a host has it now. A texture whose name is refused is one without a name.
fill::FillProperties fillOf(host::FillFormat& fill);

/// Whether a shape that reads as `stored` has the fill `asked`: what the asked fill does not use
/// does not count.
bool hasArrived(const fill::FillProperties& asked, const fill::FillProperties& stored);

}  // namespace huebrush::batch
