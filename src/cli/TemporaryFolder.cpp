#include "cli/TemporaryFolder.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "cli/Failure.h"

namespace huebrush::cli {

TemporaryFolder::TemporaryFolder() {
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    std::string name = ((error ? std::filesystem::path("/tmp") : parent) / "huebrush-XXXXXX");
    if (mkdtemp(name.data()) == nullptr) {
        throw Failure("cannot make a temporary folder in " + parent.string());
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace huebrush::cli
