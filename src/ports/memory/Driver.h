// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"

namespace huebrush::memory {

/// The test asked the driver for what no user can do: a mistake of the test.
class ImpossibleInput : public std::logic_error {
 public:
    using std::logic_error::logic_error;
};

/// Acts as the user of a form: what a port turns a click, a key or a drag into, it does on the
/// controls themselves. A click on a control that is hidden or disabled, a key where nothing takes
/// it, a form that has been closed are ImpossibleInput. Boxes and menus that come up are answered
/// by the MemoryRuntime.
class Driver {
 public:
    explicit Driver(forms::Form& form) : form_(form) {}

    void click(forms::CommandButton& button) const;
    void click(forms::CheckBox& box) const;
    void click(forms::OptionButton& option) const;
    void click(forms::Image& image) const;
    /// A button that is made of other controls: pressed, released and clicked.
    template <class Button>
    requires requires(Button& button, const forms::MouseEvent& event) {
        button.mouseDown(event);
        button.mouseUp(event);
        button.click();
    }
    void click(Button& button) const {
        requireUsable(button);
        button.mouseDown(forms::MouseEvent{});
        button.mouseUp(forms::MouseEvent{});
        button.click();
    }
    /// A control of whatever kind it is, and the control of the form that has this name.
    void click(forms::Control& control) const;
    void click(const std::string& name) const;

    void moveMouse(forms::Image& image, float x, float y) const;

    /// Clicks a line of a list.
    void pick(forms::ListBox& list, std::int16_t index) const;

    /// Presses and releases a key: on a check box its release is what counts, a text box does with
    /// it what a field does, and Tab, Return and Escape are the form's. ImpossibleInput where
    /// nothing takes it.
    void key(std::int16_t code, std::int16_t shift = forms::Shift::kNone) const;
    /// Types a text on the text box that has the focus, key by key.
    void type(const std::string& text) const;
    /// Clicks a text box behind its text, and replaces or extends that.
    void type(forms::TextBox& box, const std::string& text) const;
    void tab() const;
    void shiftTab() const;

    /// Presses the mouse on what starts a drag, moves over the controls in their order, and drops
    /// on the last one.
    void drag(const std::function<void()>& grab, const std::vector<forms::Control*>& over) const;
    /// The first half of it: the mouse has come to the last control and is still pressed.
    void dragWithoutDrop(const std::function<void()>& grab,
                         const std::vector<forms::Control*>& over) const;
    /// The other half: the mouse is released over the control, or beside all of them.
    void drop(forms::Control* target) const;

    void scrollTo(forms::VScrollBar& bar, std::int32_t value) const;
    void resize(double width, double height) const;
    /// Closes the form by its window's own button.
    void close() const;

    /// The control of this name, at any depth; ImpossibleInput where there is none. Array elements
    /// have their index in the name: "Element(3)".
    forms::Control& find(const std::string& name) const;

    /// The form and its controls as text, one a line and indented by depth: kind, name, caption,
    /// value, place, and "hidden", "disabled" and "focused" where they hold.
    std::string print() const;

 private:
    void requireUsable(const forms::Control& control) const;
    void requireOpen() const;
    static void press(forms::TextBox& box, std::int16_t code, std::int16_t shift);
    void typeCharacter(char16_t character) const;

    forms::Form& form_;
};

}  // namespace huebrush::memory
