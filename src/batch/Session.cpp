// SPDX-License-Identifier: MPL-2.0

#include "batch/Session.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace huebrush::batch {

namespace {

using base::text;
using host::MsoFillType;
using host::MsoTriState;
using recolor::ColorElement;

constexpr const char* kUnchanged = "unchanged";
constexpr const char* kNoFillPossible = "these shapes cannot have a fill";
constexpr const char* kNotReached = "recolouring stopped before this row";

/// Whether a shape has no fill although its row was given one.
bool isUnfillable(const ColorElement& row, host::Shape& shape) {
    return row.FillObject().original().Visible != MsoTriState::msoFalse &&
           shape.Fill().Visible() == MsoTriState::msoFalse;
}

std::size_t countUnfillable(const ColorElement& row) {
    return static_cast<std::size_t>(
        std::count_if(row.ElementsGroup()->begin(), row.ElementsGroup()->end(),
                      [&](const host::ShapePointer& shape) { return isUnfillable(row, *shape); }));
}

/// What the mappings look at, for a message.
std::string kindsOf(const MappingScope& scope) {
    std::vector<std::string> kinds = {"solid fill"};
    if (scope.gradients) kinds.emplace_back("gradient");
    if (scope.patterns) kinds.emplace_back("pattern");
    if (scope.lines) kinds.emplace_back("line");
    std::string list = kinds.front();
    for (std::size_t i = 1; i < kinds.size(); ++i) {
        list += text(i + 1 == kinds.size() ? " or " : ", ", kinds[i]);
    }
    return list;
}

/// The colours of the stops that all shapes of a row have; none where it has no such gradient.
std::vector<base::Rgb> stopsOf(const ColorElement& row) {
    if (row.FillObject().original().Type != MsoFillType::msoFillGradient) return {};
    return row.ElementsGroup()->begin()->get()->Fill().GradientStops();
}

}  // namespace

FillEdit noFill() {
    return [](fill::FillProperties fill) {
        fill.Visible = MsoTriState::msoFalse;
        return fill;
    };
}

FillEdit solid(base::Rgb color, float transparency) {
    return [color, transparency](fill::FillProperties fill) {
        fill.Visible = MsoTriState::msoTrue;
        fill.Type = MsoFillType::msoFillSolid;
        fill.ForeColorRGB = color;
        fill.Transparency = transparency;
        return fill;
    };
}

Session::Session(host::Application& host, std::shared_ptr<host::Document> document,
                 Progress progress)
    : document_(document),
      host_(host, std::move(document)),
      dialog_(recolor::frmEditGraphic::create()) {
    dialog_->connect(host_);
    const auto noteError = [this](const std::string& error) { error_ = error; };
    dialog_->Scanned.connect(noteError);
    dialog_->Recoloured.connect(noteError);
    if (!progress) return;
    dialog_->Progressed.connect(
        [progress = std::move(progress)](const recolor::frmEditGraphic::Progress& at) {
            progress(at.done, at.total);
        });
}

Session::~Session() {
    dialog_->Unload();
}

std::vector<FillRow> Session::scan() {
    // With nothing selected, the dialog would complain.
    if (document_->Shapes()->enumerate()->next() == nullptr) return {};
    dialog_->cmdAdd.press();
    if (!error_.empty()) throw base::Error(base::ErrorNumber::kInternal, error_);
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        dialog_->Element[i].Discoloured.connect([this, i](const recolor::RowOutcome& outcome) {
            // A fill that fails after its row has the last word; the row's first error stays.
            recolor::RowOutcome& known = outcomes_[i];
            if (known.error.empty()) known = outcome;
        });
    }
    return rows();
}

std::vector<FillRow> Session::rows() const {
    std::vector<FillRow> found;
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        const ColorElement& row = dialog_->Element[i];
        found.push_back({i, row.ElementsGroup()->size(), row.FillObject().original()});
    }
    return found;
}

RecolorResult Session::recolor(const RecolorRequest& request) {
    edit(request);
    if (dialog_->Element.ubound() == 0) return {};
    dialog_->chkSelAll.toggle();
    outcomes_.clear();
    dialog_->cmdDiscolour.press();
    writeStops();
    RecolorResult result = this->result();
    writeLines(result);
    return result;
}

void Session::edit(const RecolorRequest& request) {
    map(request);
    for (const RowEdit& rowEdit : request.rows) editRow(rowEdit);
    if (request.palette) take(*request.palette);
}

void Session::map(const RecolorRequest& request) {
    ColorMaps maps(request.mappings, request.scope);
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        mapFill(i, request.scope, maps);
        if (request.scope.lines) mapLines(i, maps);
    }
    if (const auto missing = maps.missing()) {
        throw RequestError(text("no ", kindsOf(request.scope), " in the document has the colour ",
                                base::toHex(*missing)));
    }
}

void Session::mapFill(std::int16_t index, const MappingScope& scope, ColorMaps& maps) {
    const ColorElement& row = dialog_->Element[index];
    const std::vector<base::Rgb> stops = scope.gradients ? stopsOf(row) : std::vector<base::Rgb>();
    if (!stops.empty()) {
        if (auto mapped = maps.mapped(stops)) stops_[index] = std::move(*mapped);
    } else if (const auto mapped = maps.mapped(row.FillObject().original())) {
        row.FillObject().setDestination(*mapped);
    }
}

