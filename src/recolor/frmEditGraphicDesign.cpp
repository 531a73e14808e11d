// SPDX-License-Identifier: MPL-2.0

// The dialog as it is designed: texts, places, initial states.

#include "recolor/frmEditGraphicDesign.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

namespace {

constexpr const char* kCaption = " Změna výplně grafických objektů...";

}  // namespace

void frmEditGraphic::setTexts() {
    const auto setUp = [](auto& control, const char* caption, const char* toolTip) {
        control.Caption = std::string(caption);
        control.ToolTipText = std::string(toolTip);
    };
    Caption = std::string(kCaption);
    setUp(Label1, "Pořadí", "");
    setUp(Label2, "Aktuální výplň", "");
    setUp(Label3, "Nová výplň", "");
    setUp(chkSelAll, "&Vše", "Označí všechny načtené zástupce");
    nfbUP.ToolTipText = std::string("Přesune aktivní prvek o jednu úroveň výše");
    nfbDown.ToolTipText = std::string("Přesune aktivní prvek o jednu úroveň níže");
    setUp(cmdAdd, "&Přidat",
          "Prohledá označené grafické objekty a přidá zástupce jejich výplní do formuláře");
    cmdRemove.ToolTipText =
        std::string("Zobrazí nabídku na odstranění zástupců výplní z formuláře");
    setUp(cmdDiscolour, design::kRecolour, "Aplikuje na grafické objekty nové (označené) výplně");
    setUp(Frame1, "Zobrazit", "");
    setUp(optView0, "Vš&e", "Zobrazí všechny zástupce");
    setUp(optView1, "&Označené", "Zobrazí pouze označené zástupce ");
    setUp(optView2, "N&eoznačené", "Zobrazí pouze neoznačené zástupce ");
    setUp(fData, "Databáze výplní", "");
    setUp(cmdFromDatabase, "&Načíst... ",
          "Zobrazí dialog pro výběr palety nových výplní z databáze");
    setUp(cmdToDatabase, "&Uložit/Editovat...",
          "Zobrazí dialog pro možnost uložení označených výplní jako nové palety do databáze");
    setUp(cmdClose, "&Konec", "Uzavře formulář");
    lblLoadStatus.Caption = std::string("Načitám...");
}

void frmEditGraphic::layOut() {
    using namespace design;
    Width = kWidth;
    Height = kHeight;
    Label1.Move(kMargin, kHeadingTop, 735, kHeadingHeight);
    Label2.Move(975, kHeadingTop, 1650, kHeadingHeight);
    Label3.Move(2685, kHeadingTop, 1500, kHeadingHeight);
    const double listHeight = kHeight - kListTop - kBelowList;
    frameMain.Move(kMargin, kListTop, kListWidth + kScrollBarWidth, kHeight - kListTop);
    picMain.Move(kMargin, kListTop, kListWidth, listHeight);
    vs.Move(kMargin + kListWidth, kListTop, kScrollBarWidth, listHeight);
    const double strip = kHeight - kStripFromBottom;
    chkSelAll.Move(495, strip, 1200, kStripHeight);
    nfbUP.Move(4080, strip, 390, kStripHeight);
    nfbDown.Move(4530, strip, 390, kStripHeight);
    cmdAdd.Move(kRightLeft, kListTop, kRightWidth, kButtonHeight);
    cmdRemove.Move(kRightLeft, 1035, kRightWidth, kButtonHeight);
    cmdDiscolour.Move(kRightLeft, 1695, kRightWidth, kButtonHeight);
    Frame1.Move(kRightLeft, 2355, kRightWidth, 1395);
    optView0.Move(180, 315, 2600, 300);
    optView1.Move(180, 645, 2600, 300);
    optView2.Move(180, 975, 2600, 300);
    fData.Move(kRightLeft, 3945, kRightWidth, 1605);
    cmdFromDatabase.Move(180, 330, 2625, kButtonHeight);
    cmdToDatabase.Move(180, 930, 2625, kButtonHeight);
    cmdClose.Move(kRightLeft, 5670, kRightWidth, kButtonHeight);
    picLoadStatus.Move(kMargin, kHeight - kProgressFromBottom, kListWidth + kScrollBarWidth,
                       kProgressHeight);
    lblLoadStatus.Move(120, 30, kListWidth + kScrollBarWidth - 240, 240);
    imgQXLogo.Move(kRightLeft, 6255, kLogoWidth, kLogoHeight);
    imgHorn.Move(8025, 6990, 375, 375);
    ColorElement& pattern = Element[0];
    pattern.Top = -ColorElement::kHeight;
    pattern.Visible = false;
}

void frmEditGraphic::setInitialStates() {
    optView0.Value.initialize(true);
    optView0.Tag = std::string("0");
    vs.Enabled = false;
    cmdDiscolour.Enabled = false;
    cmdFromDatabase.Enabled = false;
    cmdToDatabase.Enabled = false;
    fData.Enabled = false;
    frameMain.BorderStyle.initialize(0);
    picMain.BackColor.initialize(forms::SystemColor::kWindowBackground);
    picElementGroup.BackColor.initialize(forms::SystemColor::kWindowBackground);
    picMain.BorderStyle.initialize(1);
    picLoadStatus.BackColor.initialize(forms::SystemColor::kInfoBackground);
    picLoadStatus.BorderStyle.initialize(1);
    picLoadStatus.Visible = false;
    imgCL.Visible = false;
    imgBW.Visible = false;
    minimumWidth_ = Width;
}

}  // namespace huebrush::recolor
