// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/PartShapes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "documents/ooxml/Words.h"

namespace huebrush::documents::ooxml {

namespace {

double numberOf(std::string_view text) {
    double number = 0;
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    const auto [end, error] =
        std::from_chars(text.data() + first, text.data() + text.size(), number);
    return error == std::errc() && std::isfinite(number) ? number : 0;
}

/// A value of "left:0;z-index:3".
std::string_view styleValue(std::string_view style, std::string_view name) {
    while (!style.empty()) {
        const std::size_t end = std::min(style.find(';'), style.size());
        std::string_view each = style.substr(0, end);
        style.remove_prefix(std::min(end + 1, style.size()));
        each.remove_prefix(std::min(each.find_first_not_of(' '), each.size()));
        const std::size_t colon = each.find(':');
        if (colon != std::string_view::npos && each.substr(0, colon) == name) {
            return each.substr(colon + 1);
        }
    }
    return {};
}

/// Where in the tree the walk is.
struct Place {
    std::vector<FoundNode>* nodes;
    bool isInGroup = false;
    /// The fill that members of the group may ask for.
    ElementId groupFill = kNoElement;
    /// Of the drawing that a top-level shape stands in.
    std::string name = {};
    double height = 0;
};

class Finder {
 public:
    explicit Finder(const Outline& outline) : outline_(outline) { collectTypes(); }

    FoundShapes find(ElementId from, bool isInGroup) {
        FoundShapes found;
        std::swap(found_, found);
        walk(from, {&found_.nodes, isInGroup});
        std::swap(found_, found);
        return found;
    }

 private:
    void collectTypes() {
        for (ElementId each = 0; each < outline_.size(); ++each) {
            if (outline_.nameOf(each) != kVmlShapeType) continue;
            if (auto id = outline_.attribute(each, "id")) types_.emplace(*std::move(id), each);
        }
    }

    void walk(ElementId parent, const Place& place) {
        for (ElementId each = outline_.firstChild(parent); each != kNoElement;
             each = outline_.nextSibling(each)) {
            visit(each, place);
        }
    }

    void visit(ElementId element, const Place& place) {
        switch (outline_.nameOf(element)) {
            case kAlternateContent:
                alternatives(element, place);
                break;
            case kAnchor:
            case kInline:
                drawing(element, place);
                break;
            case kShape:
            case kCanvasShape:
            case kCanvasConnector:
                drawingShape(element, place);
                break;
            case kGroup:
            case kCanvasGroup:
                drawingGroup(element, place);
                break;
            case kPicture:
                picture();
                break;
            case kObject:
                object(element, place);
                break;
            case kVmlShape:
            case kVmlRect:
            case kVmlRoundRect:
            case kVmlOval:
            case kVmlLine:
            case kVmlPolyline:
            case kVmlArc:
            case kVmlCurve:
                vmlShape(element, place);
                break;
            case kVmlGroup:
                vmlGroup(element, place);
                break;
            case kVmlShapeType:
            case kBackground:
            case kGraphicFrame:
            // What says how a shape looks holds no shapes, and may be replaced as a whole.
            case kShapeProperties:
            case kGroupProperties:
            case kStyle:
            case kVmlFill:
            case kVmlStroke:
                break;
            case kTextBoxContent:
                // Shapes in the text of a shape are not in its group.
                walk(element, {&found_.nodes});
                break;
            default:
                walk(element, place);
                break;
        }
    }

    // Alternatives.

