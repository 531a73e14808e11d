// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>

namespace huebrush::word {

/// The interface by which Office connects add-ins, IDTExtensibility2. The numbers of its members,
/// for those who call by name, are 1 to 5 in this order.
class Extensibility : public IDispatch {
 public:
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG mode,
                                                   IDispatch* instance, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(LONG mode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

inline constexpr IID kExtensibility{
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};

}  // namespace huebrush::word
