// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/FilePicker.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "KeyboardUser.h"
#include "OfficeContext.h"
#include "base/Error.h"
#include "files/TemporaryFolder_test_support.h"

namespace huebrush::tests {
namespace {

namespace fs = std::filesystem;

using forms::FileDialog;

const FileDialog kOpen{FileDialog::Purpose::open, "Zvol databázi...", "Databáze Access (*.mdb)",
                       "*.mdb"};
const FileDialog kSave{FileDialog::Purpose::save, "Zvol umístění databázového souboru...",
                       "Databáze Access (*.mdb)", "*.mdb"};

class FilePickerOnScreen : public testing::Test {
    const files::TemporaryFolder temporary_;

 protected:
    /// What the dialog returns when the user does something in it; "cancelled" for that error.
    static std::string choice(const FileDialog& dialog, const std::string& actions,
                              const char* end) {
        const User user(dialog.title, actions, end);
        try {
            return libreoffice::pickFile(officeContext(), {}, dialog);
        } catch (const base::Error& error) {
            EXPECT_EQ(error.number(), base::ErrorNumber::kCancelled);
            return "cancelled";
        }
    }
    /// The keyboard starts in the field of the file's name. One of the toolkits selects that field
    /// again once it has listed the folder, and what was typed before is overwritten: so everything
    /// is typed twice.
    static std::string typing(const fs::path& file) {
        const std::string once = "xdotool key ctrl+a; xdotool type --delay 20 " + file.string();
        return once + "; " + once;
    }

    const fs::path& folder = temporary_.path();
};

TEST_F(FilePickerOnScreen, GivesTheFileToOpen) {
    const fs::path file = folder / "fill.mdb";
    std::ofstream(file) << "x";
    EXPECT_EQ(choice(kOpen, typing(file), kReturnKey), file.string());
}

TEST_F(FilePickerOnScreen, GivesANameToSaveUnderItsExtension) {
    EXPECT_EQ(choice(kSave, typing(folder / "new"), kReturnKey), (folder / "new.mdb").string());
    EXPECT_EQ(choice(kSave, typing(folder / "new.mdb"), kReturnKey), (folder / "new.mdb").string());
}

TEST_F(FilePickerOnScreen, CancellingIsAnError) {
    EXPECT_EQ(choice(kOpen, kNoAction, kEscapeKey), "cancelled");
    EXPECT_EQ(choice(kSave, typing(folder / "new.mdb"), kCloseButton), "cancelled");
}

}  // namespace
}  // namespace huebrush::tests
