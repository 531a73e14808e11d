#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <memory>
#include <rtl/ref.hxx>

namespace huebrush::libreoffice {

class FormWindow;

/// The keys in a form's window that mean the same wherever the focus is: they move it, press the
/// default button, call controls by their access keys, and close the form. The release of keys in
/// check boxes is told of here, too.
class Keyboard {
 public:
    Keyboard(FormWindow& window,
             const com::sun::star::uno::Reference<com::sun::star::awt::XExtendedToolkit>& toolkit);
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;
    ~Keyboard();

 private:
    class Handler;

    com::sun::star::uno::Reference<com::sun::star::awt::XExtendedToolkit> toolkit_;
    rtl::Reference<Handler> handler_;
};

}  // namespace huebrush::libreoffice
