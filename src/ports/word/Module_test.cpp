// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "base/Text.h"
#include "ports/word/Entry_test_support.h"
#include "ports/word/Word_test_support.h"
#include "ports/word/com/Text.h"
#include "ports/word/entry/Registration.h"
#include "ports/word/graphics/Icons.h"
#include "ports/word/runtime/RegistryKey.h"
#include "ports/word/runtime/Registry_test_support.h"
#include "ports/word/testhost/HostRuntime.h"

namespace huebrush::word {
namespace {

/// The file that Word loads, loaded as Word does.
class ModuleTest : public testing::Test {
 protected:
    void TearDown() override {
        EXPECT_EQ(canUnload(), S_OK);
        EXPECT_TRUE(::FreeLibrary(module));
        clearRegistry("Software\\VB and VBA Program Settings\\Huebrush");
    }

    template <class Function>
    Function function(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
    }
    HRESULT call(const char* name) const { return function<HRESULT(STDAPICALLTYPE*)()>(name)(); }
    HRESULT canUnload() const { return call("DllCanUnloadNow"); }
    HRESULT getFactory(REFCLSID id, void** factory) const {
        return function<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            id, IID_IUnknown, factory);
    }
    static CLSID classId() {
        CLSID id{};
        ::CLSIDFromString(toWide(kClassId).data(), &id);
        return id;
    }
    Pointer<Extensibility> make() const {
        Pointer<IUnknown> factory;
        EXPECT_EQ(getFactory(classId(), factory.outAny()), S_OK);
        return makeEntry(*factory);
    }

