#include "recolor/frmEditGraphic.h"

#include <cmath>
#include <utility>
#include <vector>

#include "base/NonNegative.h"
#include "base/Text.h"
#include "fill/mFillGraficalObject.h"
#include "forms/Runtime.h"
#include "recolor/ScanCollection.h"
#include "recolor/ScratchShape.h"

namespace huebrush::recolor {

namespace {

using base::NonNegative;
using base::text;

// Texts.

constexpr const char* kCaption = " Změna výplně grafických objektů...";
constexpr const char* kRecolour = "Pře&barvit";
constexpr const char* kUndoTitle = "Přebarvení grafických objektů";
constexpr const char* kScanning = "Prohledávám označené objekty...";
constexpr const char* kNothingSelected = "Nejsou vybrány žádné grafické objekty.";
constexpr const char* kScanDone = "Zpracování je dokončeno...";
constexpr const char* kFillsFound = "Celkový počet nalezených výplní.. ";
constexpr const char* kScanFailed =
    "Při vyhledávání typů výplní ve vybraných objektech vzikla chyba...";
constexpr const char* kRecolourFailed = "Při převádění výplní došlo k chybě...";
constexpr const char* kExchangeFailed = "Při záměně dvou prvků došlo k chybě...";
// Where the system gives a handler no message of its own.
constexpr const char* kLoadFailed = "Při otevírání formuláře došlo k chybě...";
constexpr const char* kLayoutFailed = "Při změně rozměrů formuláře došlo k chybě...";
constexpr const char* kViewFailed = "Při zobrazování zástupců výplní došlo k chybě...";
constexpr const char* kListFailed = "Při práci se seznamem zástupců výplní došlo k chybě...";
constexpr const char* kMoveFailed = "Při přesunu zástupce výplně došlo k chybě...";
constexpr const char* kRemoveFailed = "Při odstraňování zástupců výplní došlo k chybě...";

// The component's own pictures.

namespace icon {
constexpr std::int32_t kDown = 201;
constexpr std::int32_t kDownDisabled = 200;
constexpr std::int32_t kUp = 301;
constexpr std::int32_t kUpDisabled = 300;
constexpr std::int32_t kLogoColour = 401;
constexpr std::int32_t kLogoBlackAndWhite = 400;
constexpr std::int32_t kHorn = 402;
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
constexpr double kStripHeight = 360;
/// From the bottom of the dialog to the top of the controls under the list.
constexpr double kStripFromBottom = 555;
constexpr double kRightLeft = 5190;
constexpr double kRightWidth = 2985;
constexpr double kButtonHeight = 420;
constexpr double kLogoMargin = 200;
}  // namespace design

constexpr const char* kInternal = "INTERNAL";

error::Place place(const char* procedure, const char* message) {
    return {"Huebrush.frmEditGraphic.", procedure, message};
}

std::int32_t wholeTwips(double length) {
    return static_cast<std::int32_t>(std::lround(length));
}

bool isSelected(const ColorElement& row) {
    return row.SelectValue() != forms::CheckValue::kClear;
}

}  // namespace

/// Holds back the refreshes of the view for its lifetime and makes up for them at its end, also
/// when an error ends the handler. The refresh has a trap of its own.
class frmEditGraphic::OneRefresh {
 public:
    explicit OneRefresh(frmEditGraphic& dialog) : dialog_(dialog) { ++dialog_.refreshesHeld_; }
    OneRefresh(const OneRefresh&) = delete;
    OneRefresh& operator=(const OneRefresh&) = delete;
    ~OneRefresh() {
        if (--dialog_.refreshesHeld_ > 0 || !dialog_.refreshAsked_) return;
        dialog_.refreshAsked_ = false;
        error::ignoring([this] { dialog_.refreshView(); });
    }

 private:
    frmEditGraphic& dialog_;
};

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
    Label1.Move(270, kHeadingTop, 690, kHeadingHeight);
    Label2.Move(990, kHeadingTop, 1500, kHeadingHeight);
    Label3.Move(2700, kHeadingTop, 1500, kHeadingHeight);
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
    picLoadStatus.Move(kRightLeft, 6210, kRightWidth, 405);
    lblLoadStatus.Move(120, 90, kRightWidth - 240, 240);
    imgQXLogo.Move(kRightLeft, 6735, 975, 420);
    imgHorn.Move(8025, 6990, 375, 375);
    ColorElement& pattern = Element[0];
    pattern.Top = -ColorElement::kHeight;
    pattern.Visible = false;
}

