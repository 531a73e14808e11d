// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace huebrush::documents {

/// A namespace by the number that a vocabulary has for it; several addresses may have the same one.
using NamespaceId = std::uint8_t;
/// An element's name by the number that a vocabulary has for it.
using NameId = std::uint16_t;

/// All namespaces and names that nobody has asked for.
inline constexpr NamespaceId kOtherNamespace = 0;
inline constexpr NameId kOtherName = 0;

/// The names that a reader of some format knows. They are found by the address of their namespace,
/// whatever prefix a document has for it.
class Vocabulary {
 public:
    struct Name {
        NameId id = kOtherName;
        NamespaceId space = kOtherNamespace;
        std::string_view local;
    };

    Vocabulary(std::vector<std::pair<std::string_view, NamespaceId>> spaces,
               const std::vector<Name>& names);

    NamespaceId spaceOf(std::string_view address) const;
    NameId nameOf(NamespaceId space, std::string_view local) const;

 private:
    std::vector<std::pair<std::string_view, NamespaceId>> spaces_;
    /// By namespace.
    std::vector<std::unordered_map<std::string_view, NameId>> names_;
};

}  // namespace huebrush::documents
