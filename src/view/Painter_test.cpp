// SPDX-License-Identifier: MPL-2.0

#include "view/Painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/UserControl.h"
#include "ports/memory/MemoryRuntime.h"
#include "view/MenuPainter.h"

namespace huebrush::view {
namespace {

using Lines = std::vector<std::string>;

/// 15 twips are a pixel; each character is 6 pixels wide and 10 high.
constexpr double kPixel = 15;

/// Records what is drawn. Colours of the theme are recorded by their names.
class WritingCanvas final : public Canvas {
 public:
    explicit WritingCanvas(const Theme& theme) : theme_(theme) {}

    void rectangle(const Rectangle& place, Colour inside, Colour edge) override {
        add("rectangle ", textOf(place), " ", nameOf(inside), " ", nameOf(edge));
    }
    void line(const Point& from, const Point& to, std::int32_t colour) override {
        add("line ", textOf(from), " ", textOf(to), " ", nameOf(colour));
    }
    void polygon(const std::vector<Point>& corners, std::int32_t colour) override {
        add("polygon of ", static_cast<int>(corners.size()), " ", nameOf(colour));
    }
    void text(const Point& at, const std::string& text, const forms::Font& font,
              std::int32_t colour) override {
        add("text ", textOf(at), " '", text, font.Bold ? "' bold " : "' ", nameOf(colour));
    }
    void picture(const Rectangle& place, const base::Picture&) override {
        add("picture ", textOf(place));
    }
    Size textSize(const std::string& text, const forms::Font&) override {
        return {static_cast<std::int32_t>(6 * base::lengthInCharacters(text)), 10};
    }
    std::int32_t ascent(const forms::Font&) override { return 8; }
    std::optional<Size> pictureSize(const base::Picture& picture) override {
        return picture.empty() ? std::nullopt : std::optional<Size>({40, 20});
    }

    Lines lines;

 private:
    template <class... Parts>
    void add(const Parts&... parts) {
        lines.push_back(base::text(parts...));
    }
    static std::string textOf(const Point& point) { return base::text(point.x, ",", point.y); }
    static std::string textOf(const Rectangle& place) {
        return base::text(place.left, ",", place.top, " ", place.width, "x", place.height);
    }
    std::string nameOf(Colour colour) const {
        if (!colour) return "-";
        if (*colour == theme_.dialog) return "dialog";
        if (*colour == theme_.shadow) return "shadow";
        if (*colour == theme_.face) return "face";
        if (*colour == theme_.field) return "field";
        if (*colour == theme_.highlight) return "highlight";
        if (*colour == theme_.dialogText) return "black";
        return base::text(*colour);
    }

    const Theme& theme_;
};

class Row final : public forms::UserControl {
 public:
    using UserControl::UserControl;
    void WriteProperties(forms::PropertyBag&) const override {}
    void ReadProperties(const forms::PropertyBag&) override {}
    void paint(forms::Canvas& canvas) override {
        canvas.Cls();
        forms::Font bold;
        bold.Bold = true;
        canvas.Print("face", canvas.TextWidth("ab", bold), canvas.TextHeight("a", bold), bold, 0);
    }
};

class PainterTest : public ::testing::Test {
 protected:
    PainterTest() { place(*form, 0, 0, 200, 100); }

