#include "ports/libreoffice/document/OpenDocument.h"

#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <optional>

#include "base/Color.h"
#include "ports/libreoffice/document/BufferedFill.h"
#include "ports/libreoffice/document/WindowSelection.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

/// From so many writes on it pays to walk all shapes and let go of each after its write.
constexpr std::size_t kManyWrites = 48;

}  // namespace

/// While it lives, the office does not lay out or paint after every write.
class OpenDocument::LockedControllers {
 public:
    explicit LockedControllers(const Model& model) : model_(model) { model_->lockControllers(); }
    LockedControllers(const LockedControllers&) = delete;
    LockedControllers& operator=(const LockedControllers&) = delete;
    ~LockedControllers() {
        ignoringOffice([this] { model_->unlockControllers(); });
    }

 private:
    Model model_;
};

/// What there is of a document while it is open.
struct OpenDocument::Parts {
    Parts(OpenDocument& document, const Model& model)
        : model(model),
          tables(document.context_, model),
          tree(model, document.snapshot_,
               [&document](ShapeNode& node, const ShapeReference& shape) {
                   document.names().give(node, shape);
                   if (!node.kind.isGroup()) document.readFromShape(node, shape);
               }),
          names(tree, document.snapshot_),
          hasWindow(!isHidden(model)) {}

    Model model;
    FillTables tables;
    ShapeTree tree;
    ShapeNames names;
    bool hasWindow;
};

OpenDocument::OpenDocument(const ContextReference& context, const Model& model,
                           std::shared_ptr<Snapshot> snapshot)
    : context_(context), snapshot_(std::move(snapshot)) {
    officeCalls([&] { parts_ = std::make_unique<Parts>(*this, model); });
}

OpenDocument::~OpenDocument() = default;

void OpenDocument::throwClosed() {
    throw base::Error(HostErrorNumber::kNoDocument, "Dokument byl zavřen.");
}

const OpenDocument::Model& OpenDocument::model() const {
    return parts().model;
}

ShapeTree& OpenDocument::tree() {
    return parts().tree;
}

ShapeNames& OpenDocument::names() {
    return parts().names;
}

FillTables& OpenDocument::tables() {
    return parts().tables;
}

// Reading

void OpenDocument::readFromShape(ShapeNode& node, const ShapeReference& shape) {
    node.fillError.reset();
    try {
        officeCalls([&] {
            if (!node.kind.canHaveFill) {
                node.fill = {};
            } else {
                const ShapeFill fill = readFill(shape);
                node.fill = knownFillOf(fill, shape, tables());
                node.memory = fill.memory;
            }
        });
    } catch (const base::Error& error) {
        node.fillError = error;
    }
    node.fillRead = snapshot_->generation();
}

void OpenDocument::readFillOf(ShapeNode& node) {
    node.fillError.reset();
    try {
        officeCalls([&] {
            if (node.kind.isGroup()) {
                std::vector<NodePointer> leaves;
                collectLeaves(node.shared_from_this(), leaves);
                node.fill = {};
                node.fill.host = commonFillOf(leaves);
                node.fillRead = snapshot_->generation();
            } else {
                readFromShape(node, tree().shapeOf(node));
            }
        });
    } catch (const base::Error& error) {
        node.fillError = error;
        node.fillRead = snapshot_->generation();
    }
}

void OpenDocument::readLineOf(ShapeNode& node) {
    node.lineError.reset();
    try {
        officeCalls([&] {
            tree().checkAlive(node);
            if (node.kind.isGroup()) {
                node.line = commonLineOf(node.shared_from_this());
            } else if (!node.kind.canHaveLine) {
                node.line = {};
            } else if (node.shape.is()) {
                node.line = readLine(node.shape);
            } else {
                readAllLines();
            }
        });
    } catch (const base::Error& error) {
        node.lineError = error;
    }
    node.lineRead = snapshot_->generation();
}

/// Of a shape that is known by its place, the others' lines are likely to be asked for, too.
void OpenDocument::readAllLines() {
    tree().visitAll([this](ShapeNode& node, const ShapeReference& shape) {
        if (node.kind.isGroup() || !node.kind.canHaveLine) return;
        node.lineError.reset();
        node.line = readLine(shape);
        node.lineRead = snapshot_->generation();
    });
}

ShapeLine OpenDocument::commonLineOf(const NodePointer& group) {
    std::vector<NodePointer> leaves;
    collectLeaves(group, leaves);
    if (leaves.empty()) return {};
    ShapeLine line = lineOf(*leaves.front());
    for (const NodePointer& leaf : leaves) line = commonLine(line, lineOf(*leaf));
    return line;
}

