// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/MemoryHost.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "forms/Runtime.h"

namespace huebrush::memory {

namespace {

using base::text;

constexpr std::int32_t kNoDocument = 4248;
constexpr std::int32_t kNoSuchShape = -2147024809;

class MemoryEnumerator final : public host::ShapeEnumerator {
 public:
    explicit MemoryEnumerator(const MemoryDocument& document)
        : log_(document.log()), shapes_(document.shapes) {}
    host::ShapePointer next() override {
        log_.note([] { return std::string("call Shapes.next"); });
        return at_ < shapes_.size() ? shapes_[at_++] : host::ShapePointer{};
    }

 private:
    CallLog& log_;
    std::vector<MemoryShapePointer> shapes_;
    std::size_t at_ = 0;
};

class MemoryShapeCollection final : public host::Shapes {
 public:
    explicit MemoryShapeCollection(MemoryDocument& document) : document_(document) {}

    std::int32_t Count() override {
        document_.log().note([&] { return text("read ", document_.name(), ".Shapes.Count"); });
        return static_cast<std::int32_t>(document_.shapes.size());
    }

    std::unique_ptr<host::ShapeEnumerator> enumerate() override {
        document_.log().note([&] { return text("call ", document_.name(), ".Shapes.enumerate"); });
        return std::make_unique<MemoryEnumerator>(document_);
    }

    std::shared_ptr<host::ShapeRange> Range(const std::vector<std::string>& names) override {
        document_.log().note([&] { return text("call ", document_.name(), ".Shapes.Range"); });
        return std::make_shared<MemoryRange>(document_, "Range", document_.findAll(names));
    }

    host::ShapePointer AddShape(host::MsoAutoShapeType type, float left, float top, float width,
                                float height) override {
        document_.log().note([&] {
            const auto tenths = [](float value) { return static_cast<int>(value * 10); };
            return text("call ", document_.name(), ".Shapes.AddShape ",
                        static_cast<std::int32_t>(type), " ", tenths(left), " ", tenths(top), " ",
                        tenths(width), " ", tenths(height));
        });
        return document_.addShape("Rectangle");
    }

 private:
    MemoryDocument& document_;
};

class MemorySelection final : public host::Selection {
 public:
    explicit MemorySelection(MemoryDocument& document) : document_(document) {}

    std::shared_ptr<host::ShapeRange> ShapeRange() override {
        document_.log().note(
            [&] { return text("read ", document_.name(), ".Selection.ShapeRange"); });
        return std::make_shared<MemoryRange>(document_, "Selection.ShapeRange",
                                             document_.selectedShapes());
    }
    std::shared_ptr<host::Document> Document() override {
        document_.log().note(
            [&] { return text("read ", document_.name(), ".Selection.Document"); });
        return document_.shared_from_this();
    }
    void Copy() override {
        document_.log().note([&] { return text("call ", document_.name(), ".Selection.Copy"); });
        if (document_.selected.empty()) {
            throw base::Error(kNoDocument, "Není co kopírovat.");
        }
        const MemoryShape& shape = *document_.selected.front();
        const bool shows = shape.fill.Visible != host::MsoTriState::msoFalse ||
                           shape.lineVisible != host::MsoTriState::msoFalse;
        forms::Runtime::current().Clipboard().SetData(
            shows ? document_.application().pictureOf(shape.fill) : base::Picture());
    }

 private:
    MemoryDocument& document_;
};

class MemoryUndoGroup final : public host::UndoGroup {
 public:
    MemoryUndoGroup(std::shared_ptr<MemoryDocument> document, std::string title)
        : document_(std::move(document)), title_(std::move(title)), before_(fills()) {}
    MemoryUndoGroup(const MemoryUndoGroup&) = delete;
    MemoryUndoGroup& operator=(const MemoryUndoGroup&) = delete;
    ~MemoryUndoGroup() override {
        if (fills() != before_) document_->undoTitles.push_back(title_);
    }
    std::vector<host::FailedWrite> finish() override {
        return std::exchange(document_->failedWrites, {});
    }

 private:
    std::vector<FillState> fills() const {
        std::vector<FillState*> states;
        for (const auto& shape : document_->shapes) shape->collectFills(states);
        std::vector<FillState> seen;
        seen.reserve(states.size());
        for (const FillState* const state : states) seen.push_back(*state);
        return seen;
    }

