// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "documents/package/Package.h"
#include "documents/xml/Outline.h"

namespace huebrush::documents::ooxml {

/// One relation of a part to another.
struct Relation {
    std::string id;
    std::string type;    ///< the last word of its address, such as "theme"
    std::string target;  ///< the name of the part; empty for what is not in the package
};

/// The name of the part that holds the relations of a part; of the package with an empty name.
std::string relationsNameOf(std::string_view part);

/// The relations of a part; none where it has no such part.
std::vector<Relation> relationsOf(const Package& package, std::string_view part);

/// The part's elements.
std::unique_ptr<Outline> outlineOf(const Package& package, const std::string& part);

}  // namespace huebrush::documents::ooxml
