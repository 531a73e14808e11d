// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>

#include "base/Picture.h"
#include "host/CommandBars.h"
#include "ports/libreoffice/bar/CommandStates.h"

namespace huebrush::libreoffice {

/// A button of ours on a tool bar. Its tag names the command that the office sends for it, so it
/// gets onto the screen once it has one.
class ToolBarButton final : public host::CommandBarControl {
 public:
    /// `changed` is called with every change that the bar has to write. `face` is what the button
    /// shows to begin with.
    ToolBarButton(CommandStates& states, std::function<void()> changed, base::Picture face)
        : states_(states), changed_(std::move(changed)), face_(std::move(face)) {}

    /// A button that the office has kept. Its face is not known.
    struct Kept {
        std::string tag;
        std::string caption;
        std::string tooltip;
    };
    ToolBarButton(CommandStates& states, std::function<void()> changed, Kept kept);

    void setTag(const std::string& tag) override;
    void setCaption(const std::string& caption) override;
    void setTooltipText(const std::string& text) override;
    void setEnabled(bool enabled) override;
    void Delete() override;
    void CopyFace() override;
    void PasteFace() override;
    void Execute() override { Click(); }

    const std::string& tag() const { return tag_; }
    const std::string& caption() const { return caption_; }
    const std::string& tooltip() const { return tooltip_; }
    /// Empty for a button without a tag.
    std::string command() const;
    bool deleted() const { return deleted_; }
    const base::Picture& face() const { return face_; }
    /// Whether the face has been pasted since it was written.
    bool faceChanged() const { return faceChanged_; }
    void faceWritten() { faceChanged_ = false; }
    /// Whether its texts have been set since they were written, or since it was found.
    bool textsChanged() const { return textsChanged_; }
    void textsWritten() { textsChanged_ = false; }

 private:
    void publishState();
    void changeTexts();

    CommandStates& states_;
    std::function<void()> changed_;
    std::string tag_;
    std::string caption_;
    std::string tooltip_;
    bool textsChanged_ = false;
    base::Picture face_;
    bool faceChanged_ = false;
    bool enabled_ = true;
    bool deleted_ = false;
};

}  // namespace huebrush::libreoffice