    std::shared_ptr<MemoryDocument> document_;
    std::string title_;
    std::vector<FillState> before_;
};

class MemoryDialog final : public host::Dialog {
 public:
    MemoryDialog(MemoryApplication& application, std::int32_t id)
        : application_(application), id_(id) {}
    std::int32_t Show() override {
        application_.log.note([&] { return text("call Dialogs ", id_, ".Show"); });
        return application_.runTool(id_);
    }

 private:
    MemoryApplication& application_;
    std::int32_t id_;
};

MemoryShapePointer findIn(const std::vector<MemoryShapePointer>& shapes, const std::string& name) {
    for (const auto& shape : shapes) {
        if (shape->name() == name) return shape;
        if (auto found = findIn(shape->members, name)) return found;
    }
    return nullptr;
}

void indexByName(const std::vector<MemoryShapePointer>& shapes,
                 std::unordered_map<std::string, MemoryShapePointer>& index) {
    for (const auto& shape : shapes) {
        index.try_emplace(shape->name(), shape);
        indexByName(shape->members, index);
    }
}

}  // namespace

base::Picture describingPicture(const FillState& fill) {
    std::string shown =
        text("fill ", static_cast<std::int32_t>(fill.Visible), " ", fill.ForeColorRGB, " ",
             fill.BackColorRGB, " ", static_cast<std::int32_t>(fill.Type), " ",
             static_cast<std::int32_t>(fill.Transparency * 1000));
    constexpr std::size_t kBytes = base::Pixels::kBytes;
    shown.resize((shown.size() + kBytes - 1) / kBytes * kBytes, ' ');
    return base::bitmapOf(static_cast<std::int32_t>(shown.size() / kBytes), 1,
                          {shown.begin(), shown.end()});
}

MemoryDocument::MemoryDocument(MemoryApplication& application, std::string name)
    : application_(application), name_(std::move(name)) {}

CallLog& MemoryDocument::log() const {
    return application_.log;
}

std::shared_ptr<host::Shapes> MemoryDocument::Shapes() {
    return std::make_shared<MemoryShapeCollection>(*this);
}

std::shared_ptr<host::Selection> MemoryDocument::Selection() {
    return std::make_shared<MemorySelection>(*this);
}

void MemoryDocument::Close() {
    log().note([&] { return text("call ", name_, ".Close"); });
    closed = true;
    for (const auto& shape : shapes) shape->markDeleted();
    auto& open = application_.documents;
    const auto self = std::find(open.begin(), open.end(), shared_from_this());
    if (self != open.end()) {
        application_.closedDocuments.push_back(*self);
        open.erase(self);
    }
    if (application_.active.get() == this) {
        application_.active = open.empty() ? nullptr : open.back();
    }
}

bool MemoryDocument::isReadOnly() {
    log().note([&] { return text("read ", name_, ".isReadOnly"); });
    return readOnly;
}

void MemoryDocument::markModified() {
    log().note([&] { return text("call ", name_, ".markModified"); });
    modified = true;
}

std::unique_ptr<host::UndoGroup> MemoryDocument::undoGroup(const std::string& title) {
    log().note([&] { return text("call ", name_, ".undoGroup"); });
    return std::make_unique<MemoryUndoGroup>(shared_from_this(), title);
}

std::string MemoryDocument::uniqueName(const std::string& wanted) {
    std::string unique = wanted;
    if (wanted.empty() || names_.contains(wanted)) {
        int& number = numbers_[wanted];
        do {
            unique = text(wanted, "#", ++number);
        } while (names_.contains(unique));
    }
    names_.insert(unique);
    return unique;
}

MemoryShapePointer MemoryDocument::addShape(const std::string& name, host::MsoShapeType type) {
    return shapes.emplace_back(std::make_shared<MemoryShape>(*this, uniqueName(name), type));
}

MemoryShapePointer MemoryDocument::addSolid(const std::string& name, std::int32_t color) {
    auto shape = addShape(name);
    shape->fill.ForeColorRGB = color;
    return shape;
}

MemoryShapePointer MemoryDocument::addGroup(const std::string& name,
                                            std::vector<MemoryShapePointer> members) {
    for (const auto& member : members) {
        shapes.erase(std::remove(shapes.begin(), shapes.end(), member), shapes.end());
    }
    auto group = addShape(name, host::MsoShapeType::msoGroup);
    group->members = std::move(members);
    return group;
}

MemoryShapePointer MemoryDocument::addInlinePicture(const std::string& name) {
    return inlinePictures.emplace_back(
        std::make_shared<MemoryShape>(*this, uniqueName(name), host::MsoShapeType::msoAutoShape));
}

std::vector<MemoryShapePointer> MemoryDocument::selectedShapes() const {
    std::vector<MemoryShapePointer> floating;
    std::copy_if(selected.begin(), selected.end(), std::back_inserter(floating),
                 [this](const MemoryShapePointer& shape) {
                     return std::find(inlinePictures.begin(), inlinePictures.end(), shape) ==
                            inlinePictures.end();
                 });
    return floating;
}

void MemoryDocument::remove(const MemoryShapePointer& shape) {
    shape->markDeleted();
    const std::function<void(std::vector<MemoryShapePointer>&)> removeFrom =
        [&](std::vector<MemoryShapePointer>& list) {
            list.erase(std::remove(list.begin(), list.end(), shape), list.end());
            for (const auto& other : list) removeFrom(other->members);
        };
    removeFrom(shapes);
    selected.erase(std::remove(selected.begin(), selected.end(), shape), selected.end());
}

MemoryShapePointer MemoryDocument::find(const std::string& name) const {
    return findIn(shapes, name);
}

std::vector<MemoryShapePointer> MemoryDocument::findAll(
    const std::vector<std::string>& names) const {
    std::unordered_map<std::string, MemoryShapePointer> index;
    indexByName(shapes, index);
    std::vector<MemoryShapePointer> found;
    found.reserve(names.size());
    for (const std::string& name : names) {
        const auto at = index.find(name);
        if (at == index.end()) {
            throw base::Error(kNoSuchShape, text("Položka s názvem „", name, "“ nebyla nalezena."));
        }
        found.push_back(at->second);
    }
    return found;
}

MemoryApplication::MemoryApplication() = default;

std::string MemoryApplication::Name() {
    log.note([] { return std::string("read Application.Name"); });
    return name;
}

std::string MemoryApplication::Version() {
    log.note([] { return std::string("read Application.Version"); });
    return version;
}

MemoryDocument& MemoryApplication::requireActive() const {
    if (!active) {
        throw base::Error(kNoDocument,
                          "Tento příkaz není k dispozici, protože není otevřen žádný dokument.");
    }
    return *active;
}

std::shared_ptr<host::Selection> MemoryApplication::Selection() {
    log.note([] { return std::string("read Application.Selection"); });
    return requireActive().Selection();
}

std::shared_ptr<host::Document> MemoryApplication::ActiveDocument() {
    log.note([] { return std::string("read Application.ActiveDocument"); });
    return requireActive().shared_from_this();
}

void MemoryApplication::setStatusBar(const std::string& value) {
    log.note([&] { return text("write StatusBar ", value); });
    statusBar = value;
    if (log.on) statusTexts.push_back(value);
}

void MemoryApplication::setCursor(host::WdCursorType value) {
    log.note([&] { return text("write System.Cursor ", static_cast<std::int32_t>(value)); });
    cursor = value;
}

std::shared_ptr<MemoryDocument> MemoryApplication::open(const std::string& documentName) {
    active = documents.emplace_back(std::make_shared<MemoryDocument>(*this, documentName));
    return active;
}

std::size_t MemoryApplication::openScratchDocuments() const {
    return static_cast<std::size_t>(
        std::count_if(scratchDocuments.begin(), scratchDocuments.end(),
                      [](const auto& document) { return !document->closed; }));
}

std::shared_ptr<host::Document> MemoryApplication::addHidden() {
    log.note([] { return std::string("call Documents.Add"); });
    return scratchDocuments.emplace_back(std::make_shared<MemoryDocument>(*this, "Scratch"));
}

std::shared_ptr<host::Dialog> MemoryApplication::Item(std::int32_t id) {
    log.note([&] { return text("read Dialogs ", id); });
    return std::make_shared<MemoryDialog>(*this, id);
}

void MemoryApplication::Save() {
    log.note([] { return std::string("call NormalTemplate.Save"); });
}

std::int32_t MemoryApplication::runTool(std::int32_t id) {
    if (scratchDocuments.empty() || scratchDocuments.back()->selected.empty()) {
        throw base::Error(kNoDocument, "Není vybrán žádný objekt.");
    }
    const auto tool = tools.find(id);
    return tool == tools.end() ? 0 : tool->second(*scratchDocuments.back()->selected.front());
}

}  // namespace huebrush::memory
