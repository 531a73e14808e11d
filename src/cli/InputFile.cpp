#include "cli/InputFile.h"

#include <unistd.h>

#include <fstream>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace fs = std::filesystem;

void requireReadable(const fs::path& file) {
    std::error_code error;
    if (!fs::exists(file, error)) throw Failure("there is no file " + file.string());
    if (fs::is_directory(file, error)) throw Failure(file.string() + " is a folder");
    if (access(file.c_str(), R_OK) != 0) throw Failure("cannot read " + file.string());
}

nlohmann::json readJson(const char* what, const fs::path& file) {
    requireReadable(file);
    std::ifstream input(file);
    nlohmann::json value = nlohmann::json::parse(input, nullptr, false);
    if (value.is_discarded())
        throw Failure(std::string(what) + " " + file.string() + " is no JSON");
    return value;
}

}  // namespace huebrush::cli
