// SPDX-License-Identifier: MPL-2.0

// The recolour dialog and the dialogs of palettes, on files of the system.

#include <gtest/gtest.h>

#include "files/Folder_test_support.h"
#include "palette/frmLoadFill.h"
#include "palette/frmSaveFill.h"
#include "recolor/Dialog_test_support.h"

namespace huebrush::recolor {
namespace {

using palette::frmLoadFill;
using palette::frmSaveFill;

class PaletteButtons : public DialogTest {
 protected:
    PaletteButtons() {
        test.runtime.temporary = files::nameOf(folder.path());
        test.runtime.settings[{"Huebrush", "Database", "FileName"}] = file;
    }

    /// Clicks a button, and uses the dialog that it opens.
    template <class Dialog>
    void use(forms::CommandButton& button,
             const std::function<void(Dialog&, memory::Driver&)>& actions) {
        int opened = 0;
        test.runtime.onModal = [&](forms::Form& form) {
            ++opened;
            auto& shown = dynamic_cast<Dialog&>(form);
            memory::Driver driver(shown);
            actions(shown, driver);
        };
        user.click(button);
        test.runtime.onModal = {};
        EXPECT_EQ(opened, 1);
    }
    /// Makes the file, with a palette of the selected rows.
    void save(const std::string& name) {
        use<frmSaveFill>(dialog->cmdToDatabase, [&](frmSaveFill& shown, memory::Driver& driver) {
            test.runtime.boxes.clear();
            test.runtime.chosenFiles = {file};
            driver.click(shown.cmdMakeDataFile);
            driver.type(shown.txtFillGroupName, name);
            driver.click(shown.cmdApply);
            EXPECT_EQ(shown.lblCount.Caption.get(), base::text(dialog->selectedCount()));
            driver.click(shown.cmdOK);
        });
    }
    Colors destinations() const {
        Colors colors;
        for (std::int16_t i = 1; i <= rowCount(); ++i) {
            colors.push_back(dialog->Element[i].FillObject().destination().ForeColorRGB);
        }
        return colors;
    }

    const files::TemporaryFolder folder;
    const std::string file = files::nameOf(folder.path() / "palettes.mdb");
};

TEST_F(PaletteButtons, OpenTheirDialogsOverTheLoweredRecolourDialog) {
    addRows(2);
    tick({1});
    ASSERT_TRUE(dialog->TopMost);
    save("a");
    EXPECT_TRUE(dialog->TopMost);
    use<frmLoadFill>(dialog->cmdFromDatabase, [&](frmLoadFill& shown, memory::Driver& driver) {
        EXPECT_FALSE(dialog->TopMost);
        driver.click(shown.cmdCancel);
    });
    EXPECT_TRUE(dialog->TopMost);
}

TEST_F(PaletteButtons, LeaveTheRecolourButtonAsTheNextToPress) {
    addRows(1);
    tick({1});
    save("a");
    EXPECT_EQ(dialog->focused(), &dialog->cmdDiscolour);
    EXPECT_TRUE(dialog->cmdDiscolour.Default);
    dialog->cmdClose.SetFocus();
    dialog->cmdClose.Default = true;
    use<frmLoadFill>(dialog->cmdFromDatabase,
                     [](frmLoadFill&, memory::Driver& driver) { driver.close(); });
    EXPECT_EQ(dialog->focused(), &dialog->cmdDiscolour);
    EXPECT_TRUE(dialog->cmdDiscolour.Default);
}

TEST_F(PaletteButtons, SaveTheSelectedRowsAndGiveTheirFillsToOthers) {
    addRows({10, 20, 30});
    tick({1, 3});
    save("Žluťoučký kůň");
    const base::Picture third = row(3).DestinationPicture();
    tick({1, 3});
    addRows({40, 50});
    tick({4, 5});
    use<frmLoadFill>(dialog->cmdFromDatabase, [&](frmLoadFill& shown, memory::Driver& driver) {
        EXPECT_EQ(shown.lstFillGroup.List(0), "Žluťoučký kůň");
        driver.click(shown.chkPreview);
        EXPECT_EQ(shown.picElement[2].Picture.get(), third);
        driver.click(shown.cmdOK);
    });
    EXPECT_EQ(destinations(), (Colors{10, 20, 30, 10, 30}));
    EXPECT_EQ(row(5).DestinationPicture(), third);
    EXPECT_EQ(order(), (Colors{10, 20, 30, 40, 50}));
    user.click(dialog->cmdDiscolour);
    EXPECT_EQ(test.document->shapes.at(3)->fill.ForeColorRGB, 10);
    EXPECT_EQ(test.document->shapes.at(4)->fill.ForeColorRGB, 30);
}

TEST_F(PaletteButtons, TakeTheirDialogAwayWithTheRecolourDialog) {
    addRows(1);
    tick({1});
    std::shared_ptr<forms::Form> open;
    test.runtime.onModal = [&](forms::Form& form) {
        open = form.shared_from_this();
        dialog->Unload();
        EXPECT_TRUE(open->isUnloaded());
    };
    user.click(dialog->cmdToDatabase);
    ASSERT_TRUE(open);
    EXPECT_TRUE(dialog->isUnloaded());
}

}  // namespace
}  // namespace huebrush::recolor
