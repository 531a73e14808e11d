// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>

#include <concepts>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ports/word/com/Pointer.h"
#include "ports/word/com/Variant.h"

namespace huebrush::word {

/// An argument of a call, at its place or by its name.
struct Argument {
    template <class Value>
    requires(std::constructible_from<Variant, Value>) Argument(Value&& given)
        : value(std::forward<Value>(given)) {}  // NOLINT: as it is
    Argument(const char* parameter, Variant given) : name(parameter), value(std::move(given)) {}

    /// The parameter; none of an argument at its place.
    const char* name = nullptr;
    Variant value;
};

/// An argument by its name. Those stand behind all that have a place.
template <class Value>
Argument named(const char* parameter, Value&& value) {
    return {parameter, Variant(std::forward<Value>(value))};
}

using Arguments = std::vector<Argument>;

/// The numbers by which the objects of a host know their members. The objects of one kind have the
/// same ones, so each is asked for once.
class MemberNumbers {
 public:
    using Numbers = std::vector<DISPID>;
    /// The members of one kind of object, with the parameters that are given by name.
    using Kind = std::map<std::string, Numbers, std::less<>>;

    Kind& of(std::string_view kind);

 private:
    std::map<std::string, Kind, std::less<>> kinds_;
};

class Enumeration;

/// An object of the host, whose members are called by name. A failed call throws the error that the
/// forms runtime would have raised, with the host's own description.
class Object {
 public:
    /// No object: every use is an error (91).
    Object() = default;
    /// The first object of a host; `kind` is the name of its class.
    Object(Pointer<IDispatch> object, std::string_view kind)
        : Object(std::move(object), kind, std::make_shared<MemberNumbers>()) {}

    /// The value of a property, or the answer of a function.
    Variant get(const char* member, const Arguments& arguments = {}) const;
    /// The same, where it is an object.
    Object object(std::string_view kind, const char* member, const Arguments& arguments = {}) const;
    void put(const char* property, Variant value) const;
    /// Runs a method that has no answer.
    void call(const char* member, const Arguments& arguments = {}) const;
    /// The members of a collection, which are of this kind.
    Enumeration enumerate(std::string_view kind) const;
    /// An object of this host that came in another way.
    Object other(Pointer<IDispatch> object, std::string_view kind) const {
        return {std::move(object), kind, numbers_};
    }

    explicit operator bool() const { return static_cast<bool>(object_); }
    /// Whether both are one and the same object.
    bool isSame(const Object& other) const;
    const Pointer<IDispatch>& dispatch() const { return object_; }

 private:
    Object(Pointer<IDispatch> object, std::string_view kind,
           std::shared_ptr<MemberNumbers> numbers);

    const MemberNumbers::Numbers& numbersOf(const char* member, const Arguments& arguments) const;
    void invoke(WORD way, DISPID member, DISPPARAMS& arguments, Variant* answer) const;
    void invoke(WORD way, const char* member, const Arguments& arguments, Variant* answer) const;

    Pointer<IDispatch> object_;
    std::shared_ptr<MemberNumbers> numbers_;
    MemberNumbers::Kind* kind_ = nullptr;
};

/// One walk over a collection.
class Enumeration {
 public:
    Enumeration(Object collection, std::string kind, Pointer<IEnumVARIANT> walk)
        : collection_(std::move(collection)), kind_(std::move(kind)), walk_(std::move(walk)) {}

    /// The next member; nothing at the end.
    std::optional<Object> next();

 private:
    Object collection_;
    std::string kind_;
    Pointer<IEnumVARIANT> walk_;
};

}  // namespace huebrush::word
