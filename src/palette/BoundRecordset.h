// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "base/Event.h"
#include "forms/DataSource.h"
#include "jet/records/Recordset.h"

namespace huebrush::palette {

/// A record set that controls are bound to: they show the current record, and the texts typed into
/// them become its pending values. The operations are those of jet::Recordset. The controls hand
/// their texts over before the record is written or left, and show what is current afterwards.
class BoundRecordset final : public forms::DataSource {
 public:
    BoundRecordset();

    void Open(const std::string& query, const jet::Connection& connection);
    bool isOpen() const;
    /// An edit is in progress from the first change of a bound control on.
    jet::EditModeEnum EditMode() const;
    /// Whether the record is being edited or added.
    bool isEditing() const;
    /// Whether there is a current record.
    bool isOnRecord();
    std::size_t RecordCount() { return records_.RecordCount(); }

    void MoveFirst();
    void MoveNext();
    void Find(const std::string& criteria);
    jet::Value Field(const std::string& column) { return records_.Field(column); }
    void SetField(const std::string& column, const jet::Value& value);
    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();
    void Requery();

    /// A column is about to change: a bound control's first change, or a new value.
    base::Event<const std::string&> WillChangeField;

    std::string text(const std::string& field) override;
    bool beginEdit(const std::string& field) override;
    void setText(const std::string& field, const std::string& text) override;

 private:
    void leave();
    void show();

    jet::Recordset records_;
    bool begun_ = false;  ///< an edit whose first text is still to come
};

}  // namespace huebrush::palette
