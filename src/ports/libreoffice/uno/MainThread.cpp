// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/MainThread.h"

#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/awt/XRequestCallback.hpp>
#include <future>
#include <memory>
#include <rtl/ref.hxx>
#include <utility>

#include "base/Error.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

class Callback : public WeakImplHelper<css::awt::XCallback> {
 public:
    explicit Callback(std::function<void()> work) : work_(std::move(work)) {}

    void SAL_CALL notify(const css::uno::Any&) override {
        // Nothing may rise into the office's event loop.
        base::ignoring(work_);
    }

 private:
    std::function<void()> work_;
};

}  // namespace

void postToMainThread(const ContextReference& context, std::function<void()> work) {
    const rtl::Reference<Callback> callback(new Callback(std::move(work)));
    createService<css::awt::XRequestCallback>(context, "com.sun.star.awt.AsyncCallback")
        ->addCallback(callback.get(), css::uno::Any());
}

void runOnMainThread(const ContextReference& context, std::function<void()> work,
                     std::chrono::milliseconds limit) {
    const auto done = std::make_shared<std::promise<void>>();
    postToMainThread(context, [work = std::move(work), done] {
        base::ignoring(work);
        done->set_value();
    });
    done->get_future().wait_for(limit);
}

}  // namespace huebrush::libreoffice
