// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "ports/word/com/Served_fixture_test_support.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {
namespace {

/// A value as a host gives it: of this type, filled by the function.
Variant given(
    VARTYPE type, const std::function<void(VARIANT&)>& fill = [](VARIANT&) {}) {
    Variant value;
    VARIANT* const inside = value.out();
    V_VT(inside) = type;
    fill(*inside);
    return value;
}

template <class Conversion>
std::int32_t errorOf(Conversion&& conversion) {
    try {
        conversion();
    } catch (const base::Error& error) {
        return error.number();
    }
    return 0;
}

TEST(VariantTest, ValuesComeBackAsTheyWentIn) {
    EXPECT_EQ(Variant(-2147483647 - 1).toInteger(), -2147483647 - 1);
    EXPECT_EQ(Variant(60.7F).toSingle(), 60.7F);
    EXPECT_TRUE(Variant(true).toBoolean());
    EXPECT_FALSE(Variant(false).toBoolean());
    EXPECT_EQ(Variant("Dle výplne").toText(), "Dle výplne");
    EXPECT_EQ(Variant(std::string("a\0b", 3)).toText(), std::string("a\0b", 3));
    EXPECT_EQ(Variant("\xF0\x9F\x96\x8C").toText(), "\xF0\x9F\x96\x8C");
    EXPECT_EQ(Variant("").toText(), "");
}

TEST(VariantTest, TruthIsMinusOneWhereItIsPassedOn) {
    EXPECT_EQ(V_VT(&Variant(true).get()), VT_BOOL);
    EXPECT_EQ(V_BOOL(&Variant(true).get()), VARIANT_TRUE);
    EXPECT_EQ(Variant(true).toInteger(), -1);
}

TEST(VariantTest, AMissingArgumentIsTheErrorThatStandsForIt) {
    const Variant missing = kMissing;
    EXPECT_EQ(V_VT(&missing.get()), VT_ERROR);
    EXPECT_EQ(V_ERROR(&missing.get()), DISP_E_PARAMNOTFOUND);
}

TEST(VariantTest, WholeNumbersOfEveryTypeAreNumbers) {
    EXPECT_EQ(given(VT_I2, [](VARIANT& v) { V_I2(&v) = -2; }).toInteger(), -2);
    EXPECT_EQ(given(VT_UI1, [](VARIANT& v) { V_UI1(&v) = 200; }).toInteger(), 200);
    EXPECT_EQ(given(VT_INT, [](VARIANT& v) { V_INT(&v) = 7; }).toInteger(), 7);
    EXPECT_EQ(given(VT_UI4, [](VARIANT& v) { V_UI4(&v) = 0xFFFFFF; }).toInteger(), 0xFFFFFF);
    EXPECT_EQ(given(VT_BOOL, [](VARIANT& v) { V_BOOL(&v) = VARIANT_TRUE; }).toInteger(), -1);
    EXPECT_EQ(given(VT_EMPTY).toInteger(), 0);
    EXPECT_EQ(Variant("-12").toInteger(), -12);
}

TEST(VariantTest, FractionsAreRoundedHalfToEven) {
    for (const auto& [value, whole] :
         {std::pair(2.5, 2), std::pair(3.5, 4), std::pair(-2.5, -2), std::pair(2.51, 3)}) {
        EXPECT_EQ(given(VT_R8, [value = value](VARIANT& v) { V_R8(&v) = value; }).toInteger(),
                  whole);
    }
    EXPECT_EQ(given(VT_R4, [](VARIANT& v) { V_R4(&v) = 1.5F; }).toInteger(), 2);
}

TEST(VariantTest, SinglesComeFromOtherNumbers) {
    EXPECT_EQ(given(VT_R8, [](VARIANT& v) { V_R8(&v) = 0.5; }).toSingle(), 0.5F);
    EXPECT_EQ(Variant(-2).toSingle(), -2.0F);
    EXPECT_EQ(given(VT_I2, [](VARIANT& v) { V_I2(&v) = 1; }).toSingle(), 1.0F);
}

TEST(VariantTest, TruthComesFromNumbers) {
    EXPECT_TRUE(Variant(1).toBoolean());
    EXPECT_TRUE(Variant(-1).toBoolean());
    EXPECT_FALSE(Variant(0).toBoolean());
    EXPECT_FALSE(given(VT_EMPTY).toBoolean());
}

TEST(VariantTest, TextsComeFromNumbers) {
    EXPECT_EQ(Variant(960).toText(), "960");
    EXPECT_EQ(given(VT_EMPTY).toText(), "");
    EXPECT_EQ(given(VT_BSTR).toText(), "");
}

TEST(VariantTest, WhatIsPassedByReferenceIsFollowed) {
    LONG number = 13;
    EXPECT_EQ(given(VT_BYREF | VT_I4, [&](VARIANT& v) { V_I4REF(&v) = &number; }).toInteger(), 13);
    VARIANT_BOOL truth = VARIANT_TRUE;
    EXPECT_TRUE(given(VT_BYREF | VT_BOOL, [&](VARIANT& v) { V_BOOLREF(&v) = &truth; }).toBoolean());
    double fraction = 0.25;
    EXPECT_EQ(given(VT_BYREF | VT_R8, [&](VARIANT& v) { V_R8REF(&v) = &fraction; }).toSingle(),
              0.25F);
    VARIANT inner = Variant(5).get();
    EXPECT_EQ(
        given(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { V_VARIANTREF(&v) = &inner; }).toInteger(),
        5);
    BSTR text = Text("Sun").release();
    EXPECT_EQ(given(VT_BYREF | VT_BSTR, [&](VARIANT& v) { V_BSTRREF(&v) = &text; }).toText(),
              "Sun");
    ::SysFreeString(text);
}

TEST(VariantTest, WhatHasNoSuchValueIsAnError) {
    EXPECT_EQ(errorOf([] { given(VT_R8, [](VARIANT& v) { V_R8(&v) = 1e10; }).toInteger(); }), 6);
    EXPECT_EQ(errorOf([] { given(VT_R8, [](VARIANT& v) { V_R8(&v) = 1e300; }).toSingle(); }), 6);
    EXPECT_EQ(errorOf([] { Variant("beta").toInteger(); }), 13);
    EXPECT_EQ(errorOf([] { Variant(kMissing).toInteger(); }), 13);
    EXPECT_EQ(errorOf([] { Variant(std::vector<std::string>{"a"}).toText(); }), 13);
    EXPECT_EQ(errorOf([] { given(VT_NULL).toInteger(); }), 94);
    EXPECT_EQ(errorOf([] { given(VT_NULL).toText(); }), 94);
    EXPECT_EQ(errorOf([] { Variant(3).toObject(); }), 424);
    EXPECT_EQ(errorOf([] { Variant("Sun").toObject(); }), 424);
}

TEST(VariantTest, TextsInAnArrayAreVariantsThatCountFromZero) {
    const Variant names(std::vector<std::string>{"Slunce", "Měsíc", ""});
    ASSERT_EQ(V_VT(&names.get()), VT_ARRAY | VT_VARIANT);
    SAFEARRAY* const array = V_ARRAY(&names.get());
    EXPECT_EQ(::SafeArrayGetDim(array), 1U);
    LONG first = -1;
    LONG last = -1;
    ::SafeArrayGetLBound(array, 1, &first);
    ::SafeArrayGetUBound(array, 1, &last);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(last, 2);
    LONG at = 1;
    Variant second;
    ASSERT_EQ(::SafeArrayGetElement(array, &at, second.out()), S_OK);
    EXPECT_EQ(V_VT(&second.get()), VT_BSTR);
    EXPECT_EQ(second.toText(), "Měsíc");
}

TEST(VariantTest, AnEmptyArrayIsOne) {
    const Variant none(std::vector<std::string>{});
    LONG last = 0;
    ::SafeArrayGetUBound(V_ARRAY(&none.get()), 1, &last);
    EXPECT_EQ(last, -1);
}

TEST(VariantTest, CopiesAreTheirOwn) {
    const Variant original("Sun");
    {
        const Variant copy = original;
        EXPECT_NE(V_BSTR(&copy.get()), V_BSTR(&original.get()));
    }
    EXPECT_EQ(original.toText(), "Sun");
    Variant moved = Variant("Moon");
    moved = original;
    EXPECT_EQ(moved.toText(), "Sun");
}

class VariantOfObjects : public ServedTest {
 protected:
    KindOf<int> kind{"Thing"};
    Pointer<IDispatch> thing = served->serve(kind, std::make_shared<int>(1));

