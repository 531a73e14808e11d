#include "ports/libreoffice/document/FillUndo.h"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/UndoFailedException.hpp>

#include "ports/libreoffice/document/OpenDocument.h"
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

class FillAction final : public WeakImplHelper<css::document::XUndoAction> {
 public:
    FillAction(std::weak_ptr<OpenDocument> document, const std::string& title,
               std::vector<FillChange> changes)
        : document_(std::move(document)), title_(toOffice(title)), changes_(std::move(changes)) {}

    rtl::OUString SAL_CALL getTitle() override { return title_; }

    void SAL_CALL undo() override {
        std::vector<Step> steps;
        for (const FillChange& change : changes_) steps.push_back({&change, &change.before});
        std::reverse(steps.begin(), steps.end());
        restore(steps);
    }

    void SAL_CALL redo() override {
        std::vector<Step> steps;
        for (const FillChange& change : changes_) steps.push_back({&change, &change.after});
        restore(steps);
    }

 private:
    struct Step {
        const FillChange* change;
        const ShapeFill* wanted;
    };

    void restore(const std::vector<Step>& steps) {
        const std::shared_ptr<OpenDocument> document = document_.lock();
        if (!document) return;
        try {
            document->changeFills([&] { restoreAll(*document, steps); }, steps.size());
        } catch (const base::Error& error) {
            throw css::document::UndoFailedException(toOffice(error.description()), *this, {});
        }
    }

    /// In the order of the steps, because a shape may be in several.
    static void restoreAll(OpenDocument& document, const std::vector<Step>& steps) {
        const DrawPage& page = document.tree().page();
        for (const Step& step : steps) {
            const std::int32_t index = step.change->place.front();
            if (index < page.count()) restoreOne(document, page.at(index), step);
        }
    }

    static void restoreOne(OpenDocument& document, const ShapeReference& top, const Step& step) {
        const ShapeReference shape = descend(top, step.change->place);
        if (!shape.is()) return;
        const ShapeKind kind = kindOf(shape);
        if (!kind.canHaveFill || kind.isGroup() || kind.type != step.change->type) return;
        ShapeFill now = readFill(shape);
        prepareWrite(now, shape, document.tables());
        writeFill(shape, now, *step.wanted, document.tables());
    }

    std::weak_ptr<OpenDocument> document_;
    rtl::OUString title_;
    std::vector<FillChange> changes_;
};

}  // namespace

Reference<css::document::XUndoAction> makeUndoAction(std::weak_ptr<OpenDocument> document,
                                                     const std::string& title,
                                                     std::vector<FillChange> changes) {
    return new FillAction(std::move(document), title, std::move(changes));
}

}  // namespace huebrush::libreoffice
