// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/TextDocumentFile.h"

#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/task/DocumentMSPasswordRequest2.hpp>
#include <com/sun/star/task/DocumentPasswordRequest.hpp>
#include <com/sun/star/task/PasswordRequest.hpp>
#include <com/sun/star/task/XInteractionAbort.hpp>
#include <com/sun/star/task/XInteractionHandler.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <osl/file.hxx>
#include <rtl/ref.hxx>

#include "base/Text.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "protocol/DocumentFormat.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using base::text;

/// Answers every question of the office by aborting, and remembers whether it asked for a password.
class NobodyThere final : public WeakImplHelper<css::task::XInteractionHandler> {
 public:
    void SAL_CALL
    handle(const css::uno::Reference<css::task::XInteractionRequest>& request) override {
        const css::uno::Any question = request->getRequest();
        css::task::PasswordRequest password;
        passwordAsked |= question >>= password;
        for (const auto& answer : request->getContinuations()) {
            const css::uno::Reference<css::task::XInteractionAbort> abort(answer,
                                                                          css::uno::UNO_QUERY);
            if (abort.is()) abort->select();
        }
    }

    bool passwordAsked = false;
};

rtl::OUString urlOf(const std::string& path) {
    rtl::OUString url;
    if (osl::FileBase::getFileURLFromSystemPath(toOffice(path), url) != osl::FileBase::E_None) {
        throw FileError(text("cannot use the path ", path));
    }
    return url;
}

css::uno::Reference<css::lang::XComponent> load(const ContextReference& context,
                                                const std::string& path, const std::string& name,
                                                const std::string& url) {
    const auto loader =
        createService<css::frame::XComponentLoader>(context, "com.sun.star.frame.Desktop");
    const rtl::Reference<NobodyThere> nobody(new NobodyThere);
    const css::uno::Reference<css::task::XInteractionHandler> handler(nobody.get());
    css::uno::Reference<css::lang::XComponent> loaded;
    ignoringOffice([&] {
        loaded = loader->loadComponentFromURL(
            urlOf(path), toOffice("_blank"), 0,
            // Read-only, so that it neither respects nor leaves a lock on the file.
            properties({property("Hidden", css::uno::Any(true)),
                        property("DocumentBaseURL", css::uno::Any(toOffice(url))),
                        property("ReadOnly", css::uno::Any(true)),
                        property("InteractionHandler", css::uno::Any(handler)),
                        property("MacroExecutionMode",
                                 css::uno::Any(css::document::MacroExecMode::NEVER_EXECUTE)),
                        property("UpdateDocMode",
                                 css::uno::Any(css::document::UpdateDocMode::NO_UPDATE))}));
    });
    if (nobody->passwordAsked) throw FileError(text(name, " is protected by a password"));
    if (!loaded.is()) throw FileError(text("LibreOffice cannot open the document ", name));
    return loaded;
}

void close(const css::uno::Reference<css::uno::XInterface>& component) {
    ignoringOffice([&] {
        const css::uno::Reference<css::util::XCloseable> closeable(component,
                                                                   css::uno::UNO_QUERY_THROW);
        closeable->close(true);
    });
}

}  // namespace

TextDocumentFile::TextDocumentFile(const ContextReference& context, const std::string& path,
                                   const std::string& name, const std::string& url)
    : name_(name) {
    const auto component = load(context, path, name, url);
    model_.set(component, css::uno::UNO_QUERY);
    if (model_.is()) {
        rtl::OUString filter;
        valueOf(model_->getArgs(), "FilterName") >>= filter;
        filter_ = fromOffice(filter);
    }
    if (protocol::formatOfFilter(filter_) != nullptr) return;
    close(component);
    throw FileError(
        text(name, " is not a text document with drawing shapes, but \"", filter_, "\""));
}

TextDocumentFile::~TextDocumentFile() {
    close(model_);
}

void TextDocumentFile::storeTo(const std::string& path, const std::string& filter,
                               const std::string& url) const {
    if (filter.empty() && !protocol::formatOfFilter(filter_)->isStored) {
        throw FileError(text("documents such as ", name_, " cannot be written; specify an output ",
                             "that ends in one of ", protocol::storedEndings()));
    }
    const rtl::OUString format = toOffice(filter.empty() ? filter_ : filter);
    try {
        const css::uno::Reference<css::frame::XStorable> storable(model_,
                                                                  css::uno::UNO_QUERY_THROW);
        storable->storeToURL(
            urlOf(path), properties({property("FilterName", css::uno::Any(format)),
                                     property("DocumentBaseURL", css::uno::Any(toOffice(url)))}));
    } catch (const css::uno::Exception&) {
        throw FileError(
            text("LibreOffice cannot store the result: ", currentHostError().description()));
    }
}

}  // namespace huebrush::libreoffice
