// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Event.h"

namespace huebrush::host {

/// A control of a command bar: one of our buttons, or one of the host's own found by its number.
class CommandBarControl {
 public:
    CommandBarControl() = default;
    CommandBarControl(const CommandBarControl&) = delete;
    CommandBarControl& operator=(const CommandBarControl&) = delete;
    virtual ~CommandBarControl() = default;

    virtual void setTag(const std::string& tag) = 0;
    virtual void setCaption(const std::string& caption) = 0;
    virtual void setTooltipText(const std::string& text) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void Delete() = 0;

    /// Puts the button's picture onto the clipboard of the forms runtime (nothing where the button
    /// has none), and takes it from there.
    virtual void CopyFace() = 0;
    virtual void PasteFace() = 0;

    /// Runs a control of the host's own; returns when the user is done with what it opened.
    virtual void Execute() = 0;

    /// Raised by the host when the user clicks the button.
    base::Event<> Click;
};

using CommandBarControlPointer = std::shared_ptr<CommandBarControl>;

class CommandBar {
 public:
    CommandBar() = default;
    CommandBar(const CommandBar&) = delete;
    CommandBar& operator=(const CommandBar&) = delete;
    virtual ~CommandBar() = default;

    virtual std::string Name() = 0;
    virtual void setVisible(bool visible) = 0;
    virtual void Delete() = 0;

    // The bar's place: the docking position (0 left, 1 top, 2 right, 3 bottom, 4 floating), its
    // edges in pixels and the docking row.
    virtual std::int32_t Position() = 0;
    virtual void setPosition(std::int32_t position) = 0;
    virtual std::int32_t Left() = 0;
    virtual void setLeft(std::int32_t left) = 0;
    virtual std::int32_t Top() = 0;
    virtual void setTop(std::int32_t top) = 0;
    virtual std::int32_t RowIndex() = 0;
    virtual void setRowIndex(std::int32_t row) = 0;

    /// Adds a plain button after the existing controls.
    virtual CommandBarControlPointer addButton() = 0;
    /// The control with this tag, or nothing.
    virtual CommandBarControlPointer FindControl(const std::string& tag) = 0;
};

using CommandBarPointer = std::shared_ptr<CommandBar>;

class CommandBars {
 public:
    CommandBars() = default;
    CommandBars(const CommandBars&) = delete;
    CommandBars& operator=(const CommandBars&) = delete;
    virtual ~CommandBars() = default;

    /// Item counts from 1.
    virtual std::int32_t Count() = 0;
    virtual CommandBarPointer Item(std::int32_t index) = 0;
    /// Adds a permanent, still hidden bar at the host's default place.
    virtual CommandBarPointer Add(const std::string& name) = 0;
    /// The host's own control with this number, or nothing.
    virtual CommandBarControlPointer FindControl(std::int32_t id) = 0;
};

}  // namespace huebrush::host
