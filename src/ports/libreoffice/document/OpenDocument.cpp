// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/OpenDocument.h"

#include <com/sun/star/frame/XStorable.hpp>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

OpenDocument::Parts::Parts(const ContextReference& context, const ModelReference& document,
                           const std::shared_ptr<Snapshot>& snapshot)
    : model(document),
      hasWindow(!isHidden(document)),
      shapes(context, document, snapshot),
      fills(document, shapes, snapshot, hasWindow),
      selection(context, document, shapes, snapshot, hasWindow) {}

OpenDocument::OpenDocument(const ContextReference& context, const ModelReference& model,
                           std::shared_ptr<Snapshot> snapshot)
    : context_(context) {
    officeCalls([&] { parts_.emplace(context, model, std::move(snapshot)); });
}

const mapping::HostFill& OpenDocument::fillOf(ShapeNode& node) {
    Parts& open = parts();
    open.fills.finishEdit();
    return open.shapes.fillOf(node);
}

mapping::HostFill OpenDocument::commonFillOf(const std::vector<NodePointer>& nodes) {
    Parts& open = parts();
    open.fills.finishEdit();
    return open.shapes.commonFillOf(nodes);
}

void OpenDocument::finishWrites() {
    Parts& open = parts();
    open.fills.finishEdit();
    open.fills.flush();
}

void OpenDocument::select(const std::vector<NodePointer>& nodes) {
    Parts& open = parts();
    open.fills.finishEdit();
    if (nodes.empty()) return;
    open.shapes.checkAlive(nodes);
    if (open.hasWindow) open.fills.flush();
    open.selection.select(nodes);
}

void OpenDocument::showSelection() {
    finishWrites();
    Parts& open = parts();
    open.fills.unlock();
    open.selection.show();
}

bool OpenDocument::isReadOnly() {
    if (!parts().hasWindow) return false;
    return officeCalls([&] {
        const css::uno::Reference<css::frame::XStorable> storable(model(),
                                                                  css::uno::UNO_QUERY_THROW);
        return bool(storable->isReadonly());
    });
}

// Undo

class OpenDocument::Group final : public host::UndoGroup {
 public:
    Group(std::shared_ptr<OpenDocument> document, std::string title)
        : document_(std::move(document)), title_(std::move(title)) {
        if (document_->isOpen()) document_->fills().openGroup();
    }
    ~Group() override { Group::finish(); }
    std::vector<host::FailedWrite> finish() override {
        if (!std::exchange(open_, false)) return {};
        return document_->closeGroup(title_);
    }

 private:
    std::shared_ptr<OpenDocument> document_;
    std::string title_;
    bool open_ = true;
};

std::unique_ptr<host::UndoGroup> OpenDocument::undoGroup(const std::string& title) {
    return std::make_unique<Group>(shared_from_this(), title);
}

std::vector<host::FailedWrite> OpenDocument::closeGroup(const std::string& title) {
    if (!parts_) return std::exchange(abandoned_, {});
    const auto restore = [weak = weak_from_this()](const FillSteps& steps) {
        if (const auto document = weak.lock()) document->fills().restore(steps);
    };
    return parts_->fills.closeGroup(title, restore);
}

// Its end

void OpenDocument::endGeneration() {
    if (!parts_) return;
    parts_->fills.endGeneration();
    parts_->shapes.endGeneration();
}

void OpenDocument::close() {
    if (!parts_) return;
    abandoned_ = parts_->fills.abandon();
    parts_->shapes.tree().forget();
    parts_.reset();
}

}  // namespace huebrush::libreoffice
