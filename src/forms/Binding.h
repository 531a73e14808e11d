// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/DataSource.h"

namespace huebrush::forms {

/// Binds a control to a field of a data source: the control shows the field of the current record,
/// and what it shows instead is handed over to the record when the control loses the focus, and
/// before the record is written or left.
class Binding {
 public:
    using Show = std::function<void(const std::string&)>;
    using Shown = std::function<std::string()>;

    /// How the control shows a text, and what it shows. One that never changes by itself (a label)
    /// needs no `shown`.
    explicit Binding(Show show, Shown shown = {})
        : show_(std::move(show)), shown_(std::move(shown)) {}
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;
    ~Binding() { unbind(); }

    /// Ends the binding there was, and shows the field at once. The source is kept.
    void bind(std::shared_ptr<DataSource> source, std::string field);
    /// The control keeps the text that it shows.
    void unbind();

    /// The control shows another text.
    void textChanged();
    /// Gives the record the text, if that differs by what textChanged has reported. A text that the
    /// source refuses by throwing stays to be handed over.
    void handOver();
    bool hasTextToHandOver() const { return changed_; }

 private:
    void showRecord();

    Show show_;
    Shown shown_;
    std::shared_ptr<DataSource> source_;
    std::string field_;
    bool changed_ = false;
    bool showing_ = false;
};

}  // namespace huebrush::forms
