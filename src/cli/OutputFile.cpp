#include "cli/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void throwUnwritable(const fs::path& target, int reason) {
    throw Failure("cannot write " + target.string() + ": " + std::strerror(reason));
}

/// What a new file's rights are: all that the user's mask allows.
mode_t rightsFor(const fs::path& target) {
    struct stat status = {};
    if (stat(target.c_str(), &status) == 0) return status.st_mode & 07777U;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666U & ~mask;
}

fs::path followed(const fs::path& target) {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(target, error);
    return error ? fs::absolute(target) : real;
}

}  // namespace

OutputFile::OutputFile(const fs::path& target) : target_(followed(target)) {
    std::error_code ignored;
    if (fs::is_directory(target_, ignored)) throwUnwritable(target_, EISDIR);
    if (fs::exists(target_, ignored) && access(target_.c_str(), W_OK) != 0) {
        throwUnwritable(target_, errno);
    }
    std::string name =
        target_.parent_path() / ("." + target_.filename().string() + ".huebrush-XXXXXX");
    file_ = mkstemp(name.data());
    if (file_ < 0) throwUnwritable(target_, errno);
    beside_ = name;
}

OutputFile::~OutputFile() {
    close(file_);
    if (!beside_.empty()) unlink(beside_.c_str());
}

void OutputFile::copyFrom(const fs::path& content) const {
    std::ifstream source(content, std::ios::binary);
    std::vector<char> buffer(1U << 16U);
    while (source.read(buffer.data(), static_cast<std::streamsize>(buffer.size())),
           source.gcount() > 0) {
        const char* at = buffer.data();
        for (auto left = static_cast<std::size_t>(source.gcount()); left > 0;) {
            const ssize_t written = write(file_, at, left);
            if (written < 0) throwUnwritable(target_, errno);
            at += written;
            left -= static_cast<std::size_t>(written);
        }
    }
    if (!source.eof()) throw Failure("cannot read " + content.string());
}

void OutputFile::commit(const fs::path& content) {
    copyFrom(content);
    fchmod(file_, rightsFor(target_));
    if (fsync(file_) != 0) throwUnwritable(target_, errno);
    if (rename(beside_.c_str(), target_.c_str()) != 0) throwUnwritable(target_, errno);
    beside_.clear();
}

}  // namespace huebrush::cli
