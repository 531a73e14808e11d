// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>

#include "host/CommandBars.h"
#include "ports/word/com/EventConnection.h"
#include "ports/word/com/Object.h"
#include "ports/word/host/Documents.h"

namespace huebrush::word {

/// Runs what Word calls the add-in for. Whoever gives it sees to it that the add-in lives until
/// that is done, and that no error gets into Word.
using Enter = std::function<void(const std::function<void()>& handler)>;

/// A button of our own on one of Word's bars.
class WordButton final : public host::CommandBarControl {
 public:
    /// In Word 97 buttons raise no events: Click then stays silent.
    WordButton(Object button, Enter enter);

    void setTag(const std::string& tag) override { button_.put("Tag", tag); }
    void setCaption(const std::string& caption) override { button_.put("Caption", caption); }
    void setTooltipText(const std::string& text) override { button_.put("TooltipText", text); }
    void setEnabled(bool enabled) override { button_.put("Enabled", enabled); }
    void Delete() override { button_.call("Delete"); }
    void CopyFace() override { button_.call("CopyFace"); }
    void PasteFace() override { button_.call("PasteFace"); }
    void Execute() override { button_.call("Execute"); }

 private:
    Object button_;
    EventConnection clicks_;
};

class WordBar final : public host::CommandBar {
 public:
    WordBar(Object bar, Enter enter) : bar_(std::move(bar)), enter_(std::move(enter)) {}

    std::string Name() override { return bar_.get("Name").toText(); }
    void setVisible(bool visible) override { bar_.put("Visible", visible); }
    void Delete() override { bar_.call("Delete"); }
    std::int32_t Position() override { return bar_.get("Position").toInteger(); }
    void setPosition(std::int32_t position) override { bar_.put("Position", position); }
    std::int32_t Left() override { return bar_.get("Left").toInteger(); }
    void setLeft(std::int32_t left) override { bar_.put("Left", left); }
    std::int32_t Top() override { return bar_.get("Top").toInteger(); }
    void setTop(std::int32_t top) override { bar_.put("Top", top); }
    std::int32_t RowIndex() override { return bar_.get("RowIndex").toInteger(); }
    void setRowIndex(std::int32_t row) override { bar_.put("RowIndex", row); }
    host::CommandBarControlPointer addButton() override;
    host::CommandBarControlPointer FindControl(const std::string& tag) override;

 private:
    Object bar_;
    Enter enter_;
};

class WordBars final : public host::CommandBars {
 public:
    WordBars(Object application, WordDocuments& documents, Enter enter)
        : application_(std::move(application)), documents_(documents), enter_(std::move(enter)) {}

    std::int32_t Count() override { return bars().get("Count").toInteger(); }
    host::CommandBarPointer Item(std::int32_t index) override;
    host::CommandBarPointer Add(const std::string& name) override;
    host::CommandBarControlPointer FindControl(std::int32_t id) override;

 private:
    Object bars() const { return application_.object("CommandBars", "CommandBars"); }

    Object application_;
    WordDocuments& documents_;
    Enter enter_;
};

}  // namespace huebrush::word
