// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Color.h"
#include "batch/ColorMaps.h"
#include "batch/StoredFills.h"
#include "batch/WholeDocument.h"
#include "fill/FillProperties.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::batch {

/// A request that does not fit the document: an unknown row or colour, a plan of another document.
/// Raised before anything is written.
class RequestError : public std::exception {
 public:
    explicit RequestError(std::string text) : text_(std::move(text)) {}
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    std::string text_;
};

/// A row of the dialog: a distinct fill and how many shapes have it.
struct FillRow {
    std::int32_t row = 0;  ///< From 1.
    std::size_t shapes = 0;
    fill::FillProperties fill;
};

/// Makes a row's new fill from its current one.
using FillEdit = std::function<fill::FillProperties(const fill::FillProperties&)>;

FillEdit noFill();
/// A solid fill of a colour; transparency from 0.0 to 1.0.
FillEdit solid(base::Rgb color, float transparency);

/// One row gets a fill.
struct RowEdit {
    std::int32_t row = 0;
    FillEdit edit;
    /// The fill that the row had when the edit was made; a row with another one is an error.
    std::optional<fill::FillProperties> expected;
};

/// The fills of a palette: the first row gets the first one, and so on; what is left of them is not
/// used.
struct PaletteFills {
    std::vector<fill::FillProperties> fills;
    /// Whether rows for which there is no fill keep theirs; otherwise they are an error.
    bool mayBeFewer = false;
};

struct RecolorRequest {
    std::vector<ColorMapping> mappings;
    std::vector<RowEdit> rows;
    std::optional<PaletteFills> palette = std::nullopt;
    MappingScope scope = {};
};

/// Shapes that kept their fill, and why.
struct Skipped {
    std::int32_t row = 0;
    std::size_t shapes = 0;
    std::string reason;
};

struct RecolorResult {
    std::size_t shapes = 0;
    std::size_t groups = 0;
    std::size_t changed = 0;
    /// How many lines got another colour.
    std::size_t lines = 0;
    std::vector<Skipped> skipped;
};

/// One document worked on without a screen, by the recolour dialog itself: everything is selected,
/// scanned, edited and recoloured as a user would do it. What the dialog says is in the runtime's
/// messages.
class Session {
 public:
    /// Called during long work: how much is done, of how much.
    using Progress = std::function<void(std::size_t done, std::size_t total)>;

    Session(host::Application& host, std::shared_ptr<host::Document> document,
            Progress progress = {});
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// Finds the distinct fills of all shapes. A base::Error with the dialog's own message when the
    /// scan fails.
    std::vector<FillRow> scan();

    /// Gives new fills to the shapes of the scanned rows. RequestError before anything is written;
    /// failures of single rows are in the result. A base::Error with the dialog's own message when
    /// a fill did not reach a shape, and it is not known of which row that is.
    RecolorResult recolor(const RecolorRequest& request);

    /// The fills that the recolour gave, to be compared with those of a stored file.
    StoredFills givenFills() const;

 private:
    /// A line that is to get another colour.
    struct NewLine {
        std::int16_t row;
        host::ShapePointer shape;
        base::Rgb color;
        bool isWritten = false;
    };

    std::vector<FillRow> rows() const;
    void edit(const RecolorRequest& request);
    void map(const RecolorRequest& request);
    void mapFill(std::int16_t index, const MappingScope& scope, ColorMaps& maps);
    void mapLines(std::int16_t index, ColorMaps& maps);
    void editRow(const RowEdit& edit);
    void take(const PaletteFills& palette);
    void writeStops();
    void writeLines(RecolorResult& result);
    RecolorResult result() const;
    void account(std::int16_t index, RecolorResult& result) const;
    bool isRecoloured(std::int16_t index) const;

    std::shared_ptr<host::Document> document_;
    WholeDocument host_;
    std::shared_ptr<recolor::frmEditGraphic> dialog_;
    /// What is to change beside the rows' fills: the colours of gradients' stops, by rows, and
    /// those of lines.
    std::map<std::int16_t, std::vector<base::Rgb>> stops_;
    std::vector<NewLine> lines_;
    /// What became of each row that the recolour came to, by their numbers.
    std::map<std::int16_t, recolor::RowOutcome> outcomes_;
    /// What the dialog reported of the last scan or recolour as a whole; empty where it went well.
    std::string error_;
};

}  // namespace huebrush::batch
