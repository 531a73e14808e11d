// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "base/Error.h"
#include "base/Event.h"
#include "base/Picture.h"
#include "fill/FillProperties.h"

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

    bool Change() const { return change_; }

    const FillProperties& original() const { return original_; }
    const FillProperties& destination() const { return destination_; }
    /// Sets the whole destination at once and marks the fill as changed: from a plan or a record.
    void setDestination(const FillProperties& properties);

    /// Raised with a stored preview when the destination has been read from a record.
    base::Event<const base::Picture&> ReadFromRecordset;

 private:
    bool change_ = false;
    FillProperties original_;
    FillProperties destination_;
};

}  // namespace huebrush::fill
