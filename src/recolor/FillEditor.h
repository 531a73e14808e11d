// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>

#include "host/Application.h"
#include "recolor/ColorElement.h"

namespace huebrush::recolor {

class ScratchShape;

/// Edits the new fill of a row and renders its preview again: with one of the host's own tools,
/// which the user works with on a scratch shape, or at once. Shapes are not touched. The errors are
/// the caller's to trap; one leaves the scratch document open.
class FillEditor {
 public:
    /// Called for each use: while a tool is open its row may be unloaded, which is an error.
    using Row = std::function<ColorElement&()>;

    /// What the editor needs of the dialog around it.
    struct Surroundings {
        /// The host, or an error where there is none.
        std::function<host::Application&()> host;
        /// Puts the dialog above all other windows, or lets the tools come above it.
        std::function<void(bool)> onTop;
    };

    explicit FillEditor(Surroundings dialog);

    /// The scratch shape's fill is taken even when the user has cancelled the tool.
    void useColorTool(const Row& row);
    void useFillTool(const Row& row);
    /// Takes the scratch shape's fill only when the user has confirmed.
    void useFormatTool(const Row& row);
    /// Between fill and no fill.
    void toggleFill(const Row& row);
    /// Between opaque and half transparent.
    void toggleTransparency(const Row& row);

    /// Whether the user is at one of the tools.
    bool isToolOpen() const { return openTools_ > 0; }

 private:
    class OpenTool;
    /// Opens a tool; whether the scratch shape's fill is to be taken.
    using Tool = std::function<bool(host::Application&)>;

    void runControl(const Row& row, std::int32_t id);
    void editWith(const Tool& tool, const Row& row);
    void render(const Row& row) const;
    static void takePreview(const Row& row, const ScratchShape& scratch);

    Surroundings dialog_;
    int openTools_ = 0;
};

}  // namespace huebrush::recolor
