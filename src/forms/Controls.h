// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Event.h"
#include "base/Picture.h"
#include "forms/Control.h"
#include "forms/Font.h"

namespace huebrush::forms {

/// A container with a border and a caption.
class Frame : public Control {
 public:
    using Control::Control;
    Property<std::string> Caption{*this, PropertyId::Caption};
    /// 0 neither border nor caption, 1 a single line.
    Property<std::int16_t> BorderStyle{*this, PropertyId::BorderStyle, std::int16_t{1}};
};

/// A container for other controls, which are clipped at its edges.
class PictureBox : public Control {
 public:
    using Control::Control;
    /// A colour number of forms/Font.h.
    Property<unsigned> BackColor{*this, PropertyId::BackColor, SystemColor::kButtonFace};
    /// 0 none, 1 a single line.
    Property<std::int16_t> BorderStyle{*this, PropertyId::BorderStyle};
    base::Event<> Resize;

    /// The inner size, in twips.
    double ScaleWidth() const { return Width; }
    double ScaleHeight() const { return Height; }
};

namespace Alignment {
inline constexpr std::int16_t kLeft = 0;
inline constexpr std::int16_t kRight = 1;
inline constexpr std::int16_t kCentre = 2;
}  // namespace Alignment

class Label : public Control {
 public:
    using Control::Control;
    Property<std::string> Caption{*this, PropertyId::Caption};
    Property<std::int16_t> Alignment{*this, PropertyId::Alignment};
};

/// A line from the upper left to the lower right of its place; one of its sizes may be 0.
class Line : public Control {
 public:
    using Control::Control;
    /// A colour number of forms/Font.h.
    Property<unsigned> BorderColor{*this, PropertyId::ForeColor, SystemColor::kButtonShadow};
};

class Image : public Control {
 public:
    using Control::Control;
    Property<base::Picture> Picture{*this, PropertyId::Picture};
    /// 0 none, 1 a single line.
    Property<std::int16_t> BorderStyle{*this, PropertyId::BorderStyle};

    base::Event<> Click;
    base::Event<> DblClick;
    base::Event<const MouseEvent&> MouseDown;
    base::Event<const MouseEvent&> MouseMove;
    base::Event<const MouseEvent&> MouseUp;
};

class CommandButton : public Control {
 public:
    using Control::Control;
    Property<std::string> Caption{*this, PropertyId::Caption};
    /// The button that Return presses. One per form: setting it clears it on the others.
    Property<bool> Default{*this, PropertyId::Default};
    base::Event<> Click;

    bool takesFocus() const override { return true; }
    /// The user pressed the button.
    void press();
    void propertyChanged(PropertyId id) override;
};

namespace CheckValue {
inline constexpr std::int16_t kClear = 0;
inline constexpr std::int16_t kTicked = 1;
inline constexpr std::int16_t kGrey = 2;
}  // namespace CheckValue

/// A box with the values of CheckValue. Every change of Value raises Click, at once.
class CheckBox : public Control {
 public:
    using Control::Control;
    Property<std::string> Caption{*this, PropertyId::Caption};
    Property<std::int16_t> Value{*this, PropertyId::Value};
    base::Event<> Click;
    base::Event<std::int16_t, std::int16_t> KeyUp;

    bool takesFocus() const override { return true; }
    /// The user clicked the box: clear becomes ticked, ticked and grey become clear.
    void toggle();
    /// The user released a key here: its code and the shift state.
    void keyUp(std::int16_t code, std::int16_t shift);
    void propertyChanged(PropertyId id) override;
};

/// One of several options of a container: setting one clears the others. A change of Value raises
/// Click; being cleared by another option's choice does not.
class OptionButton : public Control {
 public:
    using Control::Control;
    Property<std::string> Caption{*this, PropertyId::Caption};
    Property<bool> Value{*this, PropertyId::Value};
    base::Event<> Click;

    bool takesFocus() const override { return true; }
    /// The user chose the option. Choosing the chosen one raises Click again, as a click does.
    void choose();
    void propertyChanged(PropertyId id) override;
};

/// A list of texts, one of which may be current. Each change of ListIndex raises Click; a line that
/// the list does not have is an error (5), and none is current then.
class ListBox : public Control {
 public:
    using Control::Control;
    Property<std::vector<std::string>> List{*this, PropertyId::List};
    /// From 0; -1 for none.
    Property<std::int16_t> ListIndex{*this, PropertyId::ListIndex, std::int16_t{-1}};
    base::Event<> Click;

    bool takesFocus() const override { return true; }
    void AddItem(const std::string& text);
    void Clear();
    /// The user clicked a line of the list.
    void pick(std::int16_t index);
    void propertyChanged(PropertyId id) override;
};

class TextBox : public Control {
 public:
    using Control::Control;
    Property<std::string> Text{*this, PropertyId::Text};
    base::Event<> Change;

    bool takesFocus() const override { return true; }
    /// The user has typed; this is the text now.
    void type(const std::string& text);
    void propertyChanged(PropertyId id) override;
};

/// A vertical scroll bar; all its numbers are 32 bits wide. Value is kept between Min and Max, and
/// each change of it raises Change, at once.
class VScrollBar : public Control {
 public:
    using Control::Control;
    Property<std::int32_t> Min{*this, PropertyId::Min};
    Property<std::int32_t> Max{*this, PropertyId::Max, 32767};
    Property<std::int32_t> SmallChange{*this, PropertyId::SmallChange, 1};
    Property<std::int32_t> LargeChange{*this, PropertyId::LargeChange, 1};
    base::Event<> Change;

    std::int32_t value() const { return value_; }
    void setValue(std::int32_t value);
    /// The user moved the bar to a value.
    void scrollTo(std::int32_t value);

    bool takesFocus() const override { return true; }
    void propertyChanged(PropertyId id) override;

 private:
    std::int32_t clamped(std::int32_t value) const;
    Property<std::int32_t> value_{*this, PropertyId::Value};
};

}  // namespace huebrush::forms
