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
constexpr const char* kNoFillPossible = "no fill possible";

bool isSolid(const fill::FillProperties& fill) {
    return fill.Visible != MsoTriState::msoFalse && fill.Type == MsoFillType::msoFillSolid;
}

/// Whether a shape has no fill although its row was given one.
bool isUnfillable(const ColorElement& row, host::Shape& shape) {
    return row.FillObject().original().Visible != MsoTriState::msoFalse &&
           shape.Fill().Visible() == MsoTriState::msoFalse;
}

std::size_t countUnfillable(const ColorElement& row) {
    return static_cast<std::size_t>(
        std::count_if(row.ElementsGroup->begin(), row.ElementsGroup->end(),
                      [&](const host::ShapePointer& shape) { return isUnfillable(row, *shape); }));
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
                 BatchRuntime& runtime, Progress progress)
    : runtime_(runtime),
      document_(document),
      host_(host, std::move(document)),
      dialog_(recolor::frmEditGraphic::create()) {
    dialog_->connect(host_);
    if (!progress) return;
    runtime_.onStep = [this, progress = std::move(progress)] {
        const auto [done, total] = dialog_->progress();
        progress(done, total);
    };
}

Session::~Session() {
    runtime_.onStep = nullptr;
    dialog_->Unload();
}

std::vector<FillRow> Session::scan() {
    const std::size_t firstMessage = runtime_.messages().size();
    dialog_->cmdAdd.press();
    for (std::size_t i = firstMessage; i < runtime_.messages().size(); ++i) {
        const Message& message = runtime_.messages()[i];
        if (message.kind == Message::Kind::error) {
            throw base::Error(base::ErrorNumber::kInternal, message.text);
        }
    }
    if (dialog_->Element.ubound() == 0) {
        throw RequestError("the document has no drawing shapes");
    }
    return rows();
}

std::vector<FillRow> Session::rows() const {
    std::vector<FillRow> found;
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        const ColorElement& row = dialog_->Element[i];
        found.push_back({i, row.ElementsGroup->size(), row.FillObject().original()});
    }
    return found;
}

RecolorResult Session::recolor(const RecolorRequest& request) {
    edit(request);
    dialog_->chkSelAll.toggle();
    std::vector<bool> wasChanged{false};
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        wasChanged.push_back(dialog_->Element[i].FillObject().Change());
    }
    const std::size_t firstMessage = runtime_.messages().size();
    const std::size_t firstStep = runtime_.steps();
    dialog_->cmdDiscolour.press();
    return result(wasChanged, firstMessage, firstStep);
}

void Session::edit(const RecolorRequest& request) {
    for (const ColorMapping& mapping : request.mappings) map(mapping);
    for (const RowEdit& rowEdit : request.rows) editRow(rowEdit);
}

void Session::map(const ColorMapping& mapping) {
    bool found = false;
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        fill::CFill& fill = dialog_->Element[i].FillObject();
        if (!isSolid(fill.original()) || fill.original().ForeColorRGB != mapping.from) continue;
        found = true;
        if (mapping.to == mapping.from) continue;
        fill.setDestination(solid(mapping.to, fill.original().Transparency)(fill.original()));
    }
    if (!found) {
        throw RequestError(
            text("no solid fill of the document has the colour ", base::toHex(mapping.from)));
    }
}

void Session::editRow(const RowEdit& rowEdit) {
    if (rowEdit.row < 1 || rowEdit.row > dialog_->Element.ubound()) {
        throw RequestError(text("there is no row ", rowEdit.row,
                                "; the document has the rows 1 to ", dialog_->Element.ubound()));
    }
    fill::CFill& fill = dialog_->Element[static_cast<std::int16_t>(rowEdit.row)].FillObject();
    if (rowEdit.expected && !(*rowEdit.expected == fill.original())) {
        throw RequestError(text("the plan was made for another document: row ", rowEdit.row,
                                " has a different fill"));
    }
    const fill::FillProperties edited = rowEdit.edit(fill.original());
    if (!(edited == fill.original())) fill.setDestination(edited);
}

RecolorResult Session::result(const std::vector<bool>& wasChanged, std::size_t firstMessage,
                              std::size_t firstStep) {
    // The recolour makes one step before each row: that shows which row a message is about.
    std::vector<std::string> failures(wasChanged.size());
    for (std::size_t i = firstMessage; i < runtime_.messages().size(); ++i) {
        const Message& message = runtime_.messages()[i];
        const std::size_t row = message.step - firstStep;
        if (message.kind == Message::Kind::error && row < failures.size()) {
            failures[row] = message.text;
        }
    }
    RecolorResult result;
    recoloured_.clear();
    for (std::int16_t i = 1; i <= dialog_->Element.ubound(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        account(i, wasChanged[at], failures[at], result);
    }
    return result;
}

void Session::account(std::int16_t index, bool wasChanged, const std::string& failure,
                      RecolorResult& result) {
    const ColorElement& row = dialog_->Element[index];
    const std::size_t count = row.ElementsGroup->size();
    result.shapes += count;
    ++result.groups;
    if (!failure.empty()) {
        result.skipped.push_back({index, count, failure});
    } else if (!wasChanged) {
        result.skipped.push_back({index, count, kUnchanged});
    } else {
        const std::size_t unfillable = countUnfillable(row);
        if (unfillable > 0) result.skipped.push_back({index, unfillable, kNoFillPossible});
        result.changed += count - unfillable;
        recoloured_.push_back(index);
    }
}

StoredFills Session::givenFills() const {
    GivenFills given;
    for (const std::int16_t index : recoloured_) {
        const ColorElement& row = dialog_->Element[index];
        for (const host::ShapePointer& shape : *row.ElementsGroup) {
            if (isUnfillable(row, *shape)) continue;
            given[shape->Name()] = {index, row.FillObject().original()};
        }
    }
    return {*document_, std::move(given)};
}

}  // namespace huebrush::batch
