// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/entry/AddIn.h"

#include <com/sun/star/frame/TerminationVetoException.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <cppuhelper/supportsservice.hxx>
#include <utility>

#include "error/mError.h"
#include "ports/libreoffice/entry/AddInSession.h"
#include "ports/libreoffice/runtime/MessageBox.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/MainThread.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr const char* kAddInName = "cz.huebrush.AddIn";

/// For what goes wrong before there is a runtime that could report it.
void reportFailedStart(const ContextReference& context, const base::Error& error) {
    error::ignoring([&] {
        showMessageBox(context, {},
                       base::text("Doplněk Huebrush nelze spustit.", base::kLineBreak,
                                  base::kLineBreak, error.description()),
                       forms::MsgBoxStyle::kCritical, "Huebrush");
    });
}

}  // namespace

AddIn::AddIn(const ContextReference& context) : context_(context) {}

AddIn::~AddIn() = default;

rtl::Reference<AddIn> AddIn::of(const ContextReference& context) {
    rtl::Reference<AddIn> addIn;
    error::ignoring([&] {
        const auto object = createService<css::task::XJob>(context, kAddInName);
        addIn = dynamic_cast<AddIn*>(object.get());
    });
    return addIn;
}

css::uno::Any SAL_CALL AddIn::execute(const css::uno::Sequence<css::beans::NamedValue>&) {
    if (session_ != nullptr) return {};
    mainThread_ = std::this_thread::get_id();
    try {
        connect();
    } catch (...) {
        reportFailedStart(context_, currentFailure());
    }
    return {};
}

void AddIn::connect() {
    const auto desktop =
        createService<css::frame::XDesktop>(context_, "com.sun.star.frame.Desktop");
    session_ = std::make_unique<AddInSession>(context_, extensionFolder(context_, kExtension));
    desktop->addTerminateListener(this);
}

/// A handler that waits for a box, a menu or a tool goes on when that has closed: the session must
/// be there then. The user has to quit the office again, as while one of the office's own dialogs
/// is open.
void SAL_CALL AddIn::queryTermination(const css::lang::EventObject&) {
    if (session_ == nullptr || !session_->isBusy()) return;
    throw css::frame::TerminationVetoException("Huebrush is at work",
                                               static_cast<css::task::XJob*>(this));
}

void SAL_CALL AddIn::notifyTermination(const css::lang::EventObject&) {
    disconnect();
}

void SAL_CALL AddIn::disposing(const css::lang::EventObject&) {
    disconnect();
}

/// Another program may terminate the office, and the office reports that on that program's thread.
void AddIn::disconnect() noexcept {
    constexpr std::chrono::seconds kPatience(10);
    const auto end = [self = rtl::Reference<AddIn>(this)] { self->session_.reset(); };
    error::ignoring([&] {
        if (std::this_thread::get_id() == mainThread_) {
            end();
        } else {
            runOnMainThread(context_, end, kPatience);
        }
    });
}

rtl::OUString SAL_CALL AddIn::getImplementationName() {
    return rtl::OUString::createFromAscii(kAddInName);
}

sal_Bool SAL_CALL AddIn::supportsService(const rtl::OUString& name) {
    return cppu::supportsService(this, name);
}

css::uno::Sequence<rtl::OUString> SAL_CALL AddIn::getSupportedServiceNames() {
    const rtl::OUString name = getImplementationName();
    return {&name, 1};
}

void AddIn::click(const ActiveWindow::Frame& frame, const std::string& command) {
    if (std::this_thread::get_id() != mainThread_) {
        postToMainThread(context_, [self = rtl::Reference<AddIn>(this), frame, command] {
            self->click(frame, command);
        });
        return;
    }
    if (session_ != nullptr) session_->click(frame, command);
}

void AddIn::addListener(const css::util::URL& url, const CommandStates::Listener& listener) {
    if (session_ != nullptr) session_->states().addListener(url, listener);
}

void AddIn::removeListener(const css::util::URL& url, const CommandStates::Listener& listener) {
    if (session_ != nullptr) session_->states().removeListener(url, listener);
}

}  // namespace huebrush::libreoffice
