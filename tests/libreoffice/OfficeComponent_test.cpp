// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeComponent.h"

#include <gtest/gtest.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/util/XChangesBatch.hpp>
#include <filesystem>

#include "TestComponent.h"
#include "mapping/Image.h"
#include "ports/libreoffice/uno/Configuration.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;

using libreoffice::OfficeComponent;

/// Makes a locale the office's own while the object lives.
class OfficeLocale {
 public:
    explicit OfficeLocale(const char* locale)
        : former_(set(rtl::OUString::createFromAscii(locale))) {}
    OfficeLocale(const OfficeLocale&) = delete;
    OfficeLocale& operator=(const OfficeLocale&) = delete;
    ~OfficeLocale() { set(former_); }  // NOLINT: an exception here ends the office, and the test

 private:
    static rtl::OUString set(const rtl::OUString& locale) {
        const css::uno::Reference<css::beans::XPropertySet> values(
            libreoffice::openConfiguration(officeContext(), "/org.openoffice.Setup/L10N", true),
            css::uno::UNO_QUERY_THROW);
        rtl::OUString before;
        values->getPropertyValue("ooSetupSystemLocale") >>= before;
        values->setPropertyValue("ooSetupSystemLocale", css::uno::makeAny(locale));
        css::uno::Reference<css::util::XChangesBatch>(values, css::uno::UNO_QUERY_THROW)
            ->commitChanges();
        return before;
    }

    rtl::OUString former_;
};

OfficeComponent component() {
    return {officeContext(), testFolder()};
}

/// Width and height from the head of a PNG file.
std::pair<int, int> sizeOf(const base::Picture& picture) {
    const auto& bytes = picture.bytes();
    const auto number = [&](std::size_t at) {
        return bytes[at] << 24 | bytes[at + 1] << 16 | bytes[at + 2] << 8 | bytes[at + 3];
    };
    return {number(16), number(20)};
}

TEST(OfficeComponent, ItsFolderHoldsTheExtension) {
    const std::string folder = component().folder();
    EXPECT_TRUE(std::filesystem::exists(folder + "/description.xml"));
    EXPECT_NE(folder.back(), '/');
}

TEST(OfficeComponent, TheTemporaryFolderExists) {
    EXPECT_TRUE(std::filesystem::is_directory(component().temporaryFolder()));
}

TEST(OfficeComponent, HasTheThreeIconsAndNoOther) {
    for (const std::int32_t number : {101, 102, 103}) {
        const base::Picture icon = component().icon(number);
        ASSERT_FALSE(icon.empty()) << number;
        EXPECT_EQ(icon.format(), base::PictureFormat::bitmap);
        const mapping::Image pixels = mapping::imageOfBitmapFile(icon.bytes());
        EXPECT_EQ(std::pair(pixels.width(), pixels.height()), std::pair(32, 32));
    }
    EXPECT_TRUE(component().icon(104).empty());
    EXPECT_FALSE(component().icon(101) == component().icon(102));
}

TEST(OfficeComponent, AnIconComesInEverySizeAndAnotherPictureAsItIs) {
    const libreoffice::IconFiles icons(testFolder());
    const std::vector<base::Picture> sizes = icons.sizesOf(icons.largest(102));
    ASSERT_EQ(sizes.size(), 3U);
    EXPECT_EQ(sizeOf(sizes[0]), std::pair(16, 16));
    EXPECT_EQ(sizeOf(sizes[1]), std::pair(24, 24));
    EXPECT_EQ(sizeOf(sizes[2]), std::pair(32, 32));
    const base::Picture other(base::PictureFormat::png, {1, 2, 3});
    EXPECT_EQ(icons.sizesOf(other), std::vector{other});
}

TEST(OfficeComponent, TheDecimalSeparatorIsThatOfTheOfficesLocale) {
    {
        const OfficeLocale czech("cs-CZ");
        EXPECT_EQ(component().decimalSeparator(), ',');
    }
    {
        const OfficeLocale english("en-US");
        EXPECT_EQ(component().decimalSeparator(), '.');
    }
}

TEST(OfficeComponent, AnExtensionThatIsNotInstalledHasNoFolder) {
    EXPECT_EQ(libreoffice::extensionFolder(officeContext(), "cz.huebrush.nowhere"), "");
}

}  // namespace
}  // namespace huebrush::tests
