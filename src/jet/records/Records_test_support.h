// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include "jet/Palette_test_support.h"
#include "jet/records/Recordset.h"

namespace huebrush::jet {

/// A palette file in memory, and what leads to it.
class OnPaletteFile : public ::testing::Test {
 protected:
    /// The number of the error that a body ends with, or 0; its text is then in `message`.
    std::int32_t errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::Error& error) {
            message = error.description();
            return error.number();
        }
        return 0;
    }
    static std::string connectionTo(const std::string& name) {
        return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + name;
    }

    const std::string toFile = connectionTo(PaletteFile::kName);
    PaletteFile file;
    std::string message;
};

}  // namespace huebrush::jet
