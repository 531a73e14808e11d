// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/Bitmap.h"
#include "base/Picture.h"
#include "host/Application.h"
#include "host/BuiltInControl.h"
#include "ports/memory/CallLog.h"
#include "ports/memory/MemoryShapes.h"

namespace huebrush::memory {

class MemoryApplication;

/// A document that is nothing but its shapes and a selection. Tests build it with the add
/// functions, which are not logged.
class MemoryDocument final : public host::Document,
                             public std::enable_shared_from_this<MemoryDocument> {
 public:
    MemoryDocument(MemoryApplication& application, std::string name);

    std::shared_ptr<host::Shapes> Shapes() override;
    std::shared_ptr<host::Selection> Selection() override;
    void Close() override;
    bool isSame(const host::Document& other) const override { return this == &other; }
    bool isReadOnly() override;
    std::unique_ptr<host::UndoGroup> undoGroup(const std::string& title) override;
    void markModified() override;

    /// A leaf shape on the document, or in a group. A name that is empty or taken gets a number:
    /// the names of a host are unique.
    MemoryShapePointer addShape(const std::string& name,
                                host::MsoShapeType type = host::MsoShapeType::msoAutoShape);
    MemoryShapePointer addSolid(const std::string& name, std::int32_t color);
    MemoryShapePointer addGroup(const std::string& name, std::vector<MemoryShapePointer> members);
    /// A picture in the text: it can be selected, but is neither in Shapes nor in a ShapeRange.
    MemoryShapePointer addInlinePicture(const std::string& name);
    void remove(const MemoryShapePointer& shape);

    /// Makes these shapes the selection, as a user would.
    void select(std::vector<MemoryShapePointer> shapes) { selected = std::move(shapes); }
    void selectAll() { selected = shapes; }

    /// A top-level shape or a member at any depth; nothing where no shape has the name.
    MemoryShapePointer find(const std::string& name) const;
    /// Several by name, as find does, in linear time.
    std::vector<MemoryShapePointer> findAll(const std::vector<std::string>& names) const;

    /// What is selected, without inline pictures.
    std::vector<MemoryShapePointer> selectedShapes() const;

    CallLog& log() const;
    MemoryApplication& application() { return application_; }
    const std::string& name() const { return name_; }

    std::vector<MemoryShapePointer> shapes;
    std::vector<MemoryShapePointer> inlinePictures;
    std::vector<MemoryShapePointer> selected;
    std::vector<std::string> undoTitles;
    /// What the next undo group answers that has failed of its writes.
    std::vector<host::FailedWrite> failedWrites;
    bool readOnly = false;
    bool modified = false;
    bool closed = false;

 private:
    std::string uniqueName(const std::string& wanted);

    MemoryApplication& application_;
    std::string name_;
    std::unordered_set<std::string> names_;
    std::unordered_map<std::string, int> numbers_;
};

/// The picture of a fill: its pixels are a text that says what the fill is, which is all that most
/// tests look at.
base::Picture describingPicture(const FillState& fill);

/// What a test makes of a built-in tool that the logic opens: it may change the selected shape, and
/// returns the tool's result.
using HostTool = std::function<std::int32_t(MemoryShape& selected)>;

class MemoryButton final : public host::CommandBarControl {
 public:
    MemoryButton(class MemoryBar& bar, std::string id);

    void setTag(const std::string& value) override;
    void setCaption(const std::string& value) override;
    void setTooltipText(const std::string& value) override;
    void setEnabled(bool value) override;
    void Delete() override;
    void CopyFace() override;
    void PasteFace() override;
    void Execute() override;

    std::string tag;
    std::string caption;
    std::string tooltip;
    base::Picture face;
    bool enabled = true;

 private:
    MemoryBar& bar_;
    std::string id_;
};

class MemoryBar final : public host::CommandBar {
 public:
    MemoryBar(class MemoryBars& bars, std::string barName);

