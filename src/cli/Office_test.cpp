// SPDX-License-Identifier: MPL-2.0

#include "cli/Office.h"

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
class Offices : public testing::Test {
 protected:
    Offices() {
        fs::create_directories(root.path() / "extensions/huebrush");
        std::ofstream(root.path() / "extensions/huebrush/huebrush.so") << "a library";
        std::ofstream(root.path() / "document.odt") << "a document";
        setenv("HUEBRUSH_OFFICE", (root.path() / "office").c_str(), 1);
        setenv("HUEBRUSH_EXTENSIONS", (root.path() / "extensions").c_str(), 1);
    }
    ~Offices() override {
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
            Office(longestStart).run(job, false);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "";
    }

    files::TemporaryFolder root;
};

TEST_F(Offices, AnOfficeWithoutTheExtensionIsNotWaitedForIndefinitely) {
    officeDoes("exec sleep 600");
    EXPECT_EQ(failure(200ms), "LibreOffice did not load the Huebrush extension");
}

TEST_F(Offices, AnOfficeThatEndsHasNotDoneTheWork) {
    officeDoes("exit 0");
    EXPECT_EQ(failure(10min), "LibreOffice exited before the work was done");
}

/// A script of an office that answers a number of jobs, each with the name of its job's file, and
/// then ends.
std::string answering(int jobs) {
    return "for each; do folder=${each#*Batch?}; done\n"
           "exec 3<\"$folder/jobs\" 4>\"$folder/messages\"\n"
           "echo '{\"started\":true}' >&4\n"
           "for number in $(seq " +
           std::to_string(jobs) +
           "); do\n"
           "  read -r job <&3\n"
           "  echo '{\"progress\":{\"done\":1,\"total\":2}}' >&4\n"
           "  echo '{\"result\":\"'\"$(basename \"$job\")\"'\"}' >&4\n"
           "done";
}

TEST_F(Offices, OneDoesJobAfterJob) {
    officeDoes("echo started >>'" + (root.path() / "starts").string() + "'\n" + answering(3));
    Office office;
    protocol::Job job;
    job.input = root.path() / "document.odt";
    for (const char* const answer : {"job-1.json", "job-2.json", "job-3.json"}) {
        EXPECT_EQ(office.run(job, false), answer);
    }
    EXPECT_EQ(fs::file_size(root.path() / "starts"), std::string("started\n").size());
}

TEST_F(Offices, OneThatHasCrashedIsStartedAgainForTheNextJob) {
    officeDoes("[ -e '" + (root.path() / "crashed").string() + "' ] || { touch '" +
               (root.path() / "crashed").string() + "'; kill -SEGV $$; }\n" + answering(1));
    Office office;
    protocol::Job job;
    job.input = root.path() / "document.odt";
    EXPECT_THROW(office.run(job, false), Failure);
    EXPECT_EQ(office.run(job, false), "job-2.json");
}

TEST_F(Offices, EachResultHasAPlaceOfItsOwn) {
    officeDoes(answering(2));
    Office office;
    protocol::Job job;
    job.input = root.path() / "document.odt";
    const fs::path first = office.placeBeside(root.path() / "out.odt");
    EXPECT_EQ(first.parent_path(), root.path());
    EXPECT_FALSE(fs::exists(first));
    office.run(job, false);
    EXPECT_NE(office.placeBeside(root.path() / "out.odt"), first);
    EXPECT_NE(office.placeAside().parent_path(), root.path());
}

TEST_F(Offices, AFolderWithoutTheExtensionIsRefusedBeforeAnOfficeStarts) {
    officeDoes("touch '" + (root.path() / "started").string() + "'");
    fs::remove(root.path() / "extensions/huebrush/huebrush.so");
    EXPECT_EQ(failure(10min), "HUEBRUSH_EXTENSIONS is not a folder that contains the extension: " +
                                  (root.path() / "extensions").string());
    EXPECT_FALSE(fs::exists(root.path() / "started"));
}

}  // namespace
}  // namespace huebrush::cli
