// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/EmbeddedDocument.h"

#include <com/sun/star/awt/WindowDescriptor.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <rtl/ref.hxx>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

using Frame = Reference<css::frame::XFrame>;
using Peer = Reference<css::awt::XWindowPeer>;

void closeIgnoring(const Reference<css::uno::XInterface>& closeable) {
    ignoringOffice(
        [&] { Reference<css::util::XCloseable>(closeable, UNO_QUERY_THROW)->close(true); });
}

/// Ends document and frame together: before their window ends, or when the document is closed.
class Closer final : public WeakImplHelper<css::lang::XEventListener> {
 public:
    Closer(const Frame& frame, const Peer& owner, const ModelReference& model)
        : frame_(frame), owner_(owner), model_(model) {}

    void listen() {
        owner_->addEventListener(this);
        model_->addEventListener(this);
    }

    void SAL_CALL disposing(const css::lang::EventObject&) override {
        const rtl::Reference<Closer> self(this);
        const Frame frame = std::exchange(frame_, Frame());
        if (!frame.is()) return;
        ignoringOffice([this] { owner_->removeEventListener(this); });
        ignoringOffice([this] { model_->removeEventListener(this); });
        closeIgnoring(std::exchange(model_, ModelReference()));
        closeIgnoring(frame);
        owner_.clear();
    }

 private:
    Frame frame_;
    Peer owner_;
    ModelReference model_;
};

Reference<css::awt::XWindow> makeWindow(const ContextReference& context, const Peer& parent) {
    css::awt::WindowDescriptor descriptor;
    descriptor.Type = css::awt::WindowClass_SIMPLE;
    descriptor.WindowServiceName = "window";
    descriptor.Parent = parent;
    descriptor.ParentIndex = -1;
    descriptor.Bounds = {0, 0, 10, 10};
    return {createService<css::awt::XToolkit>(context, "com.sun.star.awt.Toolkit")
                ->createWindow(descriptor),
            UNO_QUERY_THROW};
}

}  // namespace

ModelReference openInside(const ContextReference& context, const Peer& window) {
    return officeCalls([&] {
        const auto frame = createService<css::frame::XFrame>(context, "com.sun.star.frame.Frame");
        frame->initialize(makeWindow(context, window));
        // Loaded with a visible window inside another one, a document crashes LibreOffice.
        const ModelReference model(
            Reference<css::frame::XComponentLoader>(frame, UNO_QUERY_THROW)
                ->loadComponentFromURL("private:factory/swriter", "_self", 0,
                                       properties({property("Hidden", Any(true))})),
            UNO_QUERY_THROW);
        const rtl::Reference<Closer> closer(new Closer(frame, window, model));
        closer->listen();
        return model;
    });
}

}  // namespace huebrush::libreoffice
