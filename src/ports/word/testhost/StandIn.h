// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>

#include "host/Application.h"
#include "ports/memory/MemoryHost.h"
#include "ports/word/com/Served_test_support.h"

namespace huebrush::word {

/// How old the host is that a stand-in plays.
enum class Age {
    word2000,
    /// Documents.Add takes two arguments, and buttons raise no events.
    word97,
};

/// Stands in for Word: the memory host, served through objects with the names, parameters and types
/// of Word's object model. Whatever is done to the memory host shows here, and the other way round.
class StandIn {
 public:
    explicit StandIn(memory::MemoryApplication& application, Age age = Age::word2000);
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    /// What Word hands to an add-in.
    Pointer<IDispatch> application();
    /// One of its documents.
    Pointer<IDispatch> serve(const std::shared_ptr<memory::MemoryDocument>& document);

    /// The objects served: their log, their failures, and what of them is in use.
    ServedObjects& objects() { return *served_; }

 private:
    struct Color {
        std::function<std::int32_t()> get;
        std::function<void(std::int32_t)> set;
    };

    void describeApplication();
    void describeDocuments();
    void describeShapes();
    void describeFills();
    void describeBars();

    /// An object of the application as a whole, of which there is one of each kind.
    Pointer<IDispatch> single(const KindOf<memory::MemoryApplication>& kind);
    Pointer<IDispatch> serve(const host::ShapePointer& shape);
    Pointer<IDispatch> serve(const std::shared_ptr<memory::MemoryBar>& bar);
    Pointer<IDispatch> serve(const std::shared_ptr<memory::MemoryButton>& button);
    Pointer<IDispatch> serve(const host::CommandBarControlPointer& control);
    Pointer<IDispatch> serveColor(Color color);

    Pointer<IDispatch> addDocument(bool visible);
    void activate(const std::shared_ptr<memory::MemoryDocument>& document);
    void hide(const memory::MemoryDocument& document);
    void requireSelectionForTool() const;

    memory::MemoryApplication& memory_;
    std::shared_ptr<ServedObjects> served_ = std::make_shared<ServedObjects>();
    Age age_;

    KindOf<memory::MemoryApplication> application_{"Application"};
    KindOf<memory::MemoryApplication> system_{"System"};
    KindOf<memory::MemoryApplication> template_{"Template"};
    KindOf<memory::MemoryApplication> documents_{"Documents"};
    KindOf<memory::MemoryApplication> dialogs_{"Dialogs"};
    KindOf<host::Dialog> dialog_{"Dialog"};
    KindOf<memory::MemoryDocument> document_{"Document"};
    KindOf<memory::MemoryDocument> window_{"Window"};
    KindOf<host::Selection> selection_{"Selection"};
    KindOf<host::Shapes> shapes_{"Shapes"};
    KindOf<host::ShapeRange> range_{"ShapeRange"};
    KindOf<host::ShapeList> groupItems_{"GroupShapes"};
    KindOf<host::Shape> shape_{"Shape"};
    KindOf<host::FillFormat> fill_{"FillFormat"};
    KindOf<host::LineFormat> line_{"LineFormat"};
    KindOf<Color> color_{"ColorFormat"};
    KindOf<memory::MemoryApplication> bars_{"CommandBars"};
    KindOf<memory::MemoryBar> bar_{"CommandBar"};
    KindOf<memory::MemoryBar> controls_{"CommandBarControls"};
    KindOf<memory::MemoryButton> button_{"CommandBarButton"};
    KindOf<host::CommandBarControl> control_{"CommandBarControl"};
};

}  // namespace huebrush::word
