// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Object.h"

#include "base/Error.h"
#include "ports/word/com/Failure.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

/// Values and functions are asked for in the same way: who calls by name does not know which it is.
constexpr WORD kGet = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

/// The key of a member with the parameters that are given by name.
std::string keyOf(const char* member, const Arguments& arguments) {
    std::string key = member;
    for (const Argument& argument : arguments) {
        if (argument.name != nullptr) key.append("(").append(argument.name);
    }
    return key;
}

MemberNumbers::Numbers askForNumbers(IDispatch& object, const char* member,
                                     const Arguments& arguments) {
    std::vector<std::wstring> names{toWide(member)};
    for (const Argument& argument : arguments) {
        if (argument.name != nullptr) names.push_back(toWide(argument.name));
    }
    std::vector<LPOLESTR> pointers;
    for (std::wstring& name : names) pointers.push_back(name.data());
    MemberNumbers::Numbers numbers(names.size(), DISPID_UNKNOWN);
    const HRESULT result =
        object.GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(pointers.size()),
                             LOCALE_USER_DEFAULT, numbers.data());
    // The member is there, but not all of these parameters.
    if (result == DISP_E_UNKNOWNNAME && numbers.front() != DISPID_UNKNOWN) {
        check(DISP_E_PARAMNOTFOUND);
    }
    check(result);
    return numbers;
}

bool hasNames(const Arguments& arguments) {
    return !arguments.empty() && arguments.back().name != nullptr;
}

/// Arguments in the order in which a call wants them: those by name first, the others from the last
/// to the first. The values stay where they are.
std::vector<VARIANTARG> inOrder(const Arguments& arguments) {
    std::vector<VARIANTARG> ordered;
    ordered.reserve(arguments.size());
    for (const Argument& argument : arguments) {
        if (argument.name != nullptr) ordered.push_back(argument.value.get());
    }
    for (auto at = arguments.rbegin(); at != arguments.rend(); ++at) {
        if (at->name == nullptr) ordered.push_back(at->value.get());
    }
    return ordered;
}

}  // namespace

MemberNumbers::Kind& MemberNumbers::of(std::string_view kind) {
    const auto found = kinds_.find(kind);
    return found != kinds_.end() ? found->second : kinds_[std::string(kind)];
}

Object::Object(Pointer<IDispatch> object, std::string_view kind,
               std::shared_ptr<MemberNumbers> numbers)
    : object_(std::move(object)), numbers_(std::move(numbers)) {
    if (object_) kind_ = &numbers_->of(kind);
}

const MemberNumbers::Numbers& Object::numbersOf(const char* member,
                                                const Arguments& arguments) const {
    if (!hasNames(arguments)) {
        const auto known = kind_->find(std::string_view(member));
        if (known != kind_->end()) return known->second;
    }
    const std::string key = keyOf(member, arguments);
    const auto known = kind_->find(key);
    if (known != kind_->end()) return known->second;
    return kind_->emplace(key, askForNumbers(*object_, member, arguments)).first->second;
}

void Object::invoke(WORD way, DISPID member, DISPPARAMS& arguments, Variant* answer) const {
    // The call may let events run, which may end this object.
    const Pointer<IDispatch> alive = object_;
    FailureDetails details;
    UINT wrongArgument = 0;
    const HRESULT result =
        alive->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, way, &arguments,
                      answer == nullptr ? nullptr : answer->out(), details.out(), &wrongArgument);
    if (FAILED(result)) throw errorOf(result, details);
}

void Object::invoke(WORD way, const char* member, const Arguments& arguments,
                    Variant* answer) const {
    if (!object_) base::throwObjectNotSet();
    MemberNumbers::Numbers numbers = numbersOf(member, arguments);
    std::vector<VARIANTARG> ordered = inOrder(arguments);
    DISPPARAMS parameters{ordered.data(), numbers.data() + 1, static_cast<UINT>(ordered.size()),
                          static_cast<UINT>(numbers.size() - 1)};
    invoke(way, numbers.front(), parameters, answer);
}

Variant Object::get(const char* member, const Arguments& arguments) const {
    Variant answer;
    invoke(kGet, member, arguments, &answer);
    return answer;
}

Object Object::object(std::string_view kind, const char* member, const Arguments& arguments) const {
    // By the end of the call this object may be gone.
    const std::shared_ptr<MemberNumbers> numbers = numbers_;
    return {get(member, arguments).toObject(), kind, numbers};
}

void Object::put(const char* property, Variant value) const {
    if (!object_) base::throwObjectNotSet();
    VARIANTARG given = value.get();
    DISPID role = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&given, &role, 1, 1};
    invoke(DISPATCH_PROPERTYPUT, numbersOf(property, {}).front(), parameters, nullptr);
}

void Object::call(const char* member, const Arguments& arguments) const {
    invoke(DISPATCH_METHOD, member, arguments, nullptr);
}

Enumeration Object::enumerate(std::string_view kind) const {
    if (!object_) base::throwObjectNotSet();
    Variant answer;
    DISPPARAMS none{};
    invoke(kGet, DISPID_NEWENUM, none, &answer);
    Pointer<IEnumVARIANT> walk = answer.toUnknown().as<IEnumVARIANT>();
    if (!walk) check(DISP_E_NOTACOLLECTION);
    return {*this, std::string(kind), std::move(walk)};
}

bool Object::isSame(const Object& other) const {
    return object_.as<IUnknown>().get() == other.object_.as<IUnknown>().get();
}

std::optional<Object> Enumeration::next() {
    const Pointer<IEnumVARIANT> alive = walk_;
    const Object collection = collection_;
    const std::string kind = kind_;
    Variant member;
    ULONG fetched = 0;
    ::SetErrorInfo(0, nullptr);
    const HRESULT result = alive->Next(1, member.out(), &fetched);
    if (FAILED(result)) throw errorOfInterface(result);
    if (result != S_OK || fetched == 0) return std::nullopt;
    return collection.other(member.toObject(), kind);
}

}  // namespace huebrush::word
