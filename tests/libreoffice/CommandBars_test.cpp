// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/CommandBars.h"

#include <gtest/gtest.h>

#include "TestComponent.h"
#include "TestDocument.h"
#include "addin/ButtonFace.h"
#include "forms/Runtime.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/bar/TextWindows.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::tests {
namespace {

using libreoffice::CommandBars;

class CommandBarsTest : public testing::Test {
 protected:
    void TearDown() override {
        bar->Delete();
        bars.save();
    }

    /// The URL of the office's bar with this name, or an empty text.
    std::string urlOf(const std::string& name) const {
        for (const auto& known : configuration.bars()) {
            if (known.name == name) return known.url;
        }
        return {};
    }
    std::vector<libreoffice::BarConfiguration::Button> buttons() const {
        std::vector<libreoffice::BarConfiguration::Button> found;
        for (const auto& item : configuration.items(urlOf("Pokus"))) {
            found.push_back(libreoffice::BarConfiguration::buttonOf(item));
        }
        return found;
    }
    host::CommandBarControlPointer add(const std::string& tag, const std::string& caption) {
        auto button = bar->addButton();
        button->setTag(tag);
        button->setCaption(caption);
        button->setTooltipText("Co dělá " + caption);
        return button;
    }

    libreoffice::ActiveWindow window{officeContext()};
    libreoffice::OfficeRuntime runtime{officeContext(), testFolder(), window,
                                       std::make_shared<libreoffice::Snapshot>()};
    forms::RuntimeScope scope{runtime};
    libreoffice::BarConfiguration configuration{officeContext()};
    CommandBars bars{officeContext(), libreoffice::IconFiles(testFolder())};
    host::CommandBarPointer bar = bars.Add("Pokus");
};

TEST_F(CommandBarsTest, ABarIsFoundByItsNameAmongTheOfficesOwn) {
    EXPECT_GT(bars.Count(), 1);
    int found = 0;
    for (std::int32_t i = 1; i <= bars.Count(); ++i) {
        if (bars.Item(i)->Name() == "Pokus") ++found;
    }
    EXPECT_EQ(found, 1);
    EXPECT_THROW(bars.Item(0), base::Error);
    EXPECT_THROW(bars.Item(bars.Count() + 1), base::Error);
}

TEST_F(CommandBarsTest, ButtonsReachTheOfficeInTheirOrder) {
    add("Jedna", "První");
    add("Dvě", "Druhé");
    bars.save();
    ASSERT_EQ(buttons().size(), 2U);
    EXPECT_EQ(buttons()[0].command, "vnd.huebrush:Jedna");
    EXPECT_EQ(buttons()[0].caption, "První");
    EXPECT_EQ(buttons()[0].tooltip, "Co dělá První");
    EXPECT_EQ(buttons()[1].caption, "Druhé");
}

TEST_F(CommandBarsTest, AButtonAddedAndDeletedLeavesNoTrace) {
    const auto primer = bar->addButton();
    primer->PasteFace();
    primer->Delete();
    add("Jedna", "První");
    bars.save();
    EXPECT_EQ(buttons().size(), 1U);
}

TEST_F(CommandBarsTest, AButtonIsFoundByItsTagAgain) {
    const auto added = add("Jedna", "První");
    EXPECT_EQ(bar->FindControl("Jedna"), added);
    EXPECT_EQ(bar->FindControl("Dvě"), nullptr);
    added->Delete();
    EXPECT_EQ(bar->FindControl("Jedna"), nullptr);
    EXPECT_THROW(added->Delete(), base::Error);
}

TEST_F(CommandBarsTest, ALaterSessionFindsTheBarAndItsButtons) {
    add("Jedna", "První");
    bars.save();
    CommandBars later(officeContext(), libreoffice::IconFiles(testFolder()));
    host::CommandBarPointer found;
    for (std::int32_t i = 1; i <= later.Count(); ++i) {
        if (later.Item(i)->Name() == "Pokus") found = later.Item(i);
    }
    ASSERT_NE(found, nullptr);
    const auto button = found->FindControl("Jedna");
    ASSERT_NE(button, nullptr);
    int clicks = 0;
    button->Click.connect([&] { ++clicks; });
    later.click("vnd.huebrush:Jedna");
    EXPECT_EQ(clicks, 1);
    button->setCaption("Nový popis");
    later.save();
    ASSERT_EQ(buttons().size(), 1U);
    EXPECT_EQ(buttons()[0].caption, "Nový popis");
}

/// What is left of a bar by a session that was killed: the office stores it without tool tips, and
/// the user may have changed a button.
class LeftBehindBarTest : public CommandBarsTest {
 protected:
    LeftBehindBarTest() {
        add("Jedna", "První");
        bars.save();
        item.realloc(4);
        item.getArray()[0] = value("CommandURL", rtl::OUString("vnd.huebrush:Jedna"));
        item.getArray()[1] = value("Label", libreoffice::toOffice("Po svém"));
        item.getArray()[2] = value("Style", sal_Int16(1));
        item.getArray()[3] = value("IsVisible", false);
        configuration.replaceItems({urlOf("Pokus"), "Pokus"}, {item});
    }
    template <class Value>
    static com::sun::star::beans::PropertyValue value(std::string_view name, const Value& of) {
        return libreoffice::property(name, com::sun::star::uno::Any(of));
    }
    static host::CommandBarPointer find(CommandBars& in) {
        for (std::int32_t i = 1; i <= in.Count(); ++i) {
            if (in.Item(i)->Name() == "Pokus") return in.Item(i);
        }
        return nullptr;
    }
    com::sun::star::uno::Any kept(std::string_view name) const {
        return libreoffice::valueOf(configuration.items(urlOf("Pokus")).at(0), name);
    }

