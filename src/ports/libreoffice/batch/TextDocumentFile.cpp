#include "ports/libreoffice/batch/TextDocumentFile.h"

#include <algorithm>
#include <array>
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
#include <filesystem>
#include <osl/file.hxx>
#include <rtl/ref.hxx>
#include <string_view>

#include "base/Text.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using base::text;

/// A format of text documents that hold drawing shapes, by the office's name of its filter.
struct Format {
    std::string_view extension;
    std::string_view filter;
};
constexpr std::array<Format, 4> kFormats{{
    {".odt", "writer8"},
    {".fodt", "OpenDocument Text Flat XML"},
    {".docx", "MS Word 2007 XML"},
    {".doc", "MS Word 97"},
}};

bool isKnownFilter(std::string_view filter) {
    return std::any_of(kFormats.begin(), kFormats.end(),
                       [filter](const Format& format) { return format.filter == filter; });
}

/// Answers every question of the office by giving up, and remembers whether a password was asked.
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
                                                const std::string& path) {
    const auto loader =
        createService<css::frame::XComponentLoader>(context, "com.sun.star.frame.Desktop");
    const rtl::Reference<NobodyThere> nobody(new NobodyThere);
    const css::uno::Reference<css::task::XInteractionHandler> handler(nobody.get());
    css::uno::Reference<css::lang::XComponent> loaded;
    ignoringOffice([&] {
        loaded = loader->loadComponentFromURL(
            urlOf(path), toOffice("_blank"), 0,
            // Read-only, so that it neither minds nor leaves a lock of the file.
            properties({property("Hidden", css::uno::Any(true)),
                        property("ReadOnly", css::uno::Any(true)),
                        property("InteractionHandler", css::uno::Any(handler)),
                        property("MacroExecutionMode",
                                 css::uno::Any(css::document::MacroExecMode::NEVER_EXECUTE)),
                        property("UpdateDocMode",
                                 css::uno::Any(css::document::UpdateDocMode::NO_UPDATE))}));
    });
    if (nobody->passwordAsked) throw FileError(text(path, " is protected by a password"));
    if (!loaded.is()) throw FileError(text(path, " is no document that LibreOffice can open"));
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

TextDocumentFile::TextDocumentFile(const ContextReference& context, const std::string& path) {
    const auto component = load(context, path);
    model_.set(component, css::uno::UNO_QUERY);
    if (model_.is()) {
        rtl::OUString filter;
        valueOf(model_->getArgs(), "FilterName") >>= filter;
        filter_ = fromOffice(filter);
    }
    if (isKnownFilter(filter_)) return;
    close(component);
    throw FileError(text(path, " is no .odt, .fodt, .docx or .doc document"));
}

TextDocumentFile::~TextDocumentFile() {
    close(model_);
}

void TextDocumentFile::storeTo(const std::string& path) const {
    std::string_view filter = filter_;
    const std::string extension = std::filesystem::path(path).extension();
    for (const Format& format : kFormats) {
        if (format.extension == extension) filter = format.filter;
    }
    try {
        const css::uno::Reference<css::frame::XStorable> storable(model_,
                                                                  css::uno::UNO_QUERY_THROW);
        storable->storeToURL(urlOf(path),
                             properties({property("FilterName", css::uno::Any(toOffice(filter)))}));
    } catch (const css::uno::Exception&) {
        throw FileError(
            text("LibreOffice cannot store the result: ", currentHostError().description()));
    }
}

}  // namespace huebrush::libreoffice