void frmEditGraphic::setInitialStates() {
    optView0.Value.initialize(true);
    optView0.Tag = std::string("0");
    cmdDiscolour.Enabled = false;
    cmdFromDatabase.Enabled = false;
    cmdToDatabase.Enabled = false;
    fData.Enabled = false;
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
            // Being cleared by another option's choice is no choice of this one.
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
    });
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

host::Application& frmEditGraphic::requireHost() const {
    if (WApp_ == nullptr) base::throwObjectNotSet();
    return *WApp_;
}

// The scan.

void frmEditGraphic::cmdAdd_Click() {
    error::trap(place("cmdAdd_Click", kScanFailed), [this] {
        forms::Runtime& runtime = forms::Runtime::current();
        const auto selected = requireHost().Selection()->ShapeRange();
        const std::int32_t count = selected->Count();
        if (count == 0) {
            runtime.MsgBox(kNothingSelected, forms::MsgBoxStyle::kExclamation, "Huebrush");
            return;
        }
        MousePointer = forms::MousePointerShape::hourglass;
        picLoadStatus.Visible = true;
        lblLoadStatus.Caption = std::string(kScanning);
        const ScratchShape scratch(requireHost());
        ScanCollection shapes;
        for (std::int32_t i = 1; i <= count; ++i) shapes.add(selected->Item(i));
        groupByFill(shapes, scratch);
        runtime.Clipboard().Clear();
        runtime.MsgBox(text(kFillsFound, Element.ubound(), "."), forms::MsgBoxStyle::kInformation,
                       kScanDone);
        scratch.close();
        SetScroll();
        if (Element.ubound() != 0) cmdRemove.Enabled = true;
        MousePointer = forms::MousePointerShape::standard;
        picLoadStatus.Visible = false;
    });
}

void frmEditGraphic::groupByFill(ScanCollection& shapes, const ScratchShape& scratch) {
    const base::Count16 total = base::Count16::of(shapes.size());
    const auto taken = [total](std::size_t left) { return static_cast<std::size_t>(total) - left; };
    while (!shapes.empty()) {
        showScanned(taken(shapes.size()), total);
        const host::ShapePointer firstShape = shapes.takeFirst();
        const auto group = std::make_shared<ShapeGroup>(1, firstShape);
        shapes.takeWhere(
            [&](const host::ShapePointer& shape) {
                return fill::IsSameFill(firstShape->Fill(), shape->Fill());
            },
            [&](const host::ShapePointer& shape, std::size_t left) {
                group->push_back(shape);
                showScanned(taken(left), total);
            });
        addRow(firstShape, group, scratch);
    }
}

void frmEditGraphic::showScanned(std::size_t taken, base::Count16 total) {
    progress_ = {taken, static_cast<std::size_t>(total)};
    lblLoadStatus.Caption = text("Zpracováno ", taken, " ze ", total, " objektů...");
    forms::Runtime::current().DoEvents();
}

void frmEditGraphic::addRow(const host::ShapePointer& firstShape,
                            std::shared_ptr<const ShapeGroup> group, const ScratchShape& scratch) {
    fill::CopyFill(firstShape->Fill(), scratch.Fill());
    scratch.select();
    scratch.copy();
    base::Count16 counter = Element.ubound();
    ++counter;
    Element.Load(counter);
    Element[counter].FillObject().SaveOriginalFormat(firstShape->Fill());
    if (firstShape->Fill().Visible() != host::MsoTriState::msoFalse) {
        Element[counter].CliboardToSource();
    } else {
        Element[counter].setSourcePicture({});
        Element[counter].setDestinationPicture({});
    }
    Element[counter].ElementsGroup = std::move(group);
    placeRow(counter);
}

void frmEditGraphic::placeRow(std::int16_t index) {
    ColorElement& row = Element[index];
    const ColorElement& previous = Element[static_cast<std::int16_t>(index - 1)];
    row.Top = previous.Top + previous.Height;
    row.Visible = true;
    row.Show();
    picElementGroup.Height = row.Top + row.Height;
}

