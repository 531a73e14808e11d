#include "ports/libreoffice/app/ActiveWindow.h"

#include <gtest/gtest.h>

#include "OpenDocument.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::tests {
namespace {

using libreoffice::ActiveWindow;
using Window = OpenDocument::Window;

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
    const OpenDocument first;
    EXPECT_TRUE(window.model() == first.model());
    const OpenDocument second;
    EXPECT_TRUE(window.model() == second.model());
}

TEST(ActiveWindow, IsTheOneThatTheUserTurnedToLast) {
    ActiveWindow window(officeContext());
    const OpenDocument first;
    const OpenDocument second;
    window.activate(first.frame());
    EXPECT_TRUE(window.model() == first.model());
    EXPECT_TRUE(window.frame() == first.frame());
}

TEST(ActiveWindow, WhenItClosesTheOneBeforeItIsActive) {
    ActiveWindow window(officeContext());
    const OpenDocument first;
    const OpenDocument second;
    OpenDocument third;
    window.activate(first.frame());
    window.activate(third.frame());
    third.close();
    EXPECT_TRUE(window.model() == first.model());
}

TEST(ActiveWindow, AHiddenDocumentNeverIs) {
    ActiveWindow window(officeContext());
    const OpenDocument shown;
    const OpenDocument hidden(Window::hidden);
    EXPECT_TRUE(window.model() == shown.model());
    window.activate(hidden.frame());
    EXPECT_TRUE(window.model() == shown.model());
}

TEST(ActiveWindow, AWebPageIsNone) {
    const ActiveWindow window(officeContext());
    const OpenDocument page(Window::shown, "private:factory/swriter/web");
    EXPECT_FALSE(window.frame().is());
}

}  // namespace
}  // namespace huebrush::tests
