// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "ports/word/window/native/Kinds.h"

namespace huebrush::word {

namespace {

class ScrollBar final : public NativeOf<forms::VScrollBar> {
 public:
    ScrollBar(NativeSite site, HWND parent)
        : NativeOf(std::move(site), parent, {L"SCROLLBAR", SBS_VERT}) {}

 private:
    /// The system's thumb has a size, the visible part of the whole, and its range includes that.
    void mirrorKind(const forms::VScrollBar& bar) override {
        const auto page = static_cast<std::int32_t>(bar.Height);
        const std::int64_t last = std::int64_t{bar.Max.get()} + std::max(page, 1) - 1;
        SCROLLINFO wanted{
            sizeof(wanted), SIF_RANGE | SIF_PAGE | SIF_POS, bar.Min, 0, 0, bar.value(), 0};
        wanted.nMax = static_cast<int>(
            std::min<std::int64_t>(last, std::numeric_limits<std::int32_t>::max()));
        wanted.nPage = static_cast<UINT>(std::max(page, 1));
        SCROLLINFO now{sizeof(now), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
        ::GetScrollInfo(handle(), SB_CTL, &now);
        if (now.nMin == wanted.nMin && now.nMax == wanted.nMax && now.nPage == wanted.nPage &&
            now.nPos == wanted.nPos) {
            return;
        }
        ::SetScrollInfo(handle(), SB_CTL, &wanted, TRUE);
        // The system enables a bar of which it thinks that it can be scrolled.
        ::EnableWindow(handle(), bar.isUsable() ? TRUE : FALSE);
    }
    /// Counted from where the control is when the action runs, since several may come before it.
    void acted(WORD code) override {
        switch (code) {
            case SB_LINEUP:
            case SB_LINEDOWN:
                step(&forms::VScrollBar::SmallChange, code == SB_LINEUP);
                break;
            case SB_PAGEUP:
            case SB_PAGEDOWN:
                step(&forms::VScrollBar::LargeChange, code == SB_PAGEUP);
                break;
            case SB_TOP:
                post<forms::VScrollBar>([](forms::VScrollBar& bar) { bar.scrollTo(bar.Min); });
                break;
            case SB_BOTTOM:
                post<forms::VScrollBar>([](forms::VScrollBar& bar) { bar.scrollTo(bar.Max); });
                break;
            case SB_THUMBTRACK:
            case SB_THUMBPOSITION:
                followThumb();
                break;
            default:
                break;
        }
    }
    void step(forms::Property<std::int32_t> forms::VScrollBar::*size, bool back) const {
        post<forms::VScrollBar>([size, back](forms::VScrollBar& bar) {
            const std::int64_t by = (bar.*size).get();
            const std::int64_t to = bar.value() + (back ? -by : by);
            bar.scrollTo(static_cast<std::int32_t>(
                std::clamp<std::int64_t>(to, bar.Min.get(), bar.Max.get())));
        });
    }
    /// With all its 32 bits, of which the message has only 16.
    void followThumb() const {
        SCROLLINFO info{sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
        ::GetScrollInfo(handle(), SB_CTL, &info);
        const std::int32_t value = info.nTrackPos;
        post<forms::VScrollBar>([value](forms::VScrollBar& bar) { bar.scrollTo(value); });
    }
    bool takesFocusByMouse() const override { return false; }
};

}  // namespace

std::unique_ptr<Native> makeNative(const forms::VScrollBar&, NativeSite site, HWND parent) {
    return std::make_unique<ScrollBar>(std::move(site), parent);
}

}  // namespace huebrush::word