// The recolour.

void frmEditGraphic::cmdDiscolour_Click() {
    error::trap(place("cmdDiscolour_Click", kRecolourFailed), [this] {
        cmdDiscolour.Enabled = false;
        picLoadStatus.Visible = true;
        discolourRows();
        picLoadStatus.Visible = false;
        cmdDiscolour.Enabled = true;
        cmdClose.Default = true;
    });
}

void frmEditGraphic::discolourRows() {
    std::shared_ptr<host::Document> document;
    std::unique_ptr<host::UndoGroup> undo;
    for (base::Count16 i = 1, last = Element.ubound(); i <= last; ++i) {
        progress_ = {static_cast<std::size_t>(i), static_cast<std::size_t>(last)};
        lblLoadStatus.Caption =
            text("Upravuji ", i, ". skupinu objektů ze ", Element.ubound(), " výplní...");
        forms::Runtime::current().DoEvents();
        ColorElement& row = Element[i];
        const auto current = requireHost().Selection()->Document();
        if (!document || !document->isSame(*current)) {
            undo.reset();
            undo = current->undoGroup(kUndoTitle);
            document = current;
        }
        row.Discolour(*current);
    }
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
        return view == 0 || (view == 1) == isSelected(row);
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
        if (isSelected(Element[i])) ++count;
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

// The list: the active row and the select-all box.

void frmEditGraphic::ReplaceColorElement(ColorElement& first, ColorElement& second) {
    error::trap(place("ReplaceColorElement", kExchangeFailed), [&] {
        const auto fill = first.fillReference();
        const base::Picture destination = first.DestinationPicture();
        const base::Picture source = first.SourcePicture();
        const auto group = first.ElementsGroup;
        const std::int16_t selected = first.SelectValue();
        const auto give = [](ColorElement& row, const auto& newFill, const base::Picture& newDes,
                             const base::Picture& newSource, const auto& newGroup,
                             std::int16_t newSelected) {
            row.setFillObject(newFill);
            row.setDestinationPicture(newDes);
            row.setSourcePicture(newSource);
            row.ElementsGroup = newGroup;
            row.setSelectValue(newSelected);
        };
        give(first, second.fillReference(), second.DestinationPicture(), second.SourcePicture(),
             second.ElementsGroup, second.SelectValue());
        give(second, fill, destination, source, group, selected);
    });
}

void frmEditGraphic::Element_GotFocus(ColorElement& row) {
    error::trap(place("Element_GotFocus", kListFailed), [&] {
        scrollIntoView(row);
        nfbUP.Enabled = true;
        nfbDown.Enabled = true;
        ActiveElement_ = &row;
    });
}

void frmEditGraphic::Element_LostFocus() {
    nfbUP.Enabled = false;
    nfbDown.Enabled = false;
    ActiveElement_ = nullptr;
}

void frmEditGraphic::chkSelAll_Click() {
    error::trap(place("chkSelAll_Click", kListFailed), [this] {
        if (chkSelAll.Value == forms::CheckValue::kGrey) return;
        const OneRefresh refresh(*this);
        chkSelAll.Tag = std::string(kInternal);
        for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
            Element[i].setSelectValue(chkSelAll.Value);
        }
        chkSelAll.Tag = std::string();
    });
}

void frmEditGraphic::Element_ChangeSelect() {
    if (chkSelAll.Tag.get().empty()) {
        chkSelAll.Tag = std::string(kInternal);
        chkSelAll.Value = forms::CheckValue::kGrey;
    }
    refreshView();
}

// The list: order.

void frmEditGraphic::nfbUP_Click() {
    error::trap(place("nfbUP_Click", kMoveFailed), [this] { moveActive(-1); });
}

void frmEditGraphic::nfbDown_Click() {
    error::trap(place("nfbDown_Click", kMoveFailed), [this] { moveActive(1); });
}

void frmEditGraphic::moveActive(std::int16_t step) {
    if (ActiveElement_ == nullptr) return;
    const std::int16_t from = ActiveElement_->index();
    const std::int16_t last = Element.ubound();
    for (std::int32_t to = from + step; to >= 1 && to <= last; to += step) {
        ColorElement& target = Element[static_cast<std::int16_t>(to)];
        if (!target.Visible) continue;
        {
            const OneRefresh refresh(*this);
            ReplaceColorElement(Element[from], target);
        }
        target.SetFocus();
        return;
    }
}

