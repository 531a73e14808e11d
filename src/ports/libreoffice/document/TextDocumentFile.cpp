// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/TextDocumentFile.h"

#include <com/sun/star/beans/NamedValue.hpp>
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
#include <iterator>
#include <osl/file.hxx>
#include <rtl/ref.hxx>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "protocol/DocumentFormat.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using base::text;

/// Answers every question of the office by aborting, and remembers whether it asked for a password,
/// which it does also where it was given another one.
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

/// What became of opening a document.
struct Opened {
    css::uno::Reference<css::lang::XComponent> component;
    bool needsPassword = false;  ///< one, or another one
};

Opened open(const ContextReference& context, const DocumentSource& source) {
    const auto loader =
        createService<css::frame::XComponentLoader>(context, "com.sun.star.frame.Desktop");
    const rtl::Reference<NobodyThere> nobody(new NobodyThere);
    const css::uno::Reference<css::task::XInteractionHandler> handler(nobody.get());
    // Read-only, so that it neither respects nor leaves a lock on the file.
    std::vector<css::beans::PropertyValue> how{
        property("Hidden", css::uno::Any(true)),
        property("DocumentBaseURL", css::uno::Any(toOffice(source.url))),
        property("ReadOnly", css::uno::Any(true)),
        property("InteractionHandler", css::uno::Any(handler)),
        property("MacroExecutionMode", css::uno::Any(css::document::MacroExecMode::NEVER_EXECUTE)),
        property("UpdateDocMode", css::uno::Any(css::document::UpdateDocMode::NO_UPDATE))};
    if (!source.password.empty()) {
        how.push_back(property("Password", css::uno::Any(toOffice(source.password))));
    }
    Opened opened;
    ignoringOffice([&] {
        opened.component = loader->loadComponentFromURL(urlOf(source.path), toOffice("_blank"), 0,
                                                        properties(how));
    });
    opened.needsPassword = nobody->passwordAsked;
    return opened;
}

css::uno::Reference<css::lang::XComponent> load(const ContextReference& context,
                                                const DocumentSource& source) {
    const Opened opened = open(context, source);
    if (opened.needsPassword) {
        throw FileError(text(source.name, source.password.empty()
                                              ? " is protected by a password"
                                              : " is protected by another password"));
    }
    if (!opened.component.is()) {
        throw FileError(text("LibreOffice cannot open the document ", source.name));
    }
    return opened.component;
}

void close(const css::uno::Reference<css::uno::XInterface>& component) {
    ignoringOffice([&] {
        const css::uno::Reference<css::util::XCloseable> closeable(component,
                                                                   css::uno::UNO_QUERY_THROW);
        closeable->close(true);
    });
}

/// What makes the office store a document of that format with a password: OpenDocument takes it as
/// it is, the packages of Word as what encrypts them.
css::beans::PropertyValue protection(std::string_view ending, const std::string& password) {
    if (ending == ".odt" || ending == ".ott") {
        return property("Password", css::uno::Any(toOffice(password)));
    }
    if (ending == ".docx" || ending == ".docm" || ending == ".dotx") {
        const css::beans::NamedValue encryption[] = {
            {toOffice("CryptoType"), css::uno::Any(toOffice("Standard"))},
            {toOffice("OOXPassword"), css::uno::Any(toOffice(password))}};
        return property("EncryptionData", css::uno::Any(css::uno::Sequence<css::beans::NamedValue>(
                                              std::begin(encryption), std::size(encryption))));
    }
    throw FileError(text("LibreOffice cannot store a ", ending, " file with a password"));
}

}  // namespace

TextDocumentFile::TextDocumentFile(const ContextReference& context, const DocumentSource& source)
    : name_(source.name) {
    const auto component = load(context, source);
    model_.set(component, css::uno::UNO_QUERY);
    if (model_.is()) {
        const PropertyValues arguments = model_->getArgs();
        rtl::OUString filter;
        valueOf(arguments, "FilterName") >>= filter;
        filter_ = fromOffice(filter);
        if (valueOf(arguments, "EncryptionData").hasValue()) password_ = source.password;
    }
    if (protocol::formatOfFilter(filter_) != nullptr) return;
    close(component);
    throw FileError(
        text(name_, " is not a text document with drawing shapes, but \"", filter_, "\""));
}

TextDocumentFile::~TextDocumentFile() {
    close(model_);
}

void TextDocumentFile::storeTo(const DocumentTarget& target) const {
    const std::string& filter = target.filter.empty() ? filter_ : target.filter;
    const protocol::DocumentFormat* const format = protocol::formatOfFilter(filter);
    if (target.filter.empty() && !format->isStored) {
        throw FileError(text("documents such as ", name_, " cannot be written; specify an output ",
                             "that ends in one of ", protocol::storedEndings()));
    }
    std::vector<css::beans::PropertyValue> how{
        property("FilterName", css::uno::Any(toOffice(filter))),
        property("DocumentBaseURL", css::uno::Any(toOffice(target.url)))};
    if (isEncrypted()) how.push_back(protection(format->ending, password_));
    try {
        const css::uno::Reference<css::frame::XStorable> storable(model_,
                                                                  css::uno::UNO_QUERY_THROW);
        storable->storeToURL(urlOf(target.path), properties(how));
    } catch (const css::uno::Exception&) {
        throw FileError(
            text("LibreOffice cannot store the result: ", currentHostError().description()));
    }
}

void requireEncrypted(const ContextReference& context, const DocumentSource& stored) {
    DocumentSource withoutPassword = stored;
    withoutPassword.password.clear();
    if (open(context, withoutPassword).needsPassword) return;
    throw FileError(text("LibreOffice would store ", stored.name, " without its password"));
}

}  // namespace huebrush::libreoffice
