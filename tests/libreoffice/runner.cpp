// SPDX-License-Identifier: MPL-2.0

// Runs all GoogleTests of this library inside the office that loads it, and ends that office.

#include <gtest/gtest.h>

#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <cstdlib>
#include <fstream>

#include "OfficeContext.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::tests {

namespace css = com::sun::star;

namespace {

libreoffice::ContextReference& contextSlot() {
    static libreoffice::ContextReference context;
    return context;
}

/// Runs the tests and writes "<exit code> <tests run>" to the file that the environment names.
void runTests() {
    int argumentCount = 1;
    char name[] = "huebrush_libreoffice_tests";
    char* arguments[] = {name, nullptr};
    testing::InitGoogleTest(&argumentCount, arguments);
    const int code = RUN_ALL_TESTS();
    const testing::UnitTest& tests = *testing::UnitTest::GetInstance();
    const int ran = tests.test_to_run_count() - tests.skipped_test_count();
    if (const char* file = std::getenv("HUEBRUSH_TEST_RESULT")) {
        std::ofstream(file) << code << ' ' << ran << '\n';
    }
}

class Runner : public libreoffice::WeakImplHelper<css::task::XJob> {
 public:
    explicit Runner(const libreoffice::ContextReference& context) : context_(context) {}

    css::uno::Any SAL_CALL execute(const css::uno::Sequence<css::beans::NamedValue>&) override {
        contextSlot() = context_;
        libreoffice::postToMainThread(context_, [context = context_] {
            runTests();
            contextSlot().clear();
            libreoffice::createService<css::frame::XDesktop>(context, "com.sun.star.frame.Desktop")
                ->terminate();
        });
        return {};
    }

 private:
    libreoffice::ContextReference context_;
};

}  // namespace

libreoffice::ContextReference officeContext() {
    return contextSlot();
}

void processEvents() {
    libreoffice::createService<css::awt::XToolkitExperimental>(officeContext(),
                                                               "com.sun.star.awt.Toolkit")
        ->processEventsToIdle();
}

}  // namespace huebrush::tests

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_tests_runner(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    auto* const runner = new huebrush::tests::Runner(context);
    runner->acquire();
    return static_cast<css::task::XJob*>(runner);
}
