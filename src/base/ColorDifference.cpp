// SPDX-License-Identifier: MPL-2.0

#include "base/ColorDifference.h"

#include <cmath>
#include <numbers>

namespace huebrush::base {

namespace {

constexpr double kFullTurn = 360;
constexpr double kHalfTurn = 180;
/// Opposite hues are no further apart than that, however the processor rounds.
constexpr double kMostlyHalfTurn = kHalfTurn + 1e-9;

double radians(double degrees) {
    return degrees * std::numbers::pi / kHalfTurn;
}

/// The part of the light that a component of sRGB stands for.
double linear(std::uint8_t component) {
    const double part = component / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// The response of CIELAB to a part of the white's stimulus.
double response(double part) {
    constexpr double kLinearBelow = 216.0 / 24389;
    constexpr double kSlope = 24389.0 / 27;
    return part > kLinearBelow ? std::cbrt(part) : (kSlope * part + 16) / 116;
}

/// A colour by its hue, from 0 to 360 degrees, after the formula's correction of the greys.
struct Polar {
    double lightness;
    double chroma;
    double hue;
};

Polar toPolar(const Lab& color, double stretch) {
    const double a = color.a * stretch;
    const double chroma = std::hypot(a, color.b);
    if (chroma == 0) return {color.lightness, 0, 0};
    const double hue = std::atan2(color.b, a) * kHalfTurn / std::numbers::pi;
    return {color.lightness, chroma, hue < 0 ? hue + kFullTurn : hue};
}

/// How large a chroma is beside the 25 where the formula's corrections set in: 0 to 1.
double weightOfChroma(double chroma) {
    const double power = std::pow(chroma, 7);
    return std::sqrt(power / (power + std::pow(25.0, 7)));
}

/// The way from one hue to the other around the shorter side.
double hueDifference(const Polar& first, const Polar& second) {
    if (first.chroma * second.chroma == 0) return 0;
    const double difference = second.hue - first.hue;
    if (difference > kMostlyHalfTurn) return difference - kFullTurn;
    return difference < -kMostlyHalfTurn ? difference + kFullTurn : difference;
}

double meanHue(const Polar& first, const Polar& second) {
    const double sum = first.hue + second.hue;
    if (first.chroma * second.chroma == 0) return sum;
    if (std::abs(first.hue - second.hue) <= kMostlyHalfTurn) return sum / 2;
    return (sum < kFullTurn ? sum + kFullTurn : sum - kFullTurn) / 2;
}

double weightOfHue(double mean) {
    return 1 - 0.17 * std::cos(radians(mean - 30)) + 0.24 * std::cos(radians(2 * mean)) +
           0.32 * std::cos(radians(3 * mean + 6)) - 0.20 * std::cos(radians(4 * mean - 63));
}

}  // namespace

Lab toLab(Rgb color) {
    const double red = linear(base::red(color));
    const double green = linear(base::green(color));
    const double blue = linear(base::blue(color));
    const double x = response((0.4124564 * red + 0.3575761 * green + 0.1804375 * blue) / 0.95047);
    const double y = response(0.2126729 * red + 0.7151522 * green + 0.0721750 * blue);
    const double z = response((0.0193339 * red + 0.1191920 * green + 0.9503041 * blue) / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double deltaE2000(const Lab& first, const Lab& second) {
    const double meanOfChromas =
        (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2;
    const double stretch = 1 + 0.5 * (1 - weightOfChroma(meanOfChromas));
    const Polar one = toPolar(first, stretch);
    const Polar other = toPolar(second, stretch);

    const double hueTurn = hueDifference(one, other);
    const double lightness = other.lightness - one.lightness;
    const double chroma = other.chroma - one.chroma;
    const double hue = 2 * std::sqrt(one.chroma * other.chroma) * std::sin(radians(hueTurn / 2));

    const double offset = std::pow((one.lightness + other.lightness) / 2 - 50, 2);
    const double chromas = (one.chroma + other.chroma) / 2;
    const double mean = meanHue(one, other);
    const double lightnessPart = lightness / (1 + 0.015 * offset / std::sqrt(20 + offset));
    const double chromaPart = chroma / (1 + 0.045 * chromas);
    const double huePart = hue / (1 + 0.015 * chromas * weightOfHue(mean));
    const double rotation = -2 * weightOfChroma(chromas) *
                            std::sin(radians(60 * std::exp(-std::pow((mean - 275) / 25, 2))));
    return std::sqrt(lightnessPart * lightnessPart + chromaPart * chromaPart + huePart * huePart +
                     rotation * chromaPart * huePart);
}

double deltaE2000(Rgb first, Rgb second) {
    return deltaE2000(toLab(first), toLab(second));
}

}  // namespace huebrush::base
