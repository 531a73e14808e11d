// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/FillWriter.h"

#include <algorithm>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

/// From this many writes on it pays to walk all shapes and release them. How many are held does not
/// matter: what they add to each write and what it takes to release them both grow with it.
constexpr std::size_t kManyWrites = 512;

/// As the comparison of their texts, which takes longer.
bool differ(const mapping::OfficeFill& a, const mapping::OfficeFill& b) {
    return a.style != b.style || a.color != b.color || a.transparence != b.transparence ||
           toText(a) != toText(b);
}

/// For so many more, in one step where they are many: each is large, and moving it takes time.
template <class Value>
void makeRoom(std::vector<Value>& values, std::size_t more) {
    if (values.capacity() - values.size() >= more) return;
    values.reserve(std::max(values.size() + more, 2 * values.capacity()));
}

}  // namespace

FillWriter::FillWriter(const ModelReference& model, DocumentShapes& shapes,
                       std::shared_ptr<Snapshot> snapshot, bool hasWindow)
    : model_(model), shapes_(shapes), snapshot_(std::move(snapshot)), hasWindow_(hasWindow) {}

// The edit of one fill

bool FillWriter::gathers(const host::FillFormat& fill) const {
    return current_ && current_->fill == &fill && !current_->gathered.edit.empty();
}

FillWriter::Gathered& FillWriter::gather(const host::FillFormat& fill, const ShapeHandles& shapes) {
    shapes_.invalidateStamps();
    if (!gathers(fill)) {
        finishEdit();
        const std::vector<NodePointer> leaves = shapes_.leavesOf(nodesOf(shapes));
        shapes_.checkAlive(leaves);
        current_ = Current{&fill, handlesOf(leaves), {}};
    }
    return current_->gathered;
}

void FillWriter::finishEdit() {
    const std::optional<Current> edit = std::exchange(current_, std::nullopt);
    if (edit && !edit->gathered.edit.empty()) changeFills(*edit);
}

void FillWriter::changeFills(const Current& edit) {
    shapes_.invalidateStamps();
    makeRoom(writes_, edit.leaves.size());
    officeCalls([&] {
        for (const ShapeHandle& leaf : edit.leaves) {
            if (leaf->kind.canHaveFill) changeFill(leaf.node(), edit.gathered);
        }
    });
    const bool mayWait = groups_ > 0 && snapshot_->generation() != Snapshot::kNever;
    if (mayWait) return;
    const std::vector<host::FailedWrite> failed = writeOut();
    if (!failed.empty()) throw base::Error(failed.front().error);
}

void FillWriter::changeFill(const NodePointer& leaf, const Gathered& gathered) {
    const mapping::HostFill wanted = edited(shapes_.fillOf(*leaf), gathered.edit);
    const mapping::FillTarget target = targetFor(wanted, leaf->fill, gathered.userPicture);
    std::string memory;
    if (target.remembered) memory = toText(*target.remembered);
    if (target.picture) shapes_.tables().ensure(*target.picture);

    queue(leaf, {target.office, memory, {}, {}, {}});
    leaf->fill = {target.host, target.office, std::nullopt};
    if (target.remembered) leaf->fill.hidden = target.remembered->hidden;
    leaf->memory = std::move(memory);
    for (ShapeNode* group = leaf->parent.get(); group != nullptr; group = group->parent.get()) {
        group->fillRead = Snapshot::kNever;
        group->memberFillWritten = snapshot_->generation();
    }
}

/// Before what the node says of its fill is changed.
void FillWriter::queue(const NodePointer& leaf, ShapeFill wanted) {
    const auto queued = writeOf_.find(leaf.get());
    if (queued != writeOf_.end()) {
        writes_[queued->second].wanted = std::move(wanted);
        return;
    }
    writeOf_[leaf.get()] = writes_.size();
    writes_.push_back({ShapeHandle(leaf),
                       ShapeTree::placeOf(*leaf),
                       {leaf->fill.office, leaf->memory, {}, {}, {}},
                       std::move(wanted)});
}

// Many writes

void FillWriter::flush() {
    for (host::FailedWrite& failed : writeOut()) failed_.push_back(std::move(failed));
}

/// Carries out what waits. What fails is the error of reading its shape, too.
std::vector<host::FailedWrite> FillWriter::writeOut() {
    if (writes_.empty()) return {};
    std::vector<Write> writes = std::exchange(writes_, {});
    writeOf_.clear();
    try {
        writeMany([&] { writeEach(writes); }, writes.size());
    } catch (const base::Error& error) {
        for (const Write& write : writes) write.leaf->fillError = error;
    }
    std::vector<host::FailedWrite> failed;
    for (const Write& write : writes) {
        if (write.leaf->fillError) failed.push_back({write.leaf->name, *write.leaf->fillError});
    }
    return failed;
}

