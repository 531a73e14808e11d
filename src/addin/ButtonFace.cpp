// SPDX-License-Identifier: MPL-2.0

#include "addin/ButtonFace.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "forms/Runtime.h"

namespace huebrush::addin {

namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint32_t number(const Bytes& bytes, std::size_t at, int size) {
    std::uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i) {
        value = (value << 8U) | bytes[at + static_cast<std::size_t>(i)];
    }
    return value;
}

/// The pixels of an uncompressed 32-bit bitmap file: blue, green, red, alpha.
class Pixels {
 public:
    static std::optional<Pixels> of(const Bytes& file) {
        constexpr std::size_t kHeaders = 54;
        if (file.size() < kHeaders || file[0] != 'B' || file[1] != 'M') return std::nullopt;
        Pixels pixels;
        pixels.start_ = number(file, 10, 4);
        const auto width = static_cast<std::int32_t>(number(file, 18, 4));
        const auto height = static_cast<std::int32_t>(number(file, 22, 4));
        if (width <= 0 || height == 0 || number(file, 28, 2) != 32) return std::nullopt;
        pixels.bottomUp_ = height > 0;
        pixels.width_ = static_cast<std::size_t>(width);
        pixels.height_ = static_cast<std::size_t>(std::abs(static_cast<std::int64_t>(height)));
        if (file.size() < pixels.start_) return std::nullopt;
        const std::size_t room = (file.size() - pixels.start_) / 4;
        if (room / pixels.width_ < pixels.height_) return std::nullopt;
        return pixels;
    }

    std::size_t width() const { return width_; }
    std::size_t height() const { return height_; }
    std::size_t offset(std::size_t x, std::size_t y) const {
        const std::size_t row = bottomUp_ ? height_ - 1 - y : y;
        return start_ + (row * width_ + x) * 4;
    }

 private:
    std::size_t start_ = 0;
    std::size_t width_ = 0;
    std::size_t height_ = 0;
    bool bottomUp_ = true;
};

/// Lays one pixel over another. Where both are transparent, the lower one stays as it is.
void blend(const std::uint8_t* over, std::uint8_t* under) {
    constexpr unsigned kOpaque = 255;
    // How much either counts, of 255 times 255.
    const unsigned upper = over[3] * kOpaque;
    const unsigned lower = under[3] * (kOpaque - over[3]);
    const unsigned both = upper + lower;
    if (both == 0) return;
    for (int channel = 0; channel < 3; ++channel) {
        const unsigned mixed = over[channel] * upper + under[channel] * lower;
        under[channel] = static_cast<std::uint8_t>((mixed + both / 2) / both);
    }
    under[3] = static_cast<std::uint8_t>((both + kOpaque / 2) / kOpaque);
}

}  // namespace

base::Picture DrawIconOnPicture(const base::Picture& icon, const base::Picture& canvas) {
    const auto source = Pixels::of(icon.bytes());
    const auto target = Pixels::of(canvas.bytes());
    if (!source || !target) return canvas;
    Bytes drawn = canvas.bytes();
    for (std::size_t y = 0; y < std::min(source->height(), target->height()); ++y) {
        for (std::size_t x = 0; x < std::min(source->width(), target->width()); ++x) {
            blend(icon.bytes().data() + source->offset(x, y), drawn.data() + target->offset(x, y));
        }
    }
    return {canvas.format(), std::move(drawn)};
}

void SetButtonFace(host::CommandBarControl* button, const std::int16_t& icon) {
    if (button == nullptr) return;
    forms::Runtime& runtime = forms::Runtime::current();
    button->CopyFace();
    const base::Picture canvas = runtime.Clipboard().GetData();
    const base::Picture face = DrawIconOnPicture(runtime.Component().icon(icon), canvas);
    runtime.DoEvents();
    runtime.Clipboard().Clear();
    runtime.Clipboard().SetData(face);
    button->PasteFace();
}

}  // namespace huebrush::addin
