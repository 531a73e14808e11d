// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "base/Picture.h"
#include "fill/CFill.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/PopupMenu.h"
#include "forms/UserControl.h"
#include "host/Document.h"
#include "recolor/NoFocusButton.h"
#include "recolor/ShapeGroup.h"

namespace huebrush::recolor {

/// What became of a row in a recolour.
struct RowOutcome {
    /// How many shapes were given the new fill: none of a row that is not to change.
    std::size_t shapes = 0;
    /// The first error that was reported of the row; empty where there was none.
    std::string error;
};

/// One row of the recolour dialog: the shapes that share a fill, that fill and the one they are to
/// get, each with a preview, a box that says whether they take part in the recolour, and the menu
/// that edits the new fill. The row itself changes shapes only in Discolour.
class ColorElement final : public forms::UserControl {
 public:
    /// The size of every row, in twips.
    static constexpr double kWidth = 4455;
    static constexpr double kHeight = 630;
    /// The transparency that the menu gives and ticks.
    static constexpr float kHalfTransparent = 0.5F;

    ColorElement(forms::Control& container, std::string name, std::int16_t index);
    ~ColorElement() override;

    /// The row's place in the control array.
    std::int16_t index() const { return index_; }

    fill::CFill& FillObject() const { return *fill_; }
    std::shared_ptr<fill::CFill> fillReference() const { return fill_; }
    void setFillObject(std::shared_ptr<fill::CFill> fill);
    /// Nothing for a row that represents nothing.
    const std::shared_ptr<const ShapeGroup>& ElementsGroup() const { return shapes_; }
    void setElementsGroup(std::shared_ptr<const ShapeGroup> shapes);

    // The saved properties, in the order in which they are saved.
    std::int16_t MousePointer() const { return mousePointer_; }
    void setMousePointer(std::int16_t pointer);
    base::Picture DestinationPicture() const { return picDestination.Picture.get(); }
    void setDestinationPicture(const base::Picture& picture);
    base::Picture SourcePicture() const { return picSource.Picture.get(); }
    void setSourcePicture(const base::Picture& picture);
    std::int16_t SelectValue() const { return chkSelect.Value; }
    void setSelectValue(std::int16_t value);
    /// Whether the box is ticked or grey.
    bool isSelected() const { return SelectValue() != forms::CheckValue::kClear; }
    /// Shows or hides the frame of the row that a dragged row would be dropped on.
    void setSelDestinationDrag(bool shown);

    base::Event<bool&> mnuChDNoFill;
    base::Event<float&> mnuChDTransparency;
    base::Event<> mnuChDColor;
    base::Event<> mnuChDFill;
    base::Event<> mnuChDFormat;
    base::Event<> ChangeSelect;
    base::Event<> MoveUp;
    base::Event<> MoveDown;
    base::Event<> DragMouseDown;
    base::Event<std::int16_t&> KeyDel;
    /// Discolour has ended, or what failed of its writes later has been reported: raised again
    /// then.
    base::Event<const RowOutcome&> Discoloured;

    /// Takes the picture on the clipboard as both previews, or as that of the new fill.
    void CliboardToSource();
    void CliboardToDestination();
    /// Gives the new fill to the group's shapes, found again by their names in the document, if the
    /// row is selected and its fill changed. The new fill is the current one then.
    void Discolour(host::Document& document);
    /// Reports the first of these fills, if any, that was to reach a shape of the group, and takes
    /// out all that were.
    void reportFailed(std::vector<host::FailedWrite>& failed);

    /// Gives the row the pictures that are the same in all rows.
    void setFixedPictures(const base::Picture& focusMark, const base::Picture& grabHandle,
                          const base::Picture& arrow);
    void takeFixedPictures(const ColorElement& other);
    /// The row has been put on the screen.
    void Show();
    /// The user presses the mouse on the grab handle.
    void grab();

    // The parts, in the order of their creation.
    NoFocusButton cmdChangeDes{*this, "cmdChangeDes"};
    forms::CheckBox chkSelect{*this, "chkSelect"};
    forms::Line lineDragDes4{*this, "lineDragDes4"};
    forms::Line lineDragDes1{*this, "lineDragDes1"};
    forms::Line lineDragDes2{*this, "lineDragDes2"};
    forms::Image picSource{*this, "picSource"};
    forms::Image picDestination{*this, "picDestination"};
    forms::Image imgFocus{*this, "imgFocus"};
    forms::Line Line2{*this, "Line2"};
    forms::Line Line1{*this, "Line1"};
    forms::Image Image1{*this, "Image1"};
    forms::Image shpFocus{*this, "shpFocus"};
    forms::Line lineDragDes3{*this, "lineDragDes3"};
    forms::Label Label1{*this, "Label1"};
    forms::Label Label2{*this, "Label2"};

    forms::PopupMenu mnuWord{"NabidkaWord"};
    forms::MenuItem mnuWordNoFill{mnuWord, "mnuWordNoFill", "Bez výplně"};
    forms::MenuItem mnWordTransparency{mnuWord, "mnWordTransparency", "&Poloprůhledná"};
    forms::MenuItem mnuWordColor{mnuWord, "mnuWordColor", "&Barva..."};
    forms::MenuItem mnuWordFill{mnuWord, "mnuWordFill", "&Vzhled výplně..."};
    forms::MenuItem mnuSep1{mnuWord, "mnuSep1", "-"};
    forms::MenuItem mnuWordFormat{mnuWord, "mnuWordFormat", "&Formát objektu..."};
    forms::MenuItem mnuWordRestore{mnuWord, "mnuWordRestore", "&Obnovit původní"};

    void WriteProperties(forms::PropertyBag& bag) const override;
    void ReadProperties(const forms::PropertyBag& bag) override;

 protected:
    void resized() override;

 private:
    void layOut();
    void connectMenu();
    void connectParts();
    void chkSelect_KeyUp(std::int16_t code, std::int16_t shift);
    void cmdChangeDes_Click();
    void mnuWord_Click();
    void RestoreFill();
    /// Says in words what the row stands for: in its tip, and to readers for the blind.
    void describe();
    void showFocus(bool shown);

    std::int16_t index_;
    std::int16_t mousePointer_ = 0;
    std::shared_ptr<fill::CFill> fill_;
    std::shared_ptr<const ShapeGroup> shapes_;
};

}  // namespace huebrush::recolor
