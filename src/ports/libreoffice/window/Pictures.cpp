// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/Pictures.h"

#include <com/sun/star/awt/XBitmap.hpp>

#include "base/Bitmap.h"
#include "error/mError.h"
#include "ports/libreoffice/uno/Graphics.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

/// Beyond this many, some are likely not to be shown any more.
constexpr std::size_t kMostKept = 1024;

/// The same picture in a form that the office reads, which does not know every bitmap file.
base::Picture inKnownForm(const base::Picture& picture) {
    if (picture.format() != base::PictureFormat::bitmap) return picture;
    base::Pixels pixels = base::decodeBitmap(picture.bytes());
    base::ignoreUnusedAlpha(pixels);
    return {base::PictureFormat::bitmap, base::bitmapOnWhite(pixels)};
}

}  // namespace

Pictures::Drawable Pictures::drawable(const base::Picture& picture,
                                      const css::uno::Reference<css::awt::XDevice>& device) {
    if (picture.empty()) return {};
    const void* const key = picture.bytes().data();
    const auto found = known_.find(key);
    if (found != known_.end()) return found->second.drawable;
    if (known_.size() >= kMostKept) known_.clear();
    Drawable drawable;
    error::ignoring([&] {
        const css::uno::Reference<css::awt::XBitmap> bitmap(
            graphicOf(context_, inKnownForm(picture)), css::uno::UNO_QUERY);
        if (!bitmap.is()) return;
        drawable.bitmap = device->createDisplayBitmap(bitmap);
        drawable.size = bitmap->getSize();
    });
    known_[key] = {picture, drawable};
    return drawable;
}

}  // namespace huebrush::libreoffice
