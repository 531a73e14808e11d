// SPDX-License-Identifier: MPL-2.0

#include "ports/word/host/CommandBars.h"

#include <memory>
#include <utility>

#include "host/BuiltInControl.h"

namespace huebrush::word {

namespace {

constexpr const char* kBar = "CommandBar";
constexpr const char* kButton = "CommandBarButton";
/// The control type of a plain button.
constexpr std::int32_t kPlainButton = 1;

/// The events of a button, `_CommandBarButtonEvents`.
constexpr IID kButtonEvents{0x000C0351, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr DISPID kClick = 1;

/// One of Word's own controls.
class WordTool final : public host::BuiltInControl {
 public:
    WordTool(Object control, WordDocuments& documents)
        : control_(std::move(control)), documents_(documents) {}

    void Execute() override {
        documents_.runOnHidden([this] { control_.call("Execute"); });
    }

 private:
    Object control_;
    WordDocuments& documents_;
};

}  // namespace

WordButton::WordButton(Object button, Enter enter)
    : button_(std::move(button)),
      clicks_(button_.dispatch(), kButtonEvents, kClick,
              [this, enter = std::move(enter)] { enter([this] { Click(); }); }) {}

host::CommandBarControlPointer WordBar::addButton() {
    return std::make_shared<WordButton>(
        bar_.object("CommandBarControls", "Controls").object(kButton, "Add", {kPlainButton}),
        enter_);
}

host::CommandBarControlPointer WordBar::FindControl(const std::string& tag) {
    Object button = bar_.object(kButton, "FindControl", {named("Tag", tag)});
    return button ? std::make_shared<WordButton>(std::move(button), enter_) : nullptr;
}

host::CommandBarPointer WordBars::Item(std::int32_t index) {
    return std::make_shared<WordBar>(bars().object(kBar, "Item", {index}), enter_);
}

host::CommandBarPointer WordBars::Add(const std::string& name) {
    return std::make_shared<WordBar>(bars().object(kBar, "Add", {name}), enter_);
}

host::CommandBarControlPointer WordBars::FindControl(std::int32_t id) {
    Object control = bars().object("CommandBarControl", "FindControl", {named("Id", id)});
    return control ? std::make_shared<WordTool>(std::move(control), documents_) : nullptr;
}

}  // namespace huebrush::word
