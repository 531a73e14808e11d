// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XTerminateListener.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <memory>
#include <rtl/ref.hxx>
#include <string>
#include <thread>

#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/bar/CommandStates.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

class AddInSession;

/// The one object of the component in an office: the job that the office runs at its start, which
/// connects the add-in, and the listener at its end, which disconnects it. No exception leaves it
/// except the one that keeps the office from terminating while a handler of ours runs.
class AddIn final
    : public WeakImplHelper<com::sun::star::task::XJob, com::sun::star::frame::XTerminateListener,
                            com::sun::star::lang::XServiceInfo> {
 public:
    explicit AddIn(const ContextReference& context);
    ~AddIn() override;

    /// The office's one object; nothing when the office cannot make it.
    static rtl::Reference<AddIn> of(const ContextReference& context);

    com::sun::star::uno::Any SAL_CALL
    execute(const com::sun::star::uno::Sequence<com::sun::star::beans::NamedValue>&) override;
    void SAL_CALL queryTermination(const com::sun::star::lang::EventObject&) override;
    void SAL_CALL notifyTermination(const com::sun::star::lang::EventObject&) override;
    void SAL_CALL disposing(const com::sun::star::lang::EventObject&) override;
    rtl::OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override;
    com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

    /// The user has clicked a button of ours in a window. Whatever thread reports it, its command
    /// runs on the main thread.
    void click(const ActiveWindow::Frame& frame, const std::string& command);
    void addListener(const com::sun::star::util::URL& url, const CommandStates::Listener& listener);
    void removeListener(const com::sun::star::util::URL& url,
                        const CommandStates::Listener& listener);

 private:
    void connect();
    void disconnect() noexcept;

    ContextReference context_;
    std::thread::id mainThread_;
    std::unique_ptr<AddInSession> session_;
};

}  // namespace huebrush::libreoffice
