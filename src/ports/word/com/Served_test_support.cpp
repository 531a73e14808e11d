// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/Served_test_support.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <charconv>
#include <numeric>

#include "base/Text.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

using base::text;
using Way = ServedKind::Way;

[[noreturn]] void throwMismatch() {
    throw base::Error(base::ErrorNumber::kTypeMismatch, "Typová neshoda.");
}

std::string shown(float value) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    return {digits, end};
}

std::string shown(const VARIANT& value);

std::string shownArray(SAFEARRAY* array) {
    LONG first = 0;
    LONG last = 0;
    ::SafeArrayGetLBound(array, 1, &first);
    ::SafeArrayGetUBound(array, 1, &last);
    std::string all;
    for (LONG at = first; at <= last; ++at) {
        Variant element;
        ::SafeArrayGetElement(array, &at, element.out());
        all += (all.empty() ? "" : ", ") + shown(element.get());
    }
    return text("[", all, "]");
}

std::string shown(const VARIANT& value) {
    switch (V_VT(&value)) {
        case VT_I4:
            return text(static_cast<std::int32_t>(V_I4(&value)));
        case VT_R4:
            return shown(V_R4(&value));
        case VT_BOOL:
            return V_BOOL(&value) != VARIANT_FALSE ? "True" : "False";
        case VT_BSTR:
            return textOf(V_BSTR(&value));
        case VT_ERROR:
            return {};
        case VT_ARRAY | VT_VARIANT:
            return shownArray(V_ARRAY(&value));
        default:
            return text("type ", static_cast<std::int32_t>(V_VT(&value)));
    }
}

bool isOptional(const std::string& parameter) {
    return parameter.front() == '[';
}

std::string nameOf(const std::string& parameter) {
    return isOptional(parameter) ? parameter.substr(1, parameter.size() - 2) : parameter;
}

HRESULT describe(const base::Error& error) {
    return error.number() > 0 ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, error.number())
                              : error.number();
}

/// Completes what a call has left open: the description waits in the reserved pointer.
HRESULT STDMETHODCALLTYPE fillIn(EXCEPINFO* info) {
    info->bstrDescription = static_cast<BSTR>(std::exchange(info->pvReserved, nullptr));
    return S_OK;
}

HRESULT fail(const base::Error& error, bool deferred, EXCEPINFO* info) {
    if (info == nullptr) return describe(error);
    *info = {};
    info->scode = describe(error);
    BSTR description = Text(error.description()).release();
    if (deferred) {
        info->pvReserved = description;
        info->pfnDeferredFillIn = &fillIn;
    } else {
        info->bstrDescription = description;
    }
    return DISP_E_EXCEPTION;
}

/// Leaves the text of an error for the thread.
void leave(const base::Error& error) {
    Pointer<ICreateErrorInfo> created;
    ::CreateErrorInfo(created.out());
    created->SetDescription(toWide(error.description()).data());
    ::SetErrorInfo(0, created.as<IErrorInfo>().get());
}

/// The same value in another type, as other versions of a host may answer.
Variant inOtherType(Variant value) {
    VARTYPE type = VT_EMPTY;
    switch (V_VT(&value.get())) {
        case VT_I4:
            type = V_I4(&value.get()) == static_cast<SHORT>(V_I4(&value.get())) ? VT_I2 : VT_R8;
            break;
        case VT_R4:
            type = VT_R8;
            break;
        case VT_BOOL:
            type = VT_I4;
            break;
        default:
            return value;
    }
    VARIANT given = value.release();
    Variant other;
    ::VariantChangeType(other.out(), &given, 0, type);
    return other;
}

}  // namespace

bool ServedCall::has(std::size_t parameter) const {
    const VARIANT* const given = given_.at(parameter);
    return given != nullptr && !(V_VT(given) == VT_ERROR && V_ERROR(given) == DISP_E_PARAMNOTFOUND);
}