void OpenDocument::collectLeaves(const NodePointer& node, std::vector<NodePointer>& leaves) {
    if (!node->kind.isGroup()) {
        leaves.push_back(node);
        return;
    }
    for (const NodePointer& member : officeCalls([&] { return tree().membersOf(node); })) {
        collectLeaves(member, leaves);
    }
}

const host::FillProperties& OpenDocument::keep(const HostFill& fill) {
    if (stamp() == 0) pool_.clear();
    return pool_.keep(fill);
}

HostFill OpenDocument::commonFillOf(const std::vector<NodePointer>& nodes) {
    CommonFill common;
    for (const NodePointer& node : nodes) common.add(fillOf(*node));
    return common.value();
}

// Writing

void OpenDocument::buffer(BufferedFill* fill) {
    ++stamp_;
    if (buffered_ == fill) return;
    commitBuffered();
    buffered_ = fill;
}

void OpenDocument::commitBuffered() {
    BufferedFill* const fill = std::exchange(buffered_, nullptr);
    if (fill != nullptr) fill->commit();
}

void OpenDocument::changeFills(const std::vector<NodePointer>& leaves, const FillEdit& edit,
                               const std::string& userPicture) {
    ++stamp_;
    officeCalls([&] {
        for (const NodePointer& leaf : leaves) {
            if (leaf->kind.canHaveFill) changeFill(leaf, edit, userPicture);
        }
    });
    const bool mayWait = undoGroups_ > 0 && snapshot_->generation() != Snapshot::kNever;
    if (!mayWait) flush();
}

void OpenDocument::changeFill(const NodePointer& leaf, const FillEdit& edit,
                              const std::string& userPicture) {
    fillOf(*leaf);
    const HostFill wanted = edited(leaf->fill.host, edit);
    const FillTarget target = targetFor(wanted, leaf->fill, userPicture);
    ShapeFill fill{target.office, {}};
    if (target.remembered) fill.memory = toText(*target.remembered);
    if (target.picture) tables().ensure(*target.picture);

    const auto queued = writeOf_.find(leaf.get());
    if (queued != writeOf_.end()) {
        writes_[queued->second].wanted = fill;
    } else {
        writeOf_[leaf.get()] = writes_.size();
        writes_.push_back({leaf, {leaf->fill.office, leaf->memory}, fill});
    }
    leaf->fill = {wanted, target.office, std::nullopt};
    if (target.remembered) leaf->fill.hidden = target.remembered->hidden;
    leaf->memory = fill.memory;
    for (ShapeNode* group = leaf->parent.get(); group != nullptr; group = group->parent.get()) {
        group->fillRead = Snapshot::kNever;
    }
}

void OpenDocument::flush() {
    if (writes_.empty()) return;
    std::vector<Write> writes = std::exchange(writes_, {});
    writeOf_.clear();
    changeFills([&] { writeEach(writes); }, writes.size());
    for (const Write& write : writes) {
        if (write.node->fillError) throw base::Error(*write.node->fillError);
    }
}

void OpenDocument::changeFills(const std::function<void()>& change, std::size_t count) {
    ++stamp_;
    officeCalls([&] {
        const HandlerScope scope(snapshot_);
        std::optional<LockedControllers> locked;
        if (!parts().hasWindow) {
            lockUntilGenerationEnds();
        } else if (count > 1) {
            locked.emplace(model());
        }
        if (count >= kManyWrites) tree().letGo();
        change();
    });
}

void OpenDocument::lockUntilGenerationEnds() {
    if (!locked_) locked_ = std::make_unique<LockedControllers>(model());
}

void OpenDocument::writeEach(std::vector<Write>& writes) {
    for (Write& one : writes) {
        try {
            officeCalls([&] { write(one, tree().shapeOf(*one.node)); });
        } catch (const base::Error& error) {
            one.node->fillError = error;
        }
    }
}

void OpenDocument::write(Write& one, const ShapeReference& shape) {
    const bool changes =
        toText(one.now.office) != toText(one.wanted.office) || one.now.memory != one.wanted.memory;
    if (!changes) return;
    keepBitmap(one.now, shape, tables());
    writeFill(shape, one.now, one.wanted, tables());
    if (undoGroups_ == 0) return;
    FillChange change;
    change.place = placeOf(*one.node, shape);
    change.type = one.node->kind.type;
    change.before = std::move(one.now);
    change.after = std::move(one.wanted);
    changes_.push_back(std::move(change));
}

/// The shape's place: known from a walk of this handler, else by its number in the page's order.
std::vector<std::int32_t> OpenDocument::placeOf(ShapeNode& node, const ShapeReference& shape) {
    std::vector<std::int32_t> place = ShapeTree::placeOf(node);
    if (snapshot_->isCurrent(node.placed)) return place;
    ShapeReference top = shape;
    for (ShapeNode* group = node.parent.get(); group != nullptr; group = group->parent.get()) {
        if (!group->parent) top = tree().shapeOf(*group);
    }
    place.front() = tree().page().indexOf(top);
    return place;
}

