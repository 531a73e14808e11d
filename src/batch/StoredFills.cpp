// SPDX-License-Identifier: MPL-2.0

#include "batch/StoredFills.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_set>
#include <utility>

#include "base/Error.h"

namespace huebrush::batch {

using fill::FillProperties;
using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoShapeType;
using host::MsoTextureType;
using host::MsoTriState;

namespace {

bool isShown(const FillProperties& fill) {
    return fill.Visible != MsoTriState::msoFalse;
}

bool hasSameGradient(const FillProperties& asked, const FillProperties& stored) {
    using enum MsoGradientColorType;
    if (asked.GradientStyle != stored.GradientStyle ||
        asked.GradientVariant != stored.GradientVariant ||
        asked.GradientColorType != stored.GradientColorType) {
        return false;
    }
    const bool sameFore = asked.ForeColorRGB == stored.ForeColorRGB;
    switch (asked.GradientColorType) {
        case msoGradientOneColor:
            return sameFore && asked.GradientDegree == stored.GradientDegree;
        case msoGradientTwoColors:
            return sameFore && asked.BackColorRGB == stored.BackColorRGB;
        default:
            return asked.PresetGradientType == stored.PresetGradientType;
    }
}

bool hasSameTexture(const FillProperties& asked, const FillProperties& stored) {
    if (asked.TextureType != stored.TextureType) return false;
    if (asked.TextureType == MsoTextureType::msoTexturePreset) {
        return asked.PresetTexture == stored.PresetTexture;
    }
    return asked.UnknownTexture || asked.TextureName == stored.TextureName;
}

bool hasSameBody(const FillProperties& asked, const FillProperties& stored) {
    if (asked.Type != stored.Type) return false;
    switch (asked.Type) {
        case MsoFillType::msoFillSolid:
            return asked.ForeColorRGB == stored.ForeColorRGB;
        case MsoFillType::msoFillPatterned:
            return asked.Pattern == stored.Pattern && asked.ForeColorRGB == stored.ForeColorRGB &&
                   asked.BackColorRGB == stored.BackColorRGB;
        case MsoFillType::msoFillGradient:
            return hasSameGradient(asked, stored);
        case MsoFillType::msoFillTextured:
            return hasSameTexture(asked, stored);
        default:
            return true;
    }
}

bool isGradient(const FillProperties& fill, MsoGradientColorType colors) {
    return fill.Type == MsoFillType::msoFillGradient && fill.GradientColorType == colors;
}

/// What a file format may do to the body of a fill, where that is known.
std::string reasonOfBody(const FillProperties& asked, const FillProperties& stored) {
    using enum MsoGradientColorType;
    if (isGradient(stored, msoGradientTwoColors)) {
        if (isGradient(asked, msoGradientOneColor)) {
            return "stores a one-colour gradient as a two-colour one";
        }
        if (isGradient(asked, msoGradientPresetColors)) {
            return "stores a preset gradient as a two-colour one";
        }
        if (isGradient(asked, msoGradientTwoColors)) {
            return "does not keep the style and variant of this gradient";
        }
    }
    if (asked.Type == MsoFillType::msoFillGradient && stored.Type == MsoFillType::msoFillPicture) {
        return "stores this gradient as a picture";
    }
    if (asked.Type == MsoFillType::msoFillTextured && stored.Type == asked.Type &&
        stored.UnknownTexture) {
        return "keeps a texture's picture but not its file name";
    }
    return {};
}

std::string reasonOf(const FillProperties& asked, const FillProperties& stored) {
    if (!isShown(asked) || !isShown(stored)) return {};
    if (!hasSameBody(asked, stored)) return reasonOfBody(asked, stored);
    constexpr float kPerCent = 100.0F;
    const bool isRounded =
        std::round(asked.Transparency * kPerCent) == std::round(stored.Transparency * kPerCent);
    return isRounded ? "rounds transparency to a whole percentage" : "changes this transparency";
}

}  // namespace

FillProperties fillOf(host::FillFormat& fill) {
    if (const FillProperties* known = fill.known()) return *known;
    FillProperties result;
    fill::forEveryProperty([&](const auto& property) {
        if (property.read == nullptr) return;
        try {
            result.*property.member = (fill.*property.read)();
        } catch (const base::Error&) {
            result.UnknownTexture = true;
        }
    });
    return result;
}

bool hasArrived(const FillProperties& asked, const FillProperties& stored) {
    if (!isShown(asked) || !isShown(stored)) return isShown(asked) == isShown(stored);
    return asked.Transparency == stored.Transparency && hasSameBody(asked, stored);
}

/// A shape of the document that was recoloured, or of the stored one.
struct StoredFills::Node {
    std::string name;
    bool isGroup = false;
    std::vector<Node> members;
    /// What is known of a shape's fill.
    std::optional<GivenFill> given;
    /// Of the stored document.
    host::ShapePointer shape;
};

namespace {

using Node = StoredFills::Node;
using Nodes = std::vector<Node>;
/// For each node the one in the stored document, or nothing.
using Pairing = std::vector<const Node*>;

/// What to keep of a shape that is no group, beside its name.
using Keep = std::function<void(const host::ShapePointer& shape, Node& node)>;

Node nodeOf(const host::ShapePointer& shape, const Keep& keep) {
    Node node;
    node.name = shape->Name();
    node.isGroup = shape->Type() == MsoShapeType::msoGroup;
    if (!node.isGroup) {
        keep(shape, node);
        return node;
    }
    const auto members = shape->GroupItems();
    const std::int32_t count = members->Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        node.members.push_back(nodeOf(members->Item(i), keep));
    }
    return node;
}

Nodes treeOf(host::Document& document, const Keep& keep) {
    const auto shapes = document.Shapes();
    Nodes nodes;
    nodes.reserve(static_cast<std::size_t>(shapes->Count()));
    const auto walk = shapes->enumerate();
    while (const host::ShapePointer shape = walk->next()) nodes.push_back(nodeOf(shape, keep));
    return nodes;
}

/// Of the document that was recoloured, the fills that were given; the document may go.
Nodes treeWith(host::Document& document, GivenFills& given) {
    return treeOf(document, [&](const host::ShapePointer&, Node& node) {
        const auto found = given.find(node.name);
        if (found != given.end()) node.given = std::move(found->second);
    });
}

Nodes treeOfStored(host::Document& document) {
    return treeOf(document,
                  [](const host::ShapePointer& shape, Node& node) { node.shape = shape; });
}

std::size_t countGiven(const Node& node) {
    std::size_t count = node.given && (node.given->isNew() || node.given->line) ? 1 : 0;
    for (const Node& member : node.members) count += countGiven(member);
    return count;
}

bool isSameKind(const Node& a, const Node& b) {
    return a.isGroup == b.isGroup;
}

/// Pairs runs of shapes of the same length, in their order.
void pairRuns(const std::vector<std::size_t>& run, const std::vector<const Node*>& storedRun,
              const Nodes& nodes, Pairing& pairing) {
    if (run.size() != storedRun.size()) return;
    for (std::size_t i = 0; i < run.size(); ++i) {
        if (isSameKind(nodes[run[i]], *storedRun[i])) pairing[run[i]] = storedRun[i];
    }
}

/// Pairs what stands between the same two shapes that are paired already, or between one and the
/// end, if there is as much of it on both sides.
void pairGaps(const Nodes& nodes, const Nodes& stored, Pairing& pairing) {
    const Pairing anchors = pairing;
    const std::unordered_set<const Node*> anchored(anchors.begin(), anchors.end());
    std::vector<std::size_t> run;
    const Node* from = nullptr;
    const auto close = [&](const Node* to) {
        std::vector<const Node*> storedRun;
        const Node* const begin = from == nullptr ? stored.data() : from + 1;
        const Node* const end = to == nullptr ? stored.data() + stored.size() : to;
        for (const Node* at = begin; at < end && !anchored.contains(at); ++at) {
            storedRun.push_back(at);
        }
        pairRuns(run, storedRun, nodes, pairing);
        run.clear();
        from = to;
    };
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (anchors[i] == nullptr) {
            run.push_back(i);
        } else {
            close(anchors[i]);
        }
    }
    close(nullptr);
}