const VARIANT& ServedCall::typed(std::size_t parameter, VARTYPE type) const {
    if (!has(parameter) || V_VT(given_[parameter]) != type) throwMismatch();
    return *given_[parameter];
}

std::int32_t ServedCall::integer(std::size_t parameter) const {
    return V_I4(&typed(parameter, VT_I4));
}
float ServedCall::single(std::size_t parameter) const {
    return V_R4(&typed(parameter, VT_R4));
}
bool ServedCall::boolean(std::size_t parameter) const {
    return V_BOOL(&typed(parameter, VT_BOOL)) != VARIANT_FALSE;
}
std::string ServedCall::text(std::size_t parameter) const {
    return textOf(V_BSTR(&typed(parameter, VT_BSTR)));
}

std::vector<std::string> ServedCall::texts(std::size_t parameter) const {
    SAFEARRAY* const array = V_ARRAY(&typed(parameter, VT_ARRAY | VT_VARIANT));
    LONG first = -1;
    LONG last = -1;
    ::SafeArrayGetLBound(array, 1, &first);
    ::SafeArrayGetUBound(array, 1, &last);
    if (first != 0) throwMismatch();
    std::vector<std::string> all;
    for (LONG at = 0; at <= last; ++at) {
        Variant element;
        ::SafeArrayGetElement(array, &at, element.out());
        if (V_VT(&element.get()) != VT_BSTR) throwMismatch();
        all.push_back(textOf(V_BSTR(&element.get())));
    }
    return all;
}

/// Members of one name have different numbers on different kinds of object.
DISPID ServedKind::first() const {
    return 1000 *
           static_cast<DISPID>(std::accumulate(name_.begin(), name_.end(), 0,
                                               [](int sum, char each) { return sum + each; }));
}

std::optional<DISPID> ServedKind::number(const std::string& member) const {
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (members[i].name == member) return first() + static_cast<DISPID>(i);
    }
    return std::nullopt;
}

const ServedKind::Member* ServedKind::find(DISPID number, Way way) const {
    for (const Member& member : members) {
        if (member.way == way && this->number(member.name) == number) return &member;
    }
    return nullptr;
}

bool ServedKind::knows(DISPID number) const {
    return number >= first() && number < first() + static_cast<DISPID>(members.size());
}

