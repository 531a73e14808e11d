// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/app/StatusBar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <com/sun/star/awt/XToolkitExperimental.hpp>

#include "TestDocument.h"
#include "ports/libreoffice/app/RateLimit.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::tests {
namespace {

using libreoffice::RateLimit;
using std::chrono::milliseconds;
using Clock = RateLimit::Clock;

TEST(RateLimit, TheFirstTimeIsDueAndTheNextAfterTheInterval) {
    RateLimit rate(milliseconds(50));
    const Clock::time_point start{};
    EXPECT_TRUE(rate.isDue(start));
    rate.done(start, start);
    EXPECT_FALSE(rate.isDue(start + milliseconds(49)));
    EXPECT_TRUE(rate.isDue(start + milliseconds(50)));
}

TEST(RateLimit, LongWorkIsFollowedByAPauseThreeTimesAsLong) {
    RateLimit rate(milliseconds(50));
    const Clock::time_point start{};
    rate.done(start, start + milliseconds(100));
    EXPECT_FALSE(rate.isDue(start + milliseconds(399)));
    EXPECT_TRUE(rate.isDue(start + milliseconds(400)));
}

TEST(StatusBar, WithoutAWindowATextGoesNowhere) {
    const libreoffice::ActiveWindow window(officeContext());
    libreoffice::StatusBar bar(officeContext(), window, std::make_shared<libreoffice::Snapshot>());
    EXPECT_NO_THROW(bar.setText("Zpracovávám 1. objekt z 2."));
}

TEST(StatusBar, ThousandsOfTextsAreCheap) {
    const TestDocument document;
    const libreoffice::ActiveWindow window(officeContext());
    libreoffice::StatusBar bar(officeContext(), window, std::make_shared<libreoffice::Snapshot>());
    const auto start = Clock::now();
    for (int i = 0; i < 16000; ++i) bar.setText("Zpracovávám objekt");
    const auto elapsed = Clock::now() - start;
    EXPECT_LT(elapsed, milliseconds(500));
}

}  // namespace
}  // namespace huebrush::tests
