#include "recolor/frmEditGraphic.h"

#include <cmath>
#include <utility>
#include <vector>

#include "base/NonNegative.h"
#include "base/Text.h"
#include "forms/Runtime.h"

namespace huebrush::recolor {

namespace {

using base::NonNegative;
using base::text;

// Texts.

constexpr const char* kCaption = " Změna výplně grafických objektů...";
constexpr const char* kRecolour = "Pře&barvit";
// Where the system gives a handler no message of its own.
constexpr const char* kLoadFailed = "Při otevírání formuláře došlo k chybě...";
constexpr const char* kLayoutFailed = "Při změně rozměrů formuláře došlo k chybě...";
constexpr const char* kViewFailed = "Při zobrazování zástupců výplní došlo k chybě...";

// The component's own pictures.

namespace icon {
constexpr std::int32_t kDown = 201;
constexpr std::int32_t kDownDisabled = 200;
constexpr std::int32_t kUp = 301;
constexpr std::int32_t kUpDisabled = 300;
constexpr std::int32_t kLogoColour = 401;
constexpr std::int32_t kLogoBlackAndWhite = 400;
constexpr std::int32_t kHorn = 402;
constexpr std::int32_t kFocusMark = 410;
constexpr std::int32_t kGrabHandle = 411;
constexpr std::int32_t kArrow = 412;
}  // namespace icon

/// The design of the dialog, in twips.
namespace design {
constexpr double kWidth = 8400;
constexpr double kHeight = 7365;
constexpr double kMargin = 210;
constexpr double kHeadingTop = 225;
constexpr double kHeadingHeight = 240;
constexpr double kListTop = 495;
constexpr double kListWidth = ColorElement::kWidth;
constexpr double kScrollBarWidth = 255;
/// What stays free under the list.
constexpr double kBelowList = 700;
/// The strip of controls under the list, and the progress box under that: their heights, and from
/// the bottom of the dialog to their tops.
constexpr double kStripHeight = 330;
constexpr double kStripFromBottom = 670;
constexpr double kProgressHeight = 300;
constexpr double kProgressFromBottom = 320;
constexpr double kRightLeft = 5190;
constexpr double kRightWidth = 2985;
constexpr double kButtonHeight = 420;
constexpr double kLogoWidth = 2090;
constexpr double kLogoHeight = 900;
constexpr double kLogoMargin = 200;
}  // namespace design

std::int32_t wholeTwips(double length) {
    return static_cast<std::int32_t>(std::lround(length));
}

}  // namespace

// Design time.

std::shared_ptr<frmEditGraphic> frmEditGraphic::create(std::function<void()> showAbout) {
    std::shared_ptr<frmEditGraphic> dialog(new frmEditGraphic(std::move(showAbout)));
    dialog->handle([&] { dialog->Form_Load(); });
    return dialog;
}

frmEditGraphic::frmEditGraphic(std::function<void()> showAbout)
    : Form("frmEditGraphic"),
      Element(*this,
              [this](std::int16_t index) {
                  auto row = std::make_shared<ColorElement>(picElementGroup,
                                                            text("Element(", index, ")"), index);
                  connectRow(*row);
                  if (index > 0) row->takeFixedPictures(Element[0]);
                  return row;
              }),
      showAbout_(std::move(showAbout)) {
    setTexts();
    layOut();
    setInitialStates();
    connectHandlers();
    connectListHandlers();
}

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
    setUp(cmdDiscolour, kRecolour, "Aplikuje na grafické objekty nové (označené) výplně");
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
    picMain.BorderStyle.initialize(1);
    picLoadStatus.BackColor.initialize(forms::SystemColor::kInfoBackground);
    picLoadStatus.BorderStyle.initialize(1);
    picLoadStatus.Visible = false;
    imgCL.Visible = false;
    imgBW.Visible = false;
    minimumWidth_ = Width;
}

