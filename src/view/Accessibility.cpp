// SPDX-License-Identifier: MPL-2.0

#include "view/Accessibility.h"

#include <utility>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/UserControl.h"

namespace huebrush::view {

namespace {

const forms::UserControl* asButton(const forms::Control& control) {
    const auto* const made = dynamic_cast<const forms::UserControl*>(&control);
    return made != nullptr && made->buttonCaption() != nullptr ? made : nullptr;
}

bool isPartOfButton(const forms::Control& control) {
    for (const forms::Control* at = control.container(); at != nullptr; at = at->container()) {
        if (asButton(*at) != nullptr) return true;
    }
    return false;
}

template <class... Kinds>
std::string captionAs(const forms::Control& control) {
    std::string caption;
    const auto take = [&](const auto* kind) {
        if (kind != nullptr) caption = kind->Caption;
        return kind != nullptr;
    };
    static_cast<void>((take(dynamic_cast<const Kinds*>(&control)) || ...));
    return caption;
}

std::string captionOf(const forms::Control& control) {
    if (const forms::UserControl* const button = asButton(control)) return *button->buttonCaption();
    return captionAs<forms::Label, forms::Frame, forms::Form>(control);
}

}  // namespace

std::optional<PartRole> partRoleOf(const forms::Control& control) {
    if (isSurface(control) || isNative(control) || isPartOfButton(control)) return std::nullopt;
    if (asButton(control) != nullptr) return PartRole::button;
    if (nameOf(control).empty() && !isPressable(control)) return std::nullopt;
    if (dynamic_cast<const forms::Label*>(&control) != nullptr) return PartRole::text;
    if (dynamic_cast<const forms::Image*>(&control) != nullptr) {
        return isPressable(control) ? PartRole::button : PartRole::picture;
    }
    return PartRole::group;
}

std::string nameOf(const forms::Control& control) {
    if (const std::string& given = control.AccessibleName.get(); !given.empty()) return given;
    std::string caption = captionOf(control);
    return caption.empty() ? control.ToolTipText.get() : caption;
}

std::string descriptionOf(const forms::Control& control) {
    const bool hasName = !control.AccessibleName.get().empty() || !captionOf(control).empty();
    return !hasName ? std::string() : control.ToolTipText.get();
}

bool isPressable(const forms::Control& control) {
    if (asButton(control) != nullptr) return true;
    const auto* const image = dynamic_cast<const forms::Image*>(&control);
    return image != nullptr && image->Click.connected();
}

void pressPart(forms::Control& control) {
    if (!control.isUsable()) return;
    if (auto* const image = dynamic_cast<forms::Image*>(&control)) {
        control.form().handle([&] { image->Click(); });
    } else if (asButton(control) != nullptr) {
        dynamic_cast<forms::UserControl&>(control).press();
    }
}

std::vector<Placed> readableSceneOf(const forms::Control& surface, double width, double height) {
    std::vector<Placed> scene = sceneOf(surface, width, height);
    std::erase_if(scene, [](const Placed& each) {
        return !isNative(*each.control) && !isSurface(*each.control) && !partRoleOf(*each.control);
    });
    return scene;
}

}  // namespace huebrush::view
