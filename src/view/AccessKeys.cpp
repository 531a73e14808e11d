// SPDX-License-Identifier: MPL-2.0

#include "view/AccessKeys.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "forms/Controls.h"

namespace huebrush::view {

namespace {

template <class Kind>
const std::string* captionAs(const forms::Control& control) {
    const auto* const kind = dynamic_cast<const Kind*>(&control);
    return kind == nullptr ? nullptr : &kind->Caption.get();
}

const std::string* captionOf(const forms::Control& control) {
    if (const auto* const caption = captionAs<forms::CommandButton>(control)) return caption;
    if (const auto* const caption = captionAs<forms::CheckBox>(control)) return caption;
    return captionAs<forms::OptionButton>(control);
}

bool isCalledBy(const forms::Control& control, char letter) {
    const std::string* const caption = captionOf(control);
    if (caption == nullptr || !control.isUsable()) return false;
    const std::size_t mark = caption->find('&');
    return mark + 1 < caption->size() && mark != std::string::npos &&
           std::tolower(static_cast<unsigned char>((*caption)[mark + 1])) == letter;
}

void collect(const forms::Control& from, char letter, std::vector<forms::Control*>& found) {
    for (forms::Control* const child : from.children()) {
        if (isCalledBy(*child, letter)) found.push_back(child);
        collect(*child, letter, found);
    }
}

}  // namespace

forms::Control* controlOfAccessKey(forms::Form& form, char letter) {
    std::vector<forms::Control*> found;
    collect(form, static_cast<char>(std::tolower(static_cast<unsigned char>(letter))), found);
    if (found.empty()) return nullptr;
    const auto current = std::ranges::find(found, form.focused());
    return current == found.end() || current + 1 == found.end() ? found.front() : *(current + 1);
}

void callByAccessKey(forms::Control& control) {
    if (auto* const button = dynamic_cast<forms::CommandButton*>(&control)) button->press();
    if (auto* const box = dynamic_cast<forms::CheckBox*>(&control)) box->toggle();
    if (auto* const option = dynamic_cast<forms::OptionButton*>(&control)) option->choose();
}

}  // namespace huebrush::view
