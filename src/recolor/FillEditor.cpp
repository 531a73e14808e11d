// SPDX-License-Identifier: MPL-2.0

#include "recolor/FillEditor.h"

#include <utility>

#include "forms/Runtime.h"
#include "host/BuiltInControl.h"
#include "recolor/ScratchShape.h"

namespace huebrush::recolor {

namespace {
constexpr float kOpaque = 0.0F;
}  // namespace

/// Counts a tool as open for its lifetime.
class FillEditor::OpenTool {
 public:
    explicit OpenTool(FillEditor& editor) : editor_(editor) { ++editor_.openTools_; }
    OpenTool(const OpenTool&) = delete;
    OpenTool& operator=(const OpenTool&) = delete;
    ~OpenTool() { --editor_.openTools_; }

 private:
    FillEditor& editor_;
};

FillEditor::FillEditor(Surroundings dialog) : dialog_(std::move(dialog)) {}

void FillEditor::useColorTool(const Row& row) {
    runControl(row, host::ControlId::kFillColor);
}

void FillEditor::useFillTool(const Row& row) {
    runControl(row, host::ControlId::kFillEffects);
}

void FillEditor::useFormatTool(const Row& row) {
    editWith(
        [](host::Application& application) {
            return application.Dialogs().Item(host::DialogId::kFormatObject)->Show() ==
                   host::DialogResult::kConfirmed;
        },
        row);
}

void FillEditor::runControl(const Row& row, std::int32_t id) {
    editWith(
        [id](host::Application& application) {
            const auto control = application.CommandBars().FindControl(id);
            if (!control) base::throwObjectNotSet();
            control->Execute();
            return true;
        },
        row);
}

void FillEditor::toggleFill(const Row& row) {
    fill::CFill& fill = row().FillObject();
    if (fill.DesVisible() != host::MsoTriState::msoFalse) {
        fill.setDesVisible(host::MsoTriState::msoFalse);
        row().setDestinationPicture({});
    } else {
        fill.setDesVisible(host::MsoTriState::msoTrue);
        render(row);
    }
}

void FillEditor::toggleTransparency(const Row& row) {
    fill::CFill& fill = row().FillObject();
    const bool opaque = fill.DesTransparency() == kOpaque;
    fill.setDesTransparency(opaque ? ColorElement::kHalfTransparent : kOpaque);
    render(row);
}

void FillEditor::editWith(const Tool& tool, const Row& row) {
    const ScratchShape scratch(dialog_.host());
    scratch.select();
    row().FillObject().SetFormat(scratch.Fill());
    dialog_.onTop(false);
    const bool taken = [&] {
        const OpenTool open(*this);
        return tool(dialog_.host());
    }();
    if (taken) {
        row().FillObject().SaveNewFormat(scratch.Fill());
        if (scratch.Fill().Visible() != host::MsoTriState::msoFalse) {
            takePreview(row, scratch);
        } else {
            row().setDestinationPicture({});
        }
    }
    scratch.close();
    dialog_.onTop(true);
    forms::Runtime::current().Clipboard().Clear();
}

void FillEditor::render(const Row& row) const {
    const ScratchShape scratch(dialog_.host());
    row().FillObject().SetFormat(scratch.Fill());
    scratch.select();
    takePreview(row, scratch);
    forms::Runtime::current().Clipboard().Clear();
    scratch.close();
}

void FillEditor::takePreview(const Row& row, const ScratchShape& scratch) {
    scratch.copy();
    row().CliboardToDestination();
}

}  // namespace huebrush::recolor
