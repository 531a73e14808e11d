// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/EventConnection.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "ports/word/com/ModuleUse.h"
#include "ports/word/com/Served_fixture_test_support.h"

namespace huebrush::word {
namespace {

constexpr IID kEvents{0xA1B2C3D4, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 8}};
constexpr IID kOtherEvents{0xA1B2C3D5, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 8}};
constexpr DISPID kClick = 1;

class EventConnectionTest : public ServedTest {
 protected:
    EventConnectionTest() { button.raises(kEvents); }

    Pointer<IDispatch> source() { return served->serve(button, self, self.get()); }
    EventConnection listen(DISPID event = kClick) {
        return {source(), kEvents, event, [this] { ++clicks; }};
    }
    void click() { served->click(button, self.get()); }

    KindOf<int> button{"Button"};
    KindOf<int> silent{"Silent"};
    std::shared_ptr<int> self = std::make_shared<int>(0);
    int clicks = 0;
};

TEST_F(EventConnectionTest, AClickIsHeardAsLongAsTheConnectionLives) {
    const Pointer<IDispatch> object = source();
    {
        const EventConnection connection = listen();
        EXPECT_TRUE(connection);
        click();
        click();
        EXPECT_EQ(clicks, 2);
        EXPECT_EQ(served->listeners(), 1U);
    }
    click();
    EXPECT_EQ(clicks, 2);
}

TEST_F(EventConnectionTest, AConnectionKeepsItsSource) {
    const EventConnection connection = listen();
    click();
    EXPECT_EQ(clicks, 1);
}

TEST_F(EventConnectionTest, OtherEventsAreNotHeard) {
    const EventConnection connection = listen(kClick + 1);
    click();
    EXPECT_EQ(clicks, 0);
}

TEST_F(EventConnectionTest, AnObjectWithoutEventsIsLeftAlone) {
    const EventConnection connection(served->serve(silent, self), kEvents, kClick, [] {});
    EXPECT_FALSE(connection);
}

TEST_F(EventConnectionTest, AnObjectWithOtherEventsIsLeftAlone) {
    const EventConnection connection(source(), kOtherEvents, kClick, [] {});
    EXPECT_FALSE(connection);
}

TEST_F(EventConnectionTest, ThereIsNothingToHearOfNoObject) {
    const EventConnection connection({}, kEvents, kClick, [] {});
    EXPECT_FALSE(connection);
    EXPECT_FALSE(EventConnection());
}

TEST_F(EventConnectionTest, WhatAHandlerThrowsEndsThere) {
    const EventConnection failing(source(), kEvents, kClick, [this] {
        ++clicks;
        throw std::runtime_error("lost");
    });
    EXPECT_NO_THROW(click());
    EXPECT_EQ(clicks, 1);
}

TEST_F(EventConnectionTest, AHandlerMayEndItsOwnConnection) {
    const Pointer<IDispatch> object = source();
    EventConnection connection(source(), kEvents, kClick, [this, &connection] {
        connection = EventConnection();
        ++clicks;
    });
    click();
    click();
    EXPECT_EQ(clicks, 1);
}

TEST_F(EventConnectionTest, AsLongAsSomebodyMayCallTheModuleIsInUse) {
    EXPECT_FALSE(ModuleUse::any());
    {
        const EventConnection connection = listen();
        EXPECT_TRUE(ModuleUse::any());
    }
    EXPECT_FALSE(ModuleUse::any());
}

TEST_F(EventConnectionTest, AConnectionMayMove) {
    EventConnection first = listen();
    const EventConnection second = std::move(first);
    EXPECT_EQ(served->listeners(), 1U);
    click();
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace huebrush::word