/// Pairs what is left by its fill, if nothing has come or gone.
void pairByFill(const Nodes& nodes, const Nodes& stored, Pairing& pairing) {
    if (nodes.size() != stored.size()) return;
    const std::unordered_set<const Node*> paired(pairing.begin(), pairing.end());
    std::vector<std::pair<const Node*, FillProperties>> left;
    for (const Node& node : stored) {
        if (!node.isGroup && !paired.contains(&node)) {
            left.emplace_back(&node, fillOf(node.shape->Fill()));
        }
    }
    // A shape that was left as it is must not stand for one that was changed.
    for (const bool isNew : {false, true}) {
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            const auto& given = nodes[i].given;
            if (pairing[i] != nullptr || !given || given->isNew() != isNew) continue;
            const auto found = std::find_if(left.begin(), left.end(), [&](const auto& each) {
                return hasArrived(*given->fill, each.second);
            });
            if (found == left.end()) continue;
            pairing[i] = found->first;
            left.erase(found);
        }
    }
}

Pairing byOrder(const Nodes& nodes, const Nodes& stored) {
    Pairing pairing(nodes.size());
    pairGaps(nodes, stored, pairing);
    return pairing;
}

Pairing byName(const Nodes& nodes, const Nodes& stored) {
    std::unordered_map<std::string, const Node*> named;
    for (const Node& node : stored) named[node.name] = &node;
    Pairing pairing(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const auto found = named.find(nodes[i].name);
        if (found == named.end() || !isSameKind(nodes[i], *found->second)) continue;
        pairing[i] = found->second;
        named.erase(found);
    }
    pairGaps(nodes, stored, pairing);
    pairByFill(nodes, stored, pairing);
    return pairing;
}

