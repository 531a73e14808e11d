// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <cppuhelper/weakref.hxx>

#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

/// Provides a window's controls with what carries out the commands of our protocol. The office
/// makes one for each window.
class ProtocolHandler final : public WeakImplHelper<com::sun::star::frame::XDispatchProvider,
                                                    com::sun::star::lang::XInitialization,
                                                    com::sun::star::lang::XServiceInfo> {
 public:
    explicit ProtocolHandler(const ContextReference& context);

    void SAL_CALL
    initialize(const com::sun::star::uno::Sequence<com::sun::star::uno::Any>& arguments) override;

    com::sun::star::uno::Reference<com::sun::star::frame::XDispatch> SAL_CALL
    queryDispatch(const com::sun::star::util::URL& url, const rtl::OUString& target,
                  sal_Int32 flags) override;
    com::sun::star::uno::Sequence<com::sun::star::uno::Reference<com::sun::star::frame::XDispatch>>
        SAL_CALL queryDispatches(
            const com::sun::star::uno::Sequence<com::sun::star::frame::DispatchDescriptor>&
                requests) override;

    rtl::OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override;
    com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

 private:
    ContextReference context_;
    com::sun::star::uno::WeakReference<com::sun::star::frame::XFrame> frame_;
};

}  // namespace huebrush::libreoffice
