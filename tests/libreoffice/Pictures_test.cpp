// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/Pictures.h"

#include <gtest/gtest.h>

#include <com/sun/star/awt/XToolkit.hpp>

#include "OfficeContext.h"
#include "base/Bitmaps_test_support.h"
#include "ports/libreoffice/window/OfficeCanvas.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;

/// Something to draw on that is no window, green at first.
class DrawnPictures : public testing::Test {
 protected:
    static constexpr std::int32_t kGreen = 0x00FF00;
    static constexpr view::Size kSize{64, 32};

    void draw(const base::Picture& picture, const view::Size& size) {
        libreoffice::OfficeCanvas canvas(device, device->createGraphics(), look);
        canvas.rectangle({0, 0, kSize.width, kSize.height}, kGreen, kGreen);
        canvas.picture({0, 0, size.width, size.height}, picture);
    }
    /// The upper left part of what was drawn.
    base::Pixels drawn(const view::Size& size) const {
        const css::uno::Sequence<sal_Int8> file =
            device->createBitmap(0, 0, size.width, size.height)->getDIB();
        const std::vector<std::uint8_t> bytes(file.begin(), file.end());
        base::Pixels pixels = base::decodeBitmap(bytes);
        base::ignoreUnusedAlpha(pixels);
        return pixels;
    }

    Reference<css::awt::XDevice> device =
        libreoffice::createService<css::awt::XToolkit>(officeContext(), "com.sun.star.awt.Toolkit")
            ->createScreenCompatibleDevice(kSize.width, kSize.height);
    libreoffice::Look look{officeContext()};
};

TEST_F(DrawnPictures, HaveTheColoursOfTheirFilesWhateverTheForm) {
    for (const base::BitmapSample& sample : base::bitmapSamples()) {
        const view::Size size{sample.pixels.width, sample.pixels.height};
        draw({base::PictureFormat::bitmap, sample.file}, size);
        base::Pixels expected = sample.pixels;
        base::ignoreUnusedAlpha(expected);
        EXPECT_TRUE(drawn(size) == base::decodeBitmap(base::bitmapOnWhite(expected)))
            << sample.name;
    }
}

TEST_F(DrawnPictures, ThatCannotBeReadAreNotDrawn) {
    const base::Picture broken(base::PictureFormat::bitmap, {'B', 'M', 1, 2, 3});
    EXPECT_FALSE(
        libreoffice::OfficeCanvas(device, device->createGraphics(), look).pictureSize(broken));
}

}  // namespace
}  // namespace huebrush::tests