    bool isUnderstood(ElementId choice) const {
        const std::string required = outline_.attribute(choice, "Requires").value_or("");
        std::string_view rest(required);
        bool any = false;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            if (end > 0) {
                any = true;
                const NamespaceId space = outline_.spaceOfPrefix(choice, rest.substr(0, end));
                if (space != kWordShape && space != kWordGroup && space != kWord2010 &&
                    space != kWord2012 && space != kPresentation2010 && space != kDrawing2010) {
                    return false;
                }
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return any;
    }

    ElementId chosenBranch(ElementId alternatives) const {
        for (ElementId each = outline_.firstChild(alternatives); each != kNoElement;
             each = outline_.nextSibling(each)) {
            if (outline_.nameOf(each) == kChoice && isUnderstood(each)) return each;
        }
        return outline_.child(alternatives, kFallback);
    }

    void alternatives(ElementId element, const Place& place) {
        const ElementId chosen = chosenBranch(element);
        if (chosen == kNoElement) return;
        const std::size_t first = found_.shapes.size();
        walk(chosen, place);
        for (ElementId each = outline_.firstChild(element); each != kNoElement;
             each = outline_.nextSibling(each)) {
            if (each != chosen) addTwins(first, find(each, place.isInGroup).shapes);
        }
    }

    /// Matches the shapes of another branch with those found since `first`, by their places.
    void addTwins(std::size_t first, std::vector<FoundShape> others) {
        if (found_.shapes.size() - first != others.size()) return;
        for (std::size_t i = 0; i < others.size(); ++i) {
            FoundShape& shape = found_.shapes[first + i];
            FoundShape& other = others[i];
            if (shape.isPicture || other.isPicture) continue;
            shape.twins.push_back(other.place);
            shape.twins.insert(shape.twins.end(), other.twins.begin(), other.twins.end());
        }
    }

    // DrawingML.

    void drawing(ElementId element, const Place& place) {
        Place inside = place;
        inside.height = numberOf(outline_.attribute(element, "relativeHeight").value_or("0"));
        const ElementId properties = outline_.child(element, kDocPr);
        if (properties != kNoElement) {
            inside.name = outline_.attribute(properties, "name").value_or("");
        }
        walk(element, inside);
    }

    /// The name in the properties that nobody sees.
    std::string ownName(ElementId element) const {
        ElementId properties = outline_.child(element, kNonVisual);
        for (const NameId holder : {kNonVisualShape, kNonVisualGroup}) {
            if (properties != kNoElement) break;
            const ElementId found = outline_.child(element, holder);
            if (found != kNoElement) properties = outline_.child(found, kNonVisual);
        }
        if (properties == kNoElement) return {};
        return outline_.attribute(properties, "name").value_or("");
    }

    static bool isLine(std::string_view geometry) {
        return geometry == "line" || geometry == "lineInv" ||
               geometry.find("Connector") != std::string_view::npos;
    }

    bool isPlaceholder(ElementId element) const {
        ElementId holder = outline_.child(element, kNonVisualShape);
        if (holder != kNoElement) holder = outline_.child(holder, kNonVisualOfPage);
        return holder != kNoElement && outline_.child(holder, kPlaceholder) != kNoElement;
    }

    bool canHaveFill(ElementId element, ElementId properties) const {
        if (properties == kNoElement || outline_.nameOf(element) == kCanvasConnector) return false;
        if (outline_.child(element, kConnectorProperties) != kNoElement) return false;
        const ElementId geometry = outline_.child(properties, kPresetGeometry);
        return geometry == kNoElement || !isLine(outline_.attribute(geometry, "prst").value_or(""));
    }

    void drawingShape(ElementId element, const Place& place) {
        FoundShape shape;
        shape.place.drawing = {outline_.child(element, kShapeProperties),
                               outline_.child(element, kStyle), place.groupFill};
        shape.canHaveFill = canHaveFill(element, shape.place.drawing.properties) &&
                            (!isPlaceholder(element) ||
                             fillElementIn(outline_, shape.place.drawing.properties) != kNoElement);
        shape.name = place.isInGroup ? ownName(element) : place.name;
        add(std::move(shape), place);
        walk(element, {&found_.nodes});
    }

    void drawingGroup(ElementId element, const Place& place) {
        Place inside = place;
        const ElementId fill = fillElementIn(outline_, outline_.child(element, kGroupProperties));
        if (fill != kNoElement && outline_.nameOf(fill) != kGroupFill) inside.groupFill = fill;
        group(element, place.isInGroup ? ownName(element) : place.name, inside, place);
    }

    void group(ElementId element, std::string name, Place inside, const Place& place) {
        FoundNode node;
        node.name = std::move(name);
        node.height = place.height;
        inside.nodes = &node.members;
        inside.isInGroup = true;
        walk(element, inside);
        // A group that holds nothing but pictures holds no shapes.
        if (!node.members.empty()) place.nodes->push_back(std::move(node));
    }

    void picture() {
        FoundShape shape;
        shape.isPicture = true;
        found_.shapes.push_back(std::move(shape));
    }

    void add(FoundShape shape, const Place& place) {
        FoundNode node;
        node.shape = found_.shapes.size();
        node.name = shape.name;
        node.height = place.height;
        place.nodes->push_back(std::move(node));
        found_.shapes.push_back(std::move(shape));
    }

    // VML.

    void object(ElementId element, const Place& place) {
        if (outline_.child(element, kOleObject) != kNoElement) {
            picture();
            return;
        }
        inControl_ = outline_.child(element, kControl) != kNoElement;
        walk(element, place);
        inControl_ = false;
    }

    /// A floating shape that does not say how high it is comes in front of those that do.
    double vmlHeight(ElementId element) const {
        const std::string style = outline_.attribute(element, "style").value_or("");
        const std::string_view height = styleValue(style, "z-index");
        if (!height.empty()) return numberOf(height);
        constexpr double kFront = 1e18;
        return styleValue(style, "position") == "absolute" ? kFront : 0;
    }

    ElementId typeOf(ElementId element) const {
        const std::string type = outline_.attribute(element, "type").value_or("");
        if (!type.starts_with('#')) return kNoElement;
        const auto found = types_.find(type.substr(1));
        return found == types_.end() ? kNoElement : found->second;
    }

    void vmlShape(ElementId element, const Place& place) {
        if (outline_.child(element, kVmlImage) != kNoElement && !inControl_) {
            picture();
            return;
        }
        const NameId name = outline_.nameOf(element);
        FoundShape shape;
        shape.place.isVml = true;
        shape.place.vml = {element, typeOf(element)};
        shape.isControl = inControl_;
        shape.canHaveFill = name != kVmlLine && name != kVmlPolyline && !inControl_;
        shape.name = outline_.attribute(element, "id").value_or("");
        Place here = place;
        if (!place.isInGroup) here.height = vmlHeight(element);
        add(std::move(shape), here);
        walk(element, {&found_.nodes});
    }

    void vmlGroup(ElementId element, const Place& place) {
        Place here = place;
        if (!place.isInGroup) here.height = vmlHeight(element);
        group(element, outline_.attribute(element, "id").value_or(""), here, here);
    }

    const Outline& outline_;
    std::unordered_map<std::string, ElementId> types_;
    FoundShapes found_;
    bool inControl_ = false;
};

}  // namespace

FoundShapes findShapes(const Outline& outline, Surface surface) {
    // Those on pages have their own names, as members of groups do.
    return Finder(outline).find(Outline::root(), surface == Surface::page);
}

}  // namespace huebrush::documents::ooxml
