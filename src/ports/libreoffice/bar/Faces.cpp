#include "ports/libreoffice/bar/Faces.h"

#include <com/sun/star/io/XInputStream.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

css::uno::Reference<css::io::XInputStream> streamOf(const ContextReference& context,
                                                    const base::Picture& picture) {
    const auto* const bytes = reinterpret_cast<const sal_Int8*>(picture.bytes().data());
    const css::uno::Any argument = css::uno::makeAny(
        css::uno::Sequence<sal_Int8>(bytes, static_cast<sal_Int32>(picture.bytes().size())));
    return {context->getServiceManager()->createInstanceWithArgumentsAndContext(
                "com.sun.star.io.SequenceInputStream",
                css::uno::Sequence<css::uno::Any>(&argument, 1), context),
            css::uno::UNO_QUERY_THROW};
}

}  // namespace

Faces::Faces(const ContextReference& context, IconFiles icons)
    : context_(context), icons_(std::move(icons)) {}

std::vector<Faces::Graphic> Faces::sizesOf(const base::Picture& face) const {
    std::vector<Graphic> graphics;
    for (const base::Picture& size : icons_.sizesOf(face)) graphics.push_back(graphicOf(size));
    return graphics;
}

Faces::Graphic Faces::graphicOf(const base::Picture& picture) const {
    return officeCalls([&] {
        const auto provider = createService<css::graphic::XGraphicProvider>(
            context_, "com.sun.star.graphic.GraphicProvider");
        Graphic graphic = provider->queryGraphic(
            properties({property("InputStream", css::uno::makeAny(streamOf(context_, picture)))}));
        if (!graphic.is()) {
            throw base::Error(base::ErrorNumber::kInvalidPicture, "Obrázek tlačítka je neplatný.");
        }
        return graphic;
    });
}

}  // namespace huebrush::libreoffice
