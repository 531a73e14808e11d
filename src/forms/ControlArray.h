// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Count16.h"
#include "base/Error.h"
#include "base/Text.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/PropertyBag.h"
#include "forms/UserControl.h"

namespace huebrush::forms {

/// Gives a new array element the properties of its template.
inline void copyProperties(const UserControl& from, UserControl& to) {
    PropertyBag bag;
    from.WriteProperties(bag);
    to.ReadProperties(bag);
}
inline void copyProperties(const PictureBox& from, PictureBox& to) {
    to.Picture = from.Picture;
    to.BackColor = from.BackColor;
    to.BorderStyle = from.BorderStyle;
    to.Enabled = from.Enabled;
    to.ToolTipText = from.ToolTipText;
}

/// A control array of user controls or picture boxes: element 0 is the template that stands on the
/// form from design time on, the others are loaded and unloaded at run time, from the end only, so
/// that the indices 0 … ubound() are always all there.
template <class Element>
class ControlArray {
 public:
    /// Makes the element with an index; called for the template at once.
    using Maker = std::function<std::shared_ptr<Element>(std::int16_t)>;

    ControlArray(Form& form, Maker maker) : form_(form), maker_(std::move(maker)) {
        elements_.push_back(maker_(0));
    }

    /// The index of the last element; 0 when only the template is there.
    std::int16_t ubound() const {
        return static_cast<std::int16_t>(static_cast<std::int32_t>(elements_.size()) - 1);
    }

    /// The element; error 340 where there is none, 364 after the form has been unloaded.
    Element& operator[](std::int16_t index) const {
        requireLoaded();
        if (index < 0 || index > ubound()) throwMissing(index);
        return *elements_[static_cast<std::size_t>(index)];
    }

    /// Loads the element behind the last one: a copy of the template, hidden.
    void Load(std::int16_t index) {
        requireLoaded();
        if (index != ubound() + 1) throwMissing(index);
        std::shared_ptr<Element> element = maker_(index);
        const Element& pattern = *elements_.front();
        copyProperties(pattern, *element);
        element->Move(pattern.Left, pattern.Top, pattern.Width, pattern.Height);
        element->Visible = false;
        elements_.push_back(std::move(element));
    }

    /// Unloads the last element. The focus leaves it first.
    void Unload(std::int16_t index) {
        requireLoaded();
        if (index < 1 || index != ubound()) throwMissing(index);
        const std::shared_ptr<Element> element = elements_.back();
        element->Visible = false;
        elements_.pop_back();
        form_.keepWhileHandling(element);
    }

    /// Removes all elements but the template, without raising their events: the form is unloaded.
    void clear() {
        while (elements_.size() > 1) {
            form_.keepWhileHandling(std::move(elements_.back()));
            elements_.pop_back();
        }
    }

 private:
    void requireLoaded() const {
        if (form_.isUnloaded()) {
            throw base::Error(base::ErrorNumber::kUnloaded, "Formulář byl již uzavřen.");
        }
    }
    [[noreturn]] static void throwMissing(std::int16_t index) {
        throw base::Error(base::ErrorNumber::kNoSuchControl,
                          base::text("Prvek pole ovládacích prvků č. ", index, " neexistuje."));
    }

    Form& form_;
    Maker maker_;
    std::vector<std::shared_ptr<Element>> elements_;
};

}  // namespace huebrush::forms
