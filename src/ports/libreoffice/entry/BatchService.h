// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/task/XJobExecutor.hpp>

#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

/// The service that works for the command line: it is triggered with the path of a folder that
/// holds two pipes, does the jobs that come through one of them on the main thread, sends progress
/// and results through the other one, and ends the office when there are no more. No exception
/// leaves it.
class BatchService final : public WeakImplHelper<com::sun::star::task::XJobExecutor,
                                                 com::sun::star::lang::XServiceInfo> {
 public:
    explicit BatchService(const ContextReference& context) : context_(context) {}

    void SAL_CALL trigger(const rtl::OUString& folder) override;
    rtl::OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override;
    com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

 private:
    ContextReference context_;
};

}  // namespace huebrush::libreoffice
