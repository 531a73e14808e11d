// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <com/sun/star/uno/XInterface.hpp>
#include <functional>
#include <rtl/ref.hxx>

#include "view/Keyboard.h"

namespace huebrush::libreoffice {

/// Passes the keys of a form's window on to its view, for as long as it lives.
class KeyListener {
 public:
    using Toolkit = com::sun::star::uno::Reference<com::sun::star::awt::XExtendedToolkit>;
    using Window = com::sun::star::uno::Reference<com::sun::star::uno::XInterface>;

    /// `takesKeysOf` says whether the keys that a native window gets are the form's.
    KeyListener(const Toolkit& toolkit, view::Keyboard& keyboard,
                std::function<bool(const Window&)> takesKeysOf);
    KeyListener(const KeyListener&) = delete;
    KeyListener& operator=(const KeyListener&) = delete;
    ~KeyListener();

 private:
    class Handler;

    Toolkit toolkit_;
    rtl::Reference<Handler> handler_;
};

}  // namespace huebrush::libreoffice
