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

/// Where a document is read from.
struct DocumentSource {
    std::string path;
    std::string name;  ///< what messages call it
    std::string url;   ///< where it really lies: what links in it are relative to
    std::string password = {};
};

/// Where a document is stored.
struct DocumentTarget {
    std::string path;
    std::string filter;  ///< the office's name of the format; empty for the document's own
    std::string url;     ///< where it will lie: what its links are to be relative to
};

/// A text document opened from a file without a window, closed at the end of this object. Its
/// macros do not run, its links are not followed, and nobody is asked anything.
class TextDocumentFile {
 public:
    /// FileError for what is no text document that can hold drawing shapes, what is protected by
    /// another password, or cannot be read.
    TextDocumentFile(const ContextReference& context, const DocumentSource& source);
    TextDocumentFile(const TextDocumentFile&) = delete;
    TextDocumentFile& operator=(const TextDocumentFile&) = delete;
    ~TextDocumentFile();

    const ModelReference& model() const { return model_; }

    /// Whether it was read with a password.
    bool isEncrypted() const { return !password_.empty(); }

    /// Stores a copy, with the document's password if it has one. FileError when the format cannot
    /// be stored, or not with a password.
    void storeTo(const DocumentTarget& target) const;

 private:
    ModelReference model_;
    std::string name_;
    std::string filter_;
    std::string password_;  ///< empty where it needs none
};

/// FileError unless the stored file can be opened only with a password.
void requireEncrypted(const ContextReference& context, const DocumentSource& stored);

}  // namespace huebrush::libreoffice
