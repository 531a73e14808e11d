// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "forms/Peer.h"
#include "forms/Property.h"

namespace huebrush::forms {

class Form;

/// The keys and shift states that mean something here, with the classic numbers.
namespace KeyCode {
inline constexpr std::int16_t kBack = 8;
inline constexpr std::int16_t kTab = 9;
inline constexpr std::int16_t kReturn = 13;
inline constexpr std::int16_t kAlt = 18;
inline constexpr std::int16_t kEscape = 27;
inline constexpr std::int16_t kSpace = 32;
inline constexpr std::int16_t kEnd = 35;
inline constexpr std::int16_t kHome = 36;
inline constexpr std::int16_t kLeft = 37;
inline constexpr std::int16_t kUp = 38;
inline constexpr std::int16_t kRight = 39;
inline constexpr std::int16_t kDown = 40;
inline constexpr std::int16_t kDelete = 46;
inline constexpr std::int16_t kContextMenu = 93;
inline constexpr std::int16_t kF10 = 121;
}  // namespace KeyCode

namespace Shift {
inline constexpr std::int16_t kNone = 0;
inline constexpr std::int16_t kShift = 1;
inline constexpr std::int16_t kCtrl = 2;
inline constexpr std::int16_t kAlt = 4;
}  // namespace Shift

/// Where a dragged control is relative to the one under it.
enum class DragState : std::int16_t { enter = 0, leave = 1, over = 2 };

/// A mouse event: the button (1 left, 2 right), the shift state, and the place in twips of the
/// control that has it.
struct MouseEvent {
    std::int16_t Button = 1;
    std::int16_t Shift = Shift::kNone;
    float X = 0;
    float Y = 0;
};

/// The base of all controls: an object that holds its properties and raises its events, whether a
/// screen shows it or not. Left, Top, Width and Height are twips in the container.
///
/// A control belongs to the container that it was made with; both know each other until either
/// ends, and the container ends last. Of two that overlap, the one made first is on top.
class Control : public PropertyOwner {
 public:
    Control(Control& container, std::string name);
    ~Control() override;

    Property<double> Left{*this, PropertyId::Left};
    Property<double> Top{*this, PropertyId::Top};
    Property<double> Width{*this, PropertyId::Width};
    Property<double> Height{*this, PropertyId::Height};
    Property<bool> Visible{*this, PropertyId::Visible, true};
    Property<bool> Enabled{*this, PropertyId::Enabled, true};
    Property<std::string> Tag{*this, PropertyId::Tag};
    Property<std::string> ToolTipText{*this, PropertyId::ToolTipText};
    /// What readers for the blind call the control, where nothing that it shows does.
    Property<std::string> AccessibleName{*this, PropertyId::AccessibleName};

    base::Event<> GotFocus;
    base::Event<> LostFocus;
    base::Event<Control&, float, float> DragDrop;
    base::Event<Control&, float, float, DragState> DragOver;

    const std::string& name() const { return name_; }
    Control* container() const { return container_; }
    const std::vector<Control*>& children() const { return children_; }
    /// The form that the control stands on. An internal error for a control that is on none.
    Form& form() const;

    /// Whether the control, and all that contains it up to the form, is visible (or enabled).
    bool isShown() const;
    bool isUsable() const { return isShown() && isEnabledInAll(); }
    /// Whether this very control takes the keyboard focus when it is usable.
    virtual bool takesFocus() const { return false; }
    /// Whether the control counts as having the focus when something inside it has: user controls.
    virtual bool sharesFocusOfParts() const { return false; }
    bool contains(const Control& other) const;

    /// Moves the focus here, or to the first part inside that takes it. An invalid-procedure-call
    /// error (5) for a control that is hidden, disabled or takes none.
    void SetFocus();
    /// Starts dragging this control with the mouse. The port ends it by Form::dropAt.
    void Drag();
    void Move(double left, double top, double width, double height);

    Peer* peer() const { return peer_.get(); }
    void setPeer(std::unique_ptr<Peer> peer) { peer_ = std::move(peer); }

    void propertyChanged(PropertyId id) override;

 protected:
    /// A control without container: the form.
    explicit Control(std::string name);

    virtual Form* asForm() { return nullptr; }
    /// Whether the control, and all that contains it up to the form, is enabled.
    bool isEnabledInAll() const;
    /// The focus has left this very control; LostFocus is still to come.
    virtual void focusLeft() {}

 private:
    friend class Form;
    Control* firstFocusable();
    void removeChild(const Control& child);
    void childrenChanged() const;

    std::string name_;
    Control* container_ = nullptr;
    std::vector<Control*> children_;
    std::unique_ptr<Peer> peer_;
};

}  // namespace huebrush::forms
