// SPDX-License-Identifier: MPL-2.0

#include "palette/PaletteDesign.h"

#include <string>
#include <vector>

#include "base/Text.h"
#include "palette/PaletteDialog_test_support.h"
#include "palette/frmLoadFill.h"
#include "palette/frmSaveFill.h"

namespace huebrush::palette {
namespace {

using forms::Control;
using Names = std::vector<std::string>;

constexpr double kTwipsPerPixel = 15;
/// How high an entry of GTK is with its edge, in pixels.
constexpr double kTallestField = 34;

bool overlap(const Control& one, const Control& other) {
    return one.Left < other.Left + other.Width && other.Left < one.Left + one.Width &&
           one.Top < other.Top + other.Height && other.Top < one.Top + one.Height;
}

bool isField(const Control& control) {
    const auto* const field = dynamic_cast<const forms::TextBox*>(&control);
    return field != nullptr && !field->MultiLine;
}

/// What is wrong with the places of the controls in a form or in one of its frames.
Names misplaced(const std::vector<Control*>& controls) {
    Names wrong;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const Control& control = *controls[i];
        if (isField(control) && control.Height < kTallestField * kTwipsPerPixel) {
            wrong.push_back(base::text(control.name(), " is too low"));
        }
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            if (overlap(control, *controls[j])) {
                wrong.push_back(base::text(control.name(), " and ", controls[j]->name()));
            }
        }
    }
    return wrong;
}

class PaletteDesign : public PaletteFilesTest {};

TEST_F(PaletteDesign, OfTheDialogThatSavesHasRoomForEachControl) {
    EXPECT_EQ(misplaced(frmSaveFill::create(files)->children()), Names{});
}

TEST_F(PaletteDesign, OfTheDialogThatLoadsHasRoomForEachControl) {
    const auto dialog = frmLoadFill::create(files);
    EXPECT_EQ(misplaced(dialog->children()), Names{});
    EXPECT_EQ(misplaced(dialog->fraMainPreview.children()), Names{});
}

}  // namespace
}  // namespace huebrush::palette
