// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>
#include <oleauto.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ports/word/com/Pointer.h"

namespace huebrush::word {

/// Stands for an argument that is left out.
struct Missing {};
inline constexpr Missing kMissing{};

/// A value of whatever type an object's members take and give.
class Variant {
 public:
    /// Empty: a variable without a value.
    Variant() noexcept { ::VariantInit(&value_); }
    Variant(Missing);                 // NOLINT: values are passed as they are
    Variant(std::int32_t number);     // NOLINT
    Variant(float number);            // NOLINT
    Variant(bool value);              // NOLINT
    Variant(std::string_view text);   // NOLINT
    Variant(const std::string& text)  // NOLINT
        : Variant(std::string_view(text)) {}
    Variant(const char* text)  // NOLINT: it would become a truth value
        : Variant(std::string_view(text)) {}
    Variant(const Pointer<IDispatch>& object);  // NOLINT
    /// An array that counts from 0, of texts each of which is a variant.
    explicit Variant(const std::vector<std::string>& texts);

    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant other) noexcept;
    ~Variant() { ::VariantClear(&value_); }

    /// A value of somebody else's, with all that it refers to.
    static Variant copyOf(const VARIANT& value);

    const VARIANT& get() const { return value_; }
    /// The value, which the caller has to clear.
    VARIANT release();
    /// Where a call is to put a value; what was here before is gone.
    VARIANT* out();

    // The value, converted as the forms runtime would do it: numbers are rounded (half to even) and
    // checked (error 6), texts read as numbers of the user's locale. What has no such value is a
    // type mismatch (13), Null an error of its own (94).
    std::int32_t toInteger() const;
    float toSingle() const;
    bool toBoolean() const;
    std::string toText() const;
    /// An object; none for Nothing and for a variable without a value. Anything else is an error
    /// (424).
    Pointer<IDispatch> toObject() const;
    /// The same, for objects that are not called by name.
    Pointer<IUnknown> toUnknown() const;

 private:
    /// What the value refers to, or the value itself.
    Variant withoutReference() const;
    Variant converted(VARTYPE type) const;

    VARIANT value_;
};

}  // namespace huebrush::word