    HMODULE module = ::LoadLibraryW(L"huebrush.dll");
};

TEST_F(ModuleTest, ItHasTheFourFunctions) {
    for (const char* const name :
         {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"}) {
        EXPECT_NE(::GetProcAddress(module, name), nullptr) << name;
    }
}

TEST_F(ModuleTest, ItHasOneClass) {
    void* factory = nullptr;
    EXPECT_EQ(getFactory(IID_IUnknown, &factory), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(factory, nullptr);
    EXPECT_EQ(getFactory(classId(), nullptr), E_POINTER);
    const auto entry = make();
    ASSERT_TRUE(entry);
    EXPECT_EQ(canUnload(), S_FALSE);
}

TEST_F(ModuleTest, ItsAddInConnectsRunsItsCommandsAndDisconnects) {
    TestWord word;
    word.application.reset();
    word.test.document->addSolid("Slunce", 1);
    word.test.document->addSolid("Měsíc", 1);
    auto entry = make();
    for (int round = 0; round < 100; ++round) {
        entry->OnConnection(word.standIn.application().get(), 0, nullptr, nullptr);
        const auto bar = word.test.application.bars.find("Huebrush");
        ASSERT_NE(bar, nullptr);
        ASSERT_EQ(bar->buttons.size(), 3U);
        EXPECT_EQ(bar->buttons[0]->caption, "Dle výplne");
        word.test.document->select({word.test.document->shapes[0]});
        bar->buttons[0]->Execute();
        EXPECT_EQ(word.test.application.statusBar,
                  "Celkový počet všech vybraných objektů se shodným typem výplně.. 2.");
        EXPECT_EQ(word.test.document->selected.size(), 2U);
        bar->left = round;
        entry->OnDisconnection(0, nullptr);
        ASSERT_EQ(word.standIn.objects().objects(), 0U);
        EXPECT_EQ(
            RegistryKey::open(HKEY_CURRENT_USER,
                              "Software\\VB and VBA Program Settings\\Huebrush\\ToolBarPosition")
                .text("Left"),
            std::to_string(round));
    }
    EXPECT_EQ(word.standIn.objects().references(), 0);
    EXPECT_EQ(word.standIn.objects().listeners(), 0U);
    EXPECT_EQ(word.test.application.bars.bars.size(), 0U);
}

TEST_F(ModuleTest, ItsButtonsShowTheirIconsOnTheFacesOfTheHost) {
    TestWord word;
    word.application.reset();
    HostRuntime runtime(word.test.runtime);
    const forms::RuntimeScope scope(runtime);
    constexpr std::int32_t kSize = 16;
    std::vector<std::uint8_t> grey;
    for (int i = 0; i < kSize * kSize; ++i) grey.insert(grey.end(), {0xC8, 0xD0, 0xD4});
    const base::Picture blank(base::PictureFormat::bitmap, base::bitmapFile(kSize, kSize, 3, grey));
    word.test.application.bars.blankFace = blank;
    auto entry = make();
    entry->OnConnection(word.standIn.application().get(), 0, nullptr, nullptr);
    const auto bar = word.test.application.bars.find("Huebrush");
    ASSERT_NE(bar, nullptr);
    ASSERT_EQ(bar->buttons.size(), 3U);
    const base::Pixels before = base::decodeBitmap(blank.bytes());
    for (std::int32_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        const base::Pixels face =
            base::decodeBitmap(bar->buttons[static_cast<std::size_t>(i)]->face.bytes());
        EXPECT_EQ(face, base::decodeBitmap(drawIconOn(iconOf(module, 101 + i), blank).bytes()));
        ASSERT_EQ(face.bytes.size(), before.bytes.size());
        int drawn = 0;
        for (std::int32_t y = 0; y < kSize; ++y) {
            for (std::int32_t x = 0; x < kSize; ++x) {
                const auto at = static_cast<std::ptrdiff_t>(face.offset(x, y));
                if (!std::equal(face.bytes.begin() + at, face.bytes.begin() + at + 4,
                                before.bytes.begin() + at)) {
                    ++drawn;
                }
            }
        }
        // The picture fills a good part of the face, and its mask leaves the rest.
        EXPECT_GT(drawn, 60);
        EXPECT_LT(drawn, 230);
    }
    EXPECT_FALSE(bar->buttons[0]->face == bar->buttons[1]->face);
    EXPECT_FALSE(bar->buttons[1]->face == bar->buttons[2]->face);
    entry->OnDisconnection(0, nullptr);
}

TEST_F(ModuleTest, ItHasThePicturesOfTheDialogs) {
    struct Size {
        std::int32_t number, width, height;
    };
    for (const Size& each :
         {Size{400, 130, 56}, Size{401, 130, 56}, Size{402, 50, 50}, Size{403, 64, 64},
          Size{410, 8, 80}, Size{411, 24, 66}, Size{412, 48, 48}}) {
        SCOPED_TRACE(each.number);
        const base::Picture picture = iconOf(module, each.number);
        ASSERT_EQ(picture.format(), base::PictureFormat::bitmap);
        const base::Pixels pixels = base::decodeBitmap(picture.bytes());
        EXPECT_EQ(pixels.width, each.width);
        EXPECT_EQ(pixels.height, each.height);
        int opaque = 0;
        for (std::size_t at = 3; at < pixels.bytes.size(); at += base::Pixels::kBytes) {
            if (pixels.bytes[at] == 255) ++opaque;
        }
        EXPECT_GT(opaque, 20);
        EXPECT_LT(opaque, each.width * each.height);
    }
    EXPECT_FALSE(iconOf(module, 400) == iconOf(module, 401));
}

/// A text of the file's version, for Czech in Unicode; nothing where there is none.
std::string versionText(const std::vector<std::uint8_t>& version, const char* name) {
    void* text = nullptr;
    UINT size = 0;
    const std::wstring path = toWide(base::text("\\StringFileInfo\\040504B0\\", name));
    if (::VerQueryValueW(version.data(), path.c_str(), &text, &size) == FALSE) return {};
    return toUtf8(std::wstring(static_cast<const wchar_t*>(text)));
}

TEST_F(ModuleTest, ItsVersionIsThatOfTheProject) {
    const wchar_t* const file = L"huebrush.dll";
    DWORD unused = 0;
    std::vector<std::uint8_t> version(::GetFileVersionInfoSizeW(file, &unused));
    ASSERT_FALSE(version.empty());
    ASSERT_TRUE(::GetFileVersionInfoW(file, 0, static_cast<DWORD>(version.size()), version.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT size = 0;
    ASSERT_TRUE(::VerQueryValueW(version.data(), L"\\", reinterpret_cast<void**>(&fixed), &size));
    EXPECT_EQ(base::text(HIWORD(fixed->dwFileVersionMS), ".", LOWORD(fixed->dwFileVersionMS), ".",
                         HIWORD(fixed->dwFileVersionLS)),
              HUEBRUSH_VERSION);
    EXPECT_EQ(fixed->dwProductVersionMS, fixed->dwFileVersionMS);
    EXPECT_EQ(fixed->dwProductVersionLS, fixed->dwFileVersionLS);
    EXPECT_EQ(versionText(version, "FileVersion"), HUEBRUSH_VERSION);
    EXPECT_EQ(versionText(version, "ProductName"), "Huebrush");
    EXPECT_EQ(versionText(version, "OriginalFilename"), "huebrush.dll");
    EXPECT_EQ(versionText(version, "FileDescription"),
              "Huebrush: hromadná záměna výplní grafických objektů");
}

TEST_F(ModuleTest, ItRegistersItselfAndTakesThatBack) {
    const std::vector<std::string> before = registryBelow("Software");
    EXPECT_EQ(call("DllRegisterServer"), S_OK);
    const auto file =
        RegistryKey::open(HKEY_CURRENT_USER,
                          std::string("Software\\Classes\\CLSID\\") + kClassId + "\\InprocServer32")
            .text("");
    wchar_t loaded[MAX_PATH]{};
    ::GetModuleFileNameW(module, loaded, MAX_PATH);
    EXPECT_EQ(file, toUtf8(std::wstring(loaded)));
    EXPECT_EQ(call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(registryBelow("Software"), before);
}

}  // namespace
}  // namespace huebrush::word