    std::string Name() override;
    void setVisible(bool value) override;
    void Delete() override;
    std::int32_t Position() override;
    void setPosition(std::int32_t value) override;
    std::int32_t Left() override;
    void setLeft(std::int32_t value) override;
    std::int32_t Top() override;
    void setTop(std::int32_t value) override;
    std::int32_t RowIndex() override;
    void setRowIndex(std::int32_t value) override;
    host::CommandBarControlPointer addButton() override;
    host::CommandBarControlPointer FindControl(const std::string& tag) override;

    CallLog& log() const;
    const base::Picture& blankFace() const;

    std::string name;
    bool visible = false;
    std::int32_t position = 1;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t rowIndex = 0;
    std::vector<std::shared_ptr<MemoryButton>> buttons;

 private:
    MemoryBars& bars_;
    int made_ = 0;
};

/// One of the host's own controls, found by its number.
class MemoryHostControl final : public host::BuiltInControl {
 public:
    MemoryHostControl(MemoryApplication& application, std::int32_t id)
        : application_(application), id_(id) {}

    void Execute() override;

 private:
    MemoryApplication& application_;
    std::int32_t id_;
};

class MemoryBars final : public host::CommandBars {
 public:
    explicit MemoryBars(MemoryApplication& application) : application_(application) {}

    std::int32_t Count() override;
    host::CommandBarPointer Item(std::int32_t index) override;
    host::CommandBarPointer Add(const std::string& name) override;
    host::CommandBarControlPointer FindControl(std::int32_t id) override;

    /// The bar with this name, or nothing; not logged.
    std::shared_ptr<MemoryBar> find(const std::string& name) const;
    /// A bar that the user has made.
    std::shared_ptr<MemoryBar> addExisting(const std::string& name);
    CallLog& log() const;

    std::vector<std::shared_ptr<MemoryBar>> bars;
    /// The face of new buttons: one transparent pixel, if nothing else is wanted.
    base::Picture blankFace = base::bitmapOf(1, 1, {0, 0, 0, 0});
    /// The numbers of the host's own controls that it does not have.
    std::set<std::int32_t> missingControls;

 private:
    MemoryApplication& application_;
};

/// A word processor without a screen: documents, a selection, command bars, and a log of all that
/// the logic asks of it.
class MemoryApplication final : public host::Application,
                                private host::Documents,
                                private host::Dialogs,
                                private host::Template {
 public:
    MemoryApplication();

    std::string Name() override;
    std::string Version() override;
    std::shared_ptr<host::Selection> Selection() override;
    std::shared_ptr<host::Document> ActiveDocument() override;
    host::Documents& Documents() override { return *this; }
    host::Dialogs& Dialogs() override { return *this; }
    host::CommandBars& CommandBars() override { return bars; }
    host::Template& NormalTemplate() override { return *this; }
    void setStatusBar(const std::string& value) override;
    void setCursor(host::WdCursorType value) override;

    /// A new visible document, which becomes the active one.
    std::shared_ptr<MemoryDocument> open(const std::string& name);
    /// The scratch documents that are still open.
    std::size_t openScratchDocuments() const;

    CallLog log;
    MemoryBars bars{*this};
    std::string name = "Microsoft Word";
    std::string version = "9.0";
    std::string statusBar;
    std::vector<std::string> statusTexts;
    host::WdCursorType cursor = host::WdCursorType::wdCursorNormal;
    std::shared_ptr<MemoryDocument> active;
    std::vector<std::shared_ptr<MemoryDocument>> documents;
    /// Closed documents stay in memory: shapes that somebody still holds answer as deleted ones.
    std::vector<std::shared_ptr<MemoryDocument>> closedDocuments;
    /// Every scratch document ever made, closed ones included.
    std::vector<std::shared_ptr<MemoryDocument>> scratchDocuments;
    std::map<std::int32_t, HostTool> tools;
    /// What a copied shape looks like: if nothing else is wanted, its fill in words.
    std::function<base::Picture(const FillState& fill)> pictureOf = &describingPicture;

    /// Runs a tool on the shape selected last in a scratch document.
    std::int32_t runTool(std::int32_t id);

 private:
    std::shared_ptr<host::Document> addHidden() override;
    std::shared_ptr<host::Dialog> Item(std::int32_t id) override;
    void Save() override;

    MemoryDocument& requireActive() const;
};

}  // namespace huebrush::memory
