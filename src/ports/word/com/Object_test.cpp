// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Object.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/word/com/Served_fixture_test_support.h"

namespace huebrush::word {
namespace {

using Calls = std::vector<std::string>;

/// A thing with a size, a colour and parts of its own kind.
struct Thing {
    std::int32_t size = 0;
    std::string color = "modrá";
    std::vector<std::shared_ptr<Thing>> parts;
    /// What happens while it is painted.
    std::function<void()> onPaint;
};

class ObjectTest : public ServedTest {
 protected:
    ObjectTest() {
        kind.get("Size", [](Thing& thing) { return thing.size; })
            .put("Size", [](Thing& thing, const ServedCall& call) { thing.size = call.integer(0); })
            .get("Color", [](Thing& thing) { return thing.color; })
            .procedure("Paint", {"[Color]", "[Thickness]", "[Fast]"},
                       [](Thing& thing, const ServedCall& call) {
                           if (thing.onPaint) thing.onPaint();
                           if (call.has(0)) thing.color = call.text(0);
                       })
            .function("Part", {"Index"},
                      [this](Thing& thing, const ServedCall& call) {
                          const auto index = static_cast<std::size_t>(call.integer(0));
                          if (index >= thing.parts.size()) {
                              throw base::Error(5941, "Požadovaný člen kolekce neexistuje.");
                          }
                          return serve(thing.parts[index]);
                      })
            .get("Neighbour", [](Thing&) { return Pointer<IDispatch>(); })
            .get("Self", [this](Thing&) { return serve(thing); })
            .walk([this](Thing& thing) -> ServedWalk {
                return [this, at = std::size_t{0},
                        parts = thing.parts]() mutable -> std::optional<Variant> {
                    if (at == parts.size()) return std::nullopt;
                    return Variant(serve(parts[at++]));
                };
            });
        other.get("Size", [](Thing&) { return 77; });
        for (int i = 1; i <= 3; ++i) {
            thing->parts.push_back(std::make_shared<Thing>());
            thing->parts.back()->size = i;
        }
    }

    Pointer<IDispatch> serve(const std::shared_ptr<Thing>& one) {
        return served->serve(kind, one, one.get());
    }
    Object object() { return {serve(thing), "Thing"}; }
    template <class Use>
    base::Error errorOf(Use&& use) {
        try {
            use();
        } catch (const base::Error& error) {
            return error;
        }
        return {0, {}};
    }

