// How the dialog edits the new fill of a row: the commands of the row's menu.

#include "forms/Runtime.h"
#include "recolor/ScratchShape.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

namespace {

/// The host's numbers of its own tools.
namespace tool {
constexpr std::int32_t kColor = 1051;
constexpr std::int32_t kFill = 1006;
constexpr std::int32_t kFormat = 960;
}  // namespace tool

/// What a built-in dialog returns when the user has confirmed it.
constexpr std::int32_t kConfirmed = -1;
constexpr float kOpaque = 0.0F;

void runControl(host::Application& application, std::int32_t id) {
    const auto control = application.CommandBars().FindControl(id);
    if (!control) base::throwObjectNotSet();
    control->Execute();
}

}  // namespace

/// While it lives, a tool of the host is open, and the menus of the rows open no other one.
class frmEditGraphic::OpenTool {
 public:
    explicit OpenTool(frmEditGraphic& dialog) : dialog_(dialog) { ++dialog_.openTools_; }
    OpenTool(const OpenTool&) = delete;
    OpenTool& operator=(const OpenTool&) = delete;
    ~OpenTool() { --dialog_.openTools_; }

 private:
    frmEditGraphic& dialog_;
};

void frmEditGraphic::connectFillMenu(ColorElement& row) {
    row.mnuWord.Click.connect([this, &row] {
        for (forms::MenuItem* const item : row.mnuWord.items()) item->Enabled = openTools_ == 0;
    });
    row.mnuChDColor.connect([this, &row] { Element_mnuChDColor(row.index()); });
    row.mnuChDFill.connect([this, &row] { Element_mnuChDFill(row.index()); });
    row.mnuChDFormat.connect([this, &row] { Element_mnuChDFormat(row.index()); });
    row.mnuChDNoFill.connect([this, &row](bool) { Element_mnuChDNoFill(row.index()); });
    row.mnuChDTransparency.connect(
        [this, &row](float) { Element_mnuChDTransparency(row.index()); });
}

void frmEditGraphic::Element_mnuChDColor(std::int16_t Index) {
    error::trap(place("Element_mnuChDColor", "Při pokusu změnit barvu objektu vznikla chyba..."),
                [&] {
                    editWithTool(Index, [](host::Application& application) {
                        runControl(application, tool::kColor);
                        return true;
                    });
                });
}

void frmEditGraphic::Element_mnuChDFill(std::int16_t Index) {
    error::trap(
        place("Element_mnuChDFill", "Při pokusu změnit vzhled výplně objektu vznikla chyba..."),
        [&] {
            editWithTool(Index, [](host::Application& application) {
                runControl(application, tool::kFill);
                return true;
            });
        });
}

void frmEditGraphic::Element_mnuChDFormat(std::int16_t Index) {
    error::trap(place("Element_mnuChDFormat", "Při pokusu změnit formát objektu vznikla chyba..."),
                [&] {
                    editWithTool(Index, [](host::Application& application) {
                        return application.Dialogs().Item(tool::kFormat)->Show() == kConfirmed;
                    });
                });
}

void frmEditGraphic::Element_mnuChDNoFill(std::int16_t Index) {
    error::trap(place("Element_mnuChDNoFill", "Při pokusu odejmout výplň objektu vznikla chyba..."),
                [&] {
                    fill::CFill& fill = Element[Index].FillObject();
                    if (fill.DesVisible() != host::MsoTriState::msoFalse) {
                        fill.setDesVisible(host::MsoTriState::msoFalse);
                        Element[Index].setDestinationPicture({});
                    } else {
                        fill.setDesVisible(host::MsoTriState::msoTrue);
                        renderDestination(Index);
                    }
                });
}

void frmEditGraphic::Element_mnuChDTransparency(std::int16_t Index) {
    error::trap(place("Element_mnuChDTransparency",
                      "Při pokusu změnit průhlednost objektu vznikla chyba..."),
                [&] {
                    fill::CFill& fill = Element[Index].FillObject();
                    const bool opaque = fill.DesTransparency() == kOpaque;
                    fill.setDesTransparency(opaque ? ColorElement::kHalfTransparent : kOpaque);
                    renderDestination(Index);
                });
}

/// Has the user edit the row's new fill on a scratch shape. The tool says whether the shape's fill
/// is to be taken.
void frmEditGraphic::editWithTool(std::int16_t Index,
                                  const std::function<bool(host::Application&)>& openTool) {
    const ScratchShape scratch(requireHost());
    scratch.select();
    Element[Index].FillObject().SetFormat(scratch.Fill());
    onTop(false);
    const bool taken = [&] {
        const OpenTool open(*this);
        return openTool(requireHost());
    }();
    if (taken) {
        Element[Index].FillObject().SaveNewFormat(scratch.Fill());
        if (scratch.Fill().Visible() != host::MsoTriState::msoFalse) {
            takeDestinationPicture(Index, scratch);
        } else {
            Element[Index].setDestinationPicture({});
        }
    }
    scratch.close();
    onTop(true);
    forms::Runtime::current().Clipboard().Clear();
}

/// Makes the preview of the row's new fill anew.
void frmEditGraphic::renderDestination(std::int16_t Index) {
    const ScratchShape scratch(requireHost());
    Element[Index].FillObject().SetFormat(scratch.Fill());
    scratch.select();
    takeDestinationPicture(Index, scratch);
    forms::Runtime::current().Clipboard().Clear();
    scratch.close();
}

void frmEditGraphic::takeDestinationPicture(std::int16_t Index, const ScratchShape& scratch) {
    scratch.copy();
    Element[Index].CliboardToDestination();
}

}  // namespace huebrush::recolor