void addDifference(const GivenFill& given, const FillProperties& stored, StoredResult& result) {
    for (StoredDifference& each : result.differences) {
        if (each.row == given.row && each.stored == stored) {
            ++each.shapes;
            return;
        }
    }
    result.differences.push_back(
        {given.row, 1, *given.fill, stored, reasonOf(*given.fill, stored)});
}

void add(StoredResult& result, const StoredResult& more) {
    result.confirmed += more.confirmed;
    result.notFound += more.notFound;
    result.linesConfirmed += more.linesConfirmed;
    result.linesOtherwise += more.linesOtherwise;
    for (const StoredDifference& each : more.differences) {
        for (std::size_t i = 0; i < each.shapes; ++i) {
            addDifference({each.row, each.asked}, each.stored, result);
        }
    }
}

StoredResult compareNodes(const Nodes& nodes, const Nodes& stored);

void compareShape(const GivenFill& given, host::Shape& stored, StoredResult& result) {
    if (given.isNew()) {
        const FillProperties fill = fillOf(stored.Fill());
        const bool hasStops = given.stops.empty() || stored.Fill().GradientStops() == given.stops;
        if (hasArrived(*given.fill, fill) && hasStops) {
            ++result.confirmed;
        } else {
            addDifference(given, fill, result);
        }
    }
    if (!given.line) return;
    const bool hasLine = stored.Line().Visible() != MsoTriState::msoFalse &&
                         stored.Line().ForeColorRGB() == *given.line;
    ++(hasLine ? result.linesConfirmed : result.linesOtherwise);
}

StoredResult comparePair(const Node& node, const Node* stored) {
    StoredResult result;
    if (stored == nullptr) {
        result.notFound = countGiven(node);
    } else if (node.isGroup) {
        result = compareNodes(node.members, stored->members);
    } else if (node.given) {
        compareShape(*node.given, *stored->shape, result);
    }
    return result;
}

StoredResult compareAs(const Pairing& pairing, const Nodes& nodes) {
    StoredResult result;
    for (std::size_t i = 0; i < nodes.size(); ++i) add(result, comparePair(nodes[i], pairing[i]));
    return result;
}

StoredResult compareNodes(const Nodes& nodes, const Nodes& stored) {
    StoredResult ordered = compareAs(byOrder(nodes, stored), nodes);
    if (ordered.isAsAsked()) return ordered;
    StoredResult named = compareAs(byName(nodes, stored), nodes);
    const auto explained = [](const StoredResult& each) {
        return each.confirmed + each.linesConfirmed;
    };
    return explained(named) > explained(ordered) ? named : ordered;
}

}  // namespace

StoredFills::StoredFills(host::Document& document, GivenFills given)
    : tree_(treeWith(document, given)) {}

StoredFills::StoredFills(StoredFills&&) noexcept = default;
StoredFills& StoredFills::operator=(StoredFills&&) noexcept = default;
StoredFills::~StoredFills() = default;

StoredResult StoredFills::compare(host::Document& stored) const {
    StoredResult result = compareNodes(tree_, treeOfStored(stored));
    std::stable_sort(result.differences.begin(), result.differences.end(),
                     [](const auto& a, const auto& b) { return a.row < b.row; });
    return result;
}

}  // namespace huebrush::batch
