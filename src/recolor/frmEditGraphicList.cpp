// SPDX-License-Identifier: MPL-2.0

// The list of the dialog's rows: which one is active, which are selected, their order, their
// removal.

#include <utility>

#include "forms/Runtime.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

namespace {

constexpr const char* kExchangeFailed = "Při záměně dvou prvků došlo k chybě...";
// Where the system gives a handler no message of its own.
constexpr const char* kListFailed = "Při práci se seznamem zástupců výplní došlo k chybě...";
constexpr const char* kMoveFailed = "Při přesunu zástupce výplně došlo k chybě...";
constexpr const char* kRemoveFailed = "Při odstraňování zástupců výplní došlo k chybě...";

constexpr const char* kInternal = "INTERNAL";

}  // namespace

/// Holds back the refreshes of the view for its lifetime and makes up for them at its end, also
/// when an error ends the handler. The refresh has a trap of its own.
class frmEditGraphic::OneRefresh {
 public:
    explicit OneRefresh(frmEditGraphic& dialog) : dialog_(dialog) { ++dialog_.refreshesHeld_; }
    OneRefresh(const OneRefresh&) = delete;
    OneRefresh& operator=(const OneRefresh&) = delete;
    ~OneRefresh() {
        if (--dialog_.refreshesHeld_ > 0 || !dialog_.refreshAsked_) return;
        dialog_.refreshAsked_ = false;
        error::ignoring([this] { dialog_.refreshView(); });
    }

 private:
    frmEditGraphic& dialog_;
};

// The list: the active row and the select-all box.

void frmEditGraphic::ReplaceColorElement(ColorElement& first, ColorElement& second) {
    error::trap(place("ReplaceColorElement", kExchangeFailed),
                [&] { ElementList::exchangeContents(first, second); });
}

void frmEditGraphic::Element_GotFocus(ColorElement& row) {
    error::trap(place("Element_GotFocus", kListFailed), [&] {
        scrollIntoView(row);
        nfbUP.Enabled = true;
        nfbDown.Enabled = true;
        ActiveElement_ = &row;
    });
}

void frmEditGraphic::Element_LostFocus() {
    nfbUP.Enabled = false;
    nfbDown.Enabled = false;
    ActiveElement_ = nullptr;
}

void frmEditGraphic::chkSelAll_Click() {
    error::trap(place("chkSelAll_Click", kListFailed), [this] {
        if (chkSelAll.Value == forms::CheckValue::kGrey) return;
        const OneRefresh refresh(*this);
        chkSelAll.Tag = std::string(kInternal);
        list_.select(chkSelAll.Value);
        chkSelAll.Tag = std::string();
    });
}

void frmEditGraphic::Element_ChangeSelect() {
    if (chkSelAll.Tag.get().empty()) {
        chkSelAll.Tag = std::string(kInternal);
        chkSelAll.Value = forms::CheckValue::kGrey;
    }
    refreshView();
}

// The list: order.

void frmEditGraphic::nfbUP_Click() {
    error::trap(place("nfbUP_Click", kMoveFailed), [this] { moveActive(-1); });
}

void frmEditGraphic::nfbDown_Click() {
    error::trap(place("nfbDown_Click", kMoveFailed), [this] { moveActive(1); });
}

void frmEditGraphic::moveActive(std::int16_t step) {
    if (ActiveElement_ == nullptr) return;
    ColorElement* const target = [&] {
        const OneRefresh refresh(*this);
        return list_.moveBy(ActiveElement_->index(), step);
    }();
    if (target != nullptr) target->SetFocus();
}

void frmEditGraphic::Element_DragOver(ColorElement& row, const forms::Control& source,
                                      forms::DragState state) {
    error::trap(place("Element_DragOver", kMoveFailed), [&] {
        if (dynamic_cast<const ColorElement*>(&source) == nullptr || &source == &row) return;
        row.setSelDestinationDrag(state == forms::DragState::over);
    });
}

void frmEditGraphic::Element_DragDrop(ColorElement& row, const forms::Control& source) {
    error::trap(place("Element_DragDrop", kMoveFailed), [&] {
        const auto* const dragged = dynamic_cast<const ColorElement*>(&source);
        if (dragged == nullptr) return;
        row.setSelDestinationDrag(false);
        {
            const OneRefresh refresh(*this);
            list_.moveTo(dragged->index(), row.index());
        }
        row.SetFocus();
    });
}

// The list: removal.

void frmEditGraphic::cmdRemove_Click() {
    forms::Runtime::current().PopupMenu(mnuRemove, *this, cmdRemove.Left,
                                        cmdRemove.Top + cmdRemove.Height);
    // After the refresh of the item's own, on purpose: the recolour button is enabled while any row
    // remains.
    const bool any = Element.ubound() > 0;
    cmdRemove.Enabled = any;
    cmdDiscolour.Enabled = any;
}

void frmEditGraphic::mnuRemove_Click() {
    error::trap(place("mnuRemove_Click", kRemoveFailed), [this] {
        const std::int16_t rows = Element.ubound();
        const std::int16_t selected = list_.selectedCount();
        mnuRemoveAll.Enabled = rows > 0;
        mnuRemoveSelect.Enabled = selected > 0;
        mnuRemoveNoSelect.Enabled = selected < rows;
        mnuRemoveActive.Enabled = ActiveElement_ != nullptr;
    });
}

void frmEditGraphic::Element_KeyDel(std::int16_t shift) {
    if (shift == forms::Shift::kShift) {
        mnuRemoveAll_Click();
    } else {
        mnuRemoveActive_Click();
    }
}

void frmEditGraphic::mnuRemoveActive_Click() {
    error::trap(place("mnuRemoveActive_Click", kRemoveFailed), [this] {
        {
            const OneRefresh refresh(*this);
            if (ActiveElement_ != nullptr) list_.remove(ActiveElement_->index());
        }
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveAll_Click() {
    error::trap(place("mnuRemoveAll_Click", kRemoveFailed), [this] {
        list_.removeAll();
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveNoSelect_Click() {
    error::trap(place("mnuRemoveNoSelect_Click", kRemoveFailed), [this] {
        removeRowsWith(forms::CheckValue::kClear);
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveSelect_Click() {
    error::trap(place("mnuRemoveSelect_Click", kRemoveFailed), [this] {
        removeRowsWith(forms::CheckValue::kTicked);
        afterRemoval();
    });
}

void frmEditGraphic::removeRowsWith(std::int16_t selectValue) {
    const OneRefresh refresh(*this);
    list_.removeWith(selectValue);
}

void frmEditGraphic::afterRemoval() {
    refreshView();
    const bool rowFocused = ActiveElement_ != nullptr;
    nfbUP.Enabled = rowFocused;
    nfbDown.Enabled = rowFocused;
}

}  // namespace huebrush::recolor
