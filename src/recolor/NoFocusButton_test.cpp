// SPDX-License-Identifier: MPL-2.0

#include "recolor/NoFocusButton.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"

namespace huebrush::recolor {
namespace {

using base::Picture;
using base::PictureFormat;
using base::text;
using Names = std::vector<std::string>;

class ButtonForm final : public forms::Form {
 public:
    ButtonForm() : Form("ButtonForm") { Font.initialize({"Arial", 10, false}); }
    forms::CheckBox box{*this, "box"};
    NoFocusButton button{*this, "button"};
};

/// Notes what is painted. Every character is 100 twips wide, every line 200 high.
class RecordingCanvas final : public forms::Canvas {
 public:
    void Cls() override {
        if (fails) throw base::Error(7, "popis");
        calls.push_back("Cls");
    }
    double TextWidth(const std::string& shown, const forms::Font& font) override {
        fonts.push_back(font);
        return 100.0 * static_cast<double>(shown.size());
    }
    double TextHeight(const std::string&, const forms::Font& font) override {
        fonts.push_back(font);
        return 200;
    }
    void Print(const std::string& shown, double x, double y, const forms::Font& font,
               unsigned color) override {
        fonts.push_back(font);
        calls.push_back(
            text("Print ", shown, " ", static_cast<int>(x), " ", static_cast<int>(y), " ", color));
    }

    Names calls;
    std::vector<forms::Font> fonts;
    bool fails = false;
};

class NoFocusButtonTest : public ::testing::Test {
 protected:
    NoFocusButtonTest() {
        button.Width = 1000;
        button.Height = 400;
        button.Caption = std::string("abc");
    }
    Names painted() {
        RecordingCanvas canvas;
        button.paint(canvas);
        return canvas.calls;
    }
    void watchChanges() {
        button.PropertyChanged.connect(
            [this](const std::string& name) { changed.push_back(name); });
    }

