// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Failure.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "ports/word/com/Text.h"

namespace huebrush::word {
namespace {

/// A failure given as in lists of them.
constexpr HRESULT code(std::uint32_t value) {
    return static_cast<HRESULT>(value);
}

HRESULT STDMETHODCALLTYPE describeLater(EXCEPINFO* info) {
    info->wCode = 1004;
    info->bstrDescription = Text("Popis, na který se čekalo").release();
    return S_OK;
}

TEST(FailureTest, FailuresOfComHaveTheClassicNumbers) {
    for (const auto& [failure, number] :
         {std::pair(code(0x8002000A), 6), std::pair(code(0x8007000E), 7),
          std::pair(code(0x8002000B), 9), std::pair(code(0x80020005), 13),
          std::pair(code(0x80070005), 70), std::pair(code(0x80004003), 91),
          std::pair(code(0x80020003), 438), std::pair(code(0x80020006), 438),
          std::pair(code(0x80004001), 445), std::pair(code(0x80020007), 446),
          std::pair(code(0x80020004), 448), std::pair(code(0x8002000F), 449),
          std::pair(code(0x8002000E), 450), std::pair(code(0x80020011), 451),
          std::pair(code(0x80004002), 430)}) {
        EXPECT_EQ(numberOf(failure), number) << std::hex << failure;
    }
}

TEST(FailureTest, AHostThatIsGoneHasOneNumber) {
    for (const std::uint32_t failure : {0x80010105U, 0x80010108U, 0x80010001U, 0x800706BAU}) {
        EXPECT_EQ(numberOf(code(failure)), 462) << std::hex << failure;
    }
}

TEST(FailureTest, AHostsOwnErrorsHaveTheHostsNumbers) {
    EXPECT_EQ(numberOf(code(0x800A1066)), 4198);
    EXPECT_EQ(numberOf(code(0x800A1098)), 4248);
    EXPECT_EQ(numberOf(code(0x800A1735)), 5941);
}

TEST(FailureTest, OtherFailuresAreTheirOwnNumbers) {
    EXPECT_EQ(numberOf(code(0x80004005)), code(0x80004005));
    EXPECT_EQ(numberOf(code(0x80070057)), code(0x80070057));
    EXPECT_NE(numberOf(code(0x800A0000)), 0);
}

TEST(FailureTest, WithoutDetailsTheSystemDescribesIt) {
    const base::Error error = errorOf(code(0x80070005));
    EXPECT_EQ(error.number(), 70);
    EXPECT_FALSE(error.description().empty());
    EXPECT_EQ(error.description().find_first_of("\r\n"), std::string::npos);
}

TEST(FailureTest, AFailureThatTheSystemDoesNotKnowIsNamedByItsCode) {
    EXPECT_EQ(errorOf(code(0x8EADBEEF)).description(), "Chyba automatizace (8EADBEEF).");
}

TEST(FailureTest, TheNumberOfTheDetailsComesFirst) {
    FailureDetails details;
    details.out()->wCode = 5941;
    details.out()->scode = code(0x800A1066);
    details.out()->bstrDescription = Text("Požadovaný člen kolekce neexistuje.").release();
    const base::Error error = errorOf(DISP_E_EXCEPTION, details);
    EXPECT_EQ(error.number(), 5941);
    EXPECT_EQ(error.description(), "Požadovaný člen kolekce neexistuje.");
}

TEST(FailureTest, ThenTheirFailure) {
    for (const auto& [failure, number] :
         {std::pair(code(0x800A1066), 4198), std::pair(code(0x80020005), 13),
          std::pair(code(0x80070057), static_cast<int>(0x80070057))}) {
        FailureDetails details;
        details.out()->scode = failure;
        EXPECT_EQ(errorOf(DISP_E_EXCEPTION, details).number(), number) << std::hex << failure;
    }
}

TEST(FailureTest, DetailsThatSayNothingLeaveTheFailureItself) {
    FailureDetails details;
    const base::Error error = errorOf(DISP_E_EXCEPTION, details);
    EXPECT_EQ(error.number(), DISP_E_EXCEPTION);
    EXPECT_FALSE(error.description().empty());
}

TEST(FailureTest, DetailsAreAskedForWhereTheObjectWaitsForThat) {
    FailureDetails details;
    details.out()->pfnDeferredFillIn = &describeLater;
    const base::Error error = errorOf(DISP_E_EXCEPTION, details);
    EXPECT_EQ(error.number(), 1004);
    EXPECT_EQ(error.description(), "Popis, na který se čekalo");
}

TEST(FailureTest, DetailsOfOtherFailuresDoNotCount) {
    FailureDetails details;
    details.out()->wCode = 17;
    EXPECT_EQ(errorOf(DISP_E_TYPEMISMATCH, details).number(), 13);
}

TEST(FailureTest, OnlyFailuresAreThrown) {
    EXPECT_NO_THROW(check(S_OK));
    EXPECT_NO_THROW(check(S_FALSE));
    EXPECT_THROW(check(E_FAIL), base::Error);
}

}  // namespace
}  // namespace huebrush::word
