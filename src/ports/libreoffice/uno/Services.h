// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

using ContextReference = com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>;

/// A new object of the office's service `name`, seen through `Interface`. An internal error where
/// the office does not have it.
template <class Interface>
com::sun::star::uno::Reference<Interface> createService(const ContextReference& context,
                                                        std::string_view name) {
    const com::sun::star::uno::Reference<Interface> service(
        context->getServiceManager()->createInstanceWithContext(toOffice(name), context),
        com::sun::star::uno::UNO_QUERY);
    if (!service.is()) {
        throw base::Error(base::ErrorNumber::kInternal,
                          base::text("Kancelářský balík nenabízí službu ", name, "."));
    }
    return service;
}

/// The office's only object of the singleton `name`; else as createService.
template <class Interface>
com::sun::star::uno::Reference<Interface> singleton(const ContextReference& context,
                                                    std::string_view name) {
    const com::sun::star::uno::Reference<Interface> found(
        context->getValueByName(toOffice(base::text("/singletons/", name))),
        com::sun::star::uno::UNO_QUERY);
    if (!found.is()) {
        throw base::Error(base::ErrorNumber::kInternal,
                          base::text("Kancelářský balík nenabízí objekt ", name, "."));
    }
    return found;
}

}  // namespace huebrush::libreoffice