    KindOf<Thing> kind{"Thing"};
    KindOf<Thing> other{"Other"};
    std::shared_ptr<Thing> thing = std::make_shared<Thing>();
};

TEST_F(ObjectTest, PropertiesAreReadAndWritten) {
    const Object one = object();
    one.put("Size", 12);
    EXPECT_EQ(one.get("Size").toInteger(), 12);
    EXPECT_EQ(one.get("Color").toText(), "modrá");
    EXPECT_EQ(served->log, (Calls{"Thing.Size = 12", "Thing.Size", "Thing.Color"}));
}

TEST_F(ObjectTest, ArgumentsGoToTheirPlaces) {
    object().call("Paint", {"žlutá", 2, true});
    EXPECT_EQ(served->log, Calls{"Thing.Paint(žlutá, 2, True)"});
    EXPECT_EQ(thing->color, "žlutá");
}

TEST_F(ObjectTest, ArgumentsMayBeLeftOut) {
    object().call("Paint");
    object().call("Paint", {kMissing, 2});
    EXPECT_EQ(served->log, (Calls{"Thing.Paint", "Thing.Paint(, 2)"}));
    EXPECT_EQ(thing->color, "modrá");
}

TEST_F(ObjectTest, ArgumentsGoByTheirNames) {
    object().call("Paint", {named("Fast", false), named("Color", "bílá")});
    EXPECT_EQ(thing->color, "bílá");
    object().call("Paint", {"černá", named("Fast", true)});
    EXPECT_EQ(thing->color, "černá");
    EXPECT_EQ(served->log,
              (Calls{"Thing.Paint(Fast:=False, Color:=bílá)", "Thing.Paint(černá, Fast:=True)"}));
}

TEST_F(ObjectTest, AMembersNumberIsAskedForOnceForAllObjectsOfItsKind) {
    const Object one = object();
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(one.object("Thing", "Part", {i}).get("Size").toInteger(), i + 1);
    EXPECT_EQ(served->lookups, 2U);
    one.call("Paint", {named("Color", "bílá")});
    one.call("Paint", {named("Color", "bílá")});
    EXPECT_EQ(served->lookups, 3U);
    one.call("Paint", {named("Fast", true)});
    one.call("Paint", {"bílá"});
    EXPECT_EQ(served->lookups, 5U);
}

TEST_F(ObjectTest, KindsHaveTheirOwnNumbers) {
    const Object one = object();
    EXPECT_EQ(one.get("Size").toInteger(), 0);
    const Object foreign = one.other(served->serve(other, thing), "Other");
    EXPECT_EQ(foreign.get("Size").toInteger(), 77);
    EXPECT_EQ(one.get("Size").toInteger(), 0);
}

TEST_F(ObjectTest, AnObjectThatIsNothingIsEmptyAndItsUseAnError) {
    const Object none = object().object("Thing", "Neighbour");
    EXPECT_FALSE(none);
    EXPECT_EQ(errorOf([&] { none.get("Size"); }).number(), 91);
    EXPECT_EQ(errorOf([&] { none.put("Size", 1); }).number(), 91);
    EXPECT_EQ(errorOf([&] { none.call("Paint"); }).number(), 91);
    EXPECT_EQ(errorOf([&] { none.object("Thing", "Self"); }).number(), 91);
    EXPECT_EQ(errorOf([&] { none.enumerate("Thing"); }).number(), 91);
    EXPECT_EQ(errorOf([&] { Object().get("Size"); }).number(), 91);
}

TEST_F(ObjectTest, WhatAnObjectDoesNotHaveIsAnError) {
    const Object one = object();
    EXPECT_EQ(errorOf([&] { one.get("Weight"); }).number(), 438);
    EXPECT_EQ(errorOf([&] { one.get("Weight"); }).number(), 438);
    EXPECT_EQ(errorOf([&] { one.put("Color", "bílá"); }).number(), 438);
    EXPECT_EQ(errorOf([&] { one.call("Paint", {named("Slow", true)}); }).number(), 448);
    EXPECT_EQ(errorOf([&] { one.call("Paint", {1, 2, 3, 4}); }).number(), 450);
    EXPECT_EQ(errorOf([&] { one.get("Part"); }).number(), 449);
    EXPECT_EQ(errorOf([&] { one.put("Size", "velká"); }).number(), 13);
}

TEST_F(ObjectTest, AnErrorOfAMemberHasItsNumberAndText) {
    for (const bool deferred : {false, true}) {
        served->defersDetails = deferred;
        const base::Error error = errorOf([&] { object().get("Part", {9}); });
        EXPECT_EQ(error.number(), 5941);
        EXPECT_EQ(error.description(), "Požadovaný člen kolekce neexistuje.");
    }
}

TEST_F(ObjectTest, TheNthCallFailsAndNoOther) {
    served->failAt = 2;
    const Object one = object();
    EXPECT_EQ(one.get("Size").toInteger(), 0);
    EXPECT_EQ(errorOf([&] { one.get("Size"); }).number(), 4198);
    EXPECT_EQ(one.get("Size").toInteger(), 0);
}

TEST_F(ObjectTest, ACollectionIsWalkedInItsOrder) {
    Enumeration walk = object().enumerate("Thing");
    Calls sizes;
    while (const auto part = walk.next())
        sizes.push_back(base::text(part->get("Size").toInteger()));
    EXPECT_EQ(sizes, (Calls{"1", "2", "3"}));
    EXPECT_FALSE(walk.next());
}

TEST_F(ObjectTest, AWalkThatFailsIsAnError) {
    served->failAt = 3;
    Enumeration walk = object().enumerate("Thing");
    EXPECT_TRUE(walk.next());
    const base::Error error = errorOf([&] { walk.next(); });
    EXPECT_EQ(error.number(), 4198);
    EXPECT_EQ(error.description(), "Příkaz selhal.");
}

TEST_F(ObjectTest, WhatIsNoCollectionCannotBeWalked) {
    const Object foreign = object().other(served->serve(other, thing), "Other");
    EXPECT_EQ(errorOf([&] { foreign.enumerate("Thing"); }).number(), 438);
}

TEST_F(ObjectTest, AnObjectIsTheSameHoweverItWasReached) {
    const Object one = object();
    EXPECT_TRUE(one.isSame(one.object("Thing", "Self")));
    EXPECT_FALSE(one.isSame(one.object("Thing", "Part", {0})));
    EXPECT_FALSE(one.isSame(Object()));
}

TEST_F(ObjectTest, AnObjectMayEndWhileItsCallRuns) {
    auto one = std::make_unique<Object>(object());
    thing->onPaint = [&] { one.reset(); };
    one->call("Paint", {"bílá"});
    EXPECT_EQ(one, nullptr);
    EXPECT_EQ(thing->color, "bílá");
}

TEST_F(ObjectTest, AnObjectMayEndWhileItsCallFails) {
    auto one = std::make_unique<Object>(object());
    thing->onPaint = [&] {
        one.reset();
        throw base::Error(4605, "Nyní ne.");
    };
    EXPECT_EQ(errorOf([&] { one->call("Paint"); }).number(), 4605);
}

TEST_F(ObjectTest, AnswersOfOtherTypesAreConverted) {
    served->answersInOtherTypes = true;
    thing->size = 300;
    EXPECT_EQ(object().get("Size").toInteger(), 300);
    thing->size = 100000;
    EXPECT_EQ(object().get("Size").toInteger(), 100000);
}

}  // namespace
}  // namespace huebrush::word
