// SPDX-License-Identifier: MPL-2.0

#include "ports/documents/ShapeTree.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace huebrush::documents {

namespace {

constexpr std::int32_t kObjectDeleted = 5825;
constexpr std::int32_t kNoSuchMember = 5941;

void markDeleted(Node& node) {
    node.isDeleted = true;
    for (const NodePointer& each : node.members) markDeleted(*each);
}

void collectChanges(const Node& node, ShapeChanges& changes) {
    if (node.number && (node.written || node.isLineWritten)) {
        ShapeChange& change = changes[*node.number];
        if (const auto& written = node.written) {
            change.fill = NewFill{written->fill, written->picture, written->stops};
        }
        // Without a line there is nothing to colour.
        if (node.isLineWritten && node.lineVisible) change.lineColor = node.lineColor;
    }
    for (const NodePointer& each : node.members) collectChanges(*each, changes);
}

}  // namespace

const mapping::HostFill& Node::fill() const {
    static const mapping::HostFill kNone;
    if (written) return written->fill;
    return inFile ? inFile->host : kNone;
}

WrittenFill& Node::write() {
    if (!written) written = std::make_unique<WrittenFill>(WrittenFill{fill()});
    answer.reset();
    return *written;
}

void ShapeTree::add(const std::vector<ShapeRecord>& records) {
    // Names of the top level come first: those are what a user sees.
    std::vector<NodePointer> added;
    added.reserve(records.size());
    for (const ShapeRecord& record : records) {
        auto node = std::make_shared<Node>();
        node->name = uniqueName(record.name);
        names_[node->name] = node;
        added.push_back(std::move(node));
    }
    Answers answers;
    for (std::size_t i = 0; i < records.size(); ++i) {
        NodePointer node = nodeOf(records[i], std::move(added[i]), answers);
        topLevel_.push_back(std::move(node));
    }
}

NodePointer ShapeTree::nodeOf(const ShapeRecord& record, NodePointer node, Answers& answers) {
    if (!node) {
        node = std::make_shared<Node>();
        node->name = uniqueName(record.name);
        names_[node->name] = node;
    }
    node->type = record.type;
    node->canHaveFill = record.canHaveFill;
    node->inFile = record.fill;
    if (record.fill) {
        auto& answer = answers[record.fill.get()];
        if (!answer) {
            answer = std::make_shared<const host::FillProperties>(propertiesOf(record.fill->host));
        }
        node->answer = answer;
    }
    node->lineVisible = record.lineVisible;
    node->lineColor = record.lineColor;
    if (!record.isGroup()) node->number = record.number;
    for (const ShapeRecord& each : record.members) {
        node->members.push_back(nodeOf(each, nullptr, answers));
    }
    return node;
}

NodePointer ShapeTree::add(Node node) {
    node.name = uniqueName(node.name);
    auto added = std::make_shared<Node>(std::move(node));
    names_[added->name] = added;
    topLevel_.push_back(added);
    return added;
}

NodePointer ShapeTree::group(const std::string& name, const std::vector<NodePointer>& members) {
    std::erase_if(topLevel_, [&](const NodePointer& each) {
        return std::find(members.begin(), members.end(), each) != members.end();
    });
    Node group;
    group.name = name;
    group.type = host::MsoShapeType::msoGroup;
    group.members = members;
    return add(std::move(group));
}

void ShapeTree::remove(const NodePointer& node) {
    markDeleted(*node);
    std::erase(topLevel_, node);
    std::erase(selected, node);
}

NodePointer ShapeTree::find(const std::string& name) const {
    const auto found = names_.find(name);
    NodePointer node = found == names_.end() ? nullptr : found->second.lock();
    if (!node || node->isDeleted) {
        throw base::Error(kNoSuchMember,
                          base::text("Objekt s názvem „", name, "“ v dokumentu není."));
    }
    return node;
}

std::string ShapeTree::uniqueName(const std::string& wanted) {
    const auto isFree = [this](const std::string& name) {
        const auto found = names_.find(name);
        return found == names_.end() || found->second.expired();
    };
    if (!wanted.empty() && isFree(wanted)) return wanted;
    const std::string base = wanted.empty() ? "Tvar" : wanted;
    int& number = numbers_[base];
    std::string name;
    do {
        name = base::text(base, "‹", ++number, "›");
    } while (!isFree(name));
    return name;
}

ShapeChanges ShapeTree::changes() const {
    ShapeChanges changes;
    for (const NodePointer& each : topLevel_) collectChanges(*each, changes);
    return changes;
}

void requireAlive(const Node& node) {
    if (node.isDeleted) throw base::Error(kObjectDeleted, "Objekt byl odstraněn.");
}

void collectLeaves(const NodePointer& node, std::vector<NodePointer>& leaves) {
    if (!node->isGroup()) leaves.push_back(node);
    for (const NodePointer& each : node->members) collectLeaves(each, leaves);
}

}  // namespace huebrush::documents
