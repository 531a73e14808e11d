// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/ShapePicture.h"

#include <algorithm>
#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/document/XExporter.hpp>
#include <com/sun/star/document/XFilter.hpp>
#include <com/sun/star/io/XOutputStream.hpp>
#include <rtl/ref.hxx>
#include <utility>
#include <vector>

#include "base/Bitmap.h"
#include "base/PictureFile.h"
#include "base/Units.h"
#include "ports/libreoffice/uno/Configuration.h"
#include "ports/libreoffice/uno/PngFile.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

class MemoryStream final : public WeakImplHelper<css::io::XOutputStream> {
 public:
    void SAL_CALL writeBytes(const css::uno::Sequence<sal_Int8>& data) override {
        bytes_.insert(bytes_.end(), data.begin(), data.end());
    }
    void SAL_CALL flush() override {}
    void SAL_CALL closeOutput() override {}

    std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
    std::vector<std::uint8_t> bytes_;
};

sal_Int32 toPixels(sal_Int32 length) {
    constexpr double kPixelsPerInch = 96;
    const double pixels = length * kPixelsPerInch / base::kHundredthMillimetresPerInch;
    return std::max<sal_Int32>(1, static_cast<sal_Int32>(std::lround(pixels)));
}

/// The number that a version such as 7.4 or 25.2 begins with.
int officeVersion(const ContextReference& context) {
    const Reference<css::beans::XPropertySet> product(
        openConfiguration(context, "/org.openoffice.Setup/Product", false), UNO_QUERY_THROW);
    rtl::OUString version;
    product->getPropertyValue("ooSetupVersion") >>= version;
    sal_Int32 position = 0;
    return version.getToken(0, '.', position).toInt32();
}

/// Whether the office draws a transparent shape in its own colours. Version 7 blends it with white
/// in every format, and a PNG has the transparency besides, so that it would count twice. Of later
/// ones, only a PNG shows the transparency.
bool hasOwnColors(const ContextReference& context) {
    constexpr int kFirstWithOwnColors = 24;
    static const int kVersion = officeVersion(context);
    return kVersion >= kFirstWithOwnColors;
}

}  // namespace

base::Picture pictureOf(const ContextReference& context, const ShapeReference& shape) {
    const auto exporter = createService<css::document::XExporter>(
        context, "com.sun.star.drawing.GraphicExportFilter");
    exporter->setSourceDocument(Reference<css::lang::XComponent>(shape, UNO_QUERY_THROW));
    const rtl::Reference<MemoryStream> stream(new MemoryStream);
    const css::awt::Size size = shape->getSize();
    const PropertyValues pixels = properties({property("PixelWidth", Any(toPixels(size.Width))),
                                              property("PixelHeight", Any(toPixels(size.Height)))});
    const Reference<css::io::XOutputStream> output(stream.get());
    const bool isPng = hasOwnColors(context);
    const rtl::OUString filter(isPng ? "PNG" : "BMP");
    Reference<css::document::XFilter>(exporter, UNO_QUERY_THROW)
        ->filter(
            properties({property("FilterName", Any(filter)), property("OutputStream", Any(output)),
                        property("FilterData", Any(pixels))}));
    const std::vector<std::uint8_t> bytes = stream->take();
    if (bytes.empty()) {
        throw base::Error(base::ErrorNumber::kInvalidPicture, "Objekt nelze vykreslit.");
    }
    // The office's own bitmap file gives a size that is not its own, and other programs refuse it.
    return base::loadPicture(
        base::bitmapOnWhite(isPng ? pixelsOfPng(bytes) : base::decodeBitmap(bytes)));
}

}  // namespace huebrush::libreoffice
