// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XFramesSupplier.hpp>
#include <memory>
#include <string>
#include <thread>

#include "DocumentsHost.h"
#include "KeyboardUser.h"
#include "TestComponent.h"
#include "base/Color.h"
#include "error/mError.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using recolor::ColorElement;

constexpr base::Rgb kRed = base::rgb(0xFF, 0, 0);
constexpr base::Rgb kBlue = base::rgb(0, 0, 0xFF);
constexpr base::Rgb kTyped = base::rgb(18, 52, 86);

/// The recolour dialog over a document with a red and a blue shape, a row for each.
class FillEditingOnScreen : public testing::Test {
 protected:
    FillEditingOnScreen() {
        runtime.UnhandledError.connect(&error::reportUnhandled);
        runtime.setEventsMayRun(true);
        application.setOwner([this] {
            return libreoffice::Documents::OwnerWindow{runtime.windows().owner(),
                                                       runtime.windows().hold()};
        });
        application.activeWindow().activate(document.frame());
        const auto shapes = application.ActiveDocument()->Shapes();
        shapes->Range({nameOf(1), nameOf(2)})->Select();
        dialog->ShowDialog(application);
        const User user("Zpracování je dokončeno...", kNoAction, kReturnKey);
        run([this] { dialog->cmdAdd.press(); });
    }
    ~FillEditingOnScreen() override {
        dialog->Unload();
        EXPECT_EQ(frames(), 1);
    }

    std::string nameOf(int shape) {
        const auto walk = application.ActiveDocument()->Shapes()->enumerate();
        host::ShapePointer found = walk->next();
        for (int i = 1; i < shape; ++i) found = walk->next();
        return found->Name();
    }
    /// An event of the user's, as the windows bring it in.
    void run(const std::function<void()>& handler) {
        const libreoffice::HandlerScope scope(application.snapshot());
        dialog->handle(handler);
    }
    ColorElement& row(std::int16_t index) { return dialog->Element[index]; }
    const fill::FillProperties& destination(std::int16_t index) {
        return row(index).FillObject().destination();
    }
    base::Rgb originalColor(std::int16_t index) {
        return row(index).FillObject().original().ForeColorRGB;
    }
    static std::int32_t frames() {
        const Reference<css::frame::XFramesSupplier> desktop(
            libreoffice::createService<css::frame::XDesktop>(officeContext(),
                                                             "com.sun.star.frame.Desktop"),
            UNO_QUERY_THROW);
        return Reference<css::container::XIndexAccess>(desktop->getFrames(), UNO_QUERY_THROW)
            ->getCount();
    }

    TestDocument document;
    ShapeReference red = addRectangle(document.model(), kRed);
    ShapeReference blue = addRectangle(document.model(), kBlue);
    libreoffice::Application application{officeContext(), testFolder()};
    libreoffice::OfficeRuntime runtime{officeContext(), testFolder(), application.activeWindow(),
                                       application.snapshot()};
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<recolor::frmEditGraphic> dialog = recolor::frmEditGraphic::create();
};

TEST_F(FillEditingOnScreen, TheColourCommandEditsTheRowsNewFillAndTheRecolourAppliesIt) {
    ASSERT_EQ(dialog->Element.ubound(), 2);
    const base::Rgb original = originalColor(1);
    {
        const ToolUser user(kColorDialog, original, chosen(kTyped), kOk);
        run([this] { row(1).mnuChDColor(); });
    }
    EXPECT_EQ(destination(1).ForeColorRGB, kTyped);
    EXPECT_TRUE(row(1).FillObject().Change());
    EXPECT_FALSE(row(1).DestinationPicture() == row(1).SourcePicture());
    EXPECT_TRUE(becomesActive(dialog->Caption));
    run([this] { dialog->chkSelAll.toggle(); });
    run([this] { dialog->cmdDiscolour.press(); });
    const ShapeReference changed = original == kRed ? red : blue;
    const ShapeReference other = original == kRed ? blue : red;
    EXPECT_EQ(getProperty<std::int32_t>(changed, "FillColor"), base::swapRedAndBlue(kTyped));
    EXPECT_NE(getProperty<std::int32_t>(other, "FillColor"), base::swapRedAndBlue(kTyped));
}

TEST_F(FillEditingOnScreen, TheFillAndFormatCommandsEditTheRowsNewFill) {
    {
        const ToolUser user(kAreaDialog, originalColor(1), chosen(kTyped), kOk);
        run([this] { row(1).mnuChDFill(); });
    }
    EXPECT_EQ(destination(1).ForeColorRGB, kTyped);
    const base::Picture preview = row(1).DestinationPicture();
    EXPECT_FALSE(preview == row(1).SourcePicture());
    {
        const ToolUser user(kAreaDialog, kTyped, kGradient, kOk);
        run([this] { row(1).mnuChDFormat(); });
    }
    EXPECT_EQ(destination(1).Type, host::MsoFillType::msoFillGradient);
    EXPECT_FALSE(row(1).DestinationPicture() == preview);
}

TEST_F(FillEditingOnScreen, ACancelledFormatDialogChangesNothing) {
    const base::Picture preview = row(2).DestinationPicture();
    const ToolUser user(kAreaDialog, originalColor(2), chosen(kTyped), kEscape);
    run([this] { row(2).mnuChDFormat(); });
    EXPECT_FALSE(row(2).FillObject().Change());
    EXPECT_TRUE(row(2).DestinationPicture() == preview);
}

/// A form that ends while one of its handlers has a tool open. The tool still waits for its user;
/// what the handler then misses is reported in a box.
class FormEndsOnScreen : public FillEditingOnScreen {
 protected:
    void postUnload() {
        libreoffice::postToMainThread(officeContext(), [this] {
            dialog->Unload();
            closing_ = std::make_unique<ToolUser>(kAreaDialog, start_, kNothing, kEscape);
        });
    }
    void expectReportOfTheFormatCommand() {
        const User user("Chyba č. [0-9]+", kNoAction, kReturnKey);
        run([this] { row(1).mnuChDFormat(); });
        EXPECT_TRUE(dialog->isUnloaded());
        EXPECT_TRUE(user.acted());
        closing_.reset();
    }

 private:
    const base::Rgb start_ = originalColor(1);
    std::unique_ptr<ToolUser> closing_;
};

TEST_F(FormEndsOnScreen, BeforeTheToolIsOpen) {
    postUnload();
    expectReportOfTheFormatCommand();
}

TEST_F(FormEndsOnScreen, UnderTheTool) {
    std::thread waiting([this] {
        EXPECT_TRUE(becomesActive(kAreaDialog, [] {}));
        postUnload();
    });
    expectReportOfTheFormatCommand();
    waiting.join();
}

TEST_F(FillEditingOnScreen, NoFillAndHalfTransparencyToggleWithoutATool) {
    bool value = true;
    float half = 0.5F;
    run([&] { row(1).mnuChDNoFill(value); });
    EXPECT_TRUE(row(1).DestinationPicture().empty());
    run([&] { row(1).mnuChDNoFill(value); });
    EXPECT_TRUE(row(1).DestinationPicture() == row(1).SourcePicture());
    run([&] { row(1).mnuChDTransparency(half); });
    EXPECT_EQ(destination(1).Transparency, 0.5F);
    EXPECT_FALSE(row(1).DestinationPicture() == row(1).SourcePicture());
}

}  // namespace
}  // namespace huebrush::tests
