// SPDX-License-Identifier: MPL-2.0

#include "view/Accessibility.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/UserControl.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::view {
namespace {

using Names = std::vector<std::string>;

/// One button to the user, made of an image.
class PaintedButton final : public forms::UserControl {
 public:
    PaintedButton(forms::Control& container, std::string name)
        : UserControl(container, std::move(name)) {
        face.ToolTipText = std::string("not for readers");
    }
    const std::string* buttonCaption() const override { return &caption; }
    void press() override { ++pressed; }
    void WriteProperties(forms::PropertyBag&) const override {}
    void ReadProperties(const forms::PropertyBag&) override {}

    std::string caption = "Up";
    int pressed = 0;
    forms::Image face{*this, "face"};
};

class ReadForm final : public forms::Form {
 public:
    ReadForm() : Form("ReadForm") {
        Move(0, 0, 1000, 1000);
        for (forms::Control* const each : children()) each->Move(0, 0, 100, 100);
        button.face.Move(0, 0, 100, 100);
        label.Caption = std::string("Label");
        label.ToolTipText = std::string("tip of the label");
        picture.ToolTipText = std::string("Picture");
        frame.Caption = std::string("Frame");
        beyond.Left = 2000.0;
        beyond.Caption = std::string("Beyond");
    }
    forms::Label label{*this, "label"};
    forms::Label nameless{*this, "nameless"};
    forms::Image picture{*this, "picture"};
    forms::Image decoration{*this, "decoration"};
    forms::Image clicked{*this, "clicked"};
    forms::Line line{*this, "line"};
    forms::Frame frame{*this, "frame"};
    forms::CheckBox native{*this, "native"};
    forms::PictureBox box{*this, "box"};
    PaintedButton button{*this, "button"};
    forms::Label beyond{*this, "beyond"};
};

class AccessibilityTest : public testing::Test {
 protected:
    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<ReadForm> form = std::make_shared<ReadForm>();
};

TEST_F(AccessibilityTest, TheCaptionNamesAPartOrElseItsToolTip) {
    EXPECT_EQ(nameOf(form->label), "Label");
    EXPECT_EQ(descriptionOf(form->label), "tip of the label");
    EXPECT_EQ(nameOf(form->picture), "Picture");
    EXPECT_EQ(descriptionOf(form->picture), "");
    EXPECT_EQ(nameOf(form->button), "Up");
    form->button.caption.clear();
    form->button.ToolTipText = std::string("Moves up");
    EXPECT_EQ(nameOf(form->button), "Moves up");
    form->label.AccessibleName = std::string("Given");
    EXPECT_EQ(nameOf(form->label), "Given");
    EXPECT_EQ(descriptionOf(form->label), "tip of the label");
}

TEST_F(AccessibilityTest, WhatHasNeitherNameNorActionIsDecoration) {
    form->clicked.Click.connect([] {});
    EXPECT_EQ(partRoleOf(form->label), PartRole::text);
    EXPECT_EQ(partRoleOf(form->picture), PartRole::picture);
    EXPECT_EQ(partRoleOf(form->clicked), PartRole::button);
    EXPECT_EQ(partRoleOf(form->frame), PartRole::group);
    EXPECT_EQ(partRoleOf(form->button), PartRole::button);
    for (const forms::Control* const each : std::vector<const forms::Control*>{
             &form->nameless, &form->decoration, &form->line, &form->native, &form->box,
             &form->button.face, form.get()}) {
        EXPECT_EQ(partRoleOf(*each), std::nullopt) << each->name();
    }
}

TEST_F(AccessibilityTest, TheSceneOfReadersHasItsPartsAndAllWithWindows) {
    Names names;
    for (const Placed& each : readableSceneOf(*form, 1000, 1000)) {
        names.push_back(each.control->name());
    }
    EXPECT_EQ(names, (Names{"button", "box", "native", "frame", "picture", "label"}));
}

TEST_F(AccessibilityTest, APartIsPressedOnlyWhileItIsUsable) {
    form->Show();
    int clicks = 0;
    form->clicked.Click.connect([&] { ++clicks; });
    pressPart(form->clicked);
    pressPart(form->button);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(form->button.pressed, 1);
    form->clicked.Enabled = false;
    form->button.Visible = false;
    pressPart(form->clicked);
    pressPart(form->button);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(form->button.pressed, 1);
    EXPECT_FALSE(isPressable(form->label));
}

}  // namespace
}  // namespace huebrush::view
