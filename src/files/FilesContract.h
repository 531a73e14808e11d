// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "files/Folder_test_support.h"
#include "files/NewFile.h"

namespace huebrush::files {

/// A way in which the system, or one of its file systems, lets files be created. The contract is
/// the same for all of them.
struct Way {
    std::string name;
    /// Runs a body whose files are created in this way.
    std::function<void(const std::function<void()>&)> run;
};
inline void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

/// All ways of the system that the tests run on; each system has its own.
const std::vector<Way>& waysOfThisSystem();

/// Tests what the headers in this folder promise, whatever the system.
class FilesContract : public Folder, public ::testing::WithParamInterface<Way> {
 protected:
    static void run(const std::function<void()>& body) {
        std::string error;
        GetParam().run([&] {
            try {
                body();
            } catch (const std::exception& thrown) {
                error = thrown.what();
            }
        });
        EXPECT_EQ(error, "");
    }
};

void put(const NewFile& file, const std::string& content);
/// Creates a file, or gives it new content.
void make(const std::string& name, const std::string& content);
void replace(const std::string& name, const std::string& content);

}  // namespace huebrush::files
