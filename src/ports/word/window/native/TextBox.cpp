// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "ports/word/com/Text.h"
#include "ports/word/graphics/Gdi.h"
#include "ports/word/window/native/Kinds.h"

namespace huebrush::word {

namespace {

constexpr DWORD kSeveralLines = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
constexpr DWORD kOneLine = ES_AUTOHSCROLL;

/// Texts and places are the control's own: lines end with CR LF, and places are counted in UTF-16
/// units of the text. The edge of one with several lines is painted around the window.
class TextBox final : public Native {
 public:
    TextBox(NativeSite site, HWND parent, bool multiLine)
        : Native(std::move(site), parent,
                 {L"EDIT", multiLine ? kSeveralLines : kOneLine,
                  multiLine ? DWORD{0} : DWORD{WS_EX_CLIENTEDGE}}),
          multiLine_(multiLine) {
        // As much as there is memory for.
        send(EM_SETLIMITTEXT, 0);
        if (multiLine_) ::ShowScrollBar(handle(), SB_VERT, FALSE);
    }

    bool fits(const forms::Control& control) const override {
        const auto* const box = dynamic_cast<const forms::TextBox*>(&control);
        return box != nullptr && box->MultiLine == multiLine_;
    }
    bool takesWheel() const override { return multiLine_; }
    void collect() override {
        auto* const box = dynamic_cast<forms::TextBox*>(control());
        // What the program has selected since is still to be shown, and so is its text.
        if (box == nullptr || !agreed_ || !(box->selection() == agreed_->selection)) return;
        if (text() != box->Text.get()) return;
        box->select(selection());
        agreed_->selection = box->selection();
    }

 private:
    /// What the control and the native one both had when they were last in step. What the user has
    /// typed since comes as an action; a control that is as it was then leaves it alone.
    struct Agreed {
        std::string text;
        forms::TextSelection selection;
    };

    void adopted() override { agreed_.reset(); }
    view::Rectangle insideOf(const view::Rectangle& place) const override {
        if (!multiLine_) return place;
        return {place.left + 1, place.top + 1, std::max(place.width - 2, 0),
                std::max(place.height - 2, 0)};
    }
    void mirror(const forms::Control& control) override {
        const auto& box = dynamic_cast<const forms::TextBox&>(control);
        if (box.Locked != std::exchange(locked_, box.Locked.get())) {
            send(EM_SETREADONLY, locked_ ? TRUE : FALSE);
        }
        const bool isNew = agreed_ == nullptr;
        if (isNew) agreed_ = std::make_shared<Agreed>();
        const bool hasOtherText = isNew || agreed_->text != box.Text.get();
        if (hasOtherText) {
            agreed_->text = box.Text;
            if (text() != agreed_->text) {
                ::SetWindowTextW(handle(), toWide(agreed_->text).c_str());
            }
        }
        if (hasOtherText || !(agreed_->selection == box.selection())) {
            agreed_->selection = box.selection();
            const std::int32_t start = agreed_->selection.start;
            send(EM_SETSEL, static_cast<WPARAM>(start), start + agreed_->selection.length);
            send(EM_SCROLLCARET);
        }
        showBarWhereNeeded();
    }
    void acted(WORD code) override {
        if (code != EN_CHANGE || !agreed_) return;
        post<forms::TextBox>(
            [agreed = agreed_, text = text(), selection = selection()](forms::TextBox& box) {
                *agreed = {text, selection};
                box.type(text, selection);
            });
        showBarWhereNeeded();
    }

    std::string text() const {
        std::wstring wide(static_cast<std::size_t>(::GetWindowTextLengthW(handle())) + 1, L'\0');
        wide.resize(static_cast<std::size_t>(
            ::GetWindowTextW(handle(), wide.data(), static_cast<int>(wide.size()))));
        return toUtf8(wide);
    }
    forms::TextSelection selection() const {
        DWORD first = 0;
        DWORD end = 0;
        send(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&end));
        return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(end - first)};
    }

    /// The bar shows only while there is something to scroll.
    void showBarWhereNeeded() {
        if (!multiLine_) return;
        RECT room{};
        ::GetClientRect(handle(), &room);
        TEXTMETRICW metrics{};
        {
            const WindowContext context(handle());
            const Selected selected(context.get(), reinterpret_cast<HGDIOBJ>(send(WM_GETFONT)));
            ::GetTextMetricsW(context.get(), &metrics);
        }
        const bool needed = send(EM_GETLINECOUNT) * metrics.tmHeight > room.bottom;
        if (needed != std::exchange(hasBar_, needed)) {
            ::ShowScrollBar(handle(), SB_VERT, needed ? TRUE : FALSE);
        }
    }

    bool multiLine_;
    bool locked_ = false;
    bool hasBar_ = false;
    std::shared_ptr<Agreed> agreed_;
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::TextBox& control, NativeSite site, HWND parent) {
    return std::make_unique<TextBox>(std::move(site), parent, control.MultiLine);
}

}  // namespace huebrush::word
