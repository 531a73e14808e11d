// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/Graphics.h"

#include <com/sun/star/graphic/XGraphicProvider.hpp>
#include <com/sun/star/io/XInputStream.hpp>

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

css::uno::Reference<css::graphic::XGraphic> graphicOf(const ContextReference& context,
                                                      const base::Picture& picture) {
    return officeCalls([&] {
        const auto provider = createService<css::graphic::XGraphicProvider>(
            context, "com.sun.star.graphic.GraphicProvider");
        css::uno::Reference<css::graphic::XGraphic> graphic = provider->queryGraphic(
            properties({property("InputStream", css::uno::makeAny(streamOf(context, picture)))}));
        if (!graphic.is()) base::throwInvalidPicture();
        return graphic;
    });
}

}  // namespace huebrush::libreoffice
