// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Document.h"

namespace huebrush::recolor {

/// The documents that one command changes, one after the other, each in one step of its Undo list.
/// The step ends on every path.
class UndoSteps {
 public:
    /// Called at the end of each step, with the writes that failed in it. Must not throw.
    using Ended = std::function<void(std::vector<host::FailedWrite>)>;

    UndoSteps(std::string title, Ended ended);
    UndoSteps(const UndoSteps&) = delete;
    UndoSteps& operator=(const UndoSteps&) = delete;
    ~UndoSteps() { end(); }

    /// Whether the last step that was begun is one of this document.
    bool isIn(const host::Document& document) const;
    /// REQUIRES: the step before has ended.
    void begin(std::shared_ptr<host::Document> document);
    void end();

 private:
    std::string title_;
    Ended ended_;
    std::shared_ptr<host::Document> document_;
    std::unique_ptr<host::UndoGroup> group_;
};

}  // namespace huebrush::recolor
