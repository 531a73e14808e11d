// SPDX-License-Identifier: MPL-2.0

#include "ports/word/testhost/StandIn.h"

#include <optional>
#include <string>
#include <utility>

#include "base/Error.h"

namespace huebrush::word {

namespace {

using memory::MemoryApplication;
using memory::MemoryBar;
using memory::MemoryButton;
using memory::MemoryDocument;

constexpr std::int32_t kCommandFailed = 4198;
constexpr std::int32_t kNotAvailable = 4605;
constexpr std::int32_t kDoNotSaveChanges = 0;
constexpr std::int32_t kPlainButton = 1;
constexpr IID kButtonEvents{0x000C0351, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

template <class Enumeration>
std::int32_t number(Enumeration value) {
    return static_cast<std::int32_t>(value);
}

/// Describes a property that is read and written, of a class with such members.
template <class Self>
void addNumber(KindOf<Self>& kind, const char* name, std::int32_t (Self::*read)(),
               void (Self::*write)(std::int32_t)) {
    kind.get(name, [read](Self& self) { return (self.*read)(); })
        .put(name, [write](Self& self, const ServedCall& call) { (self.*write)(call.integer(0)); });
}

}  // namespace

StandIn::StandIn(MemoryApplication& application, Age age) : memory_(application), age_(age) {
    describeApplication();
    describeDocuments();
    describeShapes();
    describeFills();
    describeBars();
}

Pointer<IDispatch> StandIn::single(const KindOf<MemoryApplication>& kind) {
    return served_->serve(
        kind, std::shared_ptr<MemoryApplication>(std::shared_ptr<void>(), &memory_), &memory_);
}

Pointer<IDispatch> StandIn::application() {
    return single(application_);
}

Pointer<IDispatch> StandIn::serve(const std::shared_ptr<MemoryDocument>& document) {
    return served_->serve(document_, document, document.get());
}

Pointer<IDispatch> StandIn::serve(const host::ShapePointer& shape) {
    return served_->serve(shape_, shape, shape.get());
}

Pointer<IDispatch> StandIn::serve(const std::shared_ptr<MemoryBar>& bar) {
    return served_->serve(bar_, bar, bar.get());
}

Pointer<IDispatch> StandIn::serve(const std::shared_ptr<MemoryButton>& button) {
    button->Click.disconnect(this);
    button->Click.connect([this, clicked = button.get()] { served_->click(button_, clicked); },
                          this);
    return served_->serve(button_, button, button.get());
}

Pointer<IDispatch> StandIn::serve(const host::CommandBarControlPointer& control) {
    if (!control) return {};
    if (const auto button = std::dynamic_pointer_cast<MemoryButton>(control)) return serve(button);
    return served_->serve(control_, control);
}

Pointer<IDispatch> StandIn::serveColor(Color color) {
    return served_->serve(color_, std::make_shared<Color>(std::move(color)));
}

void StandIn::describeApplication() {
    application_.get("Name", [](MemoryApplication& self) { return self.Name(); })
        .get("Version", [](MemoryApplication& self) { return self.Version(); })
        .get("Selection",
             [this](MemoryApplication& self) {
                 return served_->serve(selection_, self.Selection());
             })
        .get("ActiveDocument",
             [this](MemoryApplication& self) {
                 return serve(std::dynamic_pointer_cast<MemoryDocument>(self.ActiveDocument()));
             })
        .get("Documents", [this](MemoryApplication&) { return single(documents_); })
        .get("Dialogs", [this](MemoryApplication&) { return single(dialogs_); })
        .get("CommandBars", [this](MemoryApplication&) { return single(bars_); })
        .get("NormalTemplate", [this](MemoryApplication&) { return single(template_); })
        .get("System", [this](MemoryApplication&) { return single(system_); })
        .put("StatusBar", [](MemoryApplication& self, const ServedCall& call) {
            self.setStatusBar(call.text(0));
        });
    system_.put("Cursor", [](MemoryApplication& self, const ServedCall& call) {
        self.setCursor(static_cast<host::WdCursorType>(call.integer(0)));
    });
    template_.procedure("Save", {}, [](MemoryApplication& self, const ServedCall&) {
        self.NormalTemplate().Save();
    });
    dialogs_.function("Item", {"Index"}, [this](MemoryApplication& self, const ServedCall& call) {
        return served_->serve(dialog_, self.Dialogs().Item(call.integer(0)));
    });
    dialog_.function("Show", {"[TimeOut]"}, [this](host::Dialog& self, const ServedCall&) {
        requireSelectionForTool();
        return self.Show();
    });
}

void StandIn::describeDocuments() {
    if (age_ == Age::word97) {
        documents_.function(
            "Add", {"[Template]", "[NewTemplate]"},
            [this](MemoryApplication&, const ServedCall&) { return addDocument(true); });
    } else {
        documents_.function("Add", {"[Template]", "[NewTemplate]", "[DocumentType]", "[Visible]"},
                            [this](MemoryApplication&, const ServedCall& call) {
                                return addDocument(!call.has(3) || call.boolean(3));
                            });
    }
    document_
        .get("Shapes",
             [this](MemoryDocument& self) { return served_->serve(shapes_, self.Shapes()); })
        .get("ActiveWindow",
             [this](MemoryDocument& self) {
                 return served_->serve(window_, self.shared_from_this(), &self);
             })
        .procedure(
            "Activate", {},
            [this](MemoryDocument& self, const ServedCall&) { activate(self.shared_from_this()); })
        .procedure("Close", {"[SaveChanges]", "[OriginalFormat]", "[RouteDocument]"},
                   [](MemoryDocument& self, const ServedCall& call) {
                       if (!call.has(0) || call.integer(0) != kDoNotSaveChanges) {
                           throw base::Error(kCommandFailed, "Uživatel by byl dotázán.");
                       }
                       self.Close();
                   });
    window_
        .get("Selection",
             [this](MemoryDocument& self) { return served_->serve(selection_, self.Selection()); })
        .put("Visible", [this](MemoryDocument& self, const ServedCall& call) {
            if (!call.boolean(0)) hide(self);
        });
    selection_
        .get("ShapeRange",
             [this](host::Selection& self) { return served_->serve(range_, self.ShapeRange()); })
        .get("Document",
             [this](host::Selection& self) {
                 return serve(std::dynamic_pointer_cast<MemoryDocument>(self.Document()));
             })
        .procedure("Copy", {}, [](host::Selection& self, const ServedCall&) { self.Copy(); });
}

void StandIn::describeShapes() {
    const auto fillOf = [this](auto& owner) {
        return served_->serve(fill_, std::shared_ptr<host::FillFormat>(owner, &owner->Fill()));
    };
    shapes_.get("Count", [](host::Shapes& self) { return self.Count(); })
        .function("Range", {"Index"},
                  [this](host::Shapes& self, const ServedCall& call) {
                      return served_->serve(range_, self.Range(call.texts(0)));
                  })
        .function("AddShape", {"Type", "Left", "Top", "Width", "Height", "[Anchor]"},
                  [this](host::Shapes& self, const ServedCall& call) {
                      return serve(self.AddShape(
                          static_cast<host::MsoAutoShapeType>(call.integer(0)), call.single(1),
                          call.single(2), call.single(3), call.single(4)));
                  })
        .walk([this](host::Shapes& self) -> ServedWalk {
            return [this, walk = std::shared_ptr<host::ShapeEnumerator>(
                              self.enumerate())]() -> std::optional<Variant> {
                const host::ShapePointer shape = walk->next();
                if (!shape) return std::nullopt;
                return Variant(serve(shape));
            };
        });
    range_.get("Count", [](host::ShapeRange& self) { return self.Count(); })
        .function("Item", {"Index"},
                  [this](host::ShapeRange& self, const ServedCall& call) {
                      return serve(self.Item(call.integer(0)));
                  })
        .procedure("Select", {"[Replace]"},
                   [](host::ShapeRange& self, const ServedCall&) { self.Select(); });
    groupItems_.get("Count", [](host::ShapeList& self) { return self.Count(); })
        .function("Item", {"Index"}, [this](host::ShapeList& self, const ServedCall& call) {
            return serve(self.Item(call.integer(0)));
        });
    shape_.get("Name", [](host::Shape& self) { return self.Name(); })
        .get("Type", [](host::Shape& self) { return number(self.Type()); })
        .get("GroupItems",
             [this](host::Shape& self) { return served_->serve(groupItems_, self.GroupItems()); })
        .procedure("Select", {"[Replace]"},
                   [](host::Shape& self, const ServedCall&) { self.Select(); });
    // What belongs to a shape keeps it.
    shape_.owned("Fill", fillOf);
    range_.owned("Fill", fillOf);
    shape_.owned("Line", [this](auto& owner) {
        return served_->serve(line_, std::shared_ptr<host::LineFormat>(owner, &owner->Line()));
    });
}

void StandIn::describeFills() {
    using host::FillFormat;
    const auto add = [this](const char* name, auto read) {
        fill_.get(name, [read](FillFormat& self) { return number((self.*read)()); });
    };
    add("Visible", &FillFormat::Visible);
    add("Type", &FillFormat::Type);
    add("GradientStyle", &FillFormat::GradientStyle);
    add("GradientColorType", &FillFormat::GradientColorType);
    add("GradientVariant", &FillFormat::GradientVariant);
    add("PresetGradientType", &FillFormat::PresetGradientType);
    add("TextureType", &FillFormat::TextureType);
    add("PresetTexture", &FillFormat::PresetTexture);
    add("Pattern", &FillFormat::Pattern);
    fill_.get("Transparency", [](FillFormat& self) { return self.Transparency(); })
        .get("GradientDegree", [](FillFormat& self) { return self.GradientDegree(); })
        .get("TextureName", [](FillFormat& self) { return self.TextureName(); })
        .put("Visible",
             [](FillFormat& self, const ServedCall& call) {
                 self.setVisible(static_cast<host::MsoTriState>(call.integer(0)));
             })
        .put("Transparency",
             [](FillFormat& self, const ServedCall& call) { self.setTransparency(call.single(0)); })
        .procedure("Solid", {}, [](FillFormat& self, const ServedCall&) { self.Solid(); })
        .procedure(
            "Patterned", {"Pattern"},
            [](FillFormat& self, const ServedCall& call) { self.Patterned(call.integer(0)); })
        .procedure("OneColorGradient", {"Style", "Variant", "Degree"},
                   [](FillFormat& self, const ServedCall& call) {
                       self.OneColorGradient(call.integer(0), call.integer(1), call.single(2));
                   })
        .procedure("TwoColorGradient", {"Style", "Variant"},
                   [](FillFormat& self, const ServedCall& call) {
                       self.TwoColorGradient(call.integer(0), call.integer(1));
                   })
        .procedure("PresetGradient", {"Style", "Variant", "PresetGradientType"},
                   [](FillFormat& self, const ServedCall& call) {
                       self.PresetGradient(call.integer(0), call.integer(1), call.integer(2));
                   })
        .procedure(
            "PresetTextured", {"PresetTexture"},
            [](FillFormat& self, const ServedCall& call) { self.PresetTextured(call.integer(0)); })
        .procedure("UserTextured", {"TextureFile"}, [](FillFormat& self, const ServedCall& call) {
            self.UserTextured(call.text(0));
        });
    fill_.owned("ForeColor", [this](const std::shared_ptr<FillFormat>& fill) {
        return serveColor({[fill] { return fill->ForeColorRGB(); },
                           [fill](std::int32_t color) { fill->setForeColorRGB(color); }});
    });
    fill_.owned("BackColor", [this](const std::shared_ptr<FillFormat>& fill) {
        return serveColor({[fill] { return fill->BackColorRGB(); },
                           [fill](std::int32_t color) { fill->setBackColorRGB(color); }});
    });
    line_.get("Visible", [](host::LineFormat& self) { return number(self.Visible()); })
        .put("Visible", [](host::LineFormat& self, const ServedCall& call) {
            self.setVisible(static_cast<host::MsoTriState>(call.integer(0)));
        });
    line_.owned("ForeColor", [this](const std::shared_ptr<host::LineFormat>& line) {
        return serveColor({[line] { return line->ForeColorRGB(); },
                           [line](std::int32_t color) { line->setForeColorRGB(color); }});
    });
    color_.get("RGB", [](Color& self) { return self.get(); })
        .put("RGB", [](Color& self, const ServedCall& call) { self.set(call.integer(0)); });
}

void StandIn::describeBars() {
    bars_.get("Count", [](MemoryApplication& self) { return self.bars.Count(); })
        .get(
            "Item", {"Index"},
            [this](MemoryApplication& self, const ServedCall& call) {
                return serve(std::dynamic_pointer_cast<MemoryBar>(self.bars.Item(call.integer(0))));
            })
        .function(
            "Add", {"[Name]", "[Position]", "[MenuBar]", "[Temporary]"},
            [this](MemoryApplication& self, const ServedCall& call) {
                return serve(std::dynamic_pointer_cast<MemoryBar>(self.bars.Add(call.text(0))));
            })
        .function("FindControl", {"[Type]", "[Id]", "[Tag]", "[Visible]"},
                  [this](MemoryApplication& self, const ServedCall& call) {
                      return serve(self.bars.FindControl(call.integer(1)));
                  });
    addNumber(bar_, "Position", &MemoryBar::Position, &MemoryBar::setPosition);
    addNumber(bar_, "Left", &MemoryBar::Left, &MemoryBar::setLeft);
    addNumber(bar_, "Top", &MemoryBar::Top, &MemoryBar::setTop);
    addNumber(bar_, "RowIndex", &MemoryBar::RowIndex, &MemoryBar::setRowIndex);
    bar_.get("Name", [](MemoryBar& self) { return self.Name(); })
        .put("Visible",
             [](MemoryBar& self, const ServedCall& call) { self.setVisible(call.boolean(0)); })
        .procedure("Delete", {}, [](MemoryBar& self, const ServedCall&) { self.Delete(); })
        .function("FindControl", {"[Type]", "[Id]", "[Tag]", "[Visible]", "[Recursive]"},
                  [this](MemoryBar& self, const ServedCall& call) {
                      return serve(self.FindControl(call.text(2)));
                  });
    bar_.owned("Controls", [this](const std::shared_ptr<MemoryBar>& bar) {
        return served_->serve(controls_, bar, bar.get());
    });
    controls_.function("Add", {"[Type]", "[Id]", "[Parameter]", "[Before]", "[Temporary]"},
                       [this](MemoryBar& self, const ServedCall& call) {
                           if (call.integer(0) != kPlainButton) {
                               throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                                                 "Takový prvek panel nemá.");
                           }
                           return serve(self.addButton());
                       });
    if (age_ != Age::word97) button_.raises(kButtonEvents);
    button_
        .put("Tag", [](MemoryButton& self, const ServedCall& call) { self.setTag(call.text(0)); })
        .put("Caption",
             [](MemoryButton& self, const ServedCall& call) { self.setCaption(call.text(0)); })
        .put("TooltipText",
             [](MemoryButton& self, const ServedCall& call) { self.setTooltipText(call.text(0)); })
        .put("Enabled",
             [](MemoryButton& self, const ServedCall& call) { self.setEnabled(call.boolean(0)); })
        .procedure("Delete", {"[Temporary]"},
                   [](MemoryButton& self, const ServedCall&) { self.Delete(); })
        .procedure("CopyFace", {}, [](MemoryButton& self, const ServedCall&) { self.CopyFace(); })
        .procedure("PasteFace", {}, [](MemoryButton& self, const ServedCall&) { self.PasteFace(); })
        .procedure("Execute", {}, [](MemoryButton& self, const ServedCall&) { self.Execute(); });
    control_.procedure("Execute", {}, [this](host::CommandBarControl& self, const ServedCall&) {
        requireSelectionForTool();
        self.Execute();
    });
}

Pointer<IDispatch> StandIn::addDocument(bool visible) {
    const auto document =
        std::dynamic_pointer_cast<MemoryDocument>(memory_.Documents().addHidden());
    // A new document with a window is the active one.
    if (visible) activate(document);
    return serve(document);
}

void StandIn::activate(const std::shared_ptr<MemoryDocument>& document) {
    memory_.active = document;
}

/// Hides a document's window. Which of the others becomes active is for the host to say.
void StandIn::hide(const MemoryDocument& document) {
    if (memory_.active.get() != &document) return;
    memory_.active = memory_.documents.empty() ? nullptr : memory_.documents.back();
}

/// The host's tools work on what is selected in the active document.
void StandIn::requireSelectionForTool() const {
    if (!memory_.active || memory_.active->selected.empty() || memory_.scratchDocuments.empty() ||
        memory_.active != memory_.scratchDocuments.back()) {
        throw base::Error(kNotAvailable, "Tento příkaz není k dispozici.");
    }
}

}  // namespace huebrush::word
