// SPDX-License-Identifier: MPL-2.0

#include "palette/BoundRecordset.h"

namespace huebrush::palette {

using jet::EditModeEnum;

BoundRecordset::BoundRecordset() {
    records_.WillChangeField.connect(
        [this](const std::string& column) { WillChangeField(column); });
}

void BoundRecordset::Open(const std::string& query, const jet::Connection& connection) {
    records_.Open(query, connection);
    show();
}

bool BoundRecordset::isOpen() const {
    return records_.State() == jet::ObjectStateEnum::adStateOpen;
}

EditModeEnum BoundRecordset::EditMode() const {
    const EditModeEnum mode = records_.EditMode();
    return mode == EditModeEnum::adEditNone && begun_ ? EditModeEnum::adEditInProgress : mode;
}

bool BoundRecordset::isEditing() const {
    return EditMode() == EditModeEnum::adEditInProgress || EditMode() == EditModeEnum::adEditAdd;
}

bool BoundRecordset::isOnRecord() {
    return !records_.Eof() && !records_.Bof();
}

void BoundRecordset::leave() {
    WillLeaveRecord();
}

void BoundRecordset::show() {
    begun_ = false;
    RecordChanged();
}

void BoundRecordset::MoveFirst() {
    leave();
    records_.MoveFirst();
    show();
}

void BoundRecordset::MoveNext() {
    leave();
    records_.MoveNext();
    show();
}

void BoundRecordset::Find(const std::string& criteria) {
    leave();
    records_.Find(criteria);
    show();
}

void BoundRecordset::SetField(const std::string& column, const jet::Value& value) {
    records_.SetField(column, value);
    RecordChanged();
}

void BoundRecordset::AddNew() {
    leave();
    records_.AddNew();
    show();
}

void BoundRecordset::Update() {
    leave();
    records_.Update();
    show();
}

void BoundRecordset::CancelUpdate() {
    records_.CancelUpdate();
    show();
}

void BoundRecordset::Delete() {
    records_.Delete();
    show();
}

void BoundRecordset::Requery() {
    records_.Requery();
    show();
}

std::string BoundRecordset::text(const std::string& field) {
    const bool deleted = isOpen() && EditMode() == EditModeEnum::adEditDelete;
    if (!isOpen() || deleted || !isOnRecord()) return {};
    const jet::Value value = records_.Field(field);
    return jet::isNull(value) ? std::string() : jet::toText(value);
}

bool BoundRecordset::beginEdit(const std::string& field) {
    if (!isOpen() || !isOnRecord()) return false;
    WillChangeField(field);
    begun_ = true;
    return true;
}

void BoundRecordset::setText(const std::string& field, const std::string& text) {
    records_.SetField(field, text);
}

}  // namespace huebrush::palette
