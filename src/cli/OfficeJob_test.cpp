// SPDX-License-Identifier: MPL-2.0

#include "cli/OfficeJob.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "cli/Failure.h"
#include "files/TemporaryFolder_test_support.h"

namespace huebrush::cli {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Programs that stand in for an office, with an extension that they ignore.
class OfficeJobs : public testing::Test {
 protected:
    OfficeJobs() {
        fs::create_directories(root.path() / "extensions/huebrush");
        std::ofstream(root.path() / "extensions/huebrush/huebrush.so") << "a library";
        std::ofstream(root.path() / "document.odt") << "a document";
        setenv("HUEBRUSH_OFFICE", (root.path() / "office").c_str(), 1);
        setenv("HUEBRUSH_EXTENSIONS", (root.path() / "extensions").c_str(), 1);
    }
    ~OfficeJobs() override {
        unsetenv("HUEBRUSH_OFFICE");
        unsetenv("HUEBRUSH_EXTENSIONS");
    }
    void officeDoes(const std::string& script) {
        std::ofstream(root.path() / "office") << "#!/bin/sh\n" << script << '\n';
        fs::permissions(root.path() / "office", fs::perms::owner_all);
    }
    /// The error with which running a job on the document ends.
    std::string failure(std::chrono::milliseconds longestStart) const {
        protocol::Job job;
        job.input = root.path() / "document.odt";
        try {
            OfficeJob().run(job, false, longestStart);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "";
    }

    files::TemporaryFolder root;
};

TEST_F(OfficeJobs, AnOfficeWithoutTheExtensionIsNotWaitedForIndefinitely) {
    officeDoes("exec sleep 600");
    EXPECT_EQ(failure(200ms), "LibreOffice did not load the Huebrush extension");
}

TEST_F(OfficeJobs, AnOfficeThatEndsHasNotDoneTheWork) {
    officeDoes("exit 0");
    EXPECT_EQ(failure(10min), "LibreOffice exited before the work was done");
}

TEST_F(OfficeJobs, AFolderWithoutTheExtensionIsRefusedBeforeAnOfficeStarts) {
    officeDoes("touch '" + (root.path() / "started").string() + "'");
    fs::remove(root.path() / "extensions/huebrush/huebrush.so");
    EXPECT_EQ(failure(10min), "HUEBRUSH_EXTENSIONS is not a folder that contains the extension: " +
                                  (root.path() / "extensions").string());
    EXPECT_FALSE(fs::exists(root.path() / "started"));
}

}  // namespace
}  // namespace huebrush::cli
