// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "TestDocument.h"
#include "host/HostContract.h"
#include "ports/libreoffice/document/Documents.h"

namespace huebrush::tests {

using ShapeReference = com::sun::star::uno::Reference<com::sun::star::drawing::XShape>;
using ModelReference = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

com::sun::star::uno::Reference<com::sun::star::drawing::XDrawPage> pageOf(
    const ModelReference& model);
/// A new shape of a service ("RectangleShape"), not yet on a page.
ShapeReference newShape(const ModelReference& model, const std::string& service);
/// The same, at the paragraph at the document's begin, in front of all others.
ShapeReference addShape(const ModelReference& model, const std::string& service);
ShapeReference addRectangle(const ModelReference& model, std::int32_t hostColor);
ShapeReference groupShapes(const ModelReference& model, const std::vector<ShapeReference>& shapes);

template <class Value>
void setProperty(const ShapeReference& shape, const char* name, const Value& value) {
    namespace css = com::sun::star;
    css::uno::Reference<css::beans::XPropertySet>(shape, css::uno::UNO_QUERY_THROW)
        ->setPropertyValue(libreoffice::toOffice(name), css::uno::makeAny(value));
}
template <class Value>
Value getProperty(const ShapeReference& shape, const char* name) {
    namespace css = com::sun::star;
    Value value{};
    css::uno::Reference<css::beans::XPropertySet>(shape, css::uno::UNO_QUERY_THROW)
        ->getPropertyValue(libreoffice::toOffice(name)) >>= value;
    return value;
}

/// A file with a small picture; gone at the end.
class PictureFile {
 public:
    PictureFile();
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;
    ~PictureFile();
    const std::string& path() const { return path_; }

 private:
    std::string path_;
};

/// A file to store documents in; gone at the end.
class StoredFile {
 public:
    explicit StoredFile(const std::string& extension);
    StoredFile(const StoredFile&) = delete;
    StoredFile& operator=(const StoredFile&) = delete;
    ~StoredFile();
    const std::string& path() const { return path_; }
    std::string url() const { return "file://" + path_; }
    void store(const ModelReference& model, std::string_view filter) const;

 private:
    std::string path_;
};

/// Writer under the contract, seen from outside a handler, where every read goes to the office, or
/// from inside one, where changes from elsewhere come in while events run.
class DocumentsHost final : public host::ContractHost {
 public:
    enum class Seen { outside, inHandler };

    explicit DocumentsHost(Seen seen);
    ~DocumentsHost() override;

    std::shared_ptr<host::Document> document() override;
    std::shared_ptr<host::Document> otherDocument() override;
    Id addRectangle(const std::string& name, std::int32_t color) override;
    Id addLine(const std::string& name) override;
    Id group(const std::string& name, const std::vector<Id>& members) override;
    void remove(Id id) override;
    std::string textureFile() override { return file_.path(); }

 private:
    Id keep(const ShapeReference& shape, const std::string& name);

    TestDocument open_;
    TestDocument other_;
    PictureFile file_;
    libreoffice::Documents documents_;
    std::unique_ptr<libreoffice::HandlerScope> handler_;
    std::vector<ShapeReference> shapes_;
};

}  // namespace huebrush::tests
