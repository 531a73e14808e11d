// SPDX-License-Identifier: MPL-2.0

#include "view/MenuPick.h"

#include "forms/Control.h"

namespace huebrush::view {

void MenuPick::press(const Key& key) {
    switch (key.code) {
        case forms::KeyCode::kDown:
            choice_.moveDown();
            break;
        case forms::KeyCode::kUp:
            choice_.moveUp();
            break;
        case forms::KeyCode::kHome:
            choice_.moveToFirst();
            break;
        case forms::KeyCode::kEnd:
            choice_.moveToLast();
            break;
        case forms::KeyCode::kReturn:
        case forms::KeyCode::kSpace:
            pickHighlighted();
            break;
        case forms::KeyCode::kEscape:
            close();
            break;
        default:
            call(letterOf(key));
            break;
    }
}

void MenuPick::call(char letter) {
    if (letter != '\0' && choice_.call(letter)) pickHighlighted();
}

bool MenuPick::pointAt(Line line) {
    const Line before = choice_.highlighted();
    choice_.pointAt(line);
    return choice_.highlighted() != before;
}

void MenuPick::pressAt(Line line) {
    if (!line) {
        close();
    } else {
        pointAt(line);
    }
}

void MenuPick::releaseAt(Line line) {
    if (choice_.pointAt(line)) pickHighlighted();
}

void MenuPick::pickHighlighted() {
    if (!open_) return;
    picked_ = choice_.highlighted();
    open_ = false;
}

}  // namespace huebrush::view
