// SPDX-License-Identifier: MPL-2.0

#include "addin/ButtonFace.h"

#include "forms/Runtime.h"

namespace huebrush::addin {

base::Picture DrawIconOnPicture(const base::Picture& icon, const base::Picture& canvas) {
    return forms::Runtime::current().DrawIcon(icon, canvas);
}

void SetButtonFace(host::CommandBarControl* button, const std::int16_t& icon) {
    if (button == nullptr) return;
    forms::Runtime& runtime = forms::Runtime::current();
    button->CopyFace();
    const base::Picture canvas = runtime.Clipboard().GetData();
    const base::Picture face = DrawIconOnPicture(runtime.Component().icon(icon), canvas);
    runtime.DoEvents();
    runtime.Clipboard().Clear();
    runtime.Clipboard().SetData(face);
    button->PasteFace();
}

}  // namespace huebrush::addin
