// SPDX-License-Identifier: MPL-2.0

#include "mapping/Textures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace huebrush::mapping {

namespace {

enum class Kind { paper, weave, drops, marble, speckle, mesh, flowers, wood, print };

/// How one texture is drawn: between two colours, with so many cells along a side.
struct Recipe {
    Kind kind;
    std::int32_t dark;
    std::int32_t light;
    std::int32_t cells;
};

constexpr std::array<Recipe, kTextureCount> kRecipes = {{
    {Kind::paper, 0xD9C48C, 0xF2E3B6, 8},     // papyrus
    {Kind::weave, 0xC8BFA6, 0xEDE7D6, 16},    // canvas
    {Kind::weave, 0x2F4A7A, 0x6C8CBF, 32},    // denim
    {Kind::weave, 0x8A6B3C, 0xD6BC85, 8},     // woven mat
    {Kind::drops, 0x7FA3B8, 0xE3F1F7, 4},     // water droplets
    {Kind::paper, 0xB58E5F, 0xC9A577, 16},    // paper bag
    {Kind::print, 0xA8936B, 0xD8C9A3, 4},     // fish fossil
    {Kind::speckle, 0xC2A878, 0xEBDDB8, 32},  // sand
    {Kind::marble, 0x1F4D3A, 0x8FC2A6, 4},    // green marble
    {Kind::marble, 0xB9B9BE, 0xF7F7F5, 4},    // white marble
    {Kind::marble, 0x6A4630, 0xCDA987, 4},    // brown marble
    {Kind::speckle, 0x5E5A5A, 0xC9C2BE, 16},  // granite
    {Kind::print, 0xA9A9A4, 0xEDEDE8, 16},    // newsprint
    {Kind::paper, 0xCFC8B8, 0xEAE6DC, 32},    // recycled paper
    {Kind::paper, 0xE9DDBB, 0xFBF5E2, 4},     // parchment
    {Kind::paper, 0xE8EEF2, 0xFDFEFF, 16},    // stationery
    {Kind::paper, 0x9CC3E6, 0xDCECF8, 8},     // blue tissue paper
    {Kind::paper, 0xF2B7CB, 0xFDE6EE, 8},     // pink tissue paper
    {Kind::mesh, 0x6A3D86, 0xC9A9DC, 16},     // purple mesh
    {Kind::flowers, 0x8E5E9C, 0xF4E9F6, 4},   // bouquet
    {Kind::drops, 0x9A6A3D, 0xD9AC78, 8},     // cork
    {Kind::wood, 0x4A2D1C, 0x7B5134, 4},      // walnut
    {Kind::wood, 0xA77B45, 0xD9B27A, 4},      // oak
    {Kind::wood, 0x7E4F2C, 0xB98153, 8},      // medium wood
}};

constexpr double kTurn = 2 * std::numbers::pi;

/// A number from 0 to 1 that looks random but is the same for the same arguments.
double noiseAt(std::int32_t x, std::int32_t y, std::int32_t seed) {
    auto hash = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^
                static_cast<std::uint32_t>(y) * 0x85EBCA77U ^
                static_cast<std::uint32_t>(seed) * 0xC2B2AE3DU;
    hash = (hash ^ (hash >> 15U)) * 0x2C1B3C6DU;
    hash = (hash ^ (hash >> 12U)) * 0x297A2D39U;
    hash ^= hash >> 15U;
    return static_cast<double>(hash & 0xFFFFU) / 0xFFFF;
}

/// One texture while it is drawn. Coordinates run from 0 to 1 over a side; every function of them
/// here comes round after 1, which is what lets the edges meet.
class Painter {
 public:
    Painter(const Recipe& recipe, std::int32_t seed) : recipe_(recipe), seed_(seed) {}

    Image paint() const {
        Image image(kTextureSize, kTextureSize);
        for (std::int32_t y = 0; y < kTextureSize; ++y) {
            for (std::int32_t x = 0; x < kTextureSize; ++x) {
                const double light = lightness(x / static_cast<double>(kTextureSize),
                                               y / static_cast<double>(kTextureSize));
                image.set(x, y, mix(std::clamp(light, 0.0, 1.0)));
            }
        }
        return image;
    }

 private:
    /// Noise that is smooth between the corners of `cells` cells.
    double smooth(double x, double y, std::int32_t cells, std::int32_t layer) const {
        const double column = x * cells;
        const double row = y * cells;
        const auto left = static_cast<std::int32_t>(std::floor(column));
        const auto top = static_cast<std::int32_t>(std::floor(row));
        const double right = ease(column - left);
        const double down = ease(row - top);
        const auto corner = [&](std::int32_t i, std::int32_t j) {
            const auto wrap = [cells](std::int32_t n) { return (n % cells + cells) % cells; };
            return noiseAt(wrap(left + i), wrap(top + j), seed_ * 16 + layer);
        };
        const double upper = std::lerp(corner(0, 0), corner(1, 0), right);
        const double lower = std::lerp(corner(0, 1), corner(1, 1), right);
        return std::lerp(upper, lower, down);
    }

