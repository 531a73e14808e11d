// SPDX-License-Identifier: MPL-2.0

#include "cli/OutputFile.h"

#include <algorithm>
#include <string>
#include <vector>

#include "cli/Failure.h"
#include "files/Error.h"
#include "files/Names.h"
#include "files/OpenFile.h"

namespace huebrush::cli {

namespace {

/// Runs a body, turning its errors into Failure.
template <class Body>
void orFailure(const Body& body) {
    try {
        body();
    } catch (const files::Error& error) {
        throw Failure(error.what());
    }
}

}  // namespace

OutputFile::OutputFile(const std::filesystem::path& target) {
    orFailure([&] {
        const std::string name = files::resolve(target);
        if (files::exists(name)) {
            replaced_.emplace(name);
            file_.emplace(*replaced_);
        } else {
            file_.emplace(name);
        }
    });
}

void OutputFile::commit(const std::filesystem::path& content) {
    constexpr std::uint64_t kPiece = 1U << 20U;
    orFailure([&] {
        const files::OpenFile source(content);
        const std::uint64_t size = source.size();
        std::vector<std::uint8_t> piece;
        for (std::uint64_t at = 0; at < size; at += piece.size()) {
            piece.resize(std::min(kPiece, size - at));
            source.read(at, piece);
            file_->write(at, piece);
        }
        file_->publish();
    });
}

void OutputFile::commit(std::span<const std::uint8_t> content) {
    orFailure([&] {
        file_->write(0, content);
        file_->publish();
    });
}

}  // namespace huebrush::cli