void frmEditGraphic::Element_DragOver(ColorElement& row, const forms::Control& source,
                                      forms::DragState state) {
    error::trap(place("Element_DragOver", kMoveFailed), [&] {
        if (dynamic_cast<const ColorElement*>(&source) == nullptr || &source == &row) return;
        row.setSelDestinationDrag(state == forms::DragState::over);
    });
}

void frmEditGraphic::Element_DragDrop(ColorElement& row, const forms::Control& source) {
    error::trap(place("Element_DragDrop", kMoveFailed), [&] {
        const auto* const dragged = dynamic_cast<const ColorElement*>(&source);
        if (dragged == nullptr) return;
        row.setSelDestinationDrag(false);
        const std::int16_t to = row.index();
        const auto step = static_cast<std::int16_t>(dragged->index() < to ? 1 : -1);
        {
            const OneRefresh refresh(*this);
            for (std::int16_t at = dragged->index(); at != to;) {
                const auto next = static_cast<std::int16_t>(at + step);
                ReplaceColorElement(Element[at], Element[next]);
                at = next;
            }
        }
        row.SetFocus();
    });
}

// The list: removal.

void frmEditGraphic::cmdRemove_Click() {
    forms::Runtime::current().PopupMenu(mnuRemove, *this, cmdRemove.Left,
                                        cmdRemove.Top + cmdRemove.Height);
    // After the refresh of the item's own, on purpose: the recolour button is enabled while any row
    // remains.
    const bool any = Element.ubound() > 0;
    cmdRemove.Enabled = any;
    cmdDiscolour.Enabled = any;
}

void frmEditGraphic::mnuRemove_Click() {
    error::trap(place("mnuRemove_Click", kRemoveFailed), [this] {
        bool anySelected = false;
        bool anyNotSelected = false;
        for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
            (isSelected(Element[i]) ? anySelected : anyNotSelected) = true;
        }
        mnuRemoveAll.Enabled = Element.ubound() > 0;
        mnuRemoveSelect.Enabled = anySelected;
        mnuRemoveNoSelect.Enabled = anyNotSelected;
        mnuRemoveActive.Enabled = ActiveElement_ != nullptr;
    });
}

void frmEditGraphic::Element_KeyDel(std::int16_t shift) {
    if (shift == forms::Shift::kShift) {
        mnuRemoveAll_Click();
    } else {
        mnuRemoveActive_Click();
    }
}

void frmEditGraphic::mnuRemoveActive_Click() {
    error::trap(place("mnuRemoveActive_Click", kRemoveFailed), [this] {
        {
            const OneRefresh refresh(*this);
            if (ActiveElement_ != nullptr) removeRow(ActiveElement_->index());
        }
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveAll_Click() {
    error::trap(place("mnuRemoveAll_Click", kRemoveFailed), [this] {
        for (std::int16_t i = Element.ubound(); i >= 1; --i) Element.Unload(i);
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveNoSelect_Click() {
    error::trap(place("mnuRemoveNoSelect_Click", kRemoveFailed), [this] {
        removeRowsWith(forms::CheckValue::kClear);
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveSelect_Click() {
    error::trap(place("mnuRemoveSelect_Click", kRemoveFailed), [this] {
        removeRowsWith(forms::CheckValue::kTicked);
        afterRemoval();
    });
}

void frmEditGraphic::removeRow(std::int16_t index) {
    const std::int16_t last = Element.ubound();
    for (std::int16_t m = index; m < last; ++m) {
        ReplaceColorElement(Element[m], Element[static_cast<std::int16_t>(m + 1)]);
    }
    Element.Unload(last);
}

void frmEditGraphic::removeRowsWith(std::int16_t selectValue) {
    const OneRefresh refresh(*this);
    for (std::int16_t i = 1; i <= Element.ubound();) {
        if (Element[i].SelectValue() == selectValue) {
            removeRow(i);
        } else {
            ++i;
        }
    }
}

void frmEditGraphic::afterRemoval() {
    refreshView();
    const bool rowFocused = ActiveElement_ != nullptr;
    nfbUP.Enabled = rowFocused;
    nfbDown.Enabled = rowFocused;
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