    memory::TestHost test;
    std::shared_ptr<ButtonForm> form = std::make_shared<ButtonForm>();
    NoFocusButton& button = form->button;
    memory::Driver user{*form};
    Names changed;
    const Picture first{PictureFormat::bitmap, {1}};
    const Picture second{PictureFormat::bitmap, {2}};
};

TEST_F(NoFocusButtonTest, ANewOneHasTheAmbientFontAndItsDefaults) {
    const NoFocusButton fresh(*form, "fresh");
    EXPECT_EQ(fresh.Font.get(), (forms::Font{"Arial", 10, false}));
    EXPECT_EQ(fresh.Caption.get(), "Caption");
    EXPECT_EQ(fresh.ForeColor.get(), 0x80000012U);
    EXPECT_TRUE(fresh.Enabled);
    EXPECT_TRUE(fresh.Picture().empty());
    EXPECT_TRUE(fresh.DisabledPicture().empty());
    EXPECT_TRUE(fresh.img.Visible);
    EXPECT_TRUE(fresh.imgE.Visible);
    EXPECT_FALSE(fresh.imgD.Visible);
}

TEST_F(NoFocusButtonTest, ClickingItLeavesTheFocusWhereItWas) {
    form->box.SetFocus();
    int lost = 0;
    int clicks = 0;
    form->box.LostFocus.connect([&] { ++lost; });
    button.Click.connect([&] { ++clicks; });
    user.click(button);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(lost, 0);
    EXPECT_EQ(form->focused(), &form->box);
}

TEST_F(NoFocusButtonTest, TheTabKeyPassesItBy) {
    form->box.SetFocus();
    user.tab();
    EXPECT_EQ(form->focused(), &form->box);
    EXPECT_THROW(button.SetFocus(), base::Error);
}

TEST_F(NoFocusButtonTest, RaisesMouseAndClickEventsWithTheirArguments) {
    Names events;
    const auto watch = [&](const char* name) {
        return [&events, name](const forms::MouseEvent& event) {
            events.push_back(text(name, " ", event.Button, " ", event.Shift, " ",
                                  static_cast<int>(event.X), " ", static_cast<int>(event.Y)));
        };
    };
    button.MouseDown.connect(watch("down"));
    button.MouseMove.connect(watch("move"));
    button.MouseUp.connect(watch("up"));
    button.Click.connect([&] { events.push_back("click"); });
    button.DblClick.connect([&] { events.push_back("double"); });
    button.mouseDown({1, 2, 3, 4});
    button.mouseMove({1, 2, 5, 6});
    button.mouseUp({2, 0, 7, 8});
    button.click();
    button.doubleClick();
    EXPECT_EQ(events, (Names{"down 1 2 3 4", "move 1 2 5 6", "up 2 0 7 8", "click", "double"}));
}

TEST_F(NoFocusButtonTest, LooksPressedFromMouseDownToMouseUp) {
    button.MouseDown.connect([this](const forms::MouseEvent&) {
        EXPECT_EQ(button.img.BorderStyle, 0) << "the event comes before the look";
        EXPECT_TRUE(button.lineTop.Visible);
    });
    button.mouseDown({});
    EXPECT_EQ(button.img.BorderStyle, 1);
    EXPECT_FALSE(button.lineTop.Visible);
    EXPECT_FALSE(button.lineLeft.Visible);
    EXPECT_TRUE(button.lineBottom.Visible);
    EXPECT_TRUE(button.lineRight.Visible);
    button.MouseUp.connect([this](const forms::MouseEvent&) {
        EXPECT_EQ(button.img.BorderStyle, 1) << "the event comes before the look";
    });
    button.mouseUp({});
    EXPECT_EQ(button.img.BorderStyle, 0);
    EXPECT_TRUE(button.lineTop.Visible);
    EXPECT_TRUE(button.lineLeft.Visible);
}

TEST_F(NoFocusButtonTest, ADisabledOneShowsItsOtherPictureAndRaisesNoMouseEvents) {
    button.setPicture(first);
    button.setDisabledPicture(second);
    int events = 0;
    button.MouseDown.connect([&](const forms::MouseEvent&) { ++events; });
    button.MouseMove.connect([&](const forms::MouseEvent&) { ++events; });
    button.MouseUp.connect([&](const forms::MouseEvent&) { ++events; });
    button.Click.connect([&] { ++events; });
    button.DblClick.connect([&] { ++events; });
    button.Enabled = false;
    EXPECT_FALSE(button.img.Visible);
    EXPECT_FALSE(button.imgE.Visible);
    EXPECT_TRUE(button.imgD.Visible);
    button.mouseDown({});
    button.mouseMove({});
    button.mouseUp({});
    button.click();
    button.doubleClick();
    EXPECT_EQ(events, 0);
    button.Enabled = true;
    EXPECT_TRUE(button.img.Visible);
    EXPECT_TRUE(button.imgE.Visible);
    EXPECT_FALSE(button.imgD.Visible);
    button.click();
    EXPECT_EQ(events, 1);
}

TEST_F(NoFocusButtonTest, OneInADisabledOrHiddenContainerRaisesNothingEither) {
    int clicks = 0;
    button.Click.connect([&] { ++clicks; });
    form->Enabled = false;
    button.click();
    EXPECT_EQ(clicks, 0);
}

TEST_F(NoFocusButtonTest, PaintsTheCaptionOnceInTheMiddleOfTheFace) {
    EXPECT_EQ(painted(), (Names{"Cls", text("Print abc 350 100 ", 0x80000012U)}));
    button.ForeColor = 0xFFU;
    EXPECT_EQ(painted(), (Names{"Cls", "Print abc 350 100 255"}));
}

TEST_F(NoFocusButtonTest, PaintsTheCaptionEngravedWithUnequalOffsetsWhileDisabled) {
    button.Enabled = false;
    EXPECT_EQ(painted(), (Names{"Cls", text("Print abc 357 107 ", 0x8000000EU),
                                text("Print abc 342 92 ", 0x8000000CU)}));
}

TEST_F(NoFocusButtonTest, AnEmptyCaptionStillClearsTheFace) {
    button.Caption = std::string();
    const Names calls = painted();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls[0], "Cls");
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[1].starts_with("Print  500 100 "));
}

TEST_F(NoFocusButtonTest, MeasuresAndPrintsInItsOwnFont) {
    const forms::Font bold{"Tahoma", 12, true};
    button.Font = bold;
    RecordingCanvas canvas;
    button.paint(canvas);
    EXPECT_EQ(canvas.fonts, (std::vector<forms::Font>{bold, bold, bold}));
}

TEST_F(NoFocusButtonTest, ReportsAnErrorOfThePainting) {
    RecordingCanvas canvas;
    canvas.fails = true;
    button.paint(canvas);
    EXPECT_EQ(test.runtime.boxes.at(0).text,
              "Chyba v modulu \"Huebrush.NoFocusButton.UserControl_Paint\"...\r\n\r\nChyba při "
              "překreslování tlačítka...\r\n\r\nSystémový popis výjimky:\r\npopis");
}

TEST_F(NoFocusButtonTest, EverySetterAnnouncesItsPropertyUnderItsName) {
    watchChanges();
    button.ForeColor = 1U;
    button.Enabled = false;
    button.Font = forms::Font{"Arial", 12, true};
    button.Caption = std::string("x");
    button.setPicture(first);
    button.setDisabledPicture(second);
    EXPECT_EQ(changed,
              (Names{"ForeColor", "Enabled", "Font", "Caption", "Picture", "DisabledPicture"}));
}

