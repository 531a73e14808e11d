// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Failure.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/Text.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

using base::text;

/// Failures that come from the connection to another process.
constexpr WORD kRemote = FACILITY_RPC;
constexpr std::int32_t kServerGone = 462;

constexpr std::array<std::pair<HRESULT, std::int32_t>, 20> kNumbers{{
    {DISP_E_OVERFLOW, base::ErrorNumber::kOverflow},
    {E_OUTOFMEMORY, 7},
    {DISP_E_BADINDEX, base::ErrorNumber::kSubscriptOutOfRange},
    {DISP_E_ARRAYISLOCKED, 10},
    {DISP_E_DIVBYZERO, 11},
    {DISP_E_TYPEMISMATCH, base::ErrorNumber::kTypeMismatch},
    {E_ACCESSDENIED, 70},
    {E_POINTER, base::ErrorNumber::kObjectNotSet},
    {E_NOINTERFACE, 430},
    {DISP_E_UNKNOWNNAME, 438},
    {DISP_E_MEMBERNOTFOUND, 438},
    {E_NOTIMPL, 445},
    {DISP_E_NONAMEDARGS, 446},
    {DISP_E_UNKNOWNLCID, 447},
    {DISP_E_PARAMNOTFOUND, 448},
    {DISP_E_PARAMNOTOPTIONAL, 449},
    {DISP_E_BADPARAMCOUNT, 450},
    {DISP_E_NOTACOLLECTION, 451},
    {DISP_E_BADVARTYPE, 458},
    {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), kServerGone},
}};

/// The system's text of a failure, in one line; empty where it has none.
std::string systemText(HRESULT failure) {
    std::wstring found(512, L'\0');
    const DWORD size = ::FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(failure), 0, found.data(), static_cast<DWORD>(found.size()),
        nullptr);
    found.resize(size);
    found.resize(found.find_last_not_of(L" \r\n") + 1);
    return toUtf8(found);
}

std::string descriptionOf(HRESULT failure) {
    const std::string known = systemText(failure);
    if (!known.empty()) return known;
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string code;
    for (int shift = 28; shift >= 0; shift -= 4) {
        code +=
            kDigits[(static_cast<std::uint32_t>(failure) >> static_cast<unsigned>(shift)) & 15U];
    }
    return text("Chyba automatizace (", code, ").");
}

}  // namespace

FailureDetails::~FailureDetails() {
    ::SysFreeString(info_.bstrSource);
    ::SysFreeString(info_.bstrDescription);
    ::SysFreeString(info_.bstrHelpFile);
}

const EXCEPINFO& FailureDetails::complete() {
    if (const auto fillIn = std::exchange(info_.pfnDeferredFillIn, nullptr)) fillIn(&info_);
    return info_;
}

std::int32_t numberOf(HRESULT failure) {
    if (HRESULT_FACILITY(failure) == FACILITY_CONTROL && HRESULT_CODE(failure) != 0) {
        return HRESULT_CODE(failure);
    }
    const auto* const known = std::find_if(kNumbers.begin(), kNumbers.end(),
                                           [&](const auto& each) { return each.first == failure; });
    if (known != kNumbers.end()) return known->second;
    return HRESULT_FACILITY(failure) == kRemote ? kServerGone : failure;
}

base::Error errorOf(HRESULT failure) {
    return {numberOf(failure), descriptionOf(failure)};
}

base::Error errorOfInterface(HRESULT failure) {
    Pointer<IErrorInfo> left;
    BSTR description = nullptr;
    if (::GetErrorInfo(0, left.out()) == S_OK) left->GetDescription(&description);
    const std::string given = textOf(description);
    ::SysFreeString(description);
    return {numberOf(failure), given.empty() ? descriptionOf(failure) : given};
}

base::Error errorOf(HRESULT failure, FailureDetails& details) {
    if (failure != DISP_E_EXCEPTION) return errorOf(failure);
    const EXCEPINFO& info = details.complete();
    const HRESULT cause = FAILED(info.scode) ? info.scode : failure;
    const std::string given = textOf(info.bstrDescription);
    return {info.wCode != 0 ? info.wCode : numberOf(cause),
            given.empty() ? descriptionOf(cause) : given};
}

}  // namespace huebrush::word
