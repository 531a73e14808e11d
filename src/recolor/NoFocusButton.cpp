// SPDX-License-Identifier: MPL-2.0

#include "recolor/NoFocusButton.h"

#include "error/mError.h"
#include "forms/Form.h"

namespace huebrush::recolor {

namespace {

/// How far the edges lie inside the face, in twips.
constexpr double kEdgeOffset = 20;
/// The size of the enabled picture as designed, in twips.
constexpr double kPictureSize = 360;
/// The engraved caption of a disabled button: light, moved down and right, under dark, moved up and
/// left. The offsets differ on purpose.
constexpr double kEngravedLight = 7;
constexpr double kEngravedDark = 8;

}  // namespace

NoFocusButton::NoFocusButton(forms::Control& container, std::string name)
    : UserControl(container, std::move(name)) {
    Font.initialize(ambientFont());
    imgD.Visible.initialize(false);
    imgE.Width.initialize(kPictureSize);
    imgE.Height.initialize(kPictureSize);
    img.MouseDown.connect([this](const forms::MouseEvent& event) {
        MouseDown(event);
        img.BorderStyle = std::int16_t{1};
        showRaised(false);
    });
    img.MouseMove.connect([this](const forms::MouseEvent& event) { MouseMove(event); });
    img.MouseUp.connect([this](const forms::MouseEvent& event) {
        MouseUp(event);
        img.BorderStyle = std::int16_t{0};
        showRaised(true);
    });
    img.Click.connect([this] { Click(); });
    img.DblClick.connect([this] { DblClick(); });
}

void NoFocusButton::setPicture(const base::Picture& picture) {
    imgE.Picture = picture;
    centre(imgE);
    PropertyChanged("Picture");
}

void NoFocusButton::setDisabledPicture(const base::Picture& picture) {
    imgD.Picture = picture;
    centre(imgD);
    PropertyChanged("DisabledPicture");
}

void NoFocusButton::centre(forms::Image& picture) {
    picture.Left = (Width - picture.Width) / 2;
    picture.Top = (Height - picture.Height) / 2;
}

void NoFocusButton::showRaised(bool raised) {
    lineTop.Visible = raised;
    lineLeft.Visible = raised;
}

void NoFocusButton::propertyChanged(forms::PropertyId id) {
    UserControl::propertyChanged(id);
    switch (id) {
        case forms::PropertyId::Enabled:
            img.Visible = Enabled.get();
            imgE.Visible = Enabled.get();
            imgD.Visible = !Enabled;
            PropertyChanged("Enabled");
            break;
        case forms::PropertyId::ForeColor:
            PropertyChanged("ForeColor");
            break;
        case forms::PropertyId::Font:
            PropertyChanged("Font");
            break;
        case forms::PropertyId::Caption:
            PropertyChanged("Caption");
            break;
        default:
            return;
    }
    Refresh();
}

void NoFocusButton::resized() {
    img.Move(0, 0, Width, Height);
    imgD.Move(0, 0, Width, Height);
    const double innerWidth = Width - kEdgeOffset;
    const double innerHeight = Height - kEdgeOffset;
    lineTop.Move(0, 0, innerWidth, 0);
    lineLeft.Move(0, 0, 0, innerHeight);
    lineBottom.Move(0, innerHeight, innerWidth, 0);
    lineRight.Move(innerWidth, 0, 0, innerHeight);
    centre(imgE);
}

void NoFocusButton::WriteProperties(forms::PropertyBag& bag) const {
    bag.WriteProperty("ForeColor", ForeColor.get(), kDefaultForeColor);
    bag.WriteProperty("Enabled", Enabled.get(), true);
    bag.WriteProperty("Font", Font.get(), ambientFont());
    bag.WriteProperty("Caption", Caption.get(), std::string(kDefaultCaption));
    bag.WriteProperty("Picture", Picture(), base::Picture{});
    bag.WriteProperty("DisabledPicture", DisabledPicture(), base::Picture{});
}

void NoFocusButton::ReadProperties(const forms::PropertyBag& bag) {
    ForeColor = bag.ReadProperty("ForeColor", kDefaultForeColor);
    Enabled = bag.ReadProperty("Enabled", true);
    Font = bag.ReadProperty("Font", ambientFont());
    Caption = bag.ReadProperty("Caption", std::string(kDefaultCaption));
    setPicture(bag.ReadProperty("Picture", base::Picture{}));
    setDisabledPicture(bag.ReadProperty("DisabledPicture", base::Picture{}));
}

void NoFocusButton::paint(forms::Canvas& canvas) {
    error::trap(
        {"Huebrush.NoFocusButton.", "UserControl_Paint", "Chyba při překreslování tlačítka..."},
        [&] {
            canvas.Cls();
            paintCaption(canvas);
        });
}

void NoFocusButton::paintCaption(forms::Canvas& canvas) const {
    const double x = (Width - canvas.TextWidth(Caption, Font)) / 2;
    const double y = (Height - canvas.TextHeight(Caption, Font)) / 2;
    if (Enabled) {
        canvas.Print(Caption, x, y, Font, ForeColor);
        return;
    }
    canvas.Print(Caption, x + kEngravedLight, y + kEngravedLight, Font,
                 forms::SystemColor::kHighlightText);
    canvas.Print(Caption, x - kEngravedDark, y - kEngravedDark, Font,
                 forms::SystemColor::kApplicationWorkspace);
}

void NoFocusButton::onMouse(const std::function<void()>& action) {
    form().handle([&] {
        if (img.isUsable()) action();
    });
}

void NoFocusButton::mouseDown(const forms::MouseEvent& event) {
    onMouse([&] { img.MouseDown(event); });
}
void NoFocusButton::mouseMove(const forms::MouseEvent& event) {
    onMouse([&] { img.MouseMove(event); });
}
void NoFocusButton::mouseUp(const forms::MouseEvent& event) {
    onMouse([&] { img.MouseUp(event); });
}
void NoFocusButton::click() {
    onMouse([&] { img.Click(); });
}
void NoFocusButton::doubleClick() {
    onMouse([&] { img.DblClick(); });
}

}  // namespace huebrush::recolor
