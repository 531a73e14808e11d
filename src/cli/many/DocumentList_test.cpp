// SPDX-License-Identifier: MPL-2.0

#include "cli/many/DocumentList.h"

#include <gtest/gtest.h>

#include <fstream>

#include "cli/Failure.h"
#include "files/TemporaryFolder_test_support.h"

namespace huebrush::cli {
namespace {

namespace fs = std::filesystem;

class DocumentList : public testing::Test {
 protected:
    void add(const fs::path& name) const {
        fs::create_directories((root.path() / name).parent_path());
        std::ofstream(root.path() / name) << "a document";
    }
    std::string at(const std::string& name) const { return (root.path() / name).string(); }

    /// What is found in the folder "in": "place" of each.
    std::vector<std::string> placesIn(const std::string& except = {}) const {
        std::vector<std::string> places;
        for (const ListedDocument& each : listedDocuments({at("in")}, true, except)) {
            EXPECT_EQ(each.file, root.path() / "in" / each.place);
            places.push_back(each.place.string());
        }
        return places;
    }

    files::TemporaryFolder root;
};

using Names = std::vector<std::string>;

TEST_F(DocumentList, TakesWhatIsNamedInItsOrder) {
    const auto listed = listedDocuments({"b.odt", "dir/a.odt", "nothing", "b.odt"}, false);
    ASSERT_EQ(listed.size(), 3U) << "named twice, listed once";
    EXPECT_EQ(listed[0].file, "b.odt");
    EXPECT_EQ(listed[1].file, "dir/a.odt");
    EXPECT_EQ(listed[1].place, "a.odt");
    EXPECT_EQ(listed[2].file, "nothing");
}

TEST_F(DocumentList, FindsTheDocumentsInFoldersByTheirEndings) {
    for (const char* const name :
         {"in/b.odt", "in/a.DOCX", "in/sub/deep/c.doc", "in/sub/d.fodt", "in/x.txt", "in/odt",
          "in/.hidden.odt", "in/~$a.docx", "in/.~lock.b.odt#", "in/.git/e.odt", "in/x.odt.bak"}) {
        add(name);
    }
    EXPECT_EQ(placesIn(), (Names{"a.DOCX", "b.odt", "sub/d.fodt", "sub/deep/c.doc"}));
}

TEST_F(DocumentList, DoesNotFollowLinksToFoldersAndFollowsThoseToDocuments) {
    add("in/a.odt");
    add("elsewhere/b.odt");
    fs::create_directory_symlink(root.path() / "in", root.path() / "in/circle");
    fs::create_symlink(root.path() / "elsewhere/b.odt", root.path() / "in/link.odt");
    fs::create_symlink(root.path() / "nowhere", root.path() / "in/broken.odt");
    EXPECT_EQ(placesIn(), (Names{"a.odt", "link.odt"}));
}

TEST_F(DocumentList, LeavesOutTheFolderOfTheResults) {
    add("in/a.odt");
    add("in/new/a.odt");
    EXPECT_EQ(placesIn(at("in/new/.")), Names{"a.odt"});
    EXPECT_EQ(placesIn(at("in/none")), (Names{"a.odt", "new/a.odt"}));
}

TEST_F(DocumentList, TakesAFolderForADocumentUnlessItIsToLookIntoIt) {
    add("in/a.odt");
    const auto listed = listedDocuments({at("in")}, false);
    ASSERT_EQ(listed.size(), 1U);
    EXPECT_EQ(listed[0].file, at("in"));
}

TEST_F(DocumentList, IsNoneInAFolderWithoutDocuments) {
    fs::create_directory(root.path() / "in");
    EXPECT_THROW(placesIn(), Failure);
}

}  // namespace
}  // namespace huebrush::cli