    static double ease(double t) { return t * t * (3 - 2 * t); }

    double clouds(double x, double y) const {
        return smooth(x, y, recipe_.cells, 0) * 0.5 + smooth(x, y, recipe_.cells * 2, 1) * 0.3 +
               smooth(x, y, kTextureSize, 2) * 0.2;
    }

    /// Round spots, one in each cell, a little out of its middle.
    double spots(double x, double y) const {
        const std::int32_t cells = recipe_.cells;
        const auto column = static_cast<std::int32_t>(x * cells);
        const auto row = static_cast<std::int32_t>(y * cells);
        const double centreX = 0.35 + 0.3 * noiseAt(column, row, seed_);
        const double centreY = 0.35 + 0.3 * noiseAt(column, row, seed_ + 100);
        return std::hypot(x * cells - column - centreX, y * cells - row - centreY);
    }

    double lightness(double x, double y) const {
        const double cells = recipe_.cells;
        switch (recipe_.kind) {
            case Kind::paper:
                return clouds(x, y);
            case Kind::weave: {
                const bool over = (static_cast<int>(x * cells) + static_cast<int>(y * cells)) % 2;
                const double thread = std::sin(kTurn / 2 * cells * (over ? x : y));
                return std::abs(thread) * 0.8 + noiseOfPixel(x, y) * 0.2;
            }
            case Kind::drops:
                return 1.2 - spots(x, y) * 2.4 + noiseOfPixel(x, y) * 0.15;
            case Kind::marble:
                return 0.5 + 0.5 * std::sin(kTurn * (x + y + clouds(x, y) * 2));
            case Kind::speckle:
                return smooth(x, y, recipe_.cells, 0) * 0.4 + noiseOfPixel(x, y) * 0.6;
            case Kind::mesh:
                return std::abs(std::sin(kTurn / 2 * cells * (x + y)) *
                                std::sin(kTurn / 2 * cells * (x - y)));
            case Kind::flowers: {
                const double angle =
                    noiseAt(static_cast<int>(x * cells), static_cast<int>(y * cells), seed_ + 7);
                const double petals = 0.06 * std::sin(kTurn * (5 * spots(x, y) + angle));
                return spots(x, y) + petals < 0.28 ? spots(x, y) * 2 : 0.95;
            }
            case Kind::wood:
                return 0.5 + 0.5 * std::sin(kTurn * (cells * x + 1.5 * smooth(x, y, 4, 0))) * 0.8 +
                       noiseOfPixel(x, y) * 0.1;
            case Kind::print:
                return (std::sin(kTurn * cells * y) > 0 ? 0.75 : 1.0) -
                       0.5 * std::round(smooth(x, y, recipe_.cells, 3)) + noiseOfPixel(x, y) * 0.2;
        }
        return 0;
    }

    double noiseOfPixel(double x, double y) const {
        return noiseAt(static_cast<std::int32_t>(x * kTextureSize),
                       static_cast<std::int32_t>(y * kTextureSize), seed_ + 50);
    }

    std::int32_t mix(double light) const {
        std::int32_t color = 0;
        for (const std::int32_t shift : {16, 8, 0}) {
            const double dark = (recipe_.dark >> shift) & 0xFF;
            const double bright = (recipe_.light >> shift) & 0xFF;
            color |= static_cast<std::int32_t>(std::lround(std::lerp(dark, bright, light)))
                     << shift;
        }
        return color;
    }

    const Recipe& recipe_;
    std::int32_t seed_;
};

}  // namespace

Image textureTile(std::int32_t texture) {
    return Painter(kRecipes.at(static_cast<std::size_t>(texture - 1)), texture).paint();
}

namespace {

/// Whether all pixels are nearly the same: another machine's sine may round another way.
bool looksLike(const Image& a, const Image& b) {
    constexpr std::int32_t kTolerance = 2;
    for (std::int32_t y = 0; y < a.height(); ++y) {
        for (std::int32_t x = 0; x < a.width(); ++x) {
            for (const std::int32_t shift : {16, 8, 0}) {
                const std::int32_t first = (a.at(x, y) >> shift) & 0xFF;
                const std::int32_t second = (b.at(x, y) >> shift) & 0xFF;
                if (std::abs(first - second) > kTolerance) return false;
            }
        }
    }
    return true;
}

}  // namespace

std::optional<std::int32_t> textureOf(const Image& tile) {
    if (tile.width() != kTextureSize || tile.height() != kTextureSize) return {};
    for (std::int32_t texture = 1; texture <= kTextureCount; ++texture) {
        if (looksLike(textureTile(texture), tile)) return texture;
    }
    return {};
}

}  // namespace huebrush::mapping
