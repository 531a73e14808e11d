// SPDX-License-Identifier: MPL-2.0

// What Restore and ApplyChange report. They touch no host, so only memory can fail them.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "fill/CFill.h"
#include "ports/memory/TestHost.h"

namespace {

/// The size of the allocations that are counted, and which of them fails; 0 for none.
std::size_t countedSize = 0;
int failing = 0;

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): what stands in for the library's operators
void* operator new(std::size_t size) {
    if (failing > 0 && size == countedSize && --failing == 0) throw std::bad_alloc();
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

// The sanitizers take the library's own for another allocator.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}

// Not inlined: the compiler would take the allocation for the library's, and warn.
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc)

namespace huebrush::fill {
namespace {

class CFillMemoryTest : public ::testing::Test {
 protected:
    static constexpr std::size_t kNameLength = 5000;

    /// A fill whose name needs memory of its own, and a size that nothing else has.
    static FillProperties textured() {
        FillProperties given;
        given.ForeColorRGB = 7;
        given.Type = host::MsoFillType::msoFillTextured;
        given.TextureType = host::MsoTextureType::msoTextureUserDefined;
        given.TextureName = std::string(kNameLength, 'n');
        given.Pattern = 3;
        return given;
    }
    /// Runs an operation with the nth of its copies of the name failing.
    template <class Operation>
    void failCopy(int number, const Operation& operation) {
        countedSize = kNameLength + 1;
        failing = number;
        operation();
        EXPECT_EQ(failing, 0) << "nothing has failed";
        failing = 0;
    }
    /// The only box, without the system's description.
    std::string reported() const {
        if (test.runtime.boxes.size() != 1) return "not one box";
        const std::string& shown = test.runtime.boxes[0].text;
        return shown.substr(0, shown.find("\r\n\r\nSyst"));
    }

    memory::TestHost test;
    CFill descriptor;
};

TEST_F(CFillMemoryTest, ApplyChangeReportsItsErrorAndEndsWithTheFieldsCopiedSoFar) {
    descriptor.setDestination(textured());
    failCopy(1, [&] { descriptor.ApplyChange(); });
    EXPECT_EQ(reported(),
              "Chyba v modulu \"Huebrush.CFill.ApplyChange\"...\r\n\r\nPři pokusu interně "
              "potvrdit změny výpně vznikla chyba...");
    EXPECT_EQ(test.runtime.boxes[0].style, 16);
    EXPECT_TRUE(descriptor.Change());
    EXPECT_EQ(descriptor.original().ForeColorRGB, 7);
    EXPECT_EQ(descriptor.original().TextureName, "");
    EXPECT_EQ(descriptor.original().Pattern, 0);
}

TEST_F(CFillMemoryTest, RestoreReportsItsErrorUnderTheNameOfItsMainCaller) {
    const auto shape = test.document->addSolid("Sun", 7);
    static_cast<FillProperties&>(shape->fill) = textured();
    descriptor.setDesTransparency(0.5F);
    // The first copy is the host's answer.
    failCopy(2, [&] { descriptor.SaveOriginalFormat(shape->Fill()); });
    EXPECT_EQ(reported(),
              "Chyba v modulu \"Huebrush.CFill.SaveOriginalFormat\"...\r\n\r\nPři pokusu obnovit "
              "původní výplň vzikla chyba...");
    EXPECT_EQ(test.runtime.boxes[0].style, 16);
    EXPECT_TRUE(descriptor.Change());
    EXPECT_EQ(descriptor.original().TextureName.size(), kNameLength);
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 7);
    EXPECT_EQ(descriptor.destination().TextureName, "");
    EXPECT_EQ(descriptor.destination().Pattern, 0);
}

}  // namespace
}  // namespace huebrush::fill
