// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::forms {

/// A dialog in which the user chooses a file to open, or a name to save under.
struct FileDialog {
    enum class Purpose { open, save };

    Purpose purpose = Purpose::open;
    std::string title;
    /// The kind of files offered: a description and a pattern ("*.mdb"). A name to save under that
    /// has no extension gets that of the pattern.
    std::string description;
    std::string pattern;
};

}  // namespace huebrush::forms
