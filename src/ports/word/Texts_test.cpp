// SPDX-License-Identifier: MPL-2.0

// Whether every text of every dialog has room where it stands, by the measures of the system's own
// fonts: those of Windows, here by Wine's, and what stands in for them elsewhere, at the usual
// resolutions.

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "addin/frmAbout.h"
#include "base/Text.h"
#include "files/Folder_test_support.h"
#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"
#include "ports/word/com/Text.h"
#include "ports/word/graphics/Gdi.h"
#include "ports/word/window/GdiCanvas.h"
#include "recolor/frmEditGraphic.h"
#include "view/NativeKinds.h"
#include "view/Painter.h"
#include "view/Scene.h"

namespace huebrush::word {
namespace {

using base::text;

// What the system's controls need around their texts, in pixels at 96 dots per inch: the edge of a
// button and the focus within it; a box and the gap beside it; the edge of a field.
constexpr int kAroundButton = 3;
constexpr int kBox = 13;
constexpr int kBesideBox = 4;
constexpr int kAroundField = 2;

bool overlap(const view::Rectangle& a, const view::Rectangle& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

bool isIn(const view::Rectangle& inner, const view::Rectangle& outer) {
    return inner.left >= outer.left && inner.top >= outer.top &&
           inner.left + inner.width <= outer.left + outer.width &&
           inner.top + inner.height <= outer.top + outer.height;
}

/// A text, and the pixels of its surface that it takes.
struct PlacedText {
    std::string text;
    view::Rectangle place;
};

/// Measures in one font, whatever font is wanted, and keeps the texts instead of drawing.
class Measure final : public view::Canvas {
 public:
    Measure(std::string face, int resolution) : face_(std::move(face)), look_(resolution) {}

    void rectangle(const view::Rectangle&, Colour, Colour) override {}
    void line(const view::Point&, const view::Point&, std::int32_t) override {}
    void polygon(const std::vector<view::Point>&, std::int32_t) override {}
    void picture(const view::Rectangle&, const base::Picture&) override {}
    void text(const view::Point& at, const std::string& text, const forms::Font& font,
              std::int32_t) override {
        const view::Size size = textSize(text, font);
        if (text.empty()) return;
        texts.push_back({text, {at.x, at.y, size.width, size.height}});
        seen.insert(text);
    }

    view::Size textSize(const std::string& text, const forms::Font& font) override {
        return canvas_.textSize(text, inFace(font));
    }
    std::int32_t ascent(const forms::Font& font) override { return canvas_.ascent(inFace(font)); }
    std::optional<view::Size> pictureSize(const base::Picture&) override { return std::nullopt; }

    /// The name of the font that the system really takes.
    std::string takenFace() {
        const Selected selected(context_.get(), look_.font(inFace({})));
        wchar_t name[LF_FACESIZE]{};
        ::GetTextFaceW(context_.get(), LF_FACESIZE, name);
        return toUtf8(name);
    }
    const view::Theme& theme() const { return look_.theme; }

    /// Those since this was emptied last.
    std::vector<PlacedText> texts;
    /// All of them.
    std::set<std::string> seen;

 private:
    forms::Font inFace(forms::Font font) const {
        font.Name = face_;
        return font;
    }

    std::string face_;
    Look look_;
    Context context_{::CreateCompatibleDC(nullptr)};
    GdiCanvas canvas_{context_.get(), look_};
};

std::string withoutAccessKey(std::string caption) {
    std::erase(caption, '&');
    return caption;
}

/// The rooms for text on a surface, and the texts in them.
class SurfaceTexts {
 public:
    SurfaceTexts(forms::Control& surface, Measure& measure, int resolution)
        : surface_(surface), measure_(measure), resolution_(resolution), scale_(resolution) {
        scene_ = view::sceneOf(surface, surface.Width, surface.Height);
    }

    /// How many texts there are.
    std::size_t check() {
        checkPainted();
        for (const view::Placed& placed : scene_) checkNative(placed);
        return count_;
    }
    const std::vector<view::Placed>& scene() const { return scene_; }

 private:
    int scaled(int pixels) const { return (pixels * resolution_ + 48) / 96; }
    view::Rectangle roomOf(const view::Placed& placed) const {
        return scale_.toPixels(placed.visible);
    }

    void checkPainted() {
        measure_.texts.clear();
        const view::Rectangle whole =
            scale_.toPixels(view::Box{0, 0, surface_.Width, surface_.Height});
        view::Painter(measure_, measure_.theme(), scale_)
            .paint(surface_, {whole.width, whole.height});
        for (std::size_t i = 0; i < measure_.texts.size(); ++i) {
            const PlacedText& each = measure_.texts[i];
            SCOPED_TRACE(text("\"", each.text, "\" on ", surface_.name()));
            checkRoom(each, whole);
            for (std::size_t other = 0; other < i; ++other) {
                EXPECT_FALSE(overlap(each.place, measure_.texts[other].place))
                    << "covers \"" << measure_.texts[other].text << "\"";
            }
            ++count_;
        }
    }
    /// A painted text stays within the width of its control, and no control of the system lies on
    /// it. A line may be a pixel or two higher than its place, where nothing follows.
    void checkRoom(const PlacedText& each, const view::Rectangle& whole) {
        EXPECT_TRUE(isIn(each.place, whole));
        bool found = false;
        for (const view::Placed& placed : scene_) {
            view::Rectangle room = roomOf(placed);
            if (view::isNative(*placed.control) || view::isSurface(*placed.control)) {
                EXPECT_FALSE(overlap(each.place, room)) << "under " << placed.control->name();
                continue;
            }
            room.height = std::max(room.height, each.place.height);
            found = found || isIn(each.place, room);
        }
        EXPECT_TRUE(found) << "is wider than its place: " << each.place.width << " pixels";
    }

    void checkNative(const view::Placed& placed) {
        const view::Rectangle room = roomOf(placed);
        SCOPED_TRACE(text(placed.control->name(), " on ", surface_.name()));
        if (const auto* const button = dynamic_cast<forms::CommandButton*>(placed.control)) {
            checkCaption(button->Caption, room, 2 * kAroundButton, 2 * kAroundButton);
        } else if (const auto* const box = dynamic_cast<forms::CheckBox*>(placed.control)) {
            checkCaption(box->Caption, room, kBox + kBesideBox, 0);
        } else if (const auto* const option = dynamic_cast<forms::OptionButton*>(placed.control)) {
            checkCaption(option->Caption, room, kBox + kBesideBox, 0);
        } else if (dynamic_cast<forms::TextBox*>(placed.control) != nullptr) {
            EXPECT_LE(measure_.textSize("Áy", {}).height + 2 * scaled(kAroundField), room.height);
        }
    }
    void checkCaption(const std::string& caption, const view::Rectangle& room, int beside,
                      int above) {
        if (caption.empty()) return;
        const view::Size size = measure_.textSize(withoutAccessKey(caption), {});
        EXPECT_LE(size.width + scaled(beside), room.width) << caption;
        EXPECT_LE(size.height + scaled(above), room.height) << caption;
        ++count_;
    }

    forms::Control& surface_;
    Measure& measure_;
    int resolution_;
    view::Scale scale_;
    std::vector<view::Placed> scene_;
    std::size_t count_ = 0;
};

/// By font and resolution.
class TextsTest : public testing::TestWithParam<std::tuple<const char*, int>> {
 protected:
    void SetUp() override { ASSERT_EQ(measure.takenFace(), std::get<0>(GetParam())); }

    /// Of a surface and of those on it.
    std::size_t textsOn(forms::Control& surface) {
        SurfaceTexts texts(surface, measure, std::get<1>(GetParam()));
        std::size_t count = texts.check();
        for (const view::Placed& placed : texts.scene()) {
            if (view::isSurface(*placed.control)) count += textsOn(*placed.control);
        }
        return count;
    }

    /// The recolour dialog with the fills of two shapes.
    std::shared_ptr<recolor::frmEditGraphic> filledDialog() {
        test.document->addSolid("Slunce", 0x0000FF);
        test.document->addSolid("Obloha", 0xFF0000);
        test.document->selectAll();
        auto dialog = recolor::frmEditGraphic::create();
        dialog->connect(test.application);
        memory::Driver(*dialog).click(dialog->cmdAdd);
        return dialog;
    }

    memory::TestHost test;
    Measure measure{std::get<0>(GetParam()), std::get<1>(GetParam())};
};

TEST_P(TextsTest, OfTheRecolourDialogHaveRoom) {
    const auto dialog = filledDialog();
    EXPECT_GE(textsOn(*dialog), 12U);
    // A row without a fill says so on both sides.
    test.runtime.picks = {"Bez výplně"};
    memory::Driver(*dialog).click(dialog->Element[1].cmdChangeDes);
    EXPECT_GE(textsOn(*dialog), 13U);
    dialog->picLoadStatus.Visible = true;
    const std::string longest = "Zpracováno 32767 ze 32767 objektů...";
    dialog->lblLoadStatus.Caption = longest;
    textsOn(*dialog);
    EXPECT_TRUE(measure.seen.contains(longest));
    dialog->Unload();
}

TEST_P(TextsTest, OfTheAboutBoxHaveRoom) {
    const auto box = addin::frmAbout::create();
    EXPECT_GE(textsOn(*box), 9U);
    box->Unload();
}

TEST_P(TextsTest, OfTheDialogsOfPalettesHaveRoom) {
    const files::TemporaryFolder folder;
    test.runtime.settings[{"Huebrush", "Database", "FileName"}] =
        files::nameOf(folder.path() / "none.mdb");
    const auto dialog = filledDialog();
    std::vector<std::string> seen;
    test.runtime.onModal = [&](forms::Form& form) {
        seen.push_back(form.name());
        EXPECT_GE(textsOn(form), 5U);
    };
    const memory::Driver user(*dialog);
    user.click(dialog->chkSelAll);
    user.click(dialog->cmdToDatabase);
    user.click(dialog->cmdFromDatabase);
    EXPECT_EQ(seen, (std::vector<std::string>{"frmSaveFill", "frmLoadFill"}));
    dialog->Unload();
}

// What has no room is found.

TEST_P(TextsTest, OfALabelOrAButtonThatIsTooNarrowAreFound) {
    const auto box = addin::frmAbout::create();
    box->lblTitle.Width = 300.0;
    EXPECT_NONFATAL_FAILURE(textsOn(*box), "is wider than its place");
    box->lblTitle.Width = 3000.0;
    box->cmdSysInfo.Width = 600.0;
    EXPECT_NONFATAL_FAILURE(textsOn(*box), "&System Info...");
    box->Unload();
}

TEST_P(TextsTest, ThatCoverEachOtherOrLieUnderAControlAreFound) {
    const auto box = addin::frmAbout::create();
    const double top = box->lblVersion.Top;
    box->lblVersion.Top = box->lblTitle.Top.get();
    EXPECT_NONFATAL_FAILURE(textsOn(*box), "covers");
    box->lblVersion.Top = top;
    box->lblVersion.Left = box->cmdOK.Left.get();
    box->lblVersion.Top = box->cmdOK.Top.get();
    EXPECT_NONFATAL_FAILURE(textsOn(*box), "under cmdOK");
    box->Unload();
}

INSTANTIATE_TEST_SUITE_P(Fonts, TextsTest,
                         testing::Combine(testing::Values("Tahoma", "Liberation Sans"),
                                          testing::Values(96, 120, 144)));

}  // namespace
}  // namespace huebrush::word