    static void place(forms::Control& control, int left, int top, int width, int height) {
        control.Move(left * kPixel, top * kPixel, width * kPixel, height * kPixel);
    }
    /// What is drawn after the background.
    Lines painted() { return painted(*form, {200, 100}); }
    Lines painted(forms::Control& surface, const Size& size) {
        canvas.lines.clear();
        Painter(canvas, theme, scale).paint(surface, size);
        EXPECT_FALSE(canvas.lines.empty());
        background = canvas.lines.front();
        return {canvas.lines.begin() + 1, canvas.lines.end()};
    }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<forms::Form> form = std::make_shared<forms::Form>("form");
    Theme theme;
    Scale scale;
    WritingCanvas canvas{theme};
    std::string background;
};

TEST_F(PainterTest, AFormIsItsBackground) {
    EXPECT_EQ(painted(), Lines{});
    EXPECT_EQ(background, "rectangle 0,0 200x100 dialog -");
}

TEST_F(PainterTest, APictureBoxHasItsColourAndItsEdge) {
    forms::PictureBox box(*form, "box");
    box.BackColor = forms::SystemColor::kWindowBackground;
    box.BorderStyle = std::int16_t{1};
    EXPECT_EQ(painted(box, {50, 40}), Lines{"rectangle 0,0 50x40 - shadow"});
    EXPECT_EQ(background, "rectangle 0,0 50x40 field -");
    box.BackColor = 0x123456U;
    painted(box, {50, 40});
    EXPECT_EQ(background, base::text("rectangle 0,0 50x40 ", 0x563412, " -"))
        << "a colour's red is in its low byte";
}

TEST_F(PainterTest, ALabelIsAlignedInItsWidth) {
    forms::Label label(*form, "label");
    label.Caption = std::string("čtyři");
    place(label, 10, 20, 50, 10);
    EXPECT_EQ(painted(), Lines{"text 10,20 'čtyři' black"});
    label.Alignment = forms::Alignment::kRight;
    EXPECT_EQ(painted(), Lines{"text 30,20 'čtyři' black"});
    label.Alignment = forms::Alignment::kCentre;
    EXPECT_EQ(painted(), Lines{"text 20,20 'čtyři' black"});
}

TEST_F(PainterTest, ALabelWithRoomForLinesIsBrokenAtSpaces) {
    forms::Label label(*form, "label");
    label.Caption = std::string("one two verylongword x");
    place(label, 0, 0, 48, 40);
    EXPECT_EQ(painted(), (Lines{"text 0,0 'one two' black", "text 0,10 'verylongword' black",
                                "text 0,20 'x' black"}));
    label.Height = 19 * kPixel;
    EXPECT_EQ(painted(), Lines{"text 0,0 'one two verylongword x' black"});
}

TEST_F(PainterTest, AFrameLeavesAGapForItsCaption) {
    forms::Frame frame(*form, "frame");
    place(frame, 0, 0, 100, 50);
    frame.Caption = std::string("ab");
    EXPECT_EQ(painted(), (Lines{"rectangle 0,5 100x45 - shadow",
                                "rectangle 4,0 20x10 dialog dialog", "text 8,0 'ab' black"}));
    frame.Caption = std::string();
    EXPECT_EQ(painted(), Lines{"rectangle 0,5 100x45 - shadow"});
    frame.BorderStyle = std::int16_t{0};
    EXPECT_EQ(painted(), Lines{});
}

TEST_F(PainterTest, ADisabledFramesCaptionFades) {
    forms::Frame frame(*form, "frame");
    frame.Caption = std::string("ab");
    frame.Enabled = false;
    place(frame, 0, 0, 100, 50);
    const Lines lines = painted();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[2], base::text("text 8,0 'ab' ", disabledText(0, theme.dialog)));
}

TEST_F(PainterTest, APictureIsAsLargeAsFitsInTheMiddle) {
    forms::Image image(*form, "image");
    image.BorderStyle = std::int16_t{1};
    place(image, 10, 10, 80, 80);
    EXPECT_EQ(painted(), Lines{"rectangle 10,10 80x80 - shadow"});
    image.Picture = base::Picture(base::PictureFormat::bitmap, {1});
    EXPECT_EQ(painted(), (Lines{"picture 10,30 80x40", "rectangle 10,10 80x80 - shadow"}));
    image.Width = 20 * kPixel;
    EXPECT_EQ(painted().front(), "picture 10,45 20x10");
}

TEST_F(PainterTest, APictureBoxShowsItsPictureUnderWhatLiesOnIt) {
    forms::PictureBox box(*form, "box");
    box.BorderStyle = std::int16_t{1};
    box.Picture = base::Picture(base::PictureFormat::bitmap, {1});
    forms::Line line(box, "line");
    place(line, 0, 0, 9, 0);
    EXPECT_EQ(painted(box, {80, 80}),
              (Lines{"picture 0,20 80x40", "line 0,0 9,0 shadow", "rectangle 0,0 80x80 - shadow"}));
    place(box, 0, 0, 80, 80);
    EXPECT_EQ(painted(), Lines{}) << "it has a window of its own";
}

TEST_F(PainterTest, APictureBoxInsideAnotherIsPaintedOnIt) {
    forms::PictureBox box(*form, "box");
    place(box, 0, 0, 100, 100);
    forms::PictureBox inner(box, "inner");
    inner.BackColor = forms::SystemColor::kWindowBackground;
    inner.BorderStyle = std::int16_t{1};
    inner.Picture = base::Picture(base::PictureFormat::bitmap, {1});
    place(inner, 10, 20, 40, 40);
    forms::Frame frame(inner, "frame");
    frame.Caption = std::string("a");
    place(frame, 0, 0, 40, 30);
    EXPECT_EQ(painted(box, {100, 100}),
              (Lines{"rectangle 10,20 40x40 field -", "picture 10,30 40x20",
                     "rectangle 10,20 40x40 - shadow", "rectangle 10,25 40x25 - shadow",
                     "rectangle 14,20 14x10 field field", "text 18,20 'a' black"}));
}

TEST_F(PainterTest, ALineGoesFromCornerToCorner) {
    forms::Line line(*form, "line");
    place(line, 10, 20, 30, 0);
    EXPECT_EQ(painted(), Lines{"line 10,20 40,20 shadow"});
}

TEST_F(PainterTest, AUserControlPaintsItsFaceAtItsPlace) {
    Row row(*form, "row");
    place(row, 30, 40, 60, 20);
    EXPECT_EQ(painted(),
              (Lines{"rectangle 30,40 60x20 face shadow", "text 42,50 'face' bold black"}));
}

TEST_F(PainterTest, NativeControlsAreNotPainted) {
    forms::CommandButton button(*form, "button");
    button.Caption = std::string("button");
    place(button, 0, 0, 50, 20);
    EXPECT_EQ(painted(), Lines{});
}

TEST_F(PainterTest, ANativeFieldOfSeveralLinesGetsAnEdge) {
    forms::TextBox field(*form, "field");
    place(field, 10, 20, 50, 20);
    EXPECT_EQ(painted(), Lines{});
    field.MultiLine.initialize(true);
    EXPECT_EQ(painted(), Lines{"rectangle 10,20 50x20 - shadow"});
}

// Menus.

class MenuPainterTest : public PainterTest {
 protected:
    Lines paintedMenu(const forms::MenuChoice& choice) {
        canvas.lines.clear();
        const MenuLayout layout = layoutOf(choice, canvas, scale);
        MenuPainter(canvas, theme, layout, choice).paint();
        return canvas.lines;
    }
    static bool has(const Lines& lines, const std::string& line) {
        return std::ranges::find(lines, line) != lines.end();
    }

