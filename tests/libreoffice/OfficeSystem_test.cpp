// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeSystem.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

#include "base/Error.h"
#include "files/TemporaryFolder_test_support.h"

namespace huebrush::tests {
namespace {

using libreoffice::OfficeSystem;
namespace fs = std::filesystem;

const std::string kToolKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";

/// A folder that is the only one on the path.
class OnlyFolderOnPath {
 public:
    OnlyFolderOnPath() : former_(std::getenv("PATH")) {
        setenv("PATH", ("relative:" + path().string()).c_str(), 1);
    }
    OnlyFolderOnPath(const OnlyFolderOnPath&) = delete;
    OnlyFolderOnPath& operator=(const OnlyFolderOnPath&) = delete;
    ~OnlyFolderOnPath() { setenv("PATH", former_.c_str(), 1); }

    const fs::path& path() const { return folder_.path(); }
    /// A program that leaves the file "<its name> ran" here.
    std::string addProgram(const std::string& name, mode_t mode = 0700) const {
        const fs::path file = path() / name;
        std::ofstream(file) << "#!/bin/sh\n: > \"$0 ran\"\n";
        chmod(file.c_str(), mode);
        return file.string();
    }

 private:
    files::TemporaryFolder folder_;
    std::string former_;
};

std::optional<forms::RegistryValue> tool() {
    return OfficeSystem().registryValue(forms::RegistryRoot::localMachine, kToolKey, "PATH");
}

bool appears(const std::string& file) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!fs::exists(file) && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    return fs::exists(file);
}

TEST(OfficeSystem, WithoutAToolOnThePathTheRegistryHasNone) {
    const OnlyFolderOnPath folder;
    folder.addProgram("some-other-program");
    EXPECT_EQ(tool(), std::nullopt);
}

TEST(OfficeSystem, NamesTheMoreInformativeOfTheToolsOnThePath) {
    const OnlyFolderOnPath folder;
    folder.addProgram("gnome-system-monitor");
    const std::string better = folder.addProgram("hardinfo");
    EXPECT_EQ(tool(), forms::RegistryValue(better));
}

TEST(OfficeSystem, SkipsAFileThatIsNotAProgram) {
    const OnlyFolderOnPath folder;
    folder.addProgram("hardinfo", 0600);
    fs::create_directory(folder.path() / "kinfocenter");
    EXPECT_EQ(tool(), std::nullopt);
}

TEST(OfficeSystem, OtherKeysAndNamesAreMissing) {
    const OnlyFolderOnPath folder;
    folder.addProgram("hardinfo");
    const auto root = forms::RegistryRoot::localMachine;
    EXPECT_EQ(OfficeSystem().registryValue(root, kToolKey, "OTHER"), std::nullopt);
    EXPECT_EQ(OfficeSystem().registryValue(root, "OTHER", "PATH"), std::nullopt);
}

TEST(OfficeSystem, StartsAProgram) {
    const OnlyFolderOnPath folder;
    const std::string program = folder.addProgram("hardinfo");
    EXPECT_TRUE(OfficeSystem().fileExists(program));
    OfficeSystem().start(program);
    EXPECT_TRUE(appears(program + " ran"));
}

TEST(OfficeSystem, AMissingProgramIsAnError) {
    const OnlyFolderOnPath folder;
    const std::string program = (folder.path() / "nothing").string();
    EXPECT_FALSE(OfficeSystem().fileExists(program));
    try {
        OfficeSystem().start(program);
        ADD_FAILURE() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::kFileNotFound);
    }
}

}  // namespace
}  // namespace huebrush::tests
