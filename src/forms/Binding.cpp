// SPDX-License-Identifier: MPL-2.0

#include "forms/Binding.h"

#include <utility>

#include "base/RaisedFlag.h"

namespace huebrush::forms {

void Binding::bind(std::shared_ptr<DataSource> source, std::string field) {
    unbind();
    source_ = std::move(source);
    field_ = std::move(field);
    source_->WillLeaveRecord.connect([this] { handOver(); }, this);
    source_->RecordChanged.connect([this] { showRecord(); }, this);
    showRecord();
}

void Binding::unbind() {
    changed_ = false;
    const std::shared_ptr<DataSource> source = std::exchange(source_, nullptr);
    if (source == nullptr) return;
    source->WillLeaveRecord.disconnect(this);
    source->RecordChanged.disconnect(this);
}

void Binding::textChanged() {
    if (source_ == nullptr || showing_ || changed_) return;
    // Handlers called from here may bind the control to something else.
    const std::shared_ptr<DataSource> source = source_;
    bool begun = false;
    try {
        begun = source->beginEdit(field_);
    } catch (...) {
        if (source_ == source) showRecord();
        throw;
    }
    if (source_ != source) return;
    changed_ = begun;
    if (!begun) showRecord();
}

void Binding::handOver() {
    if (!changed_) return;
    const std::shared_ptr<DataSource> source = source_;
    changed_ = false;
    try {
        source->setText(field_, shown_());
    } catch (...) {
        changed_ = source_ == source;
        throw;
    }
}

void Binding::showRecord() {
    changed_ = false;
    const base::RaisedFlag showing(showing_);
    show_(source_->text(field_));
}

}  // namespace huebrush::forms
