// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "host/CommandBars.h"
#include "ports/libreoffice/bar/ToolBar.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The tool bars of the office's text windows.
class CommandBars final : public host::CommandBars {
 public:
    CommandBars(const ContextReference& context, IconFiles icons);
    CommandBars(const CommandBars&) = delete;
    CommandBars& operator=(const CommandBars&) = delete;
    ~CommandBars() override;

    std::int32_t Count() override;
    host::CommandBarPointer Item(std::int32_t index) override;
    host::CommandBarPointer Add(const std::string& name) override;
    host::CommandBarControlPointer FindControl(std::int32_t id) override { return builtIn_(id); }
    using BuiltIn = std::function<host::CommandBarControlPointer(std::int32_t)>;
    /// Says what the host's own controls are; without it there is none.
    void setBuiltIn(BuiltIn builtIn) { builtIn_ = std::move(builtIn); }

    /// Removes the bars that the add-in has created in a session that did not end cleanly, and that
    /// are empty now.
    void removeLeftBehind();

    /// Writes all changes, and stores them beyond the session. Changes that nobody saves are
    /// written when the event loop is reached.
    void save();

    CommandStates& states() { return office_.states; }
    /// The user has clicked the button of this command; nothing happens when there is none or it
    /// is disabled.
    void click(const std::string& command);

 private:
    class PendingWrite;

    std::shared_ptr<ToolBar> barOf(const BarConfiguration::Bar& bar);
    BarConfiguration::Bar insertBar(const std::string& name);
    void write();
    void writeSoon();

    ToolBar::Office office_;
    std::map<std::string, std::shared_ptr<ToolBar>> bars_;
    BuiltIn builtIn_ = [](std::int32_t) { return nullptr; };
    std::shared_ptr<PendingWrite> pendingWrite_;
};

}  // namespace huebrush::libreoffice