void frmEditGraphic::connectHandlers() {
    Resize.connect([this] { Form_Resize(); });
    cmdAdd.Click.connect([this] { cmdAdd_Click(); });
    cmdDiscolour.Click.connect([this] { cmdDiscolour_Click(); });
    cmdClose.Click.connect([this] { Unload(); });
    for (std::size_t i = 0; i < optView.size(); ++i) {
        optView[i]->Click.connect([this, i] {
            // An option that is cleared because another one was chosen has not been chosen itself.
            if (optView[i]->Value) optView_Click(static_cast<std::int16_t>(i));
        });
    }
    vs.Change.connect([this] { vs_Change(); });
    imgQXLogo.MouseMove.connect(
        [this](const forms::MouseEvent& event) { imgQXLogo_MouseMove(event); });
    imgQXLogo.Click.connect([this] { imgQXLogo_Click(); });
}

void frmEditGraphic::connectListHandlers() {
    chkSelAll.Click.connect([this] { chkSelAll_Click(); });
    nfbUP.Click.connect([this] { nfbUP_Click(); });
    nfbDown.Click.connect([this] { nfbDown_Click(); });
    cmdRemove.Click.connect([this] { cmdRemove_Click(); });
    mnuRemove.Click.connect([this] { mnuRemove_Click(); });
    mnuRemoveActive.Click.connect([this] { mnuRemoveActive_Click(); });
    mnuRemoveNoSelect.Click.connect([this] { mnuRemoveNoSelect_Click(); });
    mnuRemoveSelect.Click.connect([this] { mnuRemoveSelect_Click(); });
    mnuRemoveAll.Click.connect([this] { mnuRemoveAll_Click(); });
}

void frmEditGraphic::connectRow(ColorElement& row) {
    row.ChangeSelect.connect([this] { Element_ChangeSelect(); });
    row.MoveUp.connect([this] { nfbUP_Click(); });
    row.MoveDown.connect([this] { nfbDown_Click(); });
    row.DragMouseDown.connect([&row] { row.Drag(); });
    connectFillMenu(row);
    row.KeyDel.connect([this](std::int16_t shift) { Element_KeyDel(shift); });
    row.GotFocus.connect([this, &row] { Element_GotFocus(row); });
    row.LostFocus.connect([this] { Element_LostFocus(); });
    row.DragOver.connect(
        [this, &row](forms::Control& source, float, float, forms::DragState state) {
            Element_DragOver(row, source, state);
        });
    row.DragDrop.connect(
        [this, &row](forms::Control& source, float, float) { Element_DragDrop(row, source); });
}

// Opening, closing and resizing.

void frmEditGraphic::ShowDialog(host::Application& WApp) {
    connect(WApp);
    Show();
}

void frmEditGraphic::Form_Load() {
    error::trap(place("Form_Load", kLoadFailed), [this] {
        const forms::Component& component = forms::Runtime::current().Component();
        const ColorElement& pattern = Element[0];
        picElementGroup.Width = pattern.Width;
        picElementGroup.Height = pattern.Height;
        vs.SmallChange = static_cast<std::int32_t>(pattern.Height);
        onTop(true);
        cmdRemove.Caption = std::string("Smazat");
        cmdRemove.Enabled = false;
        nfbUP.Caption = std::string();
        nfbUP.setPicture(component.icon(icon::kUp));
        nfbUP.setDisabledPicture(component.icon(icon::kUpDisabled));
        nfbUP.Enabled = false;
        nfbDown.Caption = std::string();
        nfbDown.setPicture(component.icon(icon::kDown));
        nfbDown.setDisabledPicture(component.icon(icon::kDownDisabled));
        nfbDown.Enabled = false;
        imgCL.Picture = component.icon(icon::kLogoColour);
        imgBW.Picture = component.icon(icon::kLogoBlackAndWhite);
        imgHorn.Picture = component.icon(icon::kHorn);
        imgQXLogo.Picture = imgBW.Picture;
        Element[0].setFixedPictures(component.icon(icon::kFocusMark),
                                    component.icon(icon::kGrabHandle),
                                    component.icon(icon::kArrow));
    });
}

bool frmEditGraphic::endsByEscape() const {
    for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
        if (Element[i].FillObject().Change()) return false;
    }
    return true;
}

void frmEditGraphic::unloadElements() {
    ActiveElement_ = nullptr;
    Element.clear();
}

void frmEditGraphic::onTop(bool value) {
    forms::Runtime::current().setTopMost(*this, value);
}

