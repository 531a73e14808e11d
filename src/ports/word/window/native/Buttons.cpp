// SPDX-License-Identifier: MPL-2.0

// The three kinds of controls that are buttons to the system.

#include <utility>

#include "ports/word/window/native/Kinds.h"

namespace huebrush::word {

namespace {

class Button final : public NativeOf<forms::CommandButton> {
 public:
    Button(NativeSite site, HWND parent)
        : NativeOf(std::move(site), parent, {L"BUTTON", BS_PUSHBUTTON}) {}

    HBRUSH background(HDC context) const override { return surroundings(context); }

 private:
    void mirrorKind(const forms::CommandButton& button) override {
        setCaption(button.Caption);
        if (button.Default == std::exchange(default_, button.Default.get())) return;
        send(BM_SETSTYLE, default_ ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
    }
    void acted(WORD code) override {
        if (code != BN_CLICKED) return;
        post<forms::CommandButton>([](forms::CommandButton& button) { button.press(); });
    }

    bool default_ = false;
};

/// What it shows is the control's value, whatever the user's click would make of it.
class CheckBox final : public NativeOf<forms::CheckBox> {
 public:
    CheckBox(NativeSite site, HWND parent)
        : NativeOf(std::move(site), parent, {L"BUTTON", BS_3STATE}) {}

    HBRUSH background(HDC context) const override { return surroundings(context); }

 private:
    void mirrorKind(const forms::CheckBox& box) override {
        setCaption(box.Caption);
        // The numbers are the system's.
        const auto value = static_cast<WPARAM>(box.Value.get());
        if (static_cast<WPARAM>(send(BM_GETCHECK)) != value) send(BM_SETCHECK, value);
    }
    void acted(WORD code) override {
        if (code != BN_CLICKED) return;
        post<forms::CheckBox>([](forms::CheckBox& box) { box.toggle(); });
    }
};

class OptionButton final : public NativeOf<forms::OptionButton> {
 public:
    OptionButton(NativeSite site, HWND parent)
        : NativeOf(std::move(site), parent, {L"BUTTON", BS_RADIOBUTTON}) {}

    HBRUSH background(HDC context) const override { return surroundings(context); }

 private:
    void mirrorKind(const forms::OptionButton& option) override {
        setCaption(option.Caption);
        const WPARAM value = option.Value ? BST_CHECKED : BST_UNCHECKED;
        if (static_cast<WPARAM>(send(BM_GETCHECK)) != value) send(BM_SETCHECK, value);
    }
    void acted(WORD code) override {
        // The second click of two quick ones has a code of its own here.
        if (code != BN_CLICKED && code != BN_DOUBLECLICKED) return;
        post<forms::OptionButton>([](forms::OptionButton& option) { option.choose(); });
    }
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::CommandButton&, NativeSite site, HWND parent) {
    return std::make_unique<Button>(std::move(site), parent);
}

std::unique_ptr<Native> makeNative(const forms::CheckBox&, NativeSite site, HWND parent) {
    return std::make_unique<CheckBox>(std::move(site), parent);
}

std::unique_ptr<Native> makeNative(const forms::OptionButton&, NativeSite site, HWND parent) {
    return std::make_unique<OptionButton>(std::move(site), parent);
}

}  // namespace huebrush::word
