// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "ports/word/com/Served_test_support.h"

namespace huebrush::word {

/// A test that binds to objects, and leaves none of them in use.
class ServedTest : public testing::Test {
 protected:
    void TearDown() override {
        EXPECT_EQ(served->objects(), 0U);
        EXPECT_EQ(served->references(), 0);
        EXPECT_EQ(served->listeners(), 0U);
    }

    std::shared_ptr<ServedObjects> served = std::make_shared<ServedObjects>();
};

}  // namespace huebrush::word
