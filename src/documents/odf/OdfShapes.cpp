// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/OdfShapes.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

namespace huebrush::documents::odf {

using host::MsoShapeType;

namespace {

struct Kind {
    NameId name;
    MsoShapeType type;
    bool canHaveFill;
};

constexpr Kind kKinds[] = {
    {kRectangle, MsoShapeType::msoAutoShape, true},
    {kCustomShape, MsoShapeType::msoAutoShape, true},
    {kEllipse, MsoShapeType::msoAutoShape, true},
    {kCircle, MsoShapeType::msoAutoShape, true},
    {kPolygon, MsoShapeType::msoFreeform, true},
    {kRegularPolygon, MsoShapeType::msoAutoShape, true},
    {kPath, MsoShapeType::msoFreeform, true},
    {kCaption, MsoShapeType::msoTextBox, true},
    {kLine, MsoShapeType::msoLine, false},
    {kPolyline, MsoShapeType::msoFreeform, false},
    {kConnector, MsoShapeType::msoLine, false},
    {kMeasure, MsoShapeType::msoLine, false},
    {kControl, MsoShapeType::msoFormControl, false},
    {kScene, MsoShapeType::msoAutoShape, false},
};

class Finder {
 public:
    explicit Finder(const Outline& content) : content_(content) {}

    std::vector<FoundShape> find() {
        const ElementId body = content_.child(Outline::root(), kBody);
        if (body == kNoElement) return {};
        std::vector<FoundShape> shapes;
        for (const NameId name : {kDrawingBody, kPresentationBody}) {
            const ElementId pages = content_.child(body, name);
            if (pages == kNoElement) continue;
            walk(pages, shapes, true);
            return shapes;
        }
        const ElementId text = content_.child(body, kTextBody);
        if (text == kNoElement) return {};
        walk(text, shapes, false);
        std::vector<std::pair<long, FoundShape>> byHeight;
        byHeight.reserve(shapes.size());
        for (FoundShape& each : shapes) byHeight.emplace_back(heightOf(each), std::move(each));
        std::stable_sort(byHeight.begin(), byHeight.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        shapes.clear();
        for (auto& [height, shape] : byHeight) shapes.push_back(std::move(shape));
        return shapes;
    }

 private:
    /// `areFramesShapes`: in groups and on pages frames with text are shapes.
    void walk(ElementId parent, std::vector<FoundShape>& shapes, bool areFramesShapes) {
        for (ElementId each = content_.firstChild(parent); each != kNoElement;
             each = content_.nextSibling(each)) {
            visit(each, shapes, areFramesShapes);
        }
    }

    void visit(ElementId element, std::vector<FoundShape>& shapes, bool areFramesShapes) {
        const NameId name = content_.nameOf(element);
        if (name == kForms || name == kAnnotation || name == kObject || name == kNotes) return;
        if (name == kGroup) return group(element, shapes);
        if (name == kFrame && areFramesShapes) return textFrame(element, shapes);
        const auto* const kind =
            std::find_if(std::begin(kKinds), std::end(kKinds),
                         [&](const Kind& known) { return known.name == name; });
        if (kind == std::end(kKinds))
            return walk(element, shapes, areFramesShapes && name != kFrame);
        FoundShape shape{element, kind->type, kind->canHaveFill && !isPlaceholder(element), {}};
        if (name == kPath) shape.canHaveFill = isClosed(element);
        shapes.push_back(std::move(shape));
    }

    void group(ElementId element, std::vector<FoundShape>& shapes) {
        FoundShape group{element, MsoShapeType::msoGroup, true, {}};
        walk(element, group.members, true);
        // A group of nothing but pictures has no shapes.
        if (!group.members.empty()) shapes.push_back(std::move(group));
    }

    /// A frame with text is a shape; any other is a picture, also one that has a text for programs
    /// that show no pictures.
    void textFrame(ElementId element, std::vector<FoundShape>& shapes) {
        if (content_.child(element, kTextBox) == kNoElement) return;
        if (content_.child(element, kImage) != kNoElement) return;
        shapes.push_back({element, MsoShapeType::msoTextBox, !isPlaceholder(element), {}});
    }

    bool isPlaceholder(ElementId element) const {
        return content_.findAttribute(element, kPresentation, "class").has_value();
    }

    /// Whether its outline is said to be closed; that it returns to its start is not enough.
    bool isClosed(ElementId element) const {
        return content_.attribute(element, kSvg, "d").value_or("").find_first_of("zZ") !=
               std::string::npos;
    }

    /// One that does not say how high it is comes in front of those that do.
    long heightOf(const FoundShape& shape) const {
        const auto text = content_.attribute(shape.element, kDraw, "z-index").value_or("");
        long height = std::numeric_limits<long>::max();
        std::from_chars(text.data(), text.data() + text.size(), height);
        return height;
    }

    const Outline& content_;
};

}  // namespace

std::vector<FoundShape> findShapes(const Outline& content) {
    return Finder(content).find();
}

}  // namespace huebrush::documents::odf
