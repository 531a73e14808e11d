// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/OoxmlPackage.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "documents/ooxml/Words.h"

namespace huebrush::documents::ooxml {

using base::text;

namespace {

std::string_view folderOf(std::string_view part) {
    const std::size_t slash = part.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : part.substr(0, slash + 1);
}

/// The part that a target means from a folder: names with ".." lead to parts of the package only.
std::string resolvedTarget(std::string_view folder, std::string_view target) {
    std::string path =
        target.starts_with('/') ? std::string(target.substr(1)) : text(folder, target);
    std::vector<std::string_view> steps;
    std::string_view rest(path);
    while (!rest.empty()) {
        const std::size_t slash = std::min(rest.find('/'), rest.size());
        const std::string_view step = rest.substr(0, slash);
        if (step == "..") {
            if (!steps.empty()) steps.pop_back();
        } else if (!step.empty() && step != ".") {
            steps.push_back(step);
        }
        rest.remove_prefix(std::min(slash + 1, rest.size()));
    }
    std::string part;
    for (const std::string_view step : steps) part += text(part.empty() ? "" : "/", step);
    return part;
}

}  // namespace

std::string relationsNameOf(std::string_view part) {
    const std::string_view folder = folderOf(part);
    return text(folder, "_rels/", part.substr(folder.size()), ".rels");
}

std::vector<Relation> relationsOf(const Package& package, std::string_view part) {
    std::vector<Relation> relations;
    const std::string name = relationsNameOf(part);
    if (!package.has(name)) return relations;
    const auto outline = outlineOf(package, name);
    for (ElementId each = outline->firstChild(Outline::root()); each != kNoElement;
         each = outline->nextSibling(each)) {
        if (outline->nameOf(each) != kRelationship) continue;
        const auto value = [&](std::string_view attribute) {
            return outline->attribute(each, attribute).value_or("");
        };
        Relation relation;
        relation.id = value("Id");
        const std::string type = value("Type");
        relation.type = type.substr(type.rfind('/') + 1);
        if (value("TargetMode") != "External") {
            relation.target = resolvedTarget(folderOf(part), value("Target"));
        }
        relations.push_back(std::move(relation));
    }
    return relations;
}

std::unique_ptr<Outline> outlineOf(const Package& package, const std::string& part) {
    return std::make_unique<Outline>(package.read(part), words(), part);
}

}  // namespace huebrush::documents::ooxml
