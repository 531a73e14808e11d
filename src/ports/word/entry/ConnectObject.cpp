// SPDX-License-Identifier: MPL-2.0

#include "ports/word/entry/ConnectObject.h"

#include <array>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "ports/word/com/Counted.h"
#include "ports/word/com/ModuleUse.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/com/Variant.h"
#include "ports/word/entry/AddInSession.h"

namespace huebrush::word {

namespace {

/// The members of the interface, in the order of their numbers, which begin with 1.
constexpr std::array<const wchar_t*, 5> kMembers{L"OnConnection", L"OnDisconnection",
                                                 L"OnAddInsUpdate", L"OnStartupComplete",
                                                 L"OnBeginShutdown"};

/// The entry object, which Word makes when it loads the add-in. None of its calls fails: Word would
/// no longer load an add-in of which one does.
class ConnectObject final : public CountedDispatch<ConnectObject, Extensibility> {
 public:
    explicit ConnectObject(MakeRuntime makeRuntime) : makeRuntime_(std::move(makeRuntime)) {}
    ~ConnectObject() { disconnect(); }

    static bool answersTo(REFIID id) { return id == IID_IDispatch || id == kExtensibility; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* numbers) override {
        if (names == nullptr || numbers == nullptr || count == 0) return E_INVALIDARG;
        for (UINT i = 0; i < count; ++i) numbers[i] = DISPID_UNKNOWN;
        for (std::size_t i = 0; i < kMembers.size(); ++i) {
            if (::lstrcmpiW(names[0], kMembers[i]) == 0) {
                numbers[0] = static_cast<DISPID>(i + 1);
            }
        }
        return numbers[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        constexpr UINT kArgumentsOfConnection = 4;
        switch (member) {
            case 1:
                if (given == nullptr || given->cArgs != kArgumentsOfConnection) {
                    return DISP_E_BADPARAMCOUNT;
                }
                connect(given->rgvarg[kArgumentsOfConnection - 1]);
                return S_OK;
            case 2:
                return OnDisconnection(0, nullptr);
            case 3:
            case 4:
            case 5:
                return S_OK;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG, IDispatch*,
                                           SAFEARRAY**) override {
        connect(Pointer<IDispatch>::share(application));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnDisconnection(LONG, SAFEARRAY**) override {
        const Pointer<ConnectObject> alive = Pointer<ConnectObject>::share(this);
        disconnect();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY**) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY**) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY**) override { return S_OK; }

 private:
    void connect(const VARIANT& application) {
        base::ignoring([&] { connect(Variant::copyOf(application).toObject()); });
    }
    void connect(const Pointer<IDispatch>& application) {
        const Pointer<ConnectObject> alive = Pointer<ConnectObject>::share(this);
        disconnect();
        base::ignoring([&] {
            // It is kept before it connects: Word may disconnect meanwhile.
            session_ = std::make_shared<AddInSession>(application, makeRuntime_);
            const std::shared_ptr<AddInSession> session = session_;
            session->connect();
        });
    }
    void disconnect() {
        const std::shared_ptr<AddInSession> session = std::exchange(session_, nullptr);
        if (session) session->disconnect();
    }

    MakeRuntime makeRuntime_;
    std::shared_ptr<AddInSession> session_;
};

class ConnectFactory final : public Counted<ConnectFactory, IClassFactory> {
 public:
    explicit ConnectFactory(MakeRuntime makeRuntime) : makeRuntime_(std::move(makeRuntime)) {}

    static bool answersTo(REFIID id) { return id == IID_IClassFactory; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        HRESULT result = E_OUTOFMEMORY;
        base::ignoring([&] {
            const auto made = Pointer<ConnectObject>::adopt(new ConnectObject(makeRuntime_));
            result = made->QueryInterface(id, object);
        });
        return result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock != FALSE) {
            locks_.emplace_back();
        } else if (!locks_.empty()) {
            locks_.pop_back();
        }
        return S_OK;
    }

 private:
    MakeRuntime makeRuntime_;
    std::vector<ModuleUse> locks_;
};

}  // namespace

HRESULT getConnectFactory(MakeRuntime makeRuntime, REFIID id, void** factory) noexcept {
    HRESULT result = E_OUTOFMEMORY;
    base::ignoring([&] {
        const auto made =
            Pointer<ConnectFactory>::adopt(new ConnectFactory(std::move(makeRuntime)));
        result = made->QueryInterface(id, factory);
    });
    return result;
}

}  // namespace huebrush::word
