// SPDX-License-Identifier: MPL-2.0

#include "DocumentsHost.h"

#include <unistd.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/drawing/XShapeGrouper.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>
#include <filesystem>
#include <fstream>

#include "base/Color.h"
#include "base/Text.h"
#include "mapping/Textures.h"

namespace huebrush::tests {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

Reference<css::drawing::XDrawPage> pageOf(const ModelReference& model) {
    return Reference<css::drawing::XDrawPageSupplier>(model, UNO_QUERY_THROW)->getDrawPage();
}

ShapeReference newShape(const ModelReference& model, const std::string& service) {
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
    const ShapeReference shape(factory->createInstance(libreoffice::toOffice(
                                   base::text("com.sun.star.drawing.", service))),
                               UNO_QUERY_THROW);
    constexpr sal_Int32 kSide = 1000;
    shape->setSize({kSide, kSide});
    return shape;
}

ShapeReference addShape(const ModelReference& model, const std::string& service) {
    const ShapeReference shape = newShape(model, service);
    setProperty(shape, "AnchorType", css::text::TextContentAnchorType_AT_PARAGRAPH);
    pageOf(model)->add(shape);
    return shape;
}

ShapeReference addRectangle(const ModelReference& model, std::int32_t hostColor) {
    const ShapeReference shape = addShape(model, "RectangleShape");
    setProperty(shape, "FillStyle", css::drawing::FillStyle_SOLID);
    setProperty(shape, "FillColor", base::swapRedAndBlue(hostColor));
    return shape;
}

ShapeReference groupShapes(const ModelReference& model, const std::vector<ShapeReference>& shapes) {
    const auto members = libreoffice::createService<css::drawing::XShapes>(
        officeContext(), "com.sun.star.drawing.ShapeCollection");
    for (const ShapeReference& shape : shapes) members->add(shape);
    const Reference<css::drawing::XShapeGrouper> grouper(pageOf(model), UNO_QUERY_THROW);
    return {grouper->group(members), UNO_QUERY_THROW};
}

PictureFile::PictureFile()
    : path_(base::text((std::filesystem::temp_directory_path() / "texture").string(), getpid(),
                       ".bmp")) {
    const std::vector<std::uint8_t> bytes = mapping::bitmapFileOf(mapping::Image(16, 16));
    std::ofstream(path_, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

PictureFile::~PictureFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

StoredFile::StoredFile(const std::string& extension) {
    static int number = 0;
    path_ = base::text((std::filesystem::temp_directory_path() / "stored").string(), getpid(), "-",
                       ++number, extension);
}

StoredFile::~StoredFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void StoredFile::store(const ModelReference& model, std::string_view filter) const {
    Reference<css::frame::XStorable>(model, UNO_QUERY_THROW)
        ->storeToURL(libreoffice::toOffice(url()),
                     libreoffice::properties({libreoffice::property(
                         "FilterName", css::uno::Any(libreoffice::toOffice(filter)))}));
}

DocumentsHost::DocumentsHost(Seen seen) : documents_(officeContext()) {
    if (seen == Seen::inHandler) {
        handler_ = std::make_unique<libreoffice::HandlerScope>(documents_.snapshot());
    }
}

DocumentsHost::~DocumentsHost() = default;

std::shared_ptr<host::Document> DocumentsHost::document() {
    return documents_.documentOf(open_.model());
}

std::shared_ptr<host::Document> DocumentsHost::otherDocument() {
    return documents_.documentOf(other_.model());
}

DocumentsHost::Id DocumentsHost::keep(const ShapeReference& shape, const std::string& name) {
    Reference<css::container::XNamed>(shape, UNO_QUERY_THROW)->setName(libreoffice::toOffice(name));
    documents_.snapshot()->invalidate();
    shapes_.push_back(shape);
    return shapes_.size() - 1;
}

DocumentsHost::Id DocumentsHost::addRectangle(const std::string& name, std::int32_t color) {
    documents_.snapshot()->invalidate();
    return keep(tests::addRectangle(open_.model(), color), name);
}

DocumentsHost::Id DocumentsHost::addLine(const std::string& name) {
    documents_.snapshot()->invalidate();
    return keep(addShape(open_.model(), "LineShape"), name);
}

DocumentsHost::Id DocumentsHost::group(const std::string& name, const std::vector<Id>& members) {
    std::vector<ShapeReference> shapes;
    shapes.reserve(members.size());
    for (const Id id : members) shapes.push_back(shapes_.at(id));
    documents_.snapshot()->invalidate();
    return keep(groupShapes(open_.model(), shapes), name);
}

void DocumentsHost::remove(Id id) {
    documents_.snapshot()->invalidate();
    pageOf(open_.model())->remove(shapes_.at(id));
    documents_.snapshot()->invalidate();
}

}  // namespace huebrush::tests
