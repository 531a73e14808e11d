// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/tools/HostTools.h"

#include <gtest/gtest.h>

#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/XControlModel.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XFramesSupplier.hpp>
#include <string>
#include <vector>

#include "KeyboardUser.h"
#include "OfficeContext.h"
#include "base/Color.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

constexpr std::int32_t kColorControl = 1051;
constexpr std::int32_t kFillControl = 1006;
constexpr std::int32_t kFormatDialog = 960;
constexpr const char* kOwnTitle = "Own dialog";
constexpr base::Rgb kStart = base::rgb(0x11, 0x22, 0x33);

/// A dialog of our own, on the screen beside whatever there is.
class OwnDialog {
 public:
    OwnDialog() : control_(make<css::awt::XControl>("com.sun.star.awt.UnoControlDialog")) {
        const auto model = make<css::awt::XControlModel>("com.sun.star.awt.UnoControlDialogModel");
        const Reference<css::beans::XPropertySet> set(model, UNO_QUERY_THROW);
        set->setPropertyValue("Title", css::uno::Any(libreoffice::toOffice(kOwnTitle)));
        set->setPropertyValue("Width", css::uno::Any(sal_Int32(200)));
        set->setPropertyValue("Height", css::uno::Any(sal_Int32(150)));
        control_->setModel(model);
        const Reference<css::awt::XWindow> window(control_, UNO_QUERY_THROW);
        window->setVisible(false);
        control_->createPeer(make<css::awt::XToolkit>("com.sun.star.awt.Toolkit"), nullptr);
        window->setVisible(true);
    }
    OwnDialog(const OwnDialog&) = delete;
    OwnDialog& operator=(const OwnDialog&) = delete;
    ~OwnDialog() { close(); }

    Reference<css::awt::XWindowPeer> peer() const { return control_->getPeer(); }
    void close() {
        if (control_.is()) control_->dispose();
        control_.clear();
    }

 private:
    template <class Interface>
    static Reference<Interface> make(const char* service) {
        return libreoffice::createService<Interface>(officeContext(), service);
    }

    Reference<css::awt::XControl> control_;
};

constexpr base::Rgb kTyped = base::rgb(18, 52, 86);
constexpr base::Rgb kGreener = base::rgb(0x11, 200, 0x33);

class HostToolsOnScreen : public testing::Test {
 protected:
    HostToolsOnScreen() {
        documents.setOwner([this] {
            return libreoffice::Documents::OwnerWindow{own ? own->peer() : nullptr, nullptr};
        });
        makeScratch();
    }
    ~HostToolsOnScreen() override {
        if (scratch) scratch->Close();
        own.reset();
        EXPECT_EQ(openDocuments(), 0);
    }

    void makeScratch() {
        scratch = documents.addHidden();
        shape = scratch->Shapes()->AddShape(host::MsoAutoShapeType::msoShapeRectangle, 0, 0, 60.7F,
                                            19.0F);
        shape->Select();
        shape->Fill().setForeColorRGB(kStart);
        shape->Fill().Solid();
    }
    std::int32_t openDocuments() {
        const Reference<css::frame::XFramesSupplier> desktop(
            libreoffice::createService<css::frame::XDesktop>(officeContext(),
                                                             "com.sun.star.frame.Desktop"),
            UNO_QUERY_THROW);
        return Reference<css::container::XIndexAccess>(desktop->getFrames(), UNO_QUERY_THROW)
            ->getCount();
    }
    void execute(std::int32_t id) { tools.control(id)->Execute(); }

    std::unique_ptr<OwnDialog> own = std::make_unique<OwnDialog>();
    libreoffice::Documents documents{officeContext()};
    libreoffice::HostTools tools{officeContext(), documents};
    libreoffice::HandlerScope handler{documents.snapshot()};
    std::shared_ptr<host::Document> scratch;
    host::ShapePointer shape;
};

TEST_F(HostToolsOnScreen, TheColourChosenBecomesTheShapesSolidFill) {
    shape->Fill().TwoColorGradient(1, 1);
    {
        const ToolUser user(kColorDialog, kStart, chosen(kTyped), kOk);
        execute(kColorControl);
    }
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kTyped);
    EXPECT_EQ(shape->Fill().Type(), host::MsoFillType::msoFillSolid);
    EXPECT_EQ(shape->Fill().Visible(), host::MsoTriState::msoTrue);
    EXPECT_TRUE(becomesActive(kOwnTitle));
}

TEST_F(HostToolsOnScreen, TheColourDialogStartsFromTheShapesColour) {
    const ToolUser user(kColorDialog, kStart, kNothing, kOk);
    execute(kColorControl);
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kStart);
}

