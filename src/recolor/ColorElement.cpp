// SPDX-License-Identifier: MPL-2.0

#include "recolor/ColorElement.h"

#include <utility>

#include "base/Text.h"
#include "error/mError.h"
#include "forms/Runtime.h"
#include "recolor/FillWords.h"

namespace huebrush::recolor {

namespace {

constexpr const char* kModule = "Huebrush.ColorElement.";
constexpr const char* kNoFill = "Bez výplně";

/// Where the parts lie in the row, in twips.
namespace place {
constexpr double kEdge = 15;
constexpr double kHandleLeft = 60;
constexpr double kHandleTop = 150;
constexpr double kHandleWidth = 120;
constexpr double kHandleHeight = 330;
constexpr double kBoxLeft = 270;
constexpr double kBoxTop = 165;
constexpr double kBoxSize = 300;
constexpr double kSourceLeft = 765;
constexpr double kDestinationLeft = 2475;
constexpr double kPreviewTop = 120;
constexpr double kPreviewWidth = 1215;
constexpr double kPreviewHeight = 375;
constexpr double kArrowLeft = 2085;
constexpr double kArrowTop = 195;
constexpr double kArrowSize = 240;
constexpr double kMenuLeft = 3915;
constexpr double kMenuWidth = 420;
constexpr double kLabelTop = 210;
constexpr double kLabelHeight = 195;
}  // namespace place

}  // namespace

ColorElement::ColorElement(forms::Control& container, std::string name, std::int16_t index)
    : UserControl(container, std::move(name)), index_(index) {
    layOut();
    cmdChangeDes.ToolTipText = std::string("Zobrazí nabídku pro editaci výplně");
    chkSelect.ToolTipText =
        std::string("Označení zástupce (zastupované prvky bude možné přebarvit)");
    picSource.ToolTipText = std::string("Náhled na aktuální vzhled výplně");
    picDestination.ToolTipText = std::string("Náhled na nový vzhled výplně");
    shpFocus.ToolTipText = std::string("Uchopovací značka pro změnu pozice zástupce");
    Label1.Caption = std::string(kNoFill);
    Label2.Caption = std::string(kNoFill);
    showFocus(false);
    setSelDestinationDrag(false);
    connectMenu();
    connectParts();
    setFillObject(std::make_shared<fill::CFill>());
}

ColorElement::~ColorElement() {
    fill_->ReadFromRecordset.disconnect(this);
}

void ColorElement::layOut() {
    using namespace place;
    Move(Left, Top, kWidth, kHeight);
    shpFocus.Move(kHandleLeft, kHandleTop, kHandleWidth, kHandleHeight);
    chkSelect.Move(kBoxLeft, kBoxTop, kBoxSize, kBoxSize);
    picSource.Move(kSourceLeft, kPreviewTop, kPreviewWidth, kPreviewHeight);
    picDestination.Move(kDestinationLeft, kPreviewTop, kPreviewWidth, kPreviewHeight);
    Image1.Move(kArrowLeft, kArrowTop, kArrowSize, kArrowSize);
    cmdChangeDes.Move(kMenuLeft, kPreviewTop, kMenuWidth, kPreviewHeight);
    Label1.Move(kSourceLeft, kLabelTop, kPreviewWidth, kLabelHeight);
    Label2.Move(kDestinationLeft, kLabelTop, kPreviewWidth, kLabelHeight);
    for (forms::Label* const label : {&Label1, &Label2}) {
        label->Alignment.initialize(forms::Alignment::kCentre);
    }
    for (forms::Image* const preview : {&picSource, &picDestination}) {
        preview->BorderStyle.initialize(1);
    }
    for (forms::Line* const line :
         {&Line1, &Line2, &lineDragDes1, &lineDragDes2, &lineDragDes3, &lineDragDes4}) {
        line->BorderColor.initialize(forms::SystemColor::kHighlight);
    }
    imgFocus.Move(kEdge, kEdge, kHandleLeft - kEdge, kHeight - 2 * kEdge);
    Line1.Move(kEdge, kEdge, kWidth - 2 * kEdge, 0);
    Line2.Move(kEdge, kHeight - kEdge, kWidth - 2 * kEdge, 0);
    lineDragDes1.Move(0, 0, kWidth, 0);
    lineDragDes2.Move(0, kHeight - kEdge, kWidth, 0);
    // Inside the list's own border.
    lineDragDes3.Move(kEdge, 0, 0, kHeight);
    lineDragDes4.Move(kWidth - 2 * kEdge, 0, 0, kHeight);
}

void ColorElement::connectMenu() {
    mnuWord.Click.connect([this] { mnuWord_Click(); });
    mnuWordNoFill.Click.connect([this] {
        bool value = true;
        mnuChDNoFill(value);
    });
    mnWordTransparency.Click.connect([this] {
        float value = kHalfTransparent;
        mnuChDTransparency(value);
    });
    mnuWordColor.Click.connect([this] { mnuChDColor(); });
    mnuWordFill.Click.connect([this] { mnuChDFill(); });
    mnuWordFormat.Click.connect([this] { mnuChDFormat(); });
    mnuWordRestore.Click.connect([this] { RestoreFill(); });
}

void ColorElement::connectParts() {
    cmdChangeDes.Click.connect([this] { cmdChangeDes_Click(); });
    chkSelect.Click.connect([this] { ChangeSelect(); });
    chkSelect.KeyUp.connect(
        [this](std::int16_t code, std::int16_t shift) { chkSelect_KeyUp(code, shift); });
    shpFocus.MouseDown.connect([this](const forms::MouseEvent&) { DragMouseDown(); });
    GotFocus.connect([this] { showFocus(true); });
    LostFocus.connect([this] { showFocus(false); });
}

void ColorElement::setFillObject(std::shared_ptr<fill::CFill> fill) {
    if (fill_) fill_->ReadFromRecordset.disconnect(this);
    fill_ = std::move(fill);
    fill_->ReadFromRecordset.connect(
        [this](const base::Picture& preview) {
            picDestination.Picture = preview;
            describe();
        },
        this);
}

void ColorElement::setElementsGroup(std::shared_ptr<const ShapeGroup> shapes) {
    shapes_ = std::move(shapes);
    describe();
}

void ColorElement::describe() {
    if (!shapes_) return;
    std::string words = base::text(wordsOf(fill_->original()), ", ", objectsText(shapes_->size()));
    if (fill_->Change() && !(fill_->destination() == fill_->original())) {
        words += base::text(", nově ", wordsOf(fill_->destination()));
    }
    chkSelect.AccessibleName = words;
    ToolTipText = std::move(words);
}

void ColorElement::setMousePointer(std::int16_t pointer) {
    mousePointer_ = pointer;
    propertyChanged(forms::PropertyId::MousePointer);
    PropertyChanged("MousePointer");
}

void ColorElement::setDestinationPicture(const base::Picture& picture) {
    picDestination.Picture = picture;
    describe();
    PropertyChanged("DestinationPicture");
}

void ColorElement::setSourcePicture(const base::Picture& picture) {
    picSource.Picture = picture;
    describe();
    PropertyChanged("SourcePicture");
}

void ColorElement::setSelectValue(std::int16_t value) {
    chkSelect.Value = value;
    PropertyChanged("SelectValue");
}

void ColorElement::setSelDestinationDrag(bool shown) {
    for (forms::Line* const line : {&lineDragDes1, &lineDragDes2, &lineDragDes3, &lineDragDes4}) {
        line->Visible = shown;
    }
}

void ColorElement::showFocus(bool shown) {
    Line1.Visible = shown;
    Line2.Visible = shown;
    shpFocus.Visible = shown;
    imgFocus.Visible = shown;
}

void ColorElement::CliboardToSource() {
    error::trap(
        {kModule, "CliboardToSource", "Chyba při práci se schránkou při získávání náhledu..."},
        [&] {
            setSourcePicture(forms::Runtime::current().Clipboard().GetData());
            CliboardToDestination();
        });
}

void ColorElement::CliboardToDestination() {
    error::trap(
        {kModule, "CliboardToDestination", "Chyba při práci se schránkou při získávání náhledu..."},
        [&] { setDestinationPicture(forms::Runtime::current().Clipboard().GetData()); });
}

void ColorElement::Discolour(host::Document& document) {
    RowOutcome outcome;
    const std::string failure =
        error::trap({kModule, "Discolour", "Chyba při pokusu přebarvit grafické prvky..."}, [&] {
            if (!isSelected() || !fill_->Change() || !shapes_) return;
            outcome.error = giveFill(*fill_, *shapes_, document);
            setSourcePicture(DestinationPicture());
            if (outcome.error.empty()) outcome.shapes = shapes_->size();
        });
    if (outcome.error.empty()) outcome.error = failure;
    Discoloured(outcome);
}

void ColorElement::reportFailed(std::vector<host::FailedWrite>& failed) {
    if (!shapes_) return;
    const auto first = takeFailed(failed, *shapes_);
    if (first) Discoloured({0, fill::CFill::reportFailedFormat(*first)});
}

void ColorElement::Show() {
    cmdChangeDes.Caption = std::string("...");
    forms::Font font = cmdChangeDes.Font;
    font.Bold = true;
    font.Size = 12;
    cmdChangeDes.Font = font;
}

void ColorElement::setFixedPictures(const base::Picture& focusMark, const base::Picture& grabHandle,
                                    const base::Picture& arrow) {
    imgFocus.Picture = focusMark;
    shpFocus.Picture = grabHandle;
    Image1.Picture = arrow;
}

void ColorElement::takeFixedPictures(const ColorElement& other) {
    setFixedPictures(other.imgFocus.Picture, other.shpFocus.Picture, other.Image1.Picture);
}

void ColorElement::cmdChangeDes_Click() {
    forms::Runtime::current().PopupMenu(mnuWord, *this, cmdChangeDes.Left,
                                        cmdChangeDes.Top + cmdChangeDes.Height);
}

void ColorElement::grab() {
    form().handle([this] {
        if (shpFocus.isUsable()) shpFocus.MouseDown(forms::MouseEvent{});
    });
}

void ColorElement::mnuWord_Click() {
    mnWordTransparency.Checked = fill_->DesTransparency() == kHalfTransparent;
    mnuWordNoFill.Checked = fill_->DesVisible() == host::MsoTriState::msoFalse;
}

void ColorElement::RestoreFill() {
    fill_->Restore();
    setDestinationPicture(SourcePicture());
}

void ColorElement::chkSelect_KeyUp(std::int16_t code, std::int16_t shift) {
    switch (code) {
        case forms::KeyCode::kBack:
        case forms::KeyCode::kAlt:
        case forms::KeyCode::kContextMenu:
            cmdChangeDes_Click();
            break;
        case forms::KeyCode::kUp:
            if (shift != forms::Shift::kNone) MoveUp();
            break;
        case forms::KeyCode::kDown:
            if (shift != forms::Shift::kNone) MoveDown();
            break;
        case forms::KeyCode::kDelete:
            KeyDel(shift);
            break;
        default:
            break;
    }
}

void ColorElement::resized() {
    Width = kWidth;
    Height = kHeight;
}

void ColorElement::WriteProperties(forms::PropertyBag& bag) const {
    bag.WriteProperty("MousePointer", MousePointer(), std::int16_t{0});
    bag.WriteProperty("DestinationPicture", DestinationPicture(), base::Picture{});
    bag.WriteProperty("SourcePicture", SourcePicture(), base::Picture{});
    bag.WriteProperty("SelectValue", SelectValue(), std::int16_t{0});
}

void ColorElement::ReadProperties(const forms::PropertyBag& bag) {
    setMousePointer(bag.ReadProperty("MousePointer", std::int16_t{0}));
    setDestinationPicture(bag.ReadProperty("DestinationPicture", base::Picture{}));
    setSourcePicture(bag.ReadProperty("SourcePicture", base::Picture{}));
    setSelectValue(bag.ReadProperty("SelectValue", std::int16_t{0}));
}

}  // namespace huebrush::recolor
