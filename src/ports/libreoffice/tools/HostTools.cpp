// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/tools/HostTools.h"

#include <functional>
#include <optional>
#include <utility>

#include "host/BuiltInControl.h"
#include "ports/libreoffice/tools/AreaDialog.h"
#include "ports/libreoffice/tools/ColorPicker.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace {

class ToolControl final : public host::BuiltInControl {
 public:
    explicit ToolControl(std::function<void()> tool) : tool_(std::move(tool)) {}
    void Execute() override { tool_(); }

 private:
    std::function<void()> tool_;
};

class FormatDialog final : public host::Dialog {
 public:
    explicit FormatDialog(HostTools& tools) : tools_(tools) {}
    std::int32_t Show() override {
        return tools_.editArea() ? host::DialogResult::kConfirmed : host::DialogResult::kCancelled;
    }

 private:
    HostTools& tools_;
};

}  // namespace

std::shared_ptr<host::Dialog> HostTools::Item(std::int32_t id) {
    if (id != host::DialogId::kFormatObject) {
        throw base::Error(HostErrorNumber::kCommandFailed,
                          base::text("Kancelářský balík nemá dialog č. ", id, "."));
    }
    return std::make_shared<FormatDialog>(*this);
}

host::CommandBarControlPointer HostTools::control(std::int32_t id) {
    switch (id) {
        case host::ControlId::kFillColor:
            return std::make_shared<ToolControl>([this] { editColor(); });
        case host::ControlId::kFillEffects:
            return std::make_shared<ToolControl>([this] { editArea(); });
        default:
            return nullptr;
    }
}

void HostTools::editColor() {
    const auto selected = documents_.newestHidden()->Selection()->ShapeRange();
    const std::int32_t color = selected->Fill().ForeColorRGB();
    const std::optional<std::int32_t> picked = [&] {
        const EventsRun running(documents_.snapshot());
        const Documents::OwnerWindow owner = documents_.owner();
        return pickColor(context_, owner.peer, color);
    }();
    if (!picked) return;
    selected->Fill().setForeColorRGB(*picked);
    selected->Fill().Solid();
    selected->Fill().setVisible(host::MsoTriState::msoTrue);
}

bool HostTools::editArea() {
    const EventsRun running(documents_.snapshot());
    const Documents::OwnerWindow owner = documents_.owner();
    return runAreaDialog(context_, documents_.newestHiddenForDialog());
}

}  // namespace huebrush::libreoffice
