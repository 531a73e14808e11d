// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <utility>

namespace huebrush::forms {

/// Names the properties of controls, for the peers that mirror them to a screen.
enum class PropertyId {
    Left,
    Top,
    Width,
    Height,
    Visible,
    Enabled,
    Tag,
    ToolTipText,
    AccessibleName,
    MousePointer,
    Caption,
    Value,
    Min,
    Max,
    SmallChange,
    LargeChange,
    ListIndex,
    List,
    Text,
    Picture,
    Font,
    ForeColor,
    BorderStyle,
    BackColor,
    Alignment,
    Default,
    Cancel,
    MultiLine,
    Locked,
    Selection,
    TopMost,
    Focus,
    Paint,
    Children,
};

/// What owns properties and is notified of their changes.
class PropertyOwner {
 public:
    PropertyOwner() = default;
    PropertyOwner(const PropertyOwner&) = delete;
    PropertyOwner& operator=(const PropertyOwner&) = delete;
    virtual ~PropertyOwner() = default;

    /// Called after a property has taken a value that differs from its previous one.
    virtual void propertyChanged(PropertyId id) = 0;
};

/// A property that reads and is assigned like a plain value and notifies its owner of each change.
/// Assigning the value that it already has is not a change.
template <class T>
class Property {
 public:
    Property(PropertyOwner& owner, PropertyId id, T initial = T{})
        : owner_(owner), id_(id), value_(std::move(initial)) {}
    Property(const Property&) = delete;

    operator const T&() const { return value_; }  // NOLINT: it reads like a plain value
    const T& get() const { return value_; }

    Property& operator=(T value) {
        if (!(value_ == value)) {
            value_ = std::move(value);
            owner_.propertyChanged(id_);
        }
        return *this;
    }
    Property& operator=(const Property& other) {
        if (this != &other) *this = other.value_;
        return *this;
    }

    /// Sets the value of design time, without a notification.
    void initialize(T value) { value_ = std::move(value); }

 private:
    PropertyOwner& owner_;
    PropertyId id_;
    T value_;
};

}  // namespace huebrush::forms
