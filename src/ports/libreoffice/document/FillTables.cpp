// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/FillTables.h"

#include <algorithm>
#include <com/sun/star/awt/XBitmap.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/Text.h"
#include "mapping/Textures.h"
#include "ports/libreoffice/document/Gradients.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

std::vector<std::uint8_t> bytesOf(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        throw base::Error(base::ErrorNumber::kFileNotFound,
                          base::text("Soubor s texturou neexistuje: ", path));
    }
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        throw base::Error(base::ErrorNumber::kPathAccess,
                          base::text("Soubor s texturou nelze číst: ", path));
    }
    return bytes;
}

/// The pixels of a bitmap of the office's; an image of width 0 when they are not available.
mapping::Image pixelsOf(const css::uno::Reference<css::awt::XBitmap>& bitmap) {
    const css::uno::Sequence<sal_Int8> file = bitmap->getDIB();
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.getLength()));
    std::copy(file.begin(), file.end(), bytes.begin());
    return mapping::imageOfBitmapFile(bytes);
}

css::uno::Reference<css::container::XNameContainer> tableOf(const ModelReference& model,
                                                            std::string_view service) {
    const css::uno::Reference<css::lang::XMultiServiceFactory> factory(model,
                                                                       css::uno::UNO_QUERY_THROW);
    return {factory->createInstance(toOffice(service)), css::uno::UNO_QUERY_THROW};
}

}  // namespace

FillTables::FillTables(const ContextReference& context, const ModelReference& model)
    : context_(context),
      bitmaps_(tableOf(model, "com.sun.star.drawing.BitmapTable")),
      transparences_(tableOf(model, "com.sun.star.drawing.TransparencyGradientTable")) {}

void FillTables::ensure(const mapping::OwnPicture& picture) {
    const std::string name = mapping::nameOf(picture);
    if (!kept_.contains(name)) kept_[name] = graphicOf(mapping::bitmapFileOf(tileOf(picture)));
    restore(name);
}

std::string FillTables::addFile(const std::string& path) {
    const std::vector<std::uint8_t> bytes = bytesOf(path);
    std::string name = mapping::nameOfFile(bytes);
    if (!kept_.contains(name)) {
        css::uno::Any graphic;
        try {
            graphic = graphicOf(bytes);
        } catch (const css::uno::Exception&) {
            graphic.clear();
        }
        if (!graphic.hasValue()) {
            throw base::Error(base::ErrorNumber::kInvalidPicture,
                              base::text("Soubor není obrázek: ", path));
        }
        kept_[name] = graphic;
    }
    restore(name);
    return name;
}

void FillTables::keep(const std::string& name, const css::uno::Any& bitmap) {
    if (bitmap.hasValue()) kept_.emplace(name, bitmap);
}

void FillTables::restore(const std::string& name) {
    const auto found = kept_.find(name);
    if (found == kept_.end()) return;
    const rtl::OUString officeName = toOffice(name);
    if (!bitmaps_->hasByName(officeName)) bitmaps_->insertByName(officeName, found->second);
}

rtl::OUString FillTables::addTransparence(const css::uno::Any& gradient) {
    for (std::int32_t number = 1;; ++number) {
        const rtl::OUString name = toOffice(base::text("Huebrush transparency ", number));
        if (!transparences_->hasByName(name)) {
            transparences_->insertByName(name, gradient);
            return name;
        }
        if (isSameGradient(transparences_->getByName(name), gradient)) return name;
    }
}

std::optional<mapping::OwnPicture> FillTables::recognise(const std::string& name,
                                                         const css::uno::Any& bitmap) {
    if (auto own = mapping::ownPictureNamed(name)) return own;
    const auto found = recognised_.find(name);
    if (found != recognised_.end()) return found->second;
    std::optional<mapping::OwnPicture> own;
    const css::uno::Reference<css::awt::XBitmap> pixels(bitmap, css::uno::UNO_QUERY);
    if (pixels.is()) {
        const css::awt::Size size = pixels->getSize();
        const bool maybePattern =
            size.Width == mapping::kPatternSize && size.Height == mapping::kPatternSize;
        const bool maybeTexture =
            size.Width == mapping::kTextureSize && size.Height == mapping::kTextureSize;
        if (maybePattern || maybeTexture) own = mapping::ownPictureOf(pixelsOf(pixels));
    }
    recognised_.emplace(name, own);
    return own;
}

css::uno::Any FillTables::graphicOf(const std::vector<std::uint8_t>& bytes) const {
    const css::uno::Sequence<sal_Int8> data(reinterpret_cast<const sal_Int8*>(bytes.data()),
                                            static_cast<sal_Int32>(bytes.size()));
    const auto stream = css::io::SequenceInputStream::createStreamFromSequence(context_, data);
    const auto graphic = css::graphic::GraphicProvider::create(context_)->queryGraphic(
        properties({property("InputStream", css::uno::Any(stream))}));
    return graphic.is() ? css::uno::Any(graphic) : css::uno::Any();
}

const OriginProperties& FillTables::originProperties(
    const css::uno::Reference<css::drawing::XShape>& shape) {
    const rtl::OUString type = shape->getShapeType();
    auto known = originProperties_.find(type);
    if (known == originProperties_.end()) {
        const css::uno::Reference<css::beans::XPropertySet> set(shape, css::uno::UNO_QUERY_THROW);
        known = originProperties_.emplace(type, OriginProperties(set)).first;
    }
    return known->second;
}

}  // namespace huebrush::libreoffice
