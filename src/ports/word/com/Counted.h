// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>

#include "ports/word/com/ModuleUse.h"

namespace huebrush::word {

/// Base of the objects that we give to a host: they are deleted with their last reference, and keep
/// the module loaded until then. `Final::answersTo` says which interfaces they have beside
/// IUnknown; where those do not all begin with `Interface`, its `interfaceFor` says where each is.
/// A new one has one reference.
template <class Final, class Interface>
class Counted : public Interface {
 public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) final {
        if (object == nullptr) return E_POINTER;
        const bool known = id == IID_IUnknown || self().answersTo(id);
        *object = known ? self().interfaceFor(id) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() final {
        return static_cast<ULONG>(::InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() final {
        const LONG left = ::InterlockedDecrement(&references_);
        if (left == 0) delete &self();
        return static_cast<ULONG>(left);
    }

 protected:
    ~Counted() = default;
    void* interfaceFor(REFIID) { return &self(); }

 private:
    Final& self() { return static_cast<Final&>(*this); }

    const ModuleUse use_;
    LONG references_ = 1;
};

/// The same for objects that are called by name and do not describe themselves.
template <class Final, class Interface>
class CountedDispatch : public Counted<Final, Interface> {
 public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) final {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) final { return E_NOTIMPL; }

 protected:
    ~CountedDispatch() = default;
};

}  // namespace huebrush::word