    libreoffice::BarConfiguration::Item item;
    CommandBars later{officeContext(), libreoffice::IconFiles(testFolder())};
};

TEST_F(LeftBehindBarTest, AFoundButtonGetsItsToolTipAndKeepsAllElse) {
    ASSERT_NE(find(later)->FindControl("Jedna"), nullptr);
    find(later)->addButton()->setTag("Dvě");
    later.save();
    ASSERT_EQ(buttons().size(), 2U);
    EXPECT_EQ(buttons()[0].tooltip, "Co dělá První");
    EXPECT_EQ(buttons()[0].caption, "Po svém");
    EXPECT_EQ(kept("Style"), com::sun::star::uno::Any(sal_Int16(1)));
    EXPECT_EQ(kept("IsVisible"), com::sun::star::uno::Any(false));
}

TEST_F(LeftBehindBarTest, ABarOfOursIsRemovedOnceItIsEmpty) {
    const auto button = find(later)->FindControl("Jedna");
    later.removeLeftBehind();
    EXPECT_NE(urlOf("Pokus"), "");
    button->Delete();
    later.removeLeftBehind();
    EXPECT_EQ(urlOf("Pokus"), "");
    bar = bars.Add("Pokus");
}

TEST_F(LeftBehindBarTest, ABarOfTheUsersStaysThoughItIsEmpty) {
    const std::string url = "private:resource/toolbar/custom_users";
    configuration.insert({url, "Users"});
    later.removeLeftBehind();
    EXPECT_EQ(urlOf("Users"), url);
    configuration.remove(url);
}

TEST_F(CommandBarsTest, OnlyAnEnabledButtonIsClicked) {
    const auto button = add("Jedna", "První");
    int clicks = 0;
    button->Click.connect([&] { ++clicks; });
    button->setEnabled(false);
    bars.click("vnd.huebrush:Jedna");
    EXPECT_EQ(clicks, 0);
    button->setEnabled(true);
    bars.click("vnd.huebrush:Jedna");
    EXPECT_EQ(clicks, 1);
    bars.click("vnd.huebrush:Unknown");
    EXPECT_EQ(clicks, 1);
}

TEST_F(CommandBarsTest, APastedFaceIsThePictureOfTheCommand) {
    const auto button = add("Jedna", "První");
    runtime.Clipboard().SetData(runtime.Component().icon(101));
    button->PasteFace();
    bars.save();
    EXPECT_TRUE(configuration.hasPictures("vnd.huebrush:Jedna"));
    button->Delete();
    bars.save();
    EXPECT_FALSE(configuration.hasPictures("vnd.huebrush:Jedna"));
    EXPECT_TRUE(buttons().empty());
}

TEST_F(CommandBarsTest, ANewButtonsFaceIsBlank) {
    bar->addButton()->CopyFace();
    EXPECT_EQ(runtime.Clipboard().GetData(), libreoffice::IconFiles::blankFace());
}

TEST_F(CommandBarsTest, AnIconDrawnOnANewButtonIsThatIconInAllItsSizes) {
    const libreoffice::IconFiles icons(testFolder());
    for (const std::int16_t number : std::initializer_list<std::int16_t>{101, 102, 103}) {
        const auto button = add("Jedna", "První");
        addin::SetButtonFace(button.get(), number);
        button->CopyFace();
        EXPECT_EQ(icons.sizesOf(runtime.Clipboard().GetData()),
                  icons.sizesOf(icons.largest(number)));
        EXPECT_EQ(icons.sizesOf(runtime.Clipboard().GetData()).size(), 3U);
        button->Delete();
    }
}

TEST_F(CommandBarsTest, AButtonThatPastesNothingKeepsThePictureThatTheOfficeShows) {
    const auto button = add("Jedna", "První");
    addin::SetButtonFace(button.get(), 101);
    bars.save();
    runtime.Clipboard().Clear();
    button->PasteFace();
    button->CopyFace();
    EXPECT_TRUE(runtime.Clipboard().GetData().empty());
    bars.save();
    EXPECT_TRUE(configuration.hasPictures("vnd.huebrush:Jedna"));
}

TEST_F(CommandBarsTest, AFaceThatIsNotAPictureIsAnErrorOfTheWrite) {
    const auto button = add("Jedna", "První");
    runtime.Clipboard().SetData({base::PictureFormat::png, {1, 2, 3}});
    button->PasteFace();
    EXPECT_THROW(bars.save(), base::Error);
    button->Delete();
}

TEST_F(CommandBarsTest, ADeletedBarIsGoneAndAnotherMayTakeItsName) {
    bar->Delete();
    bars.save();
    EXPECT_EQ(urlOf("Pokus"), "");
    bar = bars.Add("Pokus");
    add("Jedna", "První");
    bars.save();
    EXPECT_NE(urlOf("Pokus"), "");
    EXPECT_EQ(buttons().size(), 1U);
}

TEST_F(CommandBarsTest, ItsPlaceReadsAsItWasSet) {
    struct Place {
        std::int32_t position, left, top, row;
    };
    // What a place has no use for reads as 0: the edge along which a docked bar cannot move.
    for (const Place& place : {Place{0, 0, 200, 1}, Place{1, 100, 0, 3}, Place{2, 0, 30, 2},
                               Place{3, 40, 0, 1}, Place{4, 320, 240, 1}}) {
        bar->setPosition(place.position);
        bar->setLeft(place.left);
        bar->setTop(place.top);
        bar->setRowIndex(place.row);
        EXPECT_EQ(bar->Position(), place.position);
        EXPECT_EQ(bar->Left(), place.left) << place.position;
        EXPECT_EQ(bar->Top(), place.top) << place.position;
        EXPECT_EQ(bar->RowIndex(), place.row) << place.position;
    }
    EXPECT_THROW(bar->setPosition(5), base::Error);
    EXPECT_THROW(bar->setPosition(-1), base::Error);
}

TEST_F(CommandBarsTest, ANewBarStandsInARowOfItsOwn) {
    EXPECT_EQ(bar->Position(), 1);
    EXPECT_EQ(bar->RowIndex(), 3);
    EXPECT_EQ(bar->Left(), 0);
}

TEST_F(CommandBarsTest, AnOpenWindowShowsTheBarAndWhereItIs) {
    const TestDocument document;
    add("Jedna", "První");
    bars.save();
    bar->setVisible(true);
    const rtl::OUString url = libreoffice::toOffice(urlOf("Pokus"));
    const auto layouts = libreoffice::layoutsOfTextWindows(officeContext());
    ASSERT_EQ(layouts.size(), 1U);
    EXPECT_TRUE(layouts[0]->isElementVisible(url));
    EXPECT_TRUE(layouts[0]->isElementDocked(url));
    bar->setPosition(4);
    EXPECT_TRUE(layouts[0]->isElementFloating(url));
    bar->setPosition(0);
    EXPECT_TRUE(layouts[0]->isElementDocked(url));
    bar->setVisible(false);
    EXPECT_FALSE(layouts[0]->isElementVisible(url));
}

}  // namespace
}  // namespace huebrush::tests
