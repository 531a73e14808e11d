// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/WriterShapes.h"

#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>

#include "base/Units.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

class Enumerator final : public host::ShapeEnumerator {
 public:
    explicit Enumerator(ShapeObjects shapes) : shapes_(std::move(shapes)) {}

    host::ShapePointer next() override {
        if (at_ == shapes_.count()) return nullptr;
        return shapes_.item(++at_);
    }

 private:
    ShapeObjects shapes_;
    std::int32_t at_ = 0;
};

sal_Int32 toOfficeLength(float points) {
    return static_cast<sal_Int32>(std::lround(base::pointsToHundredthMillimetres(points)));
}

/// As the host draws a new shape: white with a black line.
void makePlain(const ShapeReference& shape) {
    constexpr sal_Int32 kWhite = 0xFFFFFF;
    constexpr sal_Int32 kBlack = 0;
    const Reference<css::beans::XPropertySet> set(shape, UNO_QUERY_THROW);
    set->setPropertyValue("FillStyle", Any(css::drawing::FillStyle_SOLID));
    set->setPropertyValue("FillColor", Any(kWhite));
    set->setPropertyValue("LineStyle", Any(css::drawing::LineStyle_SOLID));
    set->setPropertyValue("LineColor", Any(kBlack));
}

}  // namespace

void WriterLine::setVisible(host::MsoTriState visible) {
    document_->shapes().setLineVisible(shape_.node(), visible != host::MsoTriState::msoFalse);
}

void WriterLine::setForeColorRGB(std::int32_t color) {
    document_->shapes().setLineColor(shape_.node(), color);
}

std::string WriterShape::Name() {
    return officeCalls([&] {
        document_->shapes().tree().checkAlive(*shape_);
        return document_->shapes().names().nameOf(*shape_);
    });
}

host::MsoShapeType WriterShape::Type() {
    document_->shapes().checkAlive({shape_.node()});
    return shape_->kind.type;
}

std::shared_ptr<host::ShapeList> WriterShape::GroupItems() {
    if (!shape_->kind.isGroup()) {
        throw base::Error(HostErrorNumber::kCommandFailed, "Objekt není skupina.");
    }
    return std::make_shared<WriterGroupItems>(
        ShapeObjects(document_, handlesOf(officeCalls([&] {
                         return document_->shapes().tree().membersOf(shape_.node());
                     }))));
}

void WriterShape::Select() {
    document_->select({shape_.node()});
}

host::ShapePointer ShapeObjects::item(std::int32_t index) const {
    if (index < 1 || index > count()) {
        throw base::Error(base::ErrorNumber::kSubscriptOutOfRange,
                          "Požadovaný prvek kolekce neexistuje.");
    }
    return std::make_shared<WriterShape>(document_, shapes_[static_cast<std::size_t>(index - 1)]);
}

std::int32_t WriterShapes::Count() {
    return officeCalls([&] { return document_->shapes().tree().count(); });
}

std::unique_ptr<host::ShapeEnumerator> WriterShapes::enumerate() {
    document_->finishWrites();
    return std::make_unique<Enumerator>(ShapeObjects(
        document_, handlesOf(officeCalls([&] { return document_->shapes().tree().topLevel(); }))));
}

std::shared_ptr<host::ShapeRange> WriterShapes::Range(const std::vector<std::string>& names) {
    return std::make_shared<WriterShapeRange>(
        document_, officeCalls([&] { return document_->shapes().names().find(names); }));
}

host::ShapePointer WriterShapes::AddShape(host::MsoAutoShapeType type, float left, float top,
                                          float width, float height) {
    if (type != host::MsoAutoShapeType::msoShapeRectangle) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall, "Neznámý druh objektu.");
    }
    const ShapeHandle added(officeCalls([&] {
        const Reference<css::lang::XMultiServiceFactory> factory(document_->model(),
                                                                 UNO_QUERY_THROW);
        const ShapeReference shape(factory->createInstance("com.sun.star.drawing.RectangleShape"),
                                   UNO_QUERY_THROW);
        shape->setPosition({toOfficeLength(left), toOfficeLength(top)});
        shape->setSize({toOfficeLength(width), toOfficeLength(height)});
        Reference<css::beans::XPropertySet>(shape, UNO_QUERY_THROW)
            ->setPropertyValue("AnchorType", Any(css::text::TextContentAnchorType_AT_PARAGRAPH));
        return document_->shapes().tree().add(shape);
    }));
    officeCalls([&] { makePlain(document_->shapes().tree().shapeOf(*added)); });
    return std::make_shared<WriterShape>(document_, added);
}

}  // namespace huebrush::libreoffice
