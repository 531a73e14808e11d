// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <stdexcept>
#include <string>

#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A document that cannot be loaded or stored; one line, in English, for the command line.
class FileError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// A text document opened from a file without a window, closed at the end of this object. Its
/// macros do not run, its links are not followed, and nobody is asked anything.
class TextDocumentFile {
 public:
    /// `name` is what messages call the document, `url` where it really lies: what links in it are
    /// relative to. FileError for what is no text document that can hold drawing shapes, what is
    /// protected by a password, or cannot be read.
    TextDocumentFile(const ContextReference& context, const std::string& path,
                     const std::string& name, const std::string& url);
    TextDocumentFile(const TextDocumentFile&) = delete;
    TextDocumentFile& operator=(const TextDocumentFile&) = delete;
    ~TextDocumentFile();

    const ModelReference& model() const { return model_; }

    /// Stores a copy by a filter of the office, or in the document's own format when it is empty.
    /// `url` is where the copy will lie: what its links are to be relative to.
    void storeTo(const std::string& path, const std::string& filter, const std::string& url) const;

 private:
    ModelReference model_;
    std::string name_;
    std::string filter_;
};

}  // namespace huebrush::libreoffice
