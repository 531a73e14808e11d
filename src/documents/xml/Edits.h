// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "documents/xml/Outline.h"
#include "documents/xml/Splices.h"

namespace huebrush::documents {

/// Gives an element an attribute, or takes it away where there is no value. `name` is what a new
/// one is called, with its prefix, and a new one comes before all others.
void setAttribute(const Outline& outline, Splices& splices, ElementId element, NamespaceId space,
                  std::string_view name, const std::optional<std::string>& value);

/// Takes an attribute away, and the blanks before it.
void removeAttribute(const Outline& outline, Splices& splices, const Attribute& attribute);

/// Adds elements inside another one, before all that is there, or behind it. Of an empty tag it
/// makes two: at most one such call may be made for it.
void insertFirst(const Outline& outline, Splices& splices, ElementId parent,
                 const std::string& elements);
void insertLast(const Outline& outline, Splices& splices, ElementId parent,
                const std::string& elements);

/// The prefix of a written name; empty without one.
std::string_view prefixOf(std::string_view writtenName);
/// The name with a prefix, if there is one.
std::string withPrefix(std::string_view prefix, std::string_view local);

}  // namespace huebrush::documents
