// SPDX-License-Identifier: MPL-2.0

#include "addin/ButtonFace.h"

#include <gtest/gtest.h>

#include <memory>

#include "base/Bitmap.h"
#include "ports/memory/TestHost.h"

namespace huebrush::addin {
namespace {

using base::Picture;

class SetButtonFaceTest : public ::testing::Test {
 protected:
    const Picture red = base::bitmapOf(1, 1, {0, 0, 255, 255});
    memory::TestHost test;
    std::shared_ptr<memory::MemoryBar> bar = test.application.bars.addExisting("Bar");
};

TEST_F(SetButtonFaceTest, WithoutAButtonDoesNothingAndLeavesTheClipboardAlone) {
    test.runtime.clipboard = red;
    test.startLog();
    SetButtonFace(nullptr, 101);
    EXPECT_TRUE(test.calls().empty());
    EXPECT_EQ(test.runtime.clipboard, red);
}

TEST_F(SetButtonFaceTest, GivesTheButtonTheIconThroughTheClipboard) {
    const auto button = bar->addButton();
    test.startLog();
    SetButtonFace(button.get(), 102);
    EXPECT_EQ(bar->buttons[0]->face, test.runtime.Component().icon(102));
    EXPECT_EQ(test.runtime.clipboard, bar->buttons[0]->face);
    EXPECT_EQ(test.runtime.clipboardClears, 1U);
}

TEST_F(SetButtonFaceTest, DrawsOnTheButtonsOwnFace) {
    const auto button = bar->addButton();
    const Picture canvas = base::bitmapOf(2, 1, {255, 0, 0, 255, 255, 0, 0, 255});
    bar->buttons[0]->face = canvas;
    SetButtonFace(button.get(), 102);
    EXPECT_EQ(bar->buttons[0]->face, DrawIconOnPicture(test.runtime.Component().icon(102), canvas));
    EXPECT_FALSE(bar->buttons[0]->face == canvas);
}

TEST_F(SetButtonFaceTest, AButtonWithoutAFaceGetsAnEmptyPicture) {
    const auto button = bar->addButton();
    bar->buttons[0]->face = {};
    test.runtime.clipboard = red;
    SetButtonFace(button.get(), 102);
    EXPECT_TRUE(bar->buttons[0]->face.empty());
    EXPECT_TRUE(test.runtime.clipboard.empty());
}

}  // namespace
}  // namespace huebrush::addin
