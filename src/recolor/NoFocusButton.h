// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "base/Picture.h"
#include "forms/Controls.h"
#include "forms/UserControl.h"

namespace huebrush::recolor {

/// A push button, drawn by itself, that never takes the keyboard focus, so that its command can act
/// on whatever control has it. It shows a picture (another one while disabled) and a caption, and
/// looks pressed while the mouse button is down.
class NoFocusButton final : public forms::UserControl {
 public:
    NoFocusButton(forms::Control& container, std::string name);

    // Saved properties; Enabled, which every control has, is saved too.
    forms::Property<unsigned> ForeColor{*this, forms::PropertyId::ForeColor, kDefaultForeColor};
    forms::Property<forms::Font> Font{*this, forms::PropertyId::Font};
    forms::Property<std::string> Caption{*this, forms::PropertyId::Caption, kDefaultCaption};
    base::Picture Picture() const { return imgE.Picture.get(); }
    void setPicture(const base::Picture& picture);
    base::Picture DisabledPicture() const { return imgD.Picture.get(); }
    void setDisabledPicture(const base::Picture& picture);

    base::Event<> Click;
    base::Event<> DblClick;
    base::Event<std::int16_t&, std::int16_t&> KeyDown;
    base::Event<std::int16_t&> KeyPress;
    base::Event<std::int16_t&, std::int16_t&> KeyUp;
    base::Event<const forms::MouseEvent&> MouseDown;
    base::Event<const forms::MouseEvent&> MouseMove;
    base::Event<const forms::MouseEvent&> MouseUp;

    // The parts, the uppermost first: the surface that receives the mouse, the picture while
    // enabled and while disabled, and the edges, two of which make the face look raised.
    forms::Image img{*this, "img"};
    forms::Image imgE{*this, "imgE"};
    forms::Image imgD{*this, "imgD"};
    forms::Line lineTop{*this, "lineTop"};
    forms::Line lineLeft{*this, "lineLeft"};
    forms::Line lineBottom{*this, "lineBottom"};
    forms::Line lineRight{*this, "lineRight"};

    /// What the user does with the mouse; nothing happens while the button is disabled.
    void mouseDown(const forms::MouseEvent& event);
    void mouseMove(const forms::MouseEvent& event);
    void mouseUp(const forms::MouseEvent& event);
    void click();
    void doubleClick();

    void WriteProperties(forms::PropertyBag& bag) const override;
    void ReadProperties(const forms::PropertyBag& bag) override;
    void paint(forms::Canvas& canvas) override;
    const std::string* buttonCaption() const override { return &Caption.get(); }
    void press() override { click(); }
    void propertyChanged(forms::PropertyId id) override;

 protected:
    void resized() override;

 private:
    static constexpr unsigned kDefaultForeColor = forms::SystemColor::kButtonText;
    static constexpr const char* kDefaultCaption = "Caption";

    void onMouse(const std::function<void()>& action);
    void showRaised(bool raised);
    void centre(forms::Image& picture);
    void paintCaption(forms::Canvas& canvas) const;
};

}  // namespace huebrush::recolor
