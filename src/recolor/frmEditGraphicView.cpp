// SPDX-License-Identifier: MPL-2.0

// How the dialog lays its list out: resizing, the views, the scroll bar.

#include <cmath>

#include "base/NonNegative.h"
#include "base/Text.h"
#include "recolor/frmEditGraphic.h"
#include "recolor/frmEditGraphicDesign.h"

namespace huebrush::recolor {

namespace {

using base::NonNegative;
using base::text;

// Where the system gives a handler no message of its own.
constexpr const char* kLayoutFailed = "Při změně rozměrů formuláře došlo k chybě...";
constexpr const char* kViewFailed = "Při zobrazování zástupců výplní došlo k chybě...";

std::int32_t wholeTwips(double length) {
    return static_cast<std::int32_t>(std::lround(length));
}

}  // namespace

// Resizing.

void frmEditGraphic::Form_Resize() {
    error::trap(place("Form_Resize", kLayoutFailed), [this] {
        if (WindowState == forms::WindowState::minimized) return;
        if (Width < minimumWidth_) Width = minimumWidth_;
        frameMain.Height = NonNegative(ScaleHeight() - frameMain.Top);
        picMain.Height = NonNegative(ScaleHeight() - picMain.Top - design::kBelowList);
        vs.Height = picMain.Height;
        imgHorn.Left = NonNegative(ScaleWidth() - imgHorn.Width);
        imgHorn.Top = NonNegative(ScaleHeight() - imgHorn.Height);
        const double strip = NonNegative(ScaleHeight() - design::kStripFromBottom);
        chkSelAll.Top = strip;
        nfbUP.Top = strip;
        nfbDown.Top = strip;
        picLoadStatus.Top = NonNegative(ScaleHeight() - design::kProgressFromBottom);
        SetScroll();
    });
}

void frmEditGraphic::SetScroll() {
    error::trap(place("SetScroll", kLayoutFailed), [this] {
        if (picElementGroup.Height > picMain.Height) {
            vs.Enabled = true;
            vs.Max = wholeTwips(picElementGroup.Height - picMain.ScaleHeight());
            vs.LargeChange = wholeTwips(picElementGroup.Height);
            vs.SmallChange = static_cast<std::int32_t>(ColorElement::kHeight);
        } else {
            vs.Enabled = false;
        }
        vs.setValue(0);
    });
}

// The views and the scroll bar.

void frmEditGraphic::optView_Click(std::int16_t index) {
    error::trap(place("optView_Click", kViewFailed), [this, index] {
        optView0.Tag = text(index);
        showRows(index);
        SetScroll();
        countSelected();
    });
}

void frmEditGraphic::showRows(std::int16_t view) {
    const auto isInView = [view](const ColorElement& row) {
        return view == 0 || (view == 1) == row.isSelected();
    };
    const ColorElement* lastShown = &Element[0];
    for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
        ColorElement& row = Element[i];
        if (!isInView(row)) {
            row.Visible = false;
            continue;
        }
        row.Visible = true;
        row.Top = lastShown->Top + lastShown->Height;
        lastShown = &row;
    }
    picElementGroup.Height = lastShown->Top + lastShown->Height;
}

void frmEditGraphic::countSelected() {
    const base::Count16 count = list_.selectedCount();
    const bool any = count > 0;
    cmdDiscolour.Enabled = any;
    cmdFromDatabase.Enabled = any;
    cmdToDatabase.Enabled = any;
    fData.Enabled = any;
    cmdDiscolour.Caption =
        any ? text(design::kRecolour, " (", count, ")") : std::string(design::kRecolour);
    selectedCount_ = count;
}

void frmEditGraphic::refreshView() {
    if (refreshesHeld_ > 0) {
        refreshAsked_ = true;
        return;
    }
    optView_Click(static_cast<std::int16_t>(base::toInteger(optView0.Tag.get())));
}

void frmEditGraphic::vs_Change() {
    picElementGroup.Top = -static_cast<double>(vs.value());
}

void frmEditGraphic::scrollIntoView(const ColorElement& row) {
    const double top = row.Top + picElementGroup.Top;
    const double bottom = top + row.Height;
    if (top < 0) {
        vs.setValue(wholeTwips(row.Top));
    } else if (bottom >= picMain.ScaleHeight()) {
        vs.setValue(wholeTwips(row.Top + row.Height - picMain.ScaleHeight()));
    }
}

}  // namespace huebrush::recolor
