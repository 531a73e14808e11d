// SPDX-License-Identifier: MPL-2.0

// What the office calls to make the objects of this component, by the names in its .components.

#include "ports/libreoffice/entry/AddIn.h"
#include "ports/libreoffice/entry/BatchService.h"
#include "ports/libreoffice/entry/ProtocolHandler.h"

namespace css = com::sun::star;

namespace {

template <class Object>
css::uno::XInterface* makeObject(css::uno::XComponentContext* context) noexcept {
    try {
        const rtl::Reference<Object> object(new Object(context));
        object->acquire();
        return static_cast<cppu::OWeakObject*>(object.get());
    } catch (...) {  // NOLINT: the office takes no exception from here
        return nullptr;
    }
}

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_addin(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    return makeObject<huebrush::libreoffice::AddIn>(context);
}

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_protocol_handler(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    return makeObject<huebrush::libreoffice::ProtocolHandler>(context);
}

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_batch(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    return makeObject<huebrush::libreoffice::BatchService>(context);
}
