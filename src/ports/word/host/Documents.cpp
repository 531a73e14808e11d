// SPDX-License-Identifier: MPL-2.0

#include "ports/word/host/Documents.h"

#include <cstdint>
#include <utility>

#include "base/Error.h"
#include "ports/word/host/Shapes.h"

namespace huebrush::word {

namespace {

constexpr const char* kDocument = "Document";
constexpr std::int32_t kDoNotSaveChanges = 0;

/// Whether an error says that a method does not take such an argument.
bool refusesArgument(const base::Error& error) {
    constexpr std::int32_t kNoNamedArguments = 446;
    constexpr std::int32_t kNoSuchArgument = 448;
    constexpr std::int32_t kWrongNumberOfArguments = 450;
    return error.number() == kNoNamedArguments || error.number() == kNoSuchArgument ||
           error.number() == kWrongNumberOfArguments;
}

void close(const Object& document) {
    document.call("Close", {kDoNotSaveChanges});
}

/// Makes a document active again at the end of its lifetime. The user may have closed it meanwhile.
class ActiveAgain {
 public:
    explicit ActiveAgain(Object document) : document_(std::move(document)) {}
    ActiveAgain(const ActiveAgain&) = delete;
    ActiveAgain& operator=(const ActiveAgain&) = delete;
    ~ActiveAgain() {
        if (document_) base::ignoring([this] { document_.call("Activate"); });
    }

 private:
    Object document_;
};

}  // namespace

std::shared_ptr<host::Shapes> WordDocument::Shapes() {
    return std::make_shared<PartShapes>(document_.object("Shapes", "Shapes"));
}

std::shared_ptr<host::Selection> WordDocument::Selection() {
    return std::make_shared<WordSelection>(
        document_.object("Window", "ActiveWindow").object("Selection", "Selection"));
}

void WordDocument::Close() {
    close(document_);
    closed_ = true;
}

bool WordDocument::isSame(const host::Document& other) const {
    const auto* const document = dynamic_cast<const WordDocument*>(&other);
    return document != nullptr && document_.isSame(document->document_);
}

std::shared_ptr<host::ShapeRange> WordSelection::ShapeRange() {
    return std::make_shared<WordShapeRange>(selection_.object("ShapeRange", "ShapeRange"));
}

std::shared_ptr<host::Document> WordSelection::Document() {
    return std::make_shared<WordDocument>(selection_.object(kDocument, "Document"));
}

std::shared_ptr<host::Document> WordDocuments::addHidden() {
    auto document = std::make_shared<WordDocument>(addWithoutWindow());
    hidden_.push_back(document);
    return document;
}

Object WordDocuments::addWithoutWindow() const {
    const Object documents = application_.object("Documents", "Documents");
    try {
        return documents.object(kDocument, "Add", {named("Visible", false)});
    } catch (const base::Error& error) {
        // Word 97 always opens a window.
        if (!refusesArgument(error)) throw;
        return addAndHide(documents);
    }
}

Object WordDocuments::addAndHide(const Object& documents) const {
    const ActiveAgain before(active());
    Object document = documents.object(kDocument, "Add");
    try {
        document.object("Window", "ActiveWindow").put("Visible", false);
    } catch (...) {
        base::ignoring([&] { close(document); });
        throw;
    }
    return document;
}

Object WordDocuments::active() const {
    Object document;
    base::ignoring<base::Error>(
        [&] { document = application_.object(kDocument, "ActiveDocument"); });
    return document;
}

std::shared_ptr<WordDocument> WordDocuments::newestHidden() {
    std::erase_if(hidden_, [](const std::weak_ptr<WordDocument>& each) {
        const std::shared_ptr<WordDocument> document = each.lock();
        return !document || document->isClosed();
    });
    return hidden_.empty() ? nullptr : hidden_.back().lock();
}

void WordDocuments::runOnHidden(const std::function<void()>& tool) {
    const std::shared_ptr<WordDocument> hidden = newestHidden();
    if (!hidden) {
        tool();
        return;
    }
    const ActiveAgain before(active());
    hidden->activate();
    tool();
}

}  // namespace huebrush::word