void Session::mapLines(std::int16_t index, ColorMaps& maps) {
    for (const host::ShapePointer& shape : *dialog_->Element[index].ElementsGroup()) {
        host::LineFormat& line = shape->Line();
        if (line.Visible() == MsoTriState::msoFalse) continue;
        const auto mapped = maps.mapped({line.ForeColorRGB()});
        if (mapped) lines_.push_back({index, shape, mapped->front()});
    }
}

/// Reports of the rows as the dialog does for its own.
void Session::writeStops() {
    for (const auto& [index, colors] : stops_) {
        recolor::RowOutcome& outcome = outcomes_[index];
        for (const host::ShapePointer& shape : *dialog_->Element[index].ElementsGroup()) {
            try {
                shape->Fill().setGradientStops(colors);
                ++outcome.shapes;
            } catch (const base::Error& error) {
                if (outcome.error.empty()) outcome.error = error.description();
            }
        }
    }
}

void Session::writeLines(RecolorResult& result) {
    for (NewLine& each : lines_) {
        try {
            each.shape->Line().setForeColorRGB(each.color);
            each.isWritten = true;
            ++result.lines;
        } catch (const base::Error& error) {
            result.skipped.push_back({each.row, 1, text("its line: ", error.description())});
        }
    }
}

void Session::editRow(const RowEdit& rowEdit) {
    if (dialog_->Element.ubound() == 0) {
        throw RequestError(text("there is no row ", rowEdit.row, "; the document has no shapes"));
    }
    if (rowEdit.row < 1 || rowEdit.row > dialog_->Element.ubound()) {
        throw RequestError(text("there is no row ", rowEdit.row, "; the document has rows 1 to ",
                                dialog_->Element.ubound()));
    }
    fill::CFill& fill = dialog_->Element[static_cast<std::int16_t>(rowEdit.row)].FillObject();
    if (rowEdit.expected && !(*rowEdit.expected == fill.original())) {
        throw RequestError(text("the plan was made for another document: row ", rowEdit.row,
                                " has a different fill"));
    }
    const fill::FillProperties edited = rowEdit.edit(fill.original());
    if (edited == fill.original()) return;
    fill.setDestination(edited);
    stops_.erase(static_cast<std::int16_t>(rowEdit.row));
}

void Session::take(const PaletteFills& palette) {
    const std::int16_t rows = dialog_->Element.ubound();
    const std::size_t fills = palette.fills.size();
    if (static_cast<std::size_t>(rows) > fills && !palette.mayBeFewer) {
        throw RequestError(text("the document has ", rows, " rows, but the palette only ", fills,
                                fills == 1 ? " fill" : " fills",
                                "; with --yes, the other rows keep their fills"));
    }
    for (std::int16_t i = 1; i <= rows && static_cast<std::size_t>(i) <= fills; ++i) {
        const fill::FillProperties& taken = palette.fills[static_cast<std::size_t>(i - 1)];
        editRow({i, [&](const fill::FillProperties&) { return taken; }, std::nullopt});
    }
}

RecolorResult Session::result() const {
    RecolorResult result;
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) account(i, result);
    const bool isStated =
        std::any_of(result.skipped.begin(), result.skipped.end(),
                    [&](const Skipped& skipped) { return skipped.reason == error_; });
    if (!error_.empty() && !isStated) throw base::Error(base::ErrorNumber::kInternal, error_);
    return result;
}

void Session::account(std::int16_t index, RecolorResult& result) const {
    const ColorElement& row = dialog_->Element[index];
    const std::size_t count = row.ElementsGroup()->size();
    result.shapes += count;
    ++result.groups;
    const auto outcome = outcomes_.find(index);
    if (outcome != outcomes_.end() && !outcome->second.error.empty()) {
        result.skipped.push_back({index, count, outcome->second.error});
    } else if (isRecoloured(index)) {
        const std::size_t unfillable = countUnfillable(row);
        if (unfillable > 0) result.skipped.push_back({index, unfillable, kNoFillPossible});
        result.changed += count - unfillable;
    } else if (row.FillObject().Change()) {
        // Recolouring has stopped before it came to the row.
        result.skipped.push_back({index, count, error_.empty() ? kNotReached : error_});
    } else {
        result.skipped.push_back({index, count, kUnchanged});
    }
}

bool Session::isRecoloured(std::int16_t index) const {
    const auto outcome = outcomes_.find(index);
    return outcome != outcomes_.end() && outcome->second.shapes > 0;
}

StoredFills Session::givenFills() const {
    GivenFills given;
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        const ColorElement& row = dialog_->Element[i];
        const bool isNew = isRecoloured(i);
        const bool hasNewStops = isNew && stops_.contains(i);
        // Of new stops the dialog does not know.
        const auto fill = std::make_shared<const fill::FillProperties>(
            hasNewStops ? fillOf((*row.ElementsGroup()->begin())->Fill())
                        : row.FillObject().original());
        for (const host::ShapePointer& shape : *row.ElementsGroup()) {
            if (isNew && isUnfillable(row, *shape)) continue;
            GivenFill& shapesFill = given[shape->Name()];
            shapesFill = {isNew ? i : std::int32_t{0}, fill};
            if (hasNewStops) shapesFill.stops = stops_.at(i);
        }
    }
    for (const NewLine& each : lines_) {
        if (each.isWritten) given[each.shape->Name()].line = each.color;
    }
    return {*document_, std::move(given)};
}

}  // namespace huebrush::batch
