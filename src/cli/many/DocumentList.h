// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace huebrush::cli {

/// A document of a call over many.
struct ListedDocument {
    std::filesystem::path file;
    /// Where its result goes in a folder of results: what follows the folder that was named.
    std::filesystem::path place;
};

/// The documents that a command line names, in its order. `recursive`: in place of a folder come
/// the documents in it and in the folders below it, in the order of their names: the files whose
/// endings are those of documents, without hidden ones, what a program keeps beside an open
/// document, and what lies in the folder `except`. Without it a folder is listed like a document.
///
/// Each file is listed once. Failure when a folder cannot be read, or holds no document.
std::vector<ListedDocument> listedDocuments(const std::vector<std::string>& names, bool recursive,
                                            const std::filesystem::path& except = {});

}  // namespace huebrush::cli
