// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "base/Event.h"

namespace huebrush::forms {

/// A set of records, one of which is current, as the controls bound to it see it: its fields are
/// texts. What keeps the records raises the events; the controls do the rest.
class DataSource {
 public:
    DataSource() = default;
    DataSource(const DataSource&) = delete;
    DataSource& operator=(const DataSource&) = delete;
    virtual ~DataSource() = default;

    /// The text of a field of the current record; empty where it has no value, and where there is
    /// no current record.
    virtual std::string text(const std::string& field) = 0;
    /// The text that a control shows for a field is about to differ from the record's: the edit of
    /// the record begins. False where there is no record to edit; the control then takes its text
    /// back. Called once until the text has been handed over.
    virtual bool beginEdit(const std::string& field) = 0;
    /// Gives a field of the current record a text. Whether the record may have it is checked when
    /// it is written, not here. Does not raise RecordChanged for that.
    virtual void setText(const std::string& field, const std::string& text) = 0;

    /// Raised before the current record is written or left: the controls hand over their texts.
    /// What they throw has to keep that from happening.
    base::Event<> WillLeaveRecord;
    /// Raised after another record has become current, or this one has got other values from
    /// elsewhere (its edit was cancelled, say): the controls show it, and forget texts that they
    /// have not handed over.
    base::Event<> RecordChanged;
};

}  // namespace huebrush::forms