void frmEditGraphic::Form_Resize() {
    error::trap(place("Form_Resize", kLayoutFailed), [this] {
        if (WindowState == forms::WindowState::minimized) return;
        if (Width < minimumWidth_) Width = minimumWidth_;
        frameMain.Height = NonNegative(ScaleHeight() - frameMain.Top);
        picMain.Height = NonNegative(ScaleHeight() - picMain.Top - design::kBelowList);
        vs.Height = picMain.Height;
        imgHorn.Left = NonNegative(ScaleWidth() - imgHorn.Width);
        imgHorn.Top = NonNegative(ScaleHeight() - imgHorn.Height);
        const double strip = NonNegative(ScaleHeight() - design::kStripFromBottom);
        chkSelAll.Top = strip;
        nfbUP.Top = strip;
        nfbDown.Top = strip;
        picLoadStatus.Top = NonNegative(ScaleHeight() - design::kProgressFromBottom);
        SetScroll();
    });
}

void frmEditGraphic::SetScroll() {
    error::trap(place("SetScroll", kLayoutFailed), [this] {
        if (picElementGroup.Height > picMain.Height) {
            vs.Enabled = true;
            vs.Max = wholeTwips(picElementGroup.Height - picMain.ScaleHeight());
            vs.LargeChange = wholeTwips(picElementGroup.Height);
            vs.SmallChange = static_cast<std::int32_t>(ColorElement::kHeight);
        } else {
            vs.Enabled = false;
        }
        vs.setValue(0);
    });
}

error::Place frmEditGraphic::place(const char* procedure, const char* message) {
    return {"Huebrush.frmEditGraphic.", procedure, message};
}

host::Application& frmEditGraphic::requireHost() const {
    if (WApp_ == nullptr) base::throwObjectNotSet();
    return *WApp_;
}

// The views and the scroll bar.

void frmEditGraphic::optView_Click(std::int16_t index) {
    error::trap(place("optView_Click", kViewFailed), [this, index] {
        optView0.Tag = text(index);
        showRows(index);
        SetScroll();
        countSelected();
    });
}

void frmEditGraphic::showRows(std::int16_t view) {
    const auto isInView = [view](const ColorElement& row) {
        return view == 0 || (view == 1) == row.isSelected();
    };
    const ColorElement* lastShown = &Element[0];
    for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
        ColorElement& row = Element[i];
        if (!isInView(row)) {
            row.Visible = false;
            continue;
        }
        row.Visible = true;
        row.Top = lastShown->Top + lastShown->Height;
        lastShown = &row;
    }
    picElementGroup.Height = lastShown->Top + lastShown->Height;
}

void frmEditGraphic::countSelected() {
    base::Count16 count;
    for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
        if (Element[i].isSelected()) ++count;
    }
    const bool any = count > 0;
    cmdDiscolour.Enabled = any;
    cmdFromDatabase.Enabled = any;
    cmdToDatabase.Enabled = any;
    fData.Enabled = any;
    cmdDiscolour.Caption = any ? text(kRecolour, " (", count, ")") : std::string(kRecolour);
    selectedCount_ = count;
}

void frmEditGraphic::refreshView() {
    if (refreshesHeld_ > 0) {
        refreshAsked_ = true;
        return;
    }
    optView_Click(static_cast<std::int16_t>(base::toInteger(optView0.Tag.get())));
}

void frmEditGraphic::vs_Change() {
    picElementGroup.Top = -static_cast<double>(vs.value());
}

void frmEditGraphic::scrollIntoView(const ColorElement& row) {
    const double top = row.Top + picElementGroup.Top;
    const double bottom = top + row.Height;
    if (top < 0) {
        vs.setValue(wholeTwips(row.Top));
    } else if (bottom >= picMain.ScaleHeight()) {
        vs.setValue(wholeTwips(row.Top + row.Height - picMain.ScaleHeight()));
    }
}

// The logo.

void frmEditGraphic::imgQXLogo_MouseMove(const forms::MouseEvent& event) {
    const auto inside = [](double at, double size) {
        return at > design::kLogoMargin && at < size - design::kLogoMargin;
    };
    const bool over = inside(event.X, imgQXLogo.Width) && inside(event.Y, imgQXLogo.Height);
    imgQXLogo.Picture = (over ? imgCL : imgBW).Picture;
}

void frmEditGraphic::imgQXLogo_Click() {
    if (showAbout_) showAbout_();
    imgQXLogo.Picture = imgBW.Picture;
}

}  // namespace huebrush::recolor
