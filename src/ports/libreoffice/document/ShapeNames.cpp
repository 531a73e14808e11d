// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/ShapeNames.h"

#include <com/sun/star/container/XNamed.hpp>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr std::int32_t kNoSuchMember = 5941;
constexpr std::string_view kUnnamed = "Tvar";

}  // namespace

const std::string& ShapeNames::nameOf(ShapeNode& node) {
    if (node.name.empty()) {
        const HandlerScope scope(snapshot_);
        giveTopLevel();
        if (node.name.empty()) giveAll();
    }
    if (node.name.empty()) throwDeleted();
    return node.name;
}

ShapeHandles ShapeNames::find(const std::vector<std::string>& names) {
    const HandlerScope scope(snapshot_);
    ShapeHandles found;
    found.reserve(names.size());
    bool allAreNamed = false;
    for (const std::string& name : names) {
        NodePointer node = given(name);
        if (!node && !allAreNamed) {
            giveAll();
            allAreNamed = true;
            node = given(name);
        }
        if (!node) {
            throw base::Error(kNoSuchMember,
                              base::text("Objekt s názvem „", name, "“ v dokumentu není."));
        }
        tree_.checkAlive(*node);
        found.emplace_back(std::move(node));
    }
    return found;
}

NodePointer ShapeNames::given(const std::string& name) const {
    const auto found = given_.find(name);
    return found == given_.end() ? nullptr : found->second.lock();
}

void ShapeNames::give(ShapeNode& node, const ShapeReference& shape) {
    if (!node.name.empty()) return;
    if (node.parent) giveTopLevel();
    giveUnique(node, ownNameOf(shape));
}

void ShapeNames::giveUnique(ShapeNode& node, const std::string& own) {
    std::string name = own;
    if (own.empty() || given(own)) {
        name = own.empty() ? std::string(kUnnamed) : own;
        std::string_view before = "‹";
        for (const std::int32_t index : ShapeTree::placeOf(node)) {
            name = base::text(name, before, index + 1);
            before = ".";
        }
        name += "›";
    }
    while (given(name)) name += "′";
    node.name = name;
    given_[name] = node.weak_from_this();
}

/// Once for each reading of them: the members of a group ask for it one by one.
void ShapeNames::giveTopLevel() {
    if (named_ != 0 && named_ == tree_.reading()) return;
    for (const NodePointer& node : tree_.topLevel()) {
        if (node->name.empty()) give(*node, tree_.shapeOf(*node));
    }
    named_ = tree_.reading();
}

void ShapeNames::giveAll() {
    tree_.visitAll([this](ShapeNode& node, const ShapeReference& shape) { give(node, shape); });
}

void ShapeNames::forgetDead() {
    std::erase_if(given_, [](const auto& entry) { return entry.second.expired(); });
}

std::string ShapeNames::ownNameOf(const ShapeReference& shape) {
    const css::uno::Reference<css::container::XNamed> named(shape, css::uno::UNO_QUERY);
    return named.is() ? fromOffice(named->getName()) : std::string();
}

}  // namespace huebrush::libreoffice
