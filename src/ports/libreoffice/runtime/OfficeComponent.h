// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "forms/Runtime.h"
#include "ports/libreoffice/runtime/IconFiles.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The identifier of the extension that holds the add-in.
inline constexpr const char* kExtension = "cz.huebrush.extension";

/// The folder of the installed extension with this identifier; empty when there is none.
std::string extensionFolder(const ContextReference& context, const std::string& identifier);

/// The extension, and the office's user.
class OfficeComponent final : public forms::Component {
 public:
    OfficeComponent(const ContextReference& context, std::string folder);

    std::string version() const override;
    std::string name() const override { return "huebrush"; }
    std::string folder() const override { return folder_; }
    std::string userFolder() const override;
    /// The folder of the user's own files of this session, where the system has one; otherwise that
    /// of the temporary files of all users.
    std::string temporaryFolder() const override;
    base::Picture icon(std::int32_t number) const override;
    char decimalSeparator() const override;

 private:
    ContextReference context_;
    std::string folder_;
    IconFiles icons_;
};

}  // namespace huebrush::libreoffice
