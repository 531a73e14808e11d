// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "base/Picture.h"
#include "forms/Binding.h"
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

/// A container for other controls, which are clipped at its edges and lie on its picture.
class PictureBox : public Control {
 public:
    using Control::Control;
    /// Shown with its proportions, as large as there is room for it.
    Property<base::Picture> Picture{*this, PropertyId::Picture};
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

    /// From now on the caption is the text of a field of the source's current record.
    void bind(std::shared_ptr<DataSource> source, std::string field);
    void unbind() { binding_.unbind(); }

 private:
    Binding binding_{[this](const std::string& text) { Caption = text; }};
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
    /// The button that Escape presses. One per form, too.
    Property<bool> Cancel{*this, PropertyId::Cancel};
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

/// An item of a list: its text, and a number of the program's own.
struct ListItem {
    std::string text;
    std::int32_t data = 0;

    friend bool operator==(const ListItem&, const ListItem&) = default;
};

/// A list of texts, one of which may be current. Each change of ListIndex raises Click, whether the
/// user or the program has made it; only removing the current item, or all, leaves none current
/// without a Click. An item that the list does not have is an error (5), after which, as ListIndex,
/// none is current.
class ListBox : public Control {
 public:
    using Control::Control;
    /// From 0; -1 for none.
    Property<std::int16_t> ListIndex{*this, PropertyId::ListIndex, std::int16_t{-1}};
    base::Event<> Click;

    bool takesFocus() const override { return true; }

    std::int16_t ListCount() const { return static_cast<std::int16_t>(items_.size()); }
    const std::string& List(std::int16_t index) const { return items_[place(index)].text; }
    void setList(std::int16_t index, const std::string& text);
    std::int32_t ItemData(std::int16_t index) const { return items_[place(index)].data; }
    void setItemData(std::int16_t index, std::int32_t data) { items_[place(index)].data = data; }
    const std::vector<ListItem>& items() const { return items_; }

    /// Adds an item at the end. An overflow error (6) when there are 32,767.
    void AddItem(const std::string& text);
    /// The item added last; -1 when none was, or one has been removed since.
    std::int16_t NewIndex() const { return newIndex_; }
    /// The current item stays current; if it is the one that goes, none is. No Click is raised.
    void RemoveItem(std::int16_t index);
    void Clear();

    /// The user clicked a line of the list.
    void pick(std::int16_t index);
    void propertyChanged(PropertyId id) override;

 private:
    /// Where an item is; an error where there is none.
    std::size_t place(std::int16_t index) const;

    std::vector<ListItem> items_;
    std::int16_t newIndex_ = -1;
};

/// A part of a text, in characters (UTF-16 units); the caret is at its end.
struct TextSelection {
    std::int32_t start = 0;
    std::int32_t length = 0;

    friend bool operator==(const TextSelection&, const TextSelection&) = default;
};

/// A field for a text. Lines end with CR LF.
///
/// A bound box shows a field of its source's current record. Its first change, by the user or by
/// the program, begins the edit of the record (DataSource::beginEdit); its text is handed over when
/// the focus leaves it, and before the record is written or left.
class TextBox : public Control {
 public:
    using Control::Control;
    /// Text that the program sets has the caret before it.
    Property<std::string> Text{*this, PropertyId::Text};
    /// Whether the user can write several lines; Return then ends a line. Set before the form is
    /// shown.
    Property<bool> MultiLine{*this, PropertyId::MultiLine};
    /// The user can select and copy the text, but not change it.
    Property<bool> Locked{*this, PropertyId::Locked};
    base::Event<> Change;
    /// The keys that the user presses here: the key's code and the shift state. They are reported,
    /// and then do what they do in a field, or in the form (Form::pressEscape).
    base::Event<std::int16_t, std::int16_t> KeyDown;
    base::Event<std::int16_t, std::int16_t> KeyUp;
    /// The character of a key that has one, between the other two.
    base::Event<char16_t> KeyPress;

    bool takesFocus() const override { return true; }

    std::int32_t SelStart() const { return selection_.get().start; }
    std::int32_t SelLength() const { return selection_.get().length; }
    std::string SelText() const;
    /// Puts the caret there, with nothing selected. What lies beyond the text is taken back to it,
    /// here and below; less than 0 is an error (5).
    void setSelStart(std::int32_t start);
    /// Selects that much from SelStart on.
    void setSelLength(std::int32_t length);
    /// Replaces what is selected; the caret is behind the new text.
    void setSelText(const std::string& text);
    const TextSelection& selection() const { return selection_; }

    void bind(std::shared_ptr<DataSource> source, std::string field);
    void unbind() { binding_.unbind(); }

    /// The user has typed; this is the text now, with the caret at its end or where it is said.
    void type(const std::string& text);
    void type(const std::string& text, const TextSelection& selection);
    /// The user has moved the caret, or selected something.
    void select(const TextSelection& selection);
    /// The user pressed a key here, of that character (0 for none), or released it.
    void keyDown(std::int16_t code, std::int16_t shift, char16_t character);
    void keyUp(std::int16_t code, std::int16_t shift);
    /// Whether Return is not for the form: in a box with several lines, and in one that listens to
    /// what is pressed.
    bool keepsReturn() const { return MultiLine || KeyDown.connected() || KeyPress.connected(); }

    void propertyChanged(PropertyId id) override;

 protected:
    void focusLeft() override;

 private:
    void setTextAndCaret(const std::string& text, const TextSelection& selection);
    TextSelection within(const TextSelection& selection) const;

    Property<TextSelection> selection_{*this, PropertyId::Selection};
    /// What is selected in the text that is being set.
    TextSelection next_;
    Binding binding_{[this](const std::string& text) { Text = text; },
                     [this] { return Text.get(); }};
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
