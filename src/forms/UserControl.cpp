// SPDX-License-Identifier: MPL-2.0

#include "forms/UserControl.h"

#include "forms/Form.h"

namespace huebrush::forms {

void UserControl::Refresh() {
    if (peer() != nullptr) peer()->changed(PropertyId::Paint);
}

Font UserControl::ambientFont() const {
    return form().Font.get();
}

void UserControl::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id == PropertyId::Width || id == PropertyId::Height) resized();
}

}  // namespace huebrush::forms