    forms::PopupMenu menu{"menu"};
    forms::MenuItem first{menu, "first", "&First"};
    forms::MenuItem rule{menu, "rule", "-"};
    forms::MenuItem last{menu, "last", "Last o&ne"};
};

TEST_F(MenuPainterTest, ALineIsItsTextWithItsAccessKeyUnderlined) {
    const Lines lines = paintedMenu(forms::MenuChoice(menu));
    EXPECT_TRUE(has(lines, "text 23,8 'First' black"));
    EXPECT_TRUE(has(lines, "rectangle 23,17 6x1 black -")) << "below the F";
    EXPECT_TRUE(has(lines, "text 23,36 'Last one' black"));
    EXPECT_TRUE(has(lines, "rectangle 59,45 6x1 black -")) << "below the n";
}

TEST_F(MenuPainterTest, ADisabledLineFadesAndATickedOneHasATick) {
    first.Enabled = false;
    last.Checked = true;
    const Lines lines = paintedMenu(forms::MenuChoice(menu));
    EXPECT_TRUE(has(lines, base::text("text 23,8 'First' ", disabledText(0, theme.menu))));
    EXPECT_TRUE(has(lines, "polygon of 6 black"));
}

TEST_F(MenuPainterTest, TheHighlightedLineStandsOut) {
    forms::MenuChoice choice(menu);
    choice.moveToLast();
    const Lines lines = paintedMenu(choice);
    EXPECT_TRUE(has(lines, "rectangle 3,31 88x20 highlight -"));
    EXPECT_TRUE(has(lines, "text 23,36 'Last one' black")) << "white is too faint on it";
}

TEST(ThemeTest, SystemColoursAreTheUsers) {
    Theme theme;
    theme.field = 0xF0F8FF;
    theme.fieldText = 0x405060;
    theme.workspace = 0x111111;
    EXPECT_EQ(theme.colour(forms::SystemColor::kWindowBackground), 0xF0F8FF);
    EXPECT_EQ(theme.textOn(forms::SystemColor::kWindowBackground), 0x405060);
    EXPECT_EQ(theme.textOn(forms::SystemColor::kApplicationWorkspace), 0xFFFFFF);
    EXPECT_EQ(theme.textOn(0xFFFFFFU), 0);
    EXPECT_EQ(theme.colour(0x0000FFU), 0xFF0000);
}

TEST(ThemeTest, MixingGoesFromTheFirstColourToTheSecond) {
    EXPECT_EQ(mixed(0x000000, 0x6496FF, 0), 0x000000);
    EXPECT_EQ(mixed(0x000000, 0x6496FF, 1), 0x6496FF);
    EXPECT_EQ(mixed(0x000000, 0x6496FE, 0.5), 0x324B7F);
}

}  // namespace
}  // namespace huebrush::view
