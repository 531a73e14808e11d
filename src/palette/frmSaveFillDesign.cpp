// SPDX-License-Identifier: MPL-2.0

// The dialog that saves palettes as it is designed: texts, places, initial states.

#include "palette/PaletteDesign.h"
#include "palette/frmSaveFill.h"

namespace huebrush::palette {

namespace {

constexpr double kWidth = 8520;
constexpr double kHeight = 5490;
constexpr double kListWidth = 2700;
constexpr double kFieldLeft = design::kMargin + kListWidth + design::kMargin;
constexpr double kButtonLeft = kWidth - design::kMargin - design::kButtonWidth;
constexpr double kFieldWidth = kButtonLeft - design::kMargin - kFieldLeft;
constexpr double kBottom = kHeight - design::kMargin;
constexpr double kCountTop = kBottom - design::kLabelHeight;
constexpr double kDescriptionLabelTop = design::kTop + design::kFieldHeight + design::kGap;
constexpr double kDescriptionTop = kDescriptionLabelTop + 255;
/// From one button of the column to the next.
constexpr double kButtonStep = design::kButtonHeight + design::kGap;

}  // namespace

void frmSaveFill::setTexts() {
    using design::setUp;
    Caption = std::string(" Uložení a úprava palet výplní...");
    setUp(Label1, "Databázový soubor:");
    txtDataFile.ToolTipText = std::string("Soubor, ve kterém jsou palety uloženy");
    setUp(cmdConnectDataFile, "&Vybrat...", "Zobrazí dialog pro výběr existující databáze");
    setUp(cmdMakeDataFile, "&Založit...", "Založí nový, prázdný databázový soubor");
    setUp(Label2, "Palety:");
    lstFillGroup.ToolTipText = std::string("Palety uložené v databázi");
    setUp(Label3, "Název palety:");
    txtFillGroupName.ToolTipText = std::string("Název palety, nejvýše 30 znaků");
    setUp(Label4, "Popis palety:");
    txtFillGroupDescription.ToolTipText = std::string("Popis palety, nejvýše 255 znaků");
    setUp(Label5, "Počet výplní:");
    lblCount.ToolTipText = std::string("Kolik výplní paleta obsahuje");
    setUp(cmdNew, "&Nová", "Založí novou paletu z výplní označených ve formuláři");
    setUp(cmdEdit, "&Upravit", "Umožní změnit název a popis palety");
    setUp(cmdErase, "&Smazat", "Odstraní paletu i s jejími výplněmi z databáze");
    setUp(cmdApply, "U&ložit", "Uloží novou nebo upravenou paletu");
    setUp(cmdCancel, "Z&rušit", "Zruší provedené úpravy palety");
    setUp(cmdOK, "&Konec", "Uzavře formulář");
}

void frmSaveFill::layOut() {
    using namespace design;
    Width = kWidth;
    Height = kHeight;
    const double makeLeft = kButtonLeft;
    const double connectLeft = makeLeft - kGap - kButtonWidth;
    Label1.Move(kMargin, kFileLabelTop, connectLeft - kGap - kMargin, kLabelHeight);
    txtDataFile.Move(kMargin, kFileTop, connectLeft - kGap - kMargin, kFieldHeight);
    placeFileButton(cmdConnectDataFile, connectLeft);
    placeFileButton(cmdMakeDataFile, makeLeft);
    Label2.Move(kMargin, kLabelTop, kListWidth, kLabelHeight);
    lstFillGroup.Move(kMargin, kTop, kListWidth, kBottom - kTop);
    Label3.Move(kFieldLeft, kLabelTop, kFieldWidth, kLabelHeight);
    txtFillGroupName.Move(kFieldLeft, kTop, kFieldWidth, kFieldHeight);
    Label4.Move(kFieldLeft, kDescriptionLabelTop, kFieldWidth, kLabelHeight);
    txtFillGroupDescription.Move(kFieldLeft, kDescriptionTop, kFieldWidth,
                                 kCountTop - kGap - kDescriptionTop);
    Label5.Move(kFieldLeft, kCountTop, 1350, kLabelHeight);
    lblCount.Move(kFieldLeft + 1350, kCountTop, kFieldWidth - 1350, kLabelHeight);
    double top = kTop;
    for (forms::CommandButton* const button :
         {&cmdNew, &cmdEdit, &cmdErase, &cmdApply, &cmdCancel}) {
        button->Move(kButtonLeft, top, kButtonWidth, kButtonHeight);
        // Those for the palette in the list, then those for the one being edited.
        top += button == &cmdErase ? kButtonStep + kGap : kButtonStep;
    }
    cmdOK.Move(kButtonLeft, kBottom - kButtonHeight, kButtonWidth, kButtonHeight);
}

void frmSaveFill::setInitialStates() {
    txtDataFile.Locked.initialize(true);
    txtFillGroupDescription.MultiLine.initialize(true);
    // Escape cancels the edit and closes the dialog.
    cmdOK.Cancel.initialize(true);
    // There is nothing to edit before a file is connected.
    for (forms::CommandButton* const button :
         {&cmdNew, &cmdEdit, &cmdErase, &cmdApply, &cmdCancel}) {
        button->Enabled.initialize(false);
    }
}

}  // namespace huebrush::palette
