// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/MemoryRuntime.h"

#include <gtest/gtest.h>

#include "base/Error.h"

namespace huebrush::memory {
namespace {

TEST(MemoryRuntime, AFileDialogGivesTheChosenFilesInTurnAndIsCancelledWithoutOne) {
    MemoryRuntime runtime;
    runtime.chosenFiles = {"/a.mdb", "/b.mdb"};
    const forms::FileDialog dialog{forms::FileDialog::Purpose::save, "Kam?", "Databáze", "*.mdb"};
    EXPECT_EQ(runtime.ChooseFile(dialog), "/a.mdb");
    EXPECT_EQ(runtime.ChooseFile(dialog), "/b.mdb");
    try {
        runtime.ChooseFile(dialog);
        ADD_FAILURE() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::kCancelled);
    }
    ASSERT_EQ(runtime.fileDialogs.size(), 3U);
    EXPECT_EQ(runtime.fileDialogs.front().title, "Kam?");
}

}  // namespace
}  // namespace huebrush::memory
