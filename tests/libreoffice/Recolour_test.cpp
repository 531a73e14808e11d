// SPDX-License-Identifier: MPL-2.0

// The recolour dialog at work on a real document, with the office's own event loop under it.

#include <gtest/gtest.h>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "OfficeContext.h"
#include "TestDocument.h"
#include "base/Color.h"
#include "batch/WholeDocument.h"
#include "forms/ForwardingRuntime.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/EventPump.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using PropertySet = Reference<css::beans::XPropertySet>;

constexpr std::int32_t kRed = 0xFF0000;
constexpr std::int32_t kBlue = 0x0000FF;

/// The office's runtime, but for boxes, which nobody would answer, and for the rate of the pump:
/// here each one runs.
class PumpingRuntime final : public forms::ForwardingRuntime {
 public:
    PumpingRuntime(const libreoffice::ContextReference& context, forms::Runtime& office,
                   std::shared_ptr<libreoffice::Snapshot> snapshot)
        : ForwardingRuntime(office), pump_(context, std::move(snapshot)) {}

    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t, const std::string&) override {
        boxes.push_back(text);
        return forms::MsgBoxResult::ok;
    }
    void PopupMenu(forms::PopupMenu&, forms::Control&, double, double) override {}
    void DoEvents() override {
        ++pumps;
        if (beforePump) beforePump(pumps);
        pump_.runNow();
    }
    void showForm(forms::Form&, bool) override {}
    void closeForm(forms::Form&) override {}
    void setTopMost(forms::Form&, bool) override {}

    std::vector<std::string> boxes;
    int pumps = 0;
    std::function<void(int)> beforePump;

 private:
    libreoffice::EventPump pump_;
};

class RecolourInTheOffice : public testing::Test {
 protected:
    RecolourInTheOffice() {
        runtime.UnhandledError.connect(
            [this](const base::Error& error) { runtime.boxes.push_back(error.description()); });
    }

    PropertySet addShape(std::int32_t color) {
        const Reference<css::lang::XMultiServiceFactory> factory(document.model(), UNO_QUERY_THROW);
        const Reference<css::drawing::XShape> shape(
            factory->createInstance("com.sun.star.drawing.RectangleShape"), UNO_QUERY_THROW);
        Reference<css::drawing::XDrawPageSupplier>(document.model(), UNO_QUERY_THROW)
            ->getDrawPage()
            ->add(shape);
        const PropertySet properties(shape, UNO_QUERY_THROW);
        properties->setPropertyValue("FillStyle", Any(css::drawing::FillStyle_SOLID));
        properties->setPropertyValue("FillColor", Any(color));
        return properties;
    }

    static std::int32_t colorOf(const PropertySet& shape) {
        std::int32_t color = 0;
        shape->getPropertyValue("FillColor") >>= color;
        return color;
    }

    /// The user's click on a button of the dialog.
    void press(forms::CommandButton& button) {
        const libreoffice::HandlerScope handler(application.snapshot());
        button.press();
    }

    libreoffice::Application application{officeContext(), std::string()};
    TestDocument document;
    libreoffice::OfficeRuntime office{officeContext(), std::string(), application.activeWindow(),
                                      application.snapshot()};
    PumpingRuntime runtime{officeContext(), office, application.snapshot()};
    forms::RuntimeScope scope{runtime};
    batch::WholeDocument host{application, application.Documents().documentOf(document.model())};
    std::shared_ptr<recolor::frmEditGraphic> dialog = recolor::frmEditGraphic::create();
};

TEST_F(RecolourInTheOffice, AShapeThatAnEventChangesInMidScanIsGroupedByItsNewFill) {
    std::vector<PropertySet> shapes;
    shapes.reserve(6);
    for (int i = 0; i < 6; ++i) shapes.push_back(addShape(kRed));
    bool written = false;
    runtime.beforePump = [&](int pump) {
        if (pump != 3) return;
        // A plain write, from an event of the office's own loop.
        libreoffice::postToMainThread(officeContext(), [&] {
            shapes[5]->setPropertyValue("FillColor", Any(kBlue));
            written = true;
        });
    };
    dialog->connect(host);
    press(dialog->cmdAdd);
    EXPECT_TRUE(written);
    ASSERT_EQ(dialog->Element.ubound(), 2);
    EXPECT_EQ(dialog->Element[1].ElementsGroup()->size(), 5U);
    EXPECT_EQ(dialog->Element[2].ElementsGroup()->size(), 1U);
    EXPECT_EQ(dialog->Element[2].FillObject().original().ForeColorRGB, base::swapRedAndBlue(kBlue));
    dialog->Unload();
}

TEST_F(RecolourInTheOffice, AShapeThatAnEventDeletesInMidRecolourFailsItsRowOnly) {
    const PropertySet red = addShape(kRed);
    const PropertySet blue = addShape(kBlue);
    dialog->connect(host);
    press(dialog->cmdAdd);
    ASSERT_EQ(dialog->Element.ubound(), 2);
    for (std::int16_t row = 1; row <= 2; ++row) {
        dialog->Element[row].FillObject().setDesTransparency(0.5F);
        dialog->Element[row].setSelectValue(forms::CheckValue::kTicked);
    }
    const int pumpsBefore = runtime.pumps;
    runtime.boxes.clear();
    runtime.beforePump = [&](int pump) {
        if (pump != pumpsBefore + 1) return;
        libreoffice::postToMainThread(officeContext(), [&] {
            Reference<css::drawing::XDrawPageSupplier>(document.model(), UNO_QUERY_THROW)
                ->getDrawPage()
                ->remove(Reference<css::drawing::XShape>(red, UNO_QUERY_THROW));
        });
    };
    press(dialog->cmdDiscolour);
    ASSERT_EQ(runtime.boxes.size(), 1U);
    EXPECT_NE(runtime.boxes[0].find("Huebrush.ColorElement.Discolour"), std::string::npos);
    std::int16_t transparence = 0;
    blue->getPropertyValue("FillTransparence") >>= transparence;
    EXPECT_EQ(transparence, 50);
    EXPECT_EQ(colorOf(blue), kBlue);
    dialog->Unload();
}

}  // namespace
}  // namespace huebrush::tests