/// A walk over a collection.
class ServedEnumerator final : public IEnumVARIANT {
 public:
    ServedEnumerator(std::shared_ptr<ServedObjects> all, std::string name, ServedWalk walk)
        : all_(std::move(all)), name_(std::move(name)), walk_(std::move(walk)) {
        ++all_->objects_;
        ++all_->references_;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IEnumVARIANT;
        *object = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        ++all_->references_;
        return ++references_;
    }
    ULONG STDMETHODCALLTYPE Release() override {
        --all_->references_;
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* members, ULONG* fetched) override {
        try {
            ULONG given = 0;
            for (; given < count; ++given) {
                all_->note([this] { return name_ + ".Next"; });
                const std::optional<Variant> member = walk_();
                if (!member) break;
                members[given] = Variant(*member).release();
            }
            if (fetched != nullptr) *fetched = given;
            return given == count ? S_OK : S_FALSE;
        } catch (const base::Error& error) {
            leave(error);
            return describe(error);
        }
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
    ~ServedEnumerator() { --all_->objects_; }

    std::shared_ptr<ServedObjects> all_;
    std::string name_;
    ServedWalk walk_;
    ULONG references_ = 1;
};

/// One object, whatever its kind.
class ServedObject final : public IDispatch,
                           public IConnectionPointContainer,
                           public IConnectionPoint {
 public:
    ServedObject(std::shared_ptr<ServedObjects> all, const ServedKind& kind,
                 std::shared_ptr<void> self, const void* identity)
        : all_(std::move(all)), kind_(kind), self_(std::move(self)), identity_(identity) {
        ++all_->objects_;
        ++all_->references_;
        if (identity_ != nullptr) all_->known_[{&kind_, identity_}] = this;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id == IID_IUnknown || id == IID_IDispatch) {
            *object = static_cast<IDispatch*>(this);
        } else if (kind_.events && id == IID_IConnectionPointContainer) {
            *object = static_cast<IConnectionPointContainer*>(this);
        }
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        ++all_->references_;
        return ++references_;
    }
    ULONG STDMETHODCALLTYPE Release() override {
        --all_->references_;
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* numbers) override {
        ++all_->lookups;
        std::fill_n(numbers, count, DISPID_UNKNOWN);
        const auto member = kind_.number(toUtf8(names[0]));
        if (!member) return DISP_E_UNKNOWNNAME;
        numbers[0] = *member;
        for (UINT i = 1; i < count; ++i) {
            const auto parameter = parameterOf(*member, toUtf8(names[i]));
            if (!parameter) return DISP_E_UNKNOWNNAME;
            numbers[i] = *parameter;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS* given,
                                     VARIANT* answer, EXCEPINFO* info, UINT*) override {
        // What is called may end the last reference.
        const Pointer<IDispatch> alive = Pointer<IDispatch>::share(this);
        try {
            if (number == DISPID_NEWENUM) return enumerate(answer);
            const ServedKind::Member* const member = memberFor(number, flags, answer);
            if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
            std::vector<const VARIANT*> ordered;
            const HRESULT result = order(*member, *given, ordered);
            if (FAILED(result)) return result;
            all_->note([&] { return describe(*member, *given); });
            Variant value = member->serve(self_, ServedCall(ordered));
            if (all_->answersInOtherTypes) value = inOtherType(value);
            if (answer != nullptr) *answer = value.release();
            return S_OK;
        } catch (const base::Error& error) {
            return fail(error, all_->defersDetails, info);
        }
    }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
        *point = nullptr;
        if (id != *kind_.events) return CONNECT_E_NOCONNECTION;
        AddRef();
        *point = this;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override {
        *id = *kind_.events;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) override {
        AddRef();
        *container = this;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        const auto listener = Pointer<IUnknown>::share(sink).as<IDispatch>(*kind_.events);
        if (!listener) return CONNECT_E_CANNOTCONNECT;
        *cookie = ++lastCookie_;
        sinks_[*cookie] = listener;
        ++all_->listeners_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        if (sinks_.erase(cookie) == 0) return CONNECT_E_NOCONNECTION;
        --all_->listeners_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

    void click() {
        const Pointer<IDispatch> control = Pointer<IDispatch>::share(this);
        const std::map<DWORD, Pointer<IDispatch>> sinks = sinks_;
        for (const auto& [cookie, sink] : sinks) {
            VARIANT_BOOL cancel = VARIANT_FALSE;
            VARIANTARG arguments[2]{};
            V_VT(&arguments[0]) = VT_BOOL | VT_BYREF;
            V_BOOLREF(&arguments[0]) = &cancel;
            V_VT(&arguments[1]) = VT_DISPATCH;
            V_DISPATCH(&arguments[1]) = control.get();
            DISPPARAMS parameters{arguments, nullptr, 2, 0};
            constexpr DISPID kClick = 1;
            sink->Invoke(kClick, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                         nullptr, nullptr, nullptr);
        }
    }

 private:
    ~ServedObject() {
        all_->listeners_ -= sinks_.size();
        --all_->objects_;
        if (identity_ != nullptr) all_->known_.erase({&kind_, identity_});
    }

    std::optional<DISPID> parameterOf(DISPID number, const std::string& name) const {
        for (const ServedKind::Member& member : kind_.members) {
            if (kind_.number(member.name) != number) continue;
            for (std::size_t i = 0; i < member.parameters.size(); ++i) {
                if (nameOf(member.parameters[i]) == name) return static_cast<DISPID>(i);
            }
        }
        return std::nullopt;
    }

    const ServedKind::Member* memberFor(DISPID number, WORD flags, const VARIANT* answer) const {
        if ((flags & DISPATCH_PROPERTYPUT) != 0) return kind_.find(number, Way::put);
        if ((flags & DISPATCH_PROPERTYGET) != 0) {
            if (const auto* const member = kind_.find(number, Way::get)) return member;
        }
        if ((flags & DISPATCH_METHOD) == 0) return nullptr;
        if (const auto* const member = kind_.find(number, Way::function)) return member;
        // There is nothing that a procedure could answer.
        return answer == nullptr ? kind_.find(number, Way::procedure) : nullptr;
    }

    static HRESULT order(const ServedKind::Member& member, const DISPPARAMS& given,
                         std::vector<const VARIANT*>& ordered) {
        if (given.cArgs > member.parameters.size()) return DISP_E_BADPARAMCOUNT;
        ordered.resize(member.parameters.size());
        const bool isPut = member.way == Way::put;
        if (isPut && (given.cNamedArgs != 1 || *given.rgdispidNamedArgs != DISPID_PROPERTYPUT)) {
            return DISP_E_PARAMNOTOPTIONAL;
        }
        for (UINT i = 0; i < given.cArgs; ++i) {
            const bool isNamed = !isPut && i < given.cNamedArgs;
            const std::size_t place = isNamed ? static_cast<std::size_t>(given.rgdispidNamedArgs[i])
                                              : given.cArgs - 1 - i;
            if (place >= ordered.size()) return DISP_E_PARAMNOTFOUND;
            ordered[place] = &given.rgvarg[i];
        }
        const ServedCall call(ordered);
        for (std::size_t i = 0; i < ordered.size(); ++i) {
            if (!call.has(i) && !isOptional(member.parameters[i])) return DISP_E_PARAMNOTOPTIONAL;
        }
        return S_OK;
    }

    std::string describe(const ServedKind::Member& member, const DISPPARAMS& given) const {
        const std::string call = text(kind_.name(), ".", member.name);
        if (member.way == Way::put) return text(call, " = ", shown(given.rgvarg[0]));
        std::string list;
        const auto add = [&list](const std::string& argument) {
            list += (list.empty() ? "(" : ", ") + argument;
        };
        for (UINT i = given.cArgs; i > given.cNamedArgs; --i) add(shown(given.rgvarg[i - 1]));
        for (UINT i = 0; i < given.cNamedArgs; ++i) {
            const auto place = static_cast<std::size_t>(given.rgdispidNamedArgs[i]);
            add(text(nameOf(member.parameters[place]), ":=", shown(given.rgvarg[i])));
        }
        return list.empty() ? call : text(call, list, ")");
    }

    HRESULT enumerate(VARIANT* answer) {
        if (!kind_.enumerate) return DISP_E_MEMBERNOTFOUND;
        all_->note([this] { return kind_.name() + "._NewEnum"; });
        V_UNKNOWN(answer) = new ServedEnumerator(all_, kind_.name(), kind_.enumerate(self_.get()));
        V_VT(answer) = VT_UNKNOWN;
        return S_OK;
    }

    std::shared_ptr<ServedObjects> all_;
    const ServedKind& kind_;
    std::shared_ptr<void> self_;
    const void* identity_;
    std::map<DWORD, Pointer<IDispatch>> sinks_;
    DWORD lastCookie_ = 0;
    ULONG references_ = 1;
};

Pointer<IDispatch> ServedObjects::serveAny(const ServedKind& kind, std::shared_ptr<void> self,
                                           const void* identity) {
    const auto known = known_.find({&kind, identity});
    if (known != known_.end()) return Pointer<IDispatch>::share(known->second);
    return Pointer<IDispatch>::adopt(
        new ServedObject(shared_from_this(), kind, std::move(self), identity));
}

void ServedObjects::click(const ServedKind& kind, const void* identity) {
    const auto known = known_.find({&kind, identity});
    if (known != known_.end()) known->second->click();
}

}  // namespace huebrush::word
