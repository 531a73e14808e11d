// SPDX-License-Identifier: MPL-2.0

// The dialog that loads palettes as it is designed: texts, places, initial states; and as it is
// laid out anew when its window is resized.

#include "base/NonNegative.h"
#include "palette/PaletteDesign.h"
#include "palette/frmLoadFill.h"

namespace huebrush::palette {

namespace {

using base::NonNegative;

constexpr double kWidth = 8520;
constexpr double kHeight = 5670;
constexpr double kListWidth = 2700;
constexpr double kFieldLeft = design::kMargin + kListWidth + design::kMargin;
constexpr double kFieldWidth = 2565;
constexpr double kFrameLeft = kFieldLeft + kFieldWidth + design::kMargin;
constexpr double kScrollBarWidth = 255;
/// A preview, as wide and high as in a row of the recolour dialog.
constexpr double kPreviewWidth = 1215;
constexpr double kPreviewHeight = 375;
/// What stays free inside the frame of the previews: on each side, and for its caption.
constexpr double kInside = 150;
constexpr double kCaptionHeight = 270;
constexpr double kHornSize = 375;
/// From the bottom of the dialog to the top of the buttons, which lie above the picture in the
/// corner, and to the bottom of what is above them.
constexpr double kButtonsFromBottom = kHornSize + design::kButtonHeight;
constexpr double kBelow = kButtonsFromBottom + design::kMargin;

}  // namespace

void frmLoadFill::setTexts() {
    using design::setUp;
    Caption = std::string(" Načtení palety výplní...");
    setUp(Label1, "Databázový soubor:");
    txtDataFile.ToolTipText = std::string("Soubor, ve kterém jsou palety uloženy");
    setUp(cmdConnectDataFile, "&Vybrat...", "Zobrazí dialog pro výběr existující databáze");
    setUp(Label2, "Palety:");
    lstFillGroup.ToolTipText = std::string("Palety uložené v databázi");
    setUp(Label3, "Popis palety:");
    txtFillGroupDescription.ToolTipText = std::string("Popis vybrané palety");
    setUp(Label4, "Počet výplní:");
    lblCount.ToolTipText = std::string("Kolik výplní paleta obsahuje");
    setUp(chkPreview, "&Zobrazit náhledy", "Zobrazí náhledy výplní vybrané palety");
    setUp(fraMainPreview, "Náhledy výplní");
    setUp(cmdApply, "&Použít", "Přiřadí výplně palety označeným zástupcům");
    setUp(cmdOK, "&OK", "Přiřadí výplně palety označeným zástupcům a uzavře formulář");
    setUp(cmdCancel, "&Storno", "Uzavře formulář, aniž výplně přiřadí");
}

void frmLoadFill::layOut() {
    using namespace design;
    Width = kWidth;
    Height = kHeight;
    const double connectLeft = kWidth - kMargin - kButtonWidth;
    Label1.Move(kMargin, kFileLabelTop, connectLeft - kGap - kMargin, kLabelHeight);
    txtDataFile.Move(kMargin, kFileTop, connectLeft - kGap - kMargin, kFieldHeight);
    placeFileButton(cmdConnectDataFile, connectLeft);
    const double bottom = kHeight - kBelow;
    Label2.Move(kMargin, kLabelTop, kListWidth, kLabelHeight);
    lstFillGroup.Move(kMargin, kTop, kListWidth, bottom - kTop);
    Label3.Move(kFieldLeft, kLabelTop, kFieldWidth, kLabelHeight);
    txtFillGroupDescription.Move(kFieldLeft, kTop, kFieldWidth, 1500);
    const double countTop = kTop + 1500 + kGap;
    Label4.Move(kFieldLeft, countTop, 1350, kLabelHeight);
    lblCount.Move(kFieldLeft + 1350, countTop, kFieldWidth - 1350, kLabelHeight);
    chkPreview.Move(kFieldLeft, countTop + kLabelHeight + kGap, kFieldWidth, 300);
    const double frameWidth = kWidth - kMargin - kFrameLeft;
    fraMainPreview.Move(kFrameLeft, kLabelTop, frameWidth, bottom - kLabelTop);
    const double barLeft = frameWidth - kInside - kScrollBarWidth;
    const double viewHeight = bottom - kLabelTop - kCaptionHeight - kInside;
    picMainPreview.Move(kInside, kCaptionHeight, barLeft - kInside, viewHeight);
    vsPreview.Move(barLeft, kCaptionHeight, kScrollBarWidth, viewHeight);
    const double previewLeft = (barLeft - kInside - kPreviewWidth) / 2;
    picGroupElement.Move(0, 0, barLeft - kInside, 0);
    // The first preview is at the top of the strip, directly below this one.
    picElement[0].Move(previewLeft, -kPreviewHeight, kPreviewWidth, kPreviewHeight);
    const double buttonsWidth = 3 * kButtonWidth + 2 * kGap;
    picCMD.Move(kFrameLeft + frameWidth - buttonsWidth, kHeight - kButtonsFromBottom, buttonsWidth,
                kButtonHeight);
    double left = 0;
    for (forms::CommandButton* const button : {&cmdApply, &cmdOK, &cmdCancel}) {
        button->Move(left, 0, kButtonWidth, kButtonHeight);
        left += kButtonWidth + kGap;
    }
    imgHorn.Move(kWidth - kHornSize, kHeight - kHornSize, kHornSize, kHornSize);
}

void frmLoadFill::setInitialStates() {
    txtDataFile.Locked.initialize(true);
    txtFillGroupDescription.Locked.initialize(true);
    txtFillGroupDescription.MultiLine.initialize(true);
    picMainPreview.BackColor.initialize(forms::SystemColor::kWindowBackground);
    picMainPreview.BorderStyle.initialize(1);
    picMainPreview.BorderStyle.initialize(1);
    picMainPreview.Visible.initialize(false);
    picGroupElement.BackColor.initialize(forms::SystemColor::kWindowBackground);
    picElement[0].BackColor.initialize(forms::SystemColor::kWindowBackground);
    picElement[0].BorderStyle.initialize(1);
    picElement[0].Visible.initialize(false);
    fraMainPreview.Enabled.initialize(false);
    chkPreview.Enabled.initialize(false);
    cmdOK.Default.initialize(true);
    cmdCancel.Cancel.initialize(true);
    minimumWidth_ = Width;
}

void frmLoadFill::Form_Resize() {
    error::trap(place("Form_Resize", "Při úpravě velikosti prvků vzikla chyba.."), [this] {
        if (WindowState == forms::WindowState::minimized) return;
        if (Width < minimumWidth_) Width = minimumWidth_;
        const double bottom = NonNegative(ScaleHeight() - kBelow);
        lstFillGroup.Height = NonNegative(bottom - lstFillGroup.Top);
        fraMainPreview.Height = NonNegative(bottom - fraMainPreview.Top);
        picMainPreview.Height = NonNegative(fraMainPreview.Height - kCaptionHeight - kInside);
        vsPreview.Height = picMainPreview.Height;
        picCMD.Top = NonNegative(ScaleHeight() - kButtonsFromBottom);
        imgHorn.Left = NonNegative(ScaleWidth() - imgHorn.Width);
        imgHorn.Top = NonNegative(ScaleHeight() - imgHorn.Height);
        SetScroll();
    });
}

}  // namespace huebrush::palette
