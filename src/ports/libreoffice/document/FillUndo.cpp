// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/FillUndo.h"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/UndoFailedException.hpp>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Text.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

/// The object that a place leads to; nothing where it leads nowhere.
ShapeReference descend(ShapeReference shape, const std::vector<std::int32_t>& place) {
    for (std::size_t depth = 1; depth < place.size() && shape.is(); ++depth) {
        const Reference<css::container::XIndexAccess> members(shape, UNO_QUERY);
        if (!members.is() || place[depth] >= members->getCount()) return {};
        shape.set(members->getByIndex(place[depth]), UNO_QUERY);
    }
    return shape;
}

void restoreFill(const FillStep& step, const ShapeReference& top, FillTables& tables) {
    const ShapeReference shape = descend(top, step.change->place);
    if (!shape.is()) return;
    const ShapeKind kind = kindOf(shape);
    if (!kind.canHaveFill || kind.isGroup() || kind.type != step.change->type) return;
    ShapeFill now = readFill(shape);
    prepareWrite(now, shape, tables);
    writeFill(shape, now, *step.wanted, tables);
}

class FillAction final : public WeakImplHelper<css::document::XUndoAction> {
 public:
    FillAction(const std::string& title, std::vector<FillChange> changes,
               std::function<void(const FillSteps&)> restore)
        : title_(toOffice(title)), changes_(std::move(changes)), restore_(std::move(restore)) {}

    rtl::OUString SAL_CALL getTitle() override { return title_; }

    void SAL_CALL undo() override {
        FillSteps steps;
        for (const FillChange& change : changes_) steps.push_back({&change, &change.before});
        std::reverse(steps.begin(), steps.end());
        restore(steps);
    }

    void SAL_CALL redo() override {
        FillSteps steps;
        for (const FillChange& change : changes_) steps.push_back({&change, &change.after});
        restore(steps);
    }

 private:
    void restore(const FillSteps& steps) {
        try {
            restore_(steps);
        } catch (const base::Error& error) {
            throw css::document::UndoFailedException(toOffice(error.description()), *this, {});
        }
    }

    rtl::OUString title_;
    std::vector<FillChange> changes_;
    std::function<void(const FillSteps&)> restore_;
};

}  // namespace

void restoreFills(const FillSteps& steps, const DrawPage& page, FillTables& tables) {
    for (const FillStep& step : steps) {
        const std::int32_t index = step.change->place.front();
        if (index < page.count()) restoreFill(step, page.at(index), tables);
    }
}

Reference<css::document::XUndoAction> makeUndoAction(
    const std::string& title, std::vector<FillChange> changes,
    std::function<void(const FillSteps&)> restore) {
    return new FillAction(title, std::move(changes), std::move(restore));
}

}  // namespace huebrush::libreoffice
