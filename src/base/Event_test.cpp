// SPDX-License-Identifier: MPL-2.0

#include "base/Event.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace huebrush::base {
namespace {

TEST(Event, CallsItsHandlersInTheOrderOfTheirConnection) {
    Event<int> event;
    std::vector<int> seen;
    event.connect([&](int value) { seen.push_back(value); });
    event.connect([&](int value) { seen.push_back(value * 10); });
    event(3);
    EXPECT_EQ(seen, (std::vector<int>{3, 30}));
}

TEST(Event, WithoutHandlersDoesNothing) {
    const Event<int> event;
    EXPECT_FALSE(event.connected());
    event(1);
}

TEST(Event, EndsAllConnectionsOfAListenerAndNoOthers) {
    Event<> event;
    int listener = 0;
    int calls = 0;
    event.connect([&] { calls += 1; }, &listener);
    event.connect([&] { calls += 10; });
    event.connect([&] { calls += 100; }, &listener);
    event.disconnect(&listener);
    event();
    EXPECT_EQ(calls, 10);
    EXPECT_TRUE(event.connected());
}

TEST(Event, AHandlerConnectedDuringARaiseIsCalledFromTheNextOneOn) {
    Event<> event;
    int late = 0;
    bool connected = false;
    event.connect([&] {
        if (!std::exchange(connected, true)) event.connect([&] { ++late; });
    });
    event();
    EXPECT_EQ(late, 0);
    event();
    EXPECT_EQ(late, 1);
}

TEST(Event, AHandlerMayEndItsOwnConnection) {
    Event<> event;
    int listener = 0;
    int calls = 0;
    event.connect(
        [&] {
            ++calls;
            event.disconnect(&listener);
        },
        &listener);
    event();
    event();
    EXPECT_EQ(calls, 1);
}

TEST(Event, AHandlerMayEndTheEventItself) {
    auto event = std::make_unique<Event<>>();
    int after = 0;
    event->connect([&] { event.reset(); });
    event->connect([&] { ++after; });
    (*event)();
    EXPECT_EQ(event, nullptr);
    EXPECT_EQ(after, 1);
}

TEST(Event, WhatAHandlerThrowsPassesToTheRaiser) {
    Event<> event;
    event.connect([] { throw std::runtime_error("no"); });
    EXPECT_THROW(event(), std::runtime_error);
}

TEST(Event, HandsReferencesOnToItsHandlers) {
    Event<bool&> event;
    event.connect([](bool& value) { value = true; });
    bool value = false;
    event(value);
    EXPECT_TRUE(value);
}

}  // namespace
}  // namespace huebrush::base
