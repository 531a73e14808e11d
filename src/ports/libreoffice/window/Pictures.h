// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XDisplayBitmap.hpp>
#include <map>

#include "base/Picture.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The pictures of controls as a screen draws them, each read once.
class Pictures {
 public:
    struct Drawable {
        com::sun::star::uno::Reference<com::sun::star::awt::XDisplayBitmap> bitmap;
        com::sun::star::awt::Size size;
    };

    explicit Pictures(const ContextReference& context) : context_(context) {}

    /// Without a bitmap for no picture, and for one that cannot be read.
    Drawable drawable(const base::Picture& picture,
                      const com::sun::star::uno::Reference<com::sun::star::awt::XDevice>& device);

 private:
    struct Entry {
        base::Picture picture;
        Drawable drawable;
    };

    ContextReference context_;
    /// By the address of the bytes, which the entry keeps.
    std::map<const void*, Entry> known_;
};

}  // namespace huebrush::libreoffice
