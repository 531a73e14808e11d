// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/entry/ProtocolHandler.h"

#include <cppuhelper/supportsservice.hxx>
#include <rtl/ref.hxx>
#include <utility>

#include "error/mError.h"
#include "ports/libreoffice/bar/ButtonCommand.h"
#include "ports/libreoffice/entry/AddIn.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using WeakFrame = css::uno::WeakReference<css::frame::XFrame>;

/// Carries out our commands for the controls of one window.
class ButtonDispatch final : public WeakImplHelper<css::frame::XDispatch> {
 public:
    ButtonDispatch(const rtl::Reference<AddIn>& addIn, WeakFrame frame)
        : addIn_(addIn), frame_(std::move(frame)) {}

    void SAL_CALL dispatch(const css::util::URL& url, const PropertyValues&) override {
        error::ignoring(
            [&] { addIn_->click(ActiveWindow::Frame(frame_), fromOffice(url.Complete)); });
    }
    void SAL_CALL addStatusListener(const CommandStates::Listener& listener,
                                    const css::util::URL& url) override {
        error::ignoring([&] { addIn_->addListener(url, listener); });
    }
    void SAL_CALL removeStatusListener(const CommandStates::Listener& listener,
                                       const css::util::URL& url) override {
        error::ignoring([&] { addIn_->removeListener(url, listener); });
    }

 private:
    rtl::Reference<AddIn> addIn_;
    WeakFrame frame_;
};

}  // namespace

ProtocolHandler::ProtocolHandler(const ContextReference& context) : context_(context) {}

void SAL_CALL ProtocolHandler::initialize(const css::uno::Sequence<css::uno::Any>& arguments) {
    css::uno::Reference<css::frame::XFrame> frame;
    if (arguments.hasElements()) arguments[0] >>= frame;
    frame_ = frame;
}

css::uno::Reference<css::frame::XDispatch> SAL_CALL
ProtocolHandler::queryDispatch(const css::util::URL& url, const rtl::OUString&, sal_Int32) {
    if (url.Protocol != toOffice(kProtocol)) return {};
    const rtl::Reference<AddIn> addIn = AddIn::of(context_);
    if (!addIn.is()) return {};
    return new ButtonDispatch(addIn, frame_);
}

css::uno::Sequence<css::uno::Reference<css::frame::XDispatch>> SAL_CALL
ProtocolHandler::queryDispatches(
    const css::uno::Sequence<css::frame::DispatchDescriptor>& requests) {
    css::uno::Sequence<css::uno::Reference<css::frame::XDispatch>> found(requests.getLength());
    for (sal_Int32 i = 0; i < requests.getLength(); ++i) {
        const css::frame::DispatchDescriptor& request = requests[i];
        found.getArray()[i] =
            queryDispatch(request.FeatureURL, request.FrameName, request.SearchFlags);
    }
    return found;
}

rtl::OUString SAL_CALL ProtocolHandler::getImplementationName() {
    return "cz.huebrush.ProtocolHandler";
}

sal_Bool SAL_CALL ProtocolHandler::supportsService(const rtl::OUString& name) {
    return cppu::supportsService(this, name);
}

css::uno::Sequence<rtl::OUString> SAL_CALL ProtocolHandler::getSupportedServiceNames() {
    const rtl::OUString name = "com.sun.star.frame.ProtocolHandler";
    return {&name, 1};
}

}  // namespace huebrush::libreoffice