void OpenDocument::setLineVisible(ShapeNode& node, bool visible) {
    officeCalls([&] {
        std::vector<NodePointer> leaves;
        collectLeaves(node.shared_from_this(), leaves);
        for (const NodePointer& leaf : leaves) {
            if (!leaf->kind.canHaveLine) continue;
            writeLineVisible(tree().shapeOf(*leaf), visible);
            for (ShapeNode* at = leaf.get(); at != nullptr; at = at->parent.get()) {
                at->lineRead = Snapshot::kNever;
            }
        }
    });
}

// Undo

class OpenDocument::Group final : public host::UndoGroup {
 public:
    Group(std::shared_ptr<OpenDocument> document, std::string title)
        : document_(std::move(document)), title_(std::move(title)) {
        document_->commitBuffered();
        document_->flush();
        ++document_->undoGroups_;
    }
    ~Group() override { document_->endUndoGroup(title_); }

 private:
    std::shared_ptr<OpenDocument> document_;
    std::string title_;
};

std::unique_ptr<host::UndoGroup> OpenDocument::undoGroup(const std::string& title) {
    return std::make_unique<Group>(shared_from_this(), title);
}

void OpenDocument::endUndoGroup(const std::string& title) {
    // A write that fails here shows as the error of reading its shape.
    const auto ignoring = [](const auto& step) {
        try {
            step();
        } catch (const std::exception&) {  // NOLINT: this is a destructor's way
        }
    };
    ignoring([&] { commitBuffered(); });
    ignoring([&] { flush(); });
    if (--undoGroups_ > 0) return;
    std::vector<FillChange> changes = std::exchange(changes_, {});
    if (changes.empty()) return;
    ignoring([&] {
        officeCalls([&] {
            const Reference<css::document::XUndoManagerSupplier> supplier(model(), UNO_QUERY_THROW);
            supplier->getUndoManager()->addUndoAction(
                makeUndoAction(weak_from_this(), title, std::move(changes)));
        });
    });
    ignoring([&] { markModified(); });
}

bool OpenDocument::isReadOnly() {
    if (!parts().hasWindow) return false;
    return officeCalls([&] {
        return bool(Reference<css::frame::XStorable>(model(), UNO_QUERY_THROW)->isReadonly());
    });
}

void OpenDocument::markModified() {
    officeCalls(
        [&] { Reference<css::util::XModifiable>(model(), UNO_QUERY_THROW)->setModified(true); });
}

// Selection

std::vector<NodePointer> OpenDocument::selected() {
    if (!parts().hasWindow) return selection_;
    return officeCalls([&] {
        std::vector<NodePointer> nodes;
        for (const ShapeReference& shape : selectionInWindow(model())) {
            if (NodePointer node = tree().nodeOf(shape)) nodes.push_back(std::move(node));
        }
        return nodes;
    });
}

void OpenDocument::select(const std::vector<NodePointer>& nodes) {
    commitBuffered();
    if (nodes.empty()) return;
    officeCalls([&] {
        for (const NodePointer& node : nodes) tree().checkAlive(*node);
    });
    if (parts().hasWindow) {
        flush();
        selectInWindow(nodes);
    } else {
        selection_ = nodes;
    }
}

void OpenDocument::showSelection() {
    commitBuffered();
    flush();
    locked_.reset();
    if (!parts().hasWindow && !selection_.empty()) selectInWindow(selection_);
}

void OpenDocument::selectInWindow(const std::vector<NodePointer>& nodes) {
    const bool eventsHaveRun = officeCalls([&] {
        std::vector<ShapeReference> shapes;
        shapes.reserve(nodes.size());
        for (const NodePointer& node : nodes) shapes.push_back(tree().shapeOf(*node));
        return libreoffice::selectInWindow(context_, model(), shapes);
    });
    if (eventsHaveRun) snapshot_->invalidate();
}

// Its end

void OpenDocument::endGeneration() {
    ++stamp_;
    try {
        commitBuffered();
    } catch (const std::exception&) {  // NOLINT: read as the shape's error
    }
    try {
        flush();
    } catch (const std::exception&) {  // NOLINT: read as the shape's error
    }
    pool_.clear();
    locked_.reset();
    if (!parts_) return;
    ignoringOffice([&] { parts_->tree.endGeneration(); });
    parts_->names.forgetDead();
    parts_->tables.forgetRecognised();
}

void OpenDocument::close() {
    if (!parts_) return;
    ++stamp_;
    buffered_ = nullptr;
    locked_.reset();
    writes_.clear();
    writeOf_.clear();
    selection_.clear();
    parts_->tree.forget();
    parts_.reset();
}

}  // namespace huebrush::libreoffice
