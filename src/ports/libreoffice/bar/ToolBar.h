// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/CommandBars.h"
#include "ports/libreoffice/bar/BarConfiguration.h"
#include "ports/libreoffice/bar/BarNotes.h"
#include "ports/libreoffice/bar/BarPlaces.h"
#include "ports/libreoffice/bar/CommandStates.h"
#include "ports/libreoffice/bar/Faces.h"
#include "ports/libreoffice/bar/ToolBarButton.h"

namespace huebrush::libreoffice {

/// A tool bar of the text windows. Changes of its buttons are gathered and reach the office
/// together, by write(); a button that is added and deleted in between leaves no trace there.
class ToolBar final : public host::CommandBar {
 public:
    /// What the bars share.
    struct Office {
        ContextReference context;
        Faces faces;
        BarConfiguration configuration{context};
        BarPlaces places{context};
        BarNotes notes{context};
        CommandStates states{};
    };

    ToolBar(Office& office, BarConfiguration::Bar bar, std::function<void()> changed)
        : office_(office), bar_(std::move(bar)), changed_(std::move(changed)) {}

    std::string Name() override { return bar_.name; }
    void setVisible(bool visible) override;
    void Delete() override;

    std::int32_t Position() override;
    void setPosition(std::int32_t position) override;
    std::int32_t Left() override;
    void setLeft(std::int32_t left) override;
    std::int32_t Top() override;
    void setTop(std::int32_t top) override;
    std::int32_t RowIndex() override;
    void setRowIndex(std::int32_t row) override;

    host::CommandBarControlPointer addButton() override;
    host::CommandBarControlPointer FindControl(const std::string& tag) override;

    const std::string& url() const { return bar_.url; }
    bool deleted() const { return deleted_; }
    /// Brings the office's bar up to date.
    void write();
    /// Whether the add-in has created the bar, in this session or an earlier one, and it is empty.
    bool isLeftBehind();
    /// The button for a command, or nothing.
    std::shared_ptr<ToolBarButton> buttonOf(const std::string& command) const;

 private:
    BarPlace place() const { return office_.places.of(bar_.url); }
    void put(const BarPlace& place) { office_.places.put(bar_.url, bar_.name, place); }
    void changed();
    std::shared_ptr<ToolBarButton> adopt(std::shared_ptr<ToolBarButton> button);
    void restoreToolTip(ToolBarButton& button);
    void writeTexts(std::vector<BarConfiguration::Item>& items, ToolBarButton& button);
    void writeFace(ToolBarButton& button);

    Office& office_;
    BarConfiguration::Bar bar_;
    std::function<void()> changed_;
    std::vector<std::shared_ptr<ToolBarButton>> buttons_;
    bool toWrite_ = false;
    bool deleted_ = false;
};

}  // namespace huebrush::libreoffice
