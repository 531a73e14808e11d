// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/app/ActiveWindow.h"

#include <gtest/gtest.h>

#include "TestDocument.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::tests {
namespace {

using libreoffice::ActiveWindow;
using Window = TestDocument::Window;

TEST(ActiveWindow, WithoutADocumentThereIsNone) {
    const ActiveWindow window(officeContext());
    EXPECT_FALSE(window.frame().is());
    try {
        window.model();
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), libreoffice::HostErrorNumber::kNoDocument);
        EXPECT_EQ(error.description(), "Není otevřen žádný textový dokument.");
    }
}

TEST(ActiveWindow, IsTheOneOpenedLast) {
    const ActiveWindow window(officeContext());
    const TestDocument first;
    EXPECT_TRUE(window.model() == first.model());
    const TestDocument second;
    EXPECT_TRUE(window.model() == second.model());
}

TEST(ActiveWindow, IsTheOneThatTheUserTurnedToLast) {
    ActiveWindow window(officeContext());
    const TestDocument first;
    const TestDocument second;
    window.activate(first.frame());
    EXPECT_TRUE(window.model() == first.model());
    EXPECT_TRUE(window.frame() == first.frame());
}

TEST(ActiveWindow, WhenItClosesTheOneBeforeItIsActive) {
    ActiveWindow window(officeContext());
    const TestDocument first;
    const TestDocument second;
    TestDocument third;
    window.activate(first.frame());
    window.activate(third.frame());
    third.close();
    EXPECT_TRUE(window.model() == first.model());
}

TEST(ActiveWindow, AHiddenDocumentNeverIs) {
    ActiveWindow window(officeContext());
    const TestDocument shown;
    const TestDocument hidden(Window::hidden);
    EXPECT_TRUE(window.model() == shown.model());
    window.activate(hidden.frame());
    EXPECT_TRUE(window.model() == shown.model());
}

TEST(ActiveWindow, AWebPageIsNone) {
    const ActiveWindow window(officeContext());
    const TestDocument page(Window::shown, "private:factory/swriter/web");
    EXPECT_FALSE(window.frame().is());
}

}  // namespace
}  // namespace huebrush::tests
