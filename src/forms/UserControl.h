// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "base/Event.h"
#include "forms/Canvas.h"
#include "forms/Control.h"
#include "forms/Font.h"
#include "forms/PropertyBag.h"

namespace huebrush::forms {

/// A control made of other controls, with properties of its own that its container saves.
///
/// It has the focus while one of its parts has it. A derived control overrides what happens when
/// it is shown, resized and painted, and how it writes and reads its properties.
class UserControl : public Control {
 public:
    using Control::Control;

    /// Raised with the name of a saved property whose setter was called.
    base::Event<const std::string&> PropertyChanged;

    bool sharesFocusOfParts() const override { return true; }

    virtual void WriteProperties(PropertyBag& bag) const = 0;
    virtual void ReadProperties(const PropertyBag& bag) = 0;
    /// Paints the control's face.
    virtual void paint(Canvas& canvas) { static_cast<void>(canvas); }
    /// The caption of a control that is one button to the user, whatever it is made of; null for
    /// any other.
    virtual const std::string* buttonCaption() const { return nullptr; }
    /// The user presses such a button without the mouse.
    virtual void press() {}
    /// Asks for the face to be repainted.
    void Refresh();

    /// The font of the form that the control stands on, which a new instance takes.
    Font ambientFont() const;

    void propertyChanged(PropertyId id) override;

 protected:
    /// The size has changed.
    virtual void resized() {}
};

}  // namespace huebrush::forms
