// SPDX-License-Identifier: MPL-2.0

#include "cli/many/DocumentList.h"

#include <algorithm>
#include <set>

#include "base/Text.h"
#include "cli/Failure.h"
#include "documents/DocumentFile.h"
#include "protocol/DocumentFormat.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;

/// Word keeps "~$name.docx" beside an open document; LibreOffice's locks are hidden.
bool isOfAnEditor(const std::string& name) {
    return name.starts_with("~$") || name.starts_with('.');
}

bool isDocumentName(const std::string& name) {
    return !isOfAnEditor(name) && (protocol::formatOfName(name) != nullptr ||
                                   documents::isKnownEnding(fs::path(name).extension().string()));
}

/// Adds to a list what is found in folders.
class Finder {
 public:
    explicit Finder(const fs::path& except) {
        std::error_code error;
        if (!except.empty()) except_ = fs::weakly_canonical(except, error);
    }

    std::vector<fs::path> documentsIn(const fs::path& folder) {
        std::vector<fs::path> found;
        collect(folder, found);
        std::sort(found.begin(), found.end());
        return found;
    }

 private:
    void collect(const fs::path& folder, std::vector<fs::path>& found) {
        std::error_code error;
        fs::directory_iterator entries(folder, error);
        if (error) throw Failure("cannot read the folder " + folder.string());
        for (; entries != fs::directory_iterator(); entries.increment(error)) {
            const fs::directory_entry& entry = *entries;
            const std::string name = entry.path().filename().string();
            // Links to folders may lead around in a circle.
            if (entry.is_directory(error) && !entry.is_symlink(error)) {
                if (!name.starts_with('.') && !isExcept(entry.path())) collect(entry.path(), found);
            } else if (isDocumentName(name) && entry.is_regular_file(error)) {
                found.push_back(entry.path());
            }
        }
        if (error) throw Failure("cannot read the folder " + folder.string());
    }

    bool isExcept(const fs::path& folder) const {
        std::error_code error;
        return !except_.empty() && fs::canonical(folder, error) == except_;
    }

    fs::path except_;
};

}  // namespace

std::vector<ListedDocument> listedDocuments(const std::vector<std::string>& names, bool recursive,
                                            const fs::path& except) {
    std::vector<ListedDocument> listed;
    std::set<fs::path> known;
    const auto add = [&](const fs::path& file, const fs::path& place) {
        std::error_code error;
        if (known.insert(fs::weakly_canonical(file, error)).second) listed.push_back({file, place});
    };
    Finder finder(except);
    for (const fs::path name : names) {
        std::error_code error;
        if (!recursive || !fs::is_directory(name, error)) {
            add(name, name.filename());
            continue;
        }
        const std::vector<fs::path> found = finder.documentsIn(name);
        if (found.empty()) throw Failure("there are no documents in the folder " + name.string());
        for (const fs::path& each : found) add(each, each.lexically_relative(name));
    }
    return listed;
}

}  // namespace huebrush::cli
