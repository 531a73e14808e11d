// SPDX-License-Identifier: MPL-2.0

#include "view/Scene.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::view {
namespace {

using Names = std::vector<std::string>;

class SceneForm final : public forms::Form {
 public:
    SceneForm() : Form("SceneForm") {
        Move(0, 0, 1000, 1000);
        above.Move(100, 100, 100, 100);
        below.Move(150, 100, 100, 100);
        frame.Move(300, 300, 400, 400);
        inside.Move(350, 10, 100, 100);
        box.Move(0, 500, 200, 200);
        boxed.Move(10, 10, 50, 50);
        inner.Move(100, 100, 300, 300);
        deep.Move(20, 30, 10, 10);
        line.Move(0, 900, 500, 0);
    }
    forms::Label above{*this, "above"};
    forms::Label below{*this, "below"};
    forms::Frame frame{*this, "frame"};
    forms::Label inside{frame, "inside"};
    forms::PictureBox box{*this, "box"};
    forms::Label boxed{box, "boxed"};
    forms::PictureBox inner{box, "inner"};
    forms::Label deep{inner, "deep"};
    forms::Line line{*this, "line"};
};

class SceneTest : public ::testing::Test {
 protected:
    Names namesOf(const forms::Control& surface) const {
        Names names;
        for (const Placed& placed : sceneOf(surface, 1000, 1000)) {
            names.push_back(placed.control->name());
        }
        return names;
    }
    Placed find(const forms::Control& control, const forms::Control& surface) const {
        for (const Placed& placed : sceneOf(surface, 1000, 1000)) {
            if (placed.control == &control) return placed;
        }
        ADD_FAILURE() << control.name() << " does not show";
        return {};
    }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<SceneForm> form = std::make_shared<SceneForm>();
};

TEST(ScaleTest, PixelsGiveTheTwipsThatTheyCameFrom) {
    for (const double resolution : {96.0, 120.0, 144.0, 192.0}) {
        const Scale scale(resolution);
        const double twipsOfOne = 1440 / resolution;
        for (std::int32_t pixels = 0; pixels < 3000; ++pixels) {
            const double twips = pixels * twipsOfOne;
            ASSERT_EQ(scale.toPixels(twips), pixels) << resolution;
            ASSERT_EQ(scale.toTwips(pixels), twips) << resolution;
        }
    }
}

TEST_F(SceneTest, WhatWasMadeFirstLiesAbove) {
    EXPECT_EQ(namesOf(*form), (Names{"line", "box", "frame", "inside", "below", "above"}));
}

TEST_F(SceneTest, APictureBoxIsASurfaceButNoneInsideAnother) {
    EXPECT_TRUE(isSurface(*form));
    EXPECT_TRUE(isSurface(form->box));
    EXPECT_FALSE(isSurface(form->inner));
    EXPECT_FALSE(isSurface(form->frame));
    EXPECT_EQ(namesOf(form->box), (Names{"inner", "deep", "boxed"}));
    EXPECT_EQ(&surfaceOf(form->deep), &form->box);
    EXPECT_EQ(&surfaceOf(form->inside), form.get());
}

TEST_F(SceneTest, ASurfaceMayHaveNoBarAround) {
    EXPECT_TRUE(barsAround(form->box).empty());
    EXPECT_TRUE(barsAround(*form).empty());
}

TEST_F(SceneTest, WhatIsHiddenOrOutsideDoesNotShow) {
    form->above.Visible = false;
    form->frame.Visible = false;
    form->below.Left = 1000;
    EXPECT_EQ(namesOf(*form), (Names{"line", "box"}));
}

TEST_F(SceneTest, AContainerCutsOffWhatLiesInIt) {
    const Placed inside = find(form->inside, *form);
    EXPECT_EQ(inside.place.left, 650);
    EXPECT_EQ(inside.place.right(), 750);
    EXPECT_EQ(inside.visible.right(), 700);
    form->inside.Left = 400;
    EXPECT_EQ(namesOf(*form), (Names{"line", "box", "frame", "below", "above"}));
}

TEST_F(SceneTest, ALineHasAThickness) {
    EXPECT_EQ(find(form->line, *form).place.height, 15);
    EXPECT_EQ(find(form->line, *form).place.width, 500);
}

TEST_F(SceneTest, PlacesOnASurfaceAddUp) {
    const Box deep = placeOnSurface(form->deep);
    EXPECT_EQ(deep.left, 120);
    EXPECT_EQ(deep.top, 130);
}

TEST(GeometryTest, BoxesThatMeetInTwipsMeetInPixels) {
    for (const double dots : {96.0, 120.0, 192.0}) {
        const Scale scale(dots);
        for (double edge = 0; edge < 100; edge += 7) {
            const Rectangle left = scale.toPixels(Box{0, 0, edge, 10});
            const Rectangle right = scale.toPixels(Box{edge, 0, 100 - edge, 10});
            EXPECT_EQ(left.left + left.width, right.left);
        }
    }
}

TEST(GeometryTest, WhatSharesNothingHasAnEmptyIntersection) {
    EXPECT_TRUE(intersection({0, 0, 10, 10}, {10, 0, 10, 10}).empty());
    EXPECT_FALSE(intersection({0, 0, 10, 10}, {9, 9, 10, 10}).empty());
}

}  // namespace
}  // namespace huebrush::view
