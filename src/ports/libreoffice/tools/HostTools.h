// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "host/Application.h"
#include "ports/libreoffice/document/Documents.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The classic host's own tools for a fill, as far as the office has equivalents: its colour dialog
/// for the fill colour, its dialog of areas for the fill effects and the format of an object. Each
/// works on what is selected in the hidden document made last, comes up above the window that
/// hidden documents belong to, and returns when the user has closed it. For the main thread only.
class HostTools final : public host::Dialogs {
 public:
    HostTools(const ContextReference& context, Documents& documents)
        : context_(context), documents_(documents) {}

    /// An error for any other number.
    std::shared_ptr<host::Dialog> Item(std::int32_t id) override;
    /// Nothing for any other number.
    host::CommandBarControlPointer control(std::int32_t id);

    /// Gives the selected shape a solid fill of the colour that the user picks; leaves it on
    /// cancel.
    void editColor();
    /// Whether the user has confirmed the dialog.
    bool editArea();

 private:
    ContextReference context_;
    Documents& documents_;
};

}  // namespace huebrush::libreoffice
