// SPDX-License-Identifier: MPL-2.0

#include "cli/OfficeSearch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "cli/Failure.h"
#include "files/TemporaryFolder_test_support.h"

namespace huebrush::cli {
namespace {

namespace fs = std::filesystem;

/// A small file system with offices in it.
class OfficeSearches : public testing::Test {
 protected:
    void addFile(const fs::path& place) {
        fs::create_directories((root.path() / place).parent_path());
        std::ofstream(root.path() / place) << "#!/bin/sh\n";
    }
    void addProgram(const fs::path& place) {
        addFile(place);
        fs::permissions(root.path() / place, fs::perms::owner_all);
    }
    /// The place that is found, seen from the root.
    std::string found(const std::string& given = "") const {
        const std::string path = root.path().string() + "/bin:" + root.path().string() + "/local";
        return findOffice({given, path, root.path()}).lexically_relative(root.path()).string();
    }

    files::TemporaryFolder root;
};

TEST_F(OfficeSearches, TheGivenOneIsTakenWhateverElseThereIs) {
    addProgram("local/soffice");
    addProgram("home/office");
    addFile("home/text");
    EXPECT_EQ(found((root.path() / "home/office").string()), "home/office");
    EXPECT_THROW(found((root.path() / "home/text").string()), Failure);
    EXPECT_THROW(found((root.path() / "home").string()), Failure);
}

TEST_F(OfficeSearches, ThePlainNameOnThePathComesFirst) {
    addProgram("local/soffice");
    addProgram("bin/libreoffice25.2");
    addProgram("usr/lib/libreoffice/program/soffice");
    addProgram("opt/libreoffice25.2/program/soffice");
    EXPECT_EQ(found(), "local/soffice");
}

TEST_F(OfficeSearches, OfThoseWithAVersionOnThePathTheNewestIsTaken) {
    for (const char* const version : {"7.6", "24.8", "25.2", "25.10", "9.9"}) {
        addProgram(std::string("bin/libreoffice") + version);
    }
    EXPECT_EQ(found(), "bin/libreoffice25.10");
}

TEST_F(OfficeSearches, OfTheMakersPackagesTheNewestIsTaken) {
    for (const char* const version : {"7.6", "25.2", "24.8"}) {
        addProgram(std::string("opt/libreoffice") + version + "/program/soffice");
    }
    EXPECT_EQ(found(), "opt/libreoffice25.2/program/soffice");
}

TEST_F(OfficeSearches, OneOfWhichOnlyTheFolderIsLeftIsSkipped) {
    addProgram("opt/libreoffice24.8/program/soffice");
    fs::create_directories(root.path() / "opt/libreoffice25.2/program");
    addFile("opt/libreoffice25.8/program/soffice");
    EXPECT_EQ(found(), "opt/libreoffice24.8/program/soffice");
}

TEST_F(OfficeSearches, NamesThatMerelyBeginAlikeAreNotOffices) {
    for (const char* const name :
         {"libreoffice25", "libreofficedev25.2", "libreoffice25.2-old", "libreoffice-25.2"}) {
        addProgram(std::string("bin/") + name);
    }
    EXPECT_THROW(found(), Failure);
}

TEST_F(OfficeSearches, WithoutAnyTheMessageSaysWhatToDo) {
    try {
        found();
        FAIL() << "found one";
    } catch (const Failure& failure) {
        EXPECT_NE(std::string(failure.what()).find("install libreoffice-writer"),
                  std::string::npos);
    }
}

}  // namespace
}  // namespace huebrush::cli
