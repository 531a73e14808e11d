// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "documents/xml/Outline.h"

namespace huebrush::documents::ooxml {

/// A colour, 0xRRGGBB, and how opaque it is, in thousandths of a per cent.
struct Color {
    std::int32_t rgb = 0;
    std::int32_t alpha = 100'000;

    friend bool operator==(const Color&, const Color&) = default;
};

/// A style of a theme: an element of its own part.
struct ThemeStyle {
    const Outline* outline = nullptr;
    ElementId element = kNoElement;
};

/// The colours and styles that shapes may refer to. Without a part of the document's own it has the
/// colours that programs begin with, and no styles.
class Theme {
 public:
    Theme() = default;
    explicit Theme(std::unique_ptr<Outline> part);

    /// `mapped` is a name such as "bg1", and `name` the theme's own name of its colour, as the
    /// settings of a text have it ("light1").
    void map(std::string_view mapped, std::string_view name);

    /// The colour of a name such as "accent1" or "bg1"; nothing for an unknown one.
    std::optional<std::int32_t> color(std::string_view name) const;

    /// What a reference of a shape's style means by its number; nothing for none.
    std::optional<ThemeStyle> fillStyle(std::size_t index) const;
    std::optional<ThemeStyle> lineStyle(std::size_t index) const;

 private:
    static constexpr std::size_t kColors = 12;

    void readColors(ElementId scheme);
    std::optional<ThemeStyle> styleIn(NameId list, std::size_t index) const;

    std::unique_ptr<Outline> part_;
    std::array<std::int32_t, kColors> colors_ = {0x000000, 0xFFFFFF, 0x1F497D, 0xEEECE1,
                                                 0x4F81BD, 0xC0504D, 0x9BBB59, 0x8064A2,
                                                 0x4BACC6, 0xF79646, 0x0000FF, 0x800080};
    std::map<std::string, std::size_t, std::less<>> mapped_ = {
        {"bg1", 1}, {"tx1", 0}, {"bg2", 3}, {"tx2", 2}};
};

/// The colour that an element such as a:solidFill holds as its child, its changes carried out in
/// their order; nothing where there is none. `placeholder` is what a theme's style is used with.
std::optional<Color> colorIn(const Outline& outline, ElementId holder, const Theme& theme,
                             const std::optional<Color>& placeholder);
/// The element of that colour; kNoElement where there is none.
ElementId colorElementIn(const Outline& outline, ElementId holder);

}  // namespace huebrush::documents::ooxml
