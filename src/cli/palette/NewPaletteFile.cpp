// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/NewPaletteFile.h"

#include <unistd.h>

#include <iostream>

#include "cli/ConsoleRuntime.h"
#include "cli/Failure.h"
#include "cli/Interrupt.h"
#include "cli/InterruptibleInput.h"
#include "jet/file/MemoryFiles.h"
#include "palette/mMakeDatabase.h"

namespace huebrush::cli {

namespace {

/// Whether the whole database was made; the user may have chosen to abort.
bool makeDatabase(const std::string& name, jet::FileSystem& files) {
    InterruptibleInput keys(STDIN_FILENO);
    std::istream answers(&keys);
    ConsoleRuntime runtime(answers, std::cerr, isatty(STDIN_FILENO) != 0);
    const forms::RuntimeScope scope(runtime);
    const bool made = palette::MakeDatabase(name, files);
    throwIfInterrupted();
    return made;
}

}  // namespace

bool createPaletteFile(const std::string& target, jet::Lock* replaced,
                       const std::function<void(jet::Database& database)>& fill) {
    std::unique_ptr<jet::NewFile> made;
    jet::MemoryFiles draft;
    draft.onCall = [&](const char*) {
        if (made) return;
        made = replaced != nullptr ? replaced->replacement() : jet::systemFiles().create(target);
    };
    if (!makeDatabase(target, draft)) return false;
    if (!made || !draft.exists(target)) throw Failure("no palette file was created");
    fill(*jet::Database::open(draft, target));
    made->write(0, *draft.files.at(target));
    made->publish();
    return true;
}

}  // namespace huebrush::cli
