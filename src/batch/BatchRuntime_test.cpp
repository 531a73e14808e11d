// SPDX-License-Identifier: MPL-2.0

#include "batch/BatchRuntime.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "forms/Form.h"
#include "forms/PopupMenu.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::batch {
namespace {

TEST(BatchRuntime, WhatOnlyAUserCanAnswerIsAnError) {
    memory::MemoryRuntime platform;
    platform.chosenFiles.emplace_back("/never/asked.mdb");
    BatchRuntime runtime(platform);
    forms::PopupMenu menu("Menu");
    forms::Form form("form");
    EXPECT_THROW(runtime.PopupMenu(menu, form, 0, 0), base::Error);
    EXPECT_THROW(runtime.ChooseFile({}), base::Error);
    EXPECT_THROW(runtime.MsgBox("Opravdu?", forms::MsgBoxStyle::kYesNo, ""), base::Error);
    EXPECT_TRUE(platform.fileDialogs.empty());
    EXPECT_TRUE(platform.menus.empty());
    EXPECT_TRUE(platform.boxes.empty());
}

}  // namespace
}  // namespace huebrush::batch
