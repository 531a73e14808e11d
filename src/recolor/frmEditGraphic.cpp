// SPDX-License-Identifier: MPL-2.0

#include "recolor/frmEditGraphic.h"

#include <utility>

#include "base/Text.h"
#include "forms/Runtime.h"
#include "recolor/frmEditGraphicDesign.h"

namespace huebrush::recolor {

namespace {

using base::text;

// Where the system gives a handler no message of its own.
constexpr const char* kLoadFailed = "Při otevírání formuláře došlo k chybě...";

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

}  // namespace

// Construction.

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

void frmEditGraphic::connectHandlers() {
    Resize.connect([this] { Form_Resize(); });
    cmdAdd.Click.connect([this] { cmdAdd_Click(); });
    cmdDiscolour.Click.connect([this] { cmdDiscolour_Click(); });
    cmdToDatabase.Click.connect([this] { cmdToDatabase_Click(); });
    cmdFromDatabase.Click.connect([this] { cmdFromDatabase_Click(); });
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

// Opening and closing.

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
    return !list_.anyChanged();
}

void frmEditGraphic::unloadElements() {
    closePaletteDialog();
    ActiveElement_ = nullptr;
    Element.clear();
}

void frmEditGraphic::onTop(bool value) {
    TopMost = value;
}

error::Place frmEditGraphic::place(const char* procedure, const char* message) {
    return {"Huebrush.frmEditGraphic.", procedure, message};
}

host::Application& frmEditGraphic::requireHost() const {
    if (WApp_ == nullptr) base::throwObjectNotSet();
    return *WApp_;
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