    void TearDown() override {
        thing.reset();
        ServedTest::TearDown();
    }
};

TEST_F(VariantOfObjects, AnObjectIsCountedAsLongAsTheValueLives) {
    EXPECT_EQ(served->references(), 1);
    {
        const Variant value(thing);
        const Variant copy = value;
        EXPECT_EQ(served->references(), 3);
        EXPECT_EQ(copy.toObject().get(), thing.get());
    }
    EXPECT_EQ(served->references(), 1);
}

TEST_F(VariantOfObjects, NothingAndEmptyAreNoObject) {
    EXPECT_FALSE(Variant(Pointer<IDispatch>()).toObject());
    EXPECT_FALSE(given(VT_EMPTY).toObject());
    EXPECT_FALSE(given(VT_UNKNOWN, [](VARIANT& v) { V_UNKNOWN(&v) = nullptr; }).toObject());
}

TEST_F(VariantOfObjects, AnObjectOfUnknownInterfaceIsAskedForTheOneWithMembers) {
    const Variant value =
        given(VT_UNKNOWN, [&](VARIANT& v) { V_UNKNOWN(&v) = Pointer<IDispatch>(thing).release(); });
    EXPECT_EQ(value.toObject().get(), thing.get());
    Pointer<IDispatch> local = thing;
    IDispatch* place = local.get();
    EXPECT_EQ(given(VT_BYREF | VT_DISPATCH, [&](VARIANT& v) { V_DISPATCHREF(&v) = &place; })
                  .toObject()
                  .get(),
              thing.get());
}

}  // namespace
}  // namespace huebrush::word