void FillWriter::restore(const FillSteps& steps) {
    writeMany([&] { restoreFills(steps, shapes_.tree().page(), shapes_.tables()); }, steps.size());
}

void FillWriter::writeMany(const std::function<void()>& writes, std::size_t count) {
    shapes_.invalidateStamps();
    officeCalls([&] {
        const HandlerScope scope(snapshot_);
        std::optional<ControllerLock> locked;
        if (!hasWindow_) {
            if (!locked_) locked_ = std::make_unique<ControllerLock>(model_);
        } else if (count > 1) {
            locked.emplace(model_);
        }
        if (count >= kManyWrites) shapes_.tree().letGo();
        writes();
    });
}

void FillWriter::writeEach(std::vector<Write>& writes) {
    if (groups_ > 0) makeRoom(changes_, writes.size());
    std::vector<Write*> inOrder;
    inOrder.reserve(writes.size());
    for (Write& one : writes) inOrder.push_back(&one);
    // The members of a group one after the other: finding the group costs as much as a write.
    std::sort(inOrder.begin(), inOrder.end(),
              [](const Write* a, const Write* b) { return a->place < b->place; });
    for (Write* const one : inOrder) {
        try {
            officeCalls([&] { write(*one, shapes_.tree().shapeOf(*one->leaf)); });
        } catch (const base::Error& error) {
            one->leaf->fillError = error;
        }
    }
}

void FillWriter::write(Write& one, const ShapeReference& shape) {
    if (!differ(one.now.office, one.wanted.office) && one.now.memory == one.wanted.memory) return;
    FillTables& tables = shapes_.tables();
    prepareWrite(one.now, shape, tables);
    if (groups_ == 0) {
        writeFill(shape, one.now, one.wanted, tables);
        return;
    }
    // Undo knows of it before: a write that fails on its way may have changed the shape.
    changes_.push_back(
        {placeOf(one, shape), one.leaf->kind.type, std::move(one.now), std::move(one.wanted)});
    const FillChange& change = changes_.back();
    writeFill(shape, change.before, change.after, tables);
}

/// The shape's place: known from a walk of this handler, else by its number in the page's order.
std::vector<std::int32_t> FillWriter::placeOf(const Write& one, const ShapeReference& shape) {
    const ShapeNode& node = *one.leaf;
    std::vector<std::int32_t> place = ShapeTree::placeOf(node);
    if (snapshot_->isCurrent(node.placed)) return place;
    ShapeReference top = shape;
    for (ShapeNode* group = node.parent.get(); group != nullptr; group = group->parent.get()) {
        if (!group->parent) top = shapes_.tree().shapeOf(*group);
    }
    place.front() = shapes_.tree().page().indexOf(top, place.front());
    return place;
}

// Undo

void FillWriter::openGroup() {
    finishEdit();
    flush();
    ++groups_;
}

std::vector<host::FailedWrite> FillWriter::closeGroup(
    const std::string& title, std::function<void(const FillSteps&)> restore) {
    keepingError([&] { finishEdit(); });
    keepingError([&] { flush(); });
    if (--groups_ == 0) keepingError([&] { addUndoAction(title, std::move(restore)); });
    return std::exchange(failed_, {});
}

/// What a step throws is among what failed: nobody is there to take it.
void FillWriter::keepingError(const std::function<void()>& step) {
    try {
        step();
    } catch (...) {
        failed_.push_back({{}, base::currentError()});
    }
}

void FillWriter::addUndoAction(const std::string& title,
                               std::function<void(const FillSteps&)> restore) {
    std::vector<FillChange> changes = std::exchange(changes_, {});
    if (changes.empty()) return;
    officeCalls([&] {
        const Reference<css::document::XUndoManagerSupplier> supplier(model_, UNO_QUERY_THROW);
        supplier->getUndoManager()->addUndoAction(
            makeUndoAction(title, std::move(changes), std::move(restore)));
    });
    markModified(model_);
}

std::vector<host::FailedWrite> FillWriter::abandon() {
    current_.reset();
    locked_.reset();
    writes_.clear();
    writeOf_.clear();
    if (!changes_.empty()) failed_.push_back({{}, closedError()});
    return std::exchange(failed_, {});
}

void FillWriter::endGeneration() {
    keepingError([&] { finishEdit(); });
    flush();
    if (groups_ == 0) failed_.clear();
    locked_.reset();
}

}  // namespace huebrush::libreoffice
