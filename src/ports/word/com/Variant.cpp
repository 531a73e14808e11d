// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Variant.h"

#include <new>
#include <utility>

#include "base/Error.h"
#include "ports/word/com/Failure.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

constexpr std::int32_t kObjectRequired = 424;

/// An array of variants in the making.
class Array {
 public:
    explicit Array(std::size_t size)
        : array_(::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(size))) {
        if (array_ == nullptr) throw std::bad_alloc();
    }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    ~Array() {
        if (array_ != nullptr) ::SafeArrayDestroy(array_);
    }

    void put(std::size_t index, const Variant& value) {
        auto at = static_cast<LONG>(index);
        VARIANT copied = value.get();
        check(::SafeArrayPutElement(array_, &at, &copied));
    }
    SAFEARRAY* release() { return std::exchange(array_, nullptr); }

 private:
    SAFEARRAY* array_;
};

}  // namespace

Variant::Variant(Missing) : Variant() {
    V_VT(&value_) = VT_ERROR;
    V_ERROR(&value_) = DISP_E_PARAMNOTFOUND;
}

Variant::Variant(std::int32_t number) : Variant() {
    V_VT(&value_) = VT_I4;
    V_I4(&value_) = number;
}

Variant::Variant(float number) : Variant() {
    V_VT(&value_) = VT_R4;
    V_R4(&value_) = number;
}

Variant::Variant(bool value) : Variant() {
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::string_view text) : Variant() {
    V_BSTR(&value_) = Text(text).release();
    V_VT(&value_) = VT_BSTR;
}

Variant::Variant(const Pointer<IDispatch>& object) : Variant() {
    V_DISPATCH(&value_) = Pointer<IDispatch>(object).release();
    V_VT(&value_) = VT_DISPATCH;
}

Variant::Variant(const std::vector<std::string>& texts) : Variant() {
    Array array(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) array.put(i, Variant(texts[i]));
    V_ARRAY(&value_) = array.release();
    V_VT(&value_) = VT_ARRAY | VT_VARIANT;
}

Variant::Variant(const Variant& other) : Variant(copyOf(other.value_)) {}

Variant::Variant(Variant&& other) noexcept : value_(other.value_) {
    ::VariantInit(&other.value_);
}

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
}

Variant Variant::copyOf(const VARIANT& value) {
    Variant copy;
    // The headers of some systems forget that it is only read.
    check(::VariantCopy(&copy.value_, const_cast<VARIANT*>(&value)));
    return copy;
}

VARIANT Variant::release() {
    const VARIANT given = value_;
    ::VariantInit(&value_);
    return given;
}

VARIANT* Variant::out() {
    ::VariantClear(&value_);
    return &value_;
}

Variant Variant::withoutReference() const {
    Variant direct;
    check(::VariantCopyInd(&direct.value_, const_cast<VARIANT*>(&value_)));
    return direct;
}

Variant Variant::converted(VARTYPE type) const {
    Variant direct = withoutReference();
    if (V_VT(&direct.value_) == VT_NULL) {
        throw base::Error(base::ErrorNumber::kInvalidUseOfNull, "Neplatné použití hodnoty Null.");
    }
    Variant result;
    check(::VariantChangeType(&result.value_, &direct.value_, 0, type));
    return result;
}

std::int32_t Variant::toInteger() const {
    return V_VT(&value_) == VT_I4 ? V_I4(&value_) : V_I4(&converted(VT_I4).get());
}

float Variant::toSingle() const {
    return V_VT(&value_) == VT_R4 ? V_R4(&value_) : V_R4(&converted(VT_R4).get());
}

bool Variant::toBoolean() const {
    return V_BOOL(&converted(VT_BOOL).get()) != VARIANT_FALSE;
}

std::string Variant::toText() const {
    if (V_VT(&value_) == VT_BSTR) return textOf(V_BSTR(&value_));
    return textOf(V_BSTR(&converted(VT_BSTR).get()));
}

Pointer<IUnknown> Variant::toUnknown() const {
    const Variant direct = withoutReference();
    switch (V_VT(&direct.value_)) {
        case VT_EMPTY:
            return {};
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return Pointer<IUnknown>::share(V_UNKNOWN(&direct.value_));
        default:
            throw base::Error(kObjectRequired, "Je požadován objekt.");
    }
}

Pointer<IDispatch> Variant::toObject() const {
    // As it was given: an object may have several interfaces with members to call by name.
    if (V_VT(&value_) == VT_DISPATCH) return Pointer<IDispatch>::share(V_DISPATCH(&value_));
    const Pointer<IUnknown> object = toUnknown();
    Pointer<IDispatch> called = object.as<IDispatch>();
    if (object && !called) check(E_NOINTERFACE);
    return called;
}

}  // namespace huebrush::word
