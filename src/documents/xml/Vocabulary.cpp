// SPDX-License-Identifier: MPL-2.0

#include "documents/xml/Vocabulary.h"

#include <algorithm>

namespace huebrush::documents {

Vocabulary::Vocabulary(std::vector<std::pair<std::string_view, NamespaceId>> spaces,
                       const std::vector<Name>& names)
    : spaces_(std::move(spaces)) {
    for (const Name& name : names) {
        if (names_.size() <= name.space) names_.resize(std::size_t{name.space} + 1);
        names_[name.space].emplace(name.local, name.id);
    }
}

NamespaceId Vocabulary::spaceOf(std::string_view address) const {
    const auto found = std::find_if(spaces_.begin(), spaces_.end(),
                                    [&](const auto& each) { return each.first == address; });
    return found == spaces_.end() ? kOtherNamespace : found->second;
}

NameId Vocabulary::nameOf(NamespaceId space, std::string_view local) const {
    if (space == kOtherNamespace || space >= names_.size()) return kOtherName;
    const auto found = names_[space].find(local);
    return found == names_[space].end() ? kOtherName : found->second;
}

}  // namespace huebrush::documents
