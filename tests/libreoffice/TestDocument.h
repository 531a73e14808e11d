// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include "OfficeContext.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::tests {

/// An empty document that is open while the object lives, of Writer unless specified otherwise.
class TestDocument {
 public:
    enum class Window { shown, hidden };

    explicit TestDocument(Window window = Window::shown,
                          std::string_view factory = "private:factory/swriter") {
        namespace css = com::sun::star;
        const auto loader = libreoffice::createService<css::frame::XComponentLoader>(
            officeContext(), "com.sun.star.frame.Desktop");
        const bool hidden = window == Window::hidden;
        model_.set(loader->loadComponentFromURL(libreoffice::toOffice(factory), "_blank", 0,
                                                libreoffice::properties({libreoffice::property(
                                                    "Hidden", css::uno::makeAny(hidden))})),
                   css::uno::UNO_QUERY_THROW);
    }
    TestDocument(const TestDocument&) = delete;
    TestDocument& operator=(const TestDocument&) = delete;
    ~TestDocument() { close(); }

    void close() {
        namespace css = com::sun::star;
        const css::uno::Reference<css::util::XCloseable> closeable(model_, css::uno::UNO_QUERY);
        if (closeable.is()) closeable->close(true);
        model_.clear();
    }
    const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& model() const {
        return model_;
    }
    com::sun::star::uno::Reference<com::sun::star::frame::XFrame> frame() const {
        return model_->getCurrentController()->getFrame();
    }

 private:
    com::sun::star::uno::Reference<com::sun::star::frame::XModel> model_;
};

}  // namespace huebrush::tests
