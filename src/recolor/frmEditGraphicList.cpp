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
    error::trap(place("ReplaceColorElement", kExchangeFailed), [&] {
        const auto fill = first.fillReference();
        const base::Picture destination = first.DestinationPicture();
        const base::Picture source = first.SourcePicture();
        const auto group = first.ElementsGroup;
        const std::int16_t selected = first.SelectValue();
        const auto give = [](ColorElement& row, const auto& newFill, const base::Picture& newDes,
                             const base::Picture& newSource, const auto& newGroup,
                             std::int16_t newSelected) {
            row.setFillObject(newFill);
            row.setDestinationPicture(newDes);
            row.setSourcePicture(newSource);
            row.ElementsGroup = newGroup;
            row.setSelectValue(newSelected);
        };
        give(first, second.fillReference(), second.DestinationPicture(), second.SourcePicture(),
             second.ElementsGroup, second.SelectValue());
        give(second, fill, destination, source, group, selected);
    });
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
        for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
            Element[i].setSelectValue(chkSelAll.Value);
        }
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
    const std::int16_t from = ActiveElement_->index();
    const std::int16_t last = Element.ubound();
    for (std::int32_t to = from + step; to >= 1 && to <= last; to += step) {
        ColorElement& target = Element[static_cast<std::int16_t>(to)];
        if (!target.Visible) continue;
        {
            const OneRefresh refresh(*this);
            ReplaceColorElement(Element[from], target);
        }
        target.SetFocus();
        return;
    }
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
        const std::int16_t to = row.index();
        const auto step = static_cast<std::int16_t>(dragged->index() < to ? 1 : -1);
        {
            const OneRefresh refresh(*this);
            for (std::int16_t at = dragged->index(); at != to;) {
                const auto next = static_cast<std::int16_t>(at + step);
                ReplaceColorElement(Element[at], Element[next]);
                at = next;
            }
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
        bool anySelected = false;
        bool anyNotSelected = false;
        for (std::int16_t i = 1; i <= Element.ubound(); ++i) {
            (Element[i].isSelected() ? anySelected : anyNotSelected) = true;
        }
        mnuRemoveAll.Enabled = Element.ubound() > 0;
        mnuRemoveSelect.Enabled = anySelected;
        mnuRemoveNoSelect.Enabled = anyNotSelected;
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
            if (ActiveElement_ != nullptr) removeRow(ActiveElement_->index());
        }
        afterRemoval();
    });
}

void frmEditGraphic::mnuRemoveAll_Click() {
    error::trap(place("mnuRemoveAll_Click", kRemoveFailed), [this] {
        for (std::int16_t i = Element.ubound(); i >= 1; --i) Element.Unload(i);
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

void frmEditGraphic::removeRow(std::int16_t index) {
    const std::int16_t last = Element.ubound();
    for (std::int16_t m = index; m < last; ++m) {
        ReplaceColorElement(Element[m], Element[static_cast<std::int16_t>(m + 1)]);
    }
    Element.Unload(last);
}

void frmEditGraphic::removeRowsWith(std::int16_t selectValue) {
    const OneRefresh refresh(*this);
    for (std::int16_t i = 1; i <= Element.ubound();) {
        if (Element[i].SelectValue() == selectValue) {
            removeRow(i);
        } else {
            ++i;
        }
    }
}

void frmEditGraphic::afterRemoval() {
    refreshView();
    const bool rowFocused = ActiveElement_ != nullptr;
    nfbUP.Enabled = rowFocused;
    nfbDown.Enabled = rowFocused;
}

}  // namespace huebrush::recolor
