#include "ports/libreoffice/document/OpenDocument.h"

#include <algorithm>
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

/// From so many writes on it pays to walk all shapes and let go of them. How many are held does not
/// matter: what they add to each write and what it takes to let go of them both grow with it.
constexpr std::size_t kManyWrites = 512;

ShapeLine lineOfShape(const ShapeKind& kind, const ShapeReference& shape) {
    return kind.canHaveLine ? readLine(shape) : ShapeLine();
}

/// As the comparison of their texts, which takes longer.
bool differ(const OfficeFill& a, const OfficeFill& b) {
    return a.style != b.style || a.color != b.color || a.transparence != b.transparence ||
           toText(a) != toText(b);
}

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
                node.fill = {};
                node.fill.host = commonFillIn(node);
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
                node.line = commonLineIn(node);
            } else {
                node.line = lineOfShape(node.kind, tree().shapeOf(node));
            }
        });
    } catch (const base::Error& error) {
        node.lineError = error;
    }
    node.lineRead = snapshot_->generation();
}

ShapeLine OpenDocument::commonLineIn(ShapeNode& group) {
    std::optional<ShapeLine> common;
    tree().visitLeaves(group, [&](const ShapeKind& kind, const ShapeReference& shape) {
        const ShapeLine line = lineOfShape(kind, shape);
        common = common ? commonLine(*common, line) : line;
    });
    return common.value_or(ShapeLine());
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

HostFill OpenDocument::commonFillIn(ShapeNode& group) {
    // What is still to be written is known of the nodes alone.
    if (tree().isEntered(group) || !writes_.empty()) {
        std::vector<NodePointer> leaves;
        collectLeaves(group.shared_from_this(), leaves);
        return commonFillOf(leaves);
    }
    CommonFill common;
    tree().visitLeaves(group, [&](const ShapeKind& kind, const ShapeReference& shape) {
        common.add(kind.canHaveFill ? knownFillOf(readFill(shape), shape, tables()).host
                                    : HostFill());
    });
    return common.value();
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
    if (mayWait) return;
    const std::vector<host::FailedWrite> failed = writeOut();
    if (!failed.empty()) throw base::Error(failed.front().error);
}

void OpenDocument::changeFill(const NodePointer& leaf, const FillEdit& edit,
                              const std::string& userPicture) {
    fillOf(*leaf);
    const HostFill wanted = edited(leaf->fill.host, edit);
    const FillTarget target = targetFor(wanted, leaf->fill, userPicture);
    ShapeFill fill{target.office, {}, {}, {}, {}};
    if (target.remembered) fill.memory = toText(*target.remembered);
    if (target.picture) tables().ensure(*target.picture);

    const auto queued = writeOf_.find(leaf.get());
    if (queued != writeOf_.end()) {
        writes_[queued->second].wanted = fill;
    } else {
        writeOf_[leaf.get()] = writes_.size();
        writes_.push_back(
            {leaf, ShapeTree::placeOf(*leaf), {leaf->fill.office, leaf->memory, {}, {}, {}}, fill});
    }
    leaf->fill = {target.host, target.office, std::nullopt};
    if (target.remembered) leaf->fill.hidden = target.remembered->hidden;
    leaf->memory = fill.memory;
    for (ShapeNode* group = leaf->parent.get(); group != nullptr; group = group->parent.get()) {
        group->fillRead = Snapshot::kNever;
    }
}

void OpenDocument::flush() {
    for (host::FailedWrite& failed : writeOut()) failed_.push_back(std::move(failed));
}

/// Carries out what waits. What fails is the error of reading its shape, too.
std::vector<host::FailedWrite> OpenDocument::writeOut() {
    if (writes_.empty()) return {};
    std::vector<Write> writes = std::exchange(writes_, {});
    writeOf_.clear();
    try {
        changeFills([&] { writeEach(writes); }, writes.size());
    } catch (const base::Error& error) {
        for (const Write& write : writes) write.node->fillError = error;
    }
    std::vector<host::FailedWrite> failed;
    for (const Write& write : writes) {
        if (write.node->fillError) failed.push_back({write.node->name, *write.node->fillError});
    }
    return failed;
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
    std::vector<Write*> inOrder;
    inOrder.reserve(writes.size());
    for (Write& one : writes) inOrder.push_back(&one);
    // The members of a group one after the other: finding the group costs as much as a write.
    std::sort(inOrder.begin(), inOrder.end(),
              [](const Write* a, const Write* b) { return a->place < b->place; });
    for (Write* const one : inOrder) {
        try {
            officeCalls([&] { write(*one, tree().shapeOf(*one->node)); });
        } catch (const base::Error& error) {
            one->node->fillError = error;
        }
    }
}

void OpenDocument::write(Write& one, const ShapeReference& shape) {
    if (!differ(one.now.office, one.wanted.office) && one.now.memory == one.wanted.memory) return;
    prepareWrite(one.now, shape, tables());
    if (undoGroups_ == 0) {
        writeFill(shape, one.now, one.wanted, tables());
        return;
    }
    // Undo knows of it before: a write that fails on its way may have changed the shape.
    changes_.push_back(
        {placeOf(one, shape), one.node->kind.type, std::move(one.now), std::move(one.wanted)});
    const FillChange& change = changes_.back();
    writeFill(shape, change.before, change.after, tables());
}

/// The shape's place: known from a walk of this handler, else by its number in the page's order.
std::vector<std::int32_t> OpenDocument::placeOf(const Write& one, const ShapeReference& shape) {
    const ShapeNode& node = *one.node;
    std::vector<std::int32_t> place = ShapeTree::placeOf(node);
    if (snapshot_->isCurrent(node.placed)) return place;
    ShapeReference top = shape;
    for (ShapeNode* group = node.parent.get(); group != nullptr; group = group->parent.get()) {
        if (!group->parent) top = tree().shapeOf(*group);
    }
    place.front() = tree().page().indexOf(top, place.front());
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
    ~Group() override { Group::finish(); }
    std::vector<host::FailedWrite> finish() override {
        if (!std::exchange(open_, false)) return {};
        return document_->endUndoGroup(title_);
    }

 private:
    std::shared_ptr<OpenDocument> document_;
    std::string title_;
    bool open_ = true;
};

std::unique_ptr<host::UndoGroup> OpenDocument::undoGroup(const std::string& title) {
    return std::make_unique<Group>(shared_from_this(), title);
}

/// What a step throws is answered at the undo group's end: nobody else is there to hear of it.
void OpenDocument::keepingError(const std::function<void()>& step) {
    try {
        step();
    } catch (...) {
        failed_.push_back({{}, base::currentError()});
    }
}

std::vector<host::FailedWrite> OpenDocument::endUndoGroup(const std::string& title) {
    keepingError([&] { commitBuffered(); });
    keepingError([&] { flush(); });
    if (--undoGroups_ == 0) keepingError([&] { addUndoAction(title); });
    return std::exchange(failed_, {});
}

void OpenDocument::addUndoAction(const std::string& title) {
    std::vector<FillChange> changes = std::exchange(changes_, {});
    if (changes.empty()) return;
    officeCalls([&] {
        const Reference<css::document::XUndoManagerSupplier> supplier(model(), UNO_QUERY_THROW);
        supplier->getUndoManager()->addUndoAction(
            makeUndoAction(weak_from_this(), title, std::move(changes)));
    });
    markModified();
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
    keepingError([&] { commitBuffered(); });
    flush();
    if (undoGroups_ == 0) failed_.clear();
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
