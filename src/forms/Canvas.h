// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "forms/Font.h"

namespace huebrush::forms {

/// What a control paints itself on. Places and sizes are twips of the control; colours are numbers
/// of the forms runtime (forms/Font.h).
class Canvas {
 public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    virtual void Cls() = 0;
    virtual double TextWidth(const std::string& text, const Font& font) = 0;
    virtual double TextHeight(const std::string& text, const Font& font) = 0;
    /// Prints the text with its upper left corner at (x, y).
    virtual void Print(const std::string& text, double x, double y, const Font& font,
                       unsigned color) = 0;
};

}  // namespace huebrush::forms
