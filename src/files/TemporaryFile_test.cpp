// SPDX-License-Identifier: MPL-2.0

#include "files/TemporaryFile.h"

#include "files/Folder_test_support.h"

namespace huebrush::files {
namespace {

using Bytes = std::vector<std::uint8_t>;

class TemporaryFiles : public Folder {
 protected:
    std::string name = inFolder("_~a.tmp");
};

TEST_F(TemporaryFiles, PassBytesOnAndAreGone) {
    TemporaryFile file(name);
    file.write(Bytes{1, 2, 3});
    EXPECT_EQ(file.read(), (Bytes{1, 2, 3}));
    EXPECT_EQ(filesInFolder(), 1U);
    file.remove();
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(TemporaryFiles, TakeThePlaceOfWhatIsLeftThere) {
    write("_~a.tmp", "something longer");
    TemporaryFile file(name);
    EXPECT_TRUE(file.read().empty());
    file.write(Bytes{1});
    EXPECT_EQ(file.read(), Bytes{1});
}

TEST_F(TemporaryFiles, StayWhenTheyAreNotRemoved) {
    { TemporaryFile(name).write(Bytes{'x'}); }
    EXPECT_EQ(read(name), "x");
}

TEST_F(TemporaryFiles, AreNotMadeInPlaceOfAFolderOrInNone) {
    std::filesystem::create_directory(pathOf(name));
    EXPECT_EQ(problemOf([&] { TemporaryFile file(name); }), Problem::write);
    EXPECT_EQ(problemOf([&] { TemporaryFile file(inFolder("none/a")); }), Problem::write);
    EXPECT_EQ(problemOf([] { TemporaryFile file(""); }), Problem::write);
}

#if !defined(_WIN32)
TEST_F(TemporaryFiles, DoNotWriteWhereALinkLeads) {
    const std::string other = write("other", "kept");
    std::filesystem::create_symlink(pathOf(other), pathOf(name));
    TemporaryFile file(name);
    file.write(Bytes{'x'});
    file.remove();
    EXPECT_EQ(read(other), "kept");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(TemporaryFiles, AreReadAsTheyWereWrittenWhenAnotherProgramTakesTheName) {
    TemporaryFile first(name);
    first.write(Bytes{1});
    TemporaryFile second(name);
    second.write(Bytes{2});
    EXPECT_EQ(first.read(), Bytes{1});
    first.remove();
    EXPECT_EQ(second.read(), Bytes{2});
    second.remove();
    EXPECT_EQ(filesInFolder(), 0U);
}
#endif

}  // namespace
}  // namespace huebrush::files