TEST_F(HostToolsOnScreen, ACancelledColourDialogLeavesTheFill) {
    shape->Fill().TwoColorGradient(1, 1);
    for (const char* const end : {kClose, kEscape}) {
        const ToolUser user(kColorDialog, kStart, chosen(kTyped), end);
        execute(kColorControl);
        EXPECT_EQ(shape->Fill().ForeColorRGB(), kStart);
        EXPECT_EQ(shape->Fill().Type(), host::MsoFillType::msoFillGradient);
    }
    EXPECT_TRUE(becomesActive(kOwnTitle));
}

TEST_F(HostToolsOnScreen, TheConfirmedAreaDialogGivesTheShapeItsFill) {
    {
        const ToolUser user(kAreaDialog, kStart, chosen(kGreener), kOk);
        EXPECT_EQ(tools.Item(kFormatDialog)->Show(), -1);
    }
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kGreener);
    EXPECT_TRUE(becomesActive(kOwnTitle));
}

TEST_F(HostToolsOnScreen, TheAreaDialogMayGiveAnotherKindOfFill) {
    const ToolUser user(kAreaDialog, kStart, kGradient, kOk);
    EXPECT_EQ(tools.Item(kFormatDialog)->Show(), -1);
    EXPECT_EQ(shape->Fill().Type(), host::MsoFillType::msoFillGradient);
}

TEST_F(HostToolsOnScreen, TheFillControlOpensTheAreaDialog) {
    {
        const ToolUser user(kAreaDialog, kStart, chosen(kGreener), kOk);
        execute(kFillControl);
    }
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kGreener);
    const ToolUser user(kAreaDialog, kGreener, kGradient, kEscape);
    execute(kFillControl);
    EXPECT_EQ(shape->Fill().Type(), host::MsoFillType::msoFillSolid);
}

TEST_F(HostToolsOnScreen, AnAreaDialogConfirmedWithoutAChangeCountsAsConfirmed) {
    const ToolUser user(kAreaDialog, kStart, kNothing, kOk);
    EXPECT_EQ(tools.Item(kFormatDialog)->Show(), -1);
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kStart);
    EXPECT_EQ(shape->Fill().Type(), host::MsoFillType::msoFillSolid);
}

TEST_F(HostToolsOnScreen, ACancelledAreaDialogLeavesTheFillAndReportsThat) {
    for (const char* const end : {kCancel, kClose, kEscape}) {
        const ToolUser user(kAreaDialog, kStart, chosen(kGreener), end);
        EXPECT_EQ(tools.Item(kFormatDialog)->Show(), 0);
        EXPECT_EQ(shape->Fill().ForeColorRGB(), kStart);
    }
    EXPECT_TRUE(becomesActive(kOwnTitle));
}

TEST_F(HostToolsOnScreen, EveryScratchDocumentOpensItsOwnDialog) {
    for (int round = 0; round < 3; ++round) {
        const ToolUser user(kAreaDialog, kStart, chosen(kGreener), kOk);
        EXPECT_EQ(tools.Item(kFormatDialog)->Show(), -1);
        EXPECT_EQ(shape->Fill().ForeColorRGB(), kGreener);
        scratch->Close();
        makeScratch();
        EXPECT_EQ(shape->Fill().ForeColorRGB(), kStart);
    }
}

TEST_F(HostToolsOnScreen, WithoutAWindowOfOursTheDialogStillOpens) {
    scratch->Close();
    own.reset();
    makeScratch();
    const ToolUser user(kAreaDialog, kStart, chosen(kGreener), kOk);
    EXPECT_EQ(tools.Item(kFormatDialog)->Show(), -1);
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kGreener);
}

TEST_F(HostToolsOnScreen, ADialogThatEndsTakesItsScratchDocumentAlong) {
    own.reset();
    EXPECT_THROW(shape->Fill().ForeColorRGB(), base::Error);
    EXPECT_THROW(tools.Item(kFormatDialog)->Show(), base::Error);
    EXPECT_THROW(scratch->Close(), base::Error);
    scratch.reset();
}

TEST_F(HostToolsOnScreen, WithoutAScratchDocumentAToolIsAnError) {
    scratch->Close();
    scratch.reset();
    EXPECT_THROW(tools.Item(kFormatDialog)->Show(), base::Error);
    EXPECT_THROW(execute(kColorControl), base::Error);
}

TEST_F(HostToolsOnScreen, OtherNumbersAreNotTools) {
    EXPECT_EQ(tools.control(1), nullptr);
    EXPECT_THROW(tools.Item(1), base::Error);
}

}  // namespace
}  // namespace huebrush::tests