TEST_F(NoFocusButtonTest, ColourFontCaptionAndEnabledRepaintTheFace) {
    class Painter final : public forms::Peer {
     public:
        explicit Painter(int& count) : paints(count) {}
        void changed(forms::PropertyId id) override {
            if (id == forms::PropertyId::Paint) ++paints;
        }
        int& paints;
    };
    int paints = 0;
    button.setPeer(std::make_unique<Painter>(paints));
    button.ForeColor = 1U;
    button.Enabled = false;
    button.Font = forms::Font{"Arial", 12, true};
    button.Caption = std::string("x");
    EXPECT_EQ(paints, 4);
}

TEST_F(NoFocusButtonTest, SavesItsPropertiesInTheirOrder) {
    forms::PropertyBag bag;
    button.WriteProperties(bag);
    EXPECT_EQ(bag.written(),
              (Names{"ForeColor", "Enabled", "Font", "Caption", "Picture", "DisabledPicture"}));
}

TEST_F(NoFocusButtonTest, ReadsBackWhatItSaved) {
    button.ForeColor = 255U;
    button.Enabled = false;
    button.Font = forms::Font{"Arial", 12, true};
    button.setPicture(first);
    button.setDisabledPicture(second);
    forms::PropertyBag bag;
    button.WriteProperties(bag);
    NoFocusButton other(*form, "other");
    other.ReadProperties(bag);
    EXPECT_EQ(other.ForeColor.get(), 255U);
    EXPECT_FALSE(other.Enabled);
    EXPECT_TRUE(other.imgD.Visible);
    EXPECT_EQ(other.Font.get(), (forms::Font{"Arial", 12, true}));
    EXPECT_EQ(other.Caption.get(), "abc");
    EXPECT_EQ(other.Picture(), first);
    EXPECT_EQ(other.DisabledPicture(), second);
}

TEST_F(NoFocusButtonTest, ReadsTheDefaultsFromAnEmptyBag) {
    button.ForeColor = 255U;
    button.Enabled = false;
    button.Font = forms::Font{"Times", 12, true};
    button.setPicture(first);
    button.ReadProperties(forms::PropertyBag());
    EXPECT_EQ(button.ForeColor.get(), 0x80000012U);
    EXPECT_TRUE(button.Enabled);
    EXPECT_EQ(button.Font.get(), form->Font.get());
    EXPECT_EQ(button.Caption.get(), "Caption");
    EXPECT_TRUE(button.Picture().empty());
}

TEST_F(NoFocusButtonTest, ADefaultFontIsTheAmbientOneOfWhereItIsRead) {
    const NoFocusButton fresh(*form, "fresh");
    forms::PropertyBag bag;
    fresh.WriteProperties(bag);
    form->Font = forms::Font{"Times", 20, false};
    NoFocusButton other(*form, "other");
    other.ReadProperties(bag);
    EXPECT_EQ(other.Font.get(), (forms::Font{"Times", 20, false}));
}

TEST_F(NoFocusButtonTest, TheMouseSurfaceAndTheDisabledPictureCoverTheWholeFace) {
    button.Width = 2000;
    button.Height = 500;
    for (const forms::Image* const image : {&button.img, &button.imgD}) {
        EXPECT_EQ(image->Left, 0);
        EXPECT_EQ(image->Top, 0);
        EXPECT_EQ(image->Width, 2000);
        EXPECT_EQ(image->Height, 500);
    }
}

TEST_F(NoFocusButtonTest, TheEnabledPictureIsCentredOnTheFaceAtEachResizeAndEachPicture) {
    const auto expectCentred = [this] {
        EXPECT_EQ(button.imgE.Left, (button.Width - button.imgE.Width) / 2);
        EXPECT_EQ(button.imgE.Top, (button.Height - button.imgE.Height) / 2);
    };
    EXPECT_EQ(button.imgE.Left, 320);
    EXPECT_EQ(button.imgE.Top, 20);
    button.Width = 2000;
    expectCentred();
    EXPECT_EQ(button.imgE.Left, 820);
    button.Height = 900;
    expectCentred();
    EXPECT_EQ(button.imgE.Top, 270);
    button.imgE.Width = 600.0;
    button.imgE.Height = 200.0;
    button.setPicture(first);
    expectCentred();
    EXPECT_EQ(button.imgE.Left, 700);
}

TEST_F(NoFocusButtonTest, TheDisabledPictureIsCentredOnTheFaceByItsSetter) {
    button.imgD.Width = 600.0;
    button.imgD.Height = 200.0;
    button.setDisabledPicture(second);
    EXPECT_EQ(button.imgD.Left, 200);
    EXPECT_EQ(button.imgD.Top, 100);
}

TEST_F(NoFocusButtonTest, TheEdgesLieAlongTheFaceWithAnOffsetOf20Twips) {
    EXPECT_EQ(button.lineTop.Width, 980);
    EXPECT_EQ(button.lineLeft.Height, 380);
    EXPECT_EQ(button.lineBottom.Top, 380);
    EXPECT_EQ(button.lineRight.Left, 980);
}

}  // namespace
}  // namespace huebrush::recolor
