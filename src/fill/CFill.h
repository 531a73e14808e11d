// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "base/Error.h"
#include "base/Event.h"
#include "base/Picture.h"
#include "fill/FillProperties.h"

namespace huebrush::error {
struct Place;
}

namespace huebrush::jet {
class Recordset;
}

namespace huebrush::fill {

/// The fill of a group of shapes, twice: the original fill, as the shapes have it, and the
/// destination fill, as they are to get it. It holds no shapes. Every operation on a host's fill or
/// between the two copies reports its own errors, ends at the failing step, and returns what it has
/// reported: nothing when all went well.
class CFill {
 public:
    CFill() = default;
    CFill(const CFill&) = delete;
    CFill& operator=(const CFill&) = delete;

    /// For users of the descriptor; no operation here reads or writes it.
    base::Picture FillPreview;

    host::MsoTriState DesVisible() const { return destination_.Visible; }
    /// Marks the fill as changed, even when the value is the one it has.
    void setDesVisible(host::MsoTriState visible);
    float DesTransparency() const { return destination_.Transparency; }
    void setDesTransparency(float transparency);

    /// Captures a host's fill as the original, and makes the destination equal to it.
    std::string SaveOriginalFormat(host::FillFormat& Fill);
    /// Throws the destination away: it becomes the original again.
    std::string Restore();
    /// The destination has been given to the shapes: it is the original now. The flag of an unknown
    /// texture is not taken over.
    std::string ApplyChange();
    /// Captures a host's fill as the destination, and marks the fill as changed.
    std::string SaveNewFormat(host::FillFormat& Fill);
    /// Writes the destination onto a host's fill: colours first, because the host builds gradients
    /// and patterns from them; visibility last.
    std::string SetFormat(host::FillFormat& Fill);
    /// Reports what SetFormat itself would have reported, had the host not gathered its writes.
    static std::string reportFailedFormat(const base::Error& error);

    /// Gives the destination to fifteen columns of the current record, which the caller updates.
    /// The columns Transparency and GradientDegree hold whole numbers: the record set rounds, half
    /// to even. Whether all columns have been assigned: not where there is no current record, and
    /// not, after a box, for a fill of an unknown texture, of which nothing is written. An error is
    /// reported, and what was assigned before it stays assigned.
    bool FillToRecordset(jet::Recordset& rs);
    /// Takes the destination from the current record, if there is one, raises ReadFromRecordset
    /// with the preview stored in it, and marks the fill as changed. A column that is null or of
    /// another kind ends this with a report: what was read before it stays, nothing is raised, and
    /// the mark is as before. The flag of an unknown texture is neither written nor read.
    void FillFromRecordset(jet::Recordset& rs);

    bool Change() const { return change_; }

    const FillProperties& original() const { return original_; }
    const FillProperties& destination() const { return destination_; }
    /// Sets the whole destination at once and marks the fill as changed: from a plan or a record.
    void setDestination(const FillProperties& properties);

    /// Raised with a stored preview when the destination has been read from a record.
    base::Event<const base::Picture&> ReadFromRecordset;

 private:
    static error::Place place(const char* procedure, const char* message);

    bool change_ = false;
    FillProperties original_;
    FillProperties destination_;
};

}  // namespace huebrush::fill
