// SPDX-License-Identifier: MPL-2.0

// Makes and decodes bitmaps for comparison with other programs.
//
//     picture_tool samples FOLDER    one bitmap of every form
//     picture_tool decode FILE...    beside each file.bmp the pixels, red green blue alpha:
//     file.rgba

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "base/Bitmaps_test_support.h"

namespace {

namespace fs = std::filesystem;
using namespace huebrush::base;
using Bytes = std::vector<std::uint8_t>;

void write(const fs::path& name, const Bytes& bytes) {
    std::ofstream out(name, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

void writeSamples(const fs::path& folder) {
    for (const BitmapSample& each : bitmapSamples())
        write(folder / (each.name + ".bmp"), each.file);
}

void decode(const fs::path& name) {
    std::ifstream in(name, std::ios::binary);
    const Bytes file{std::istreambuf_iterator<char>(in), {}};
    Pixels pixels = decodeBitmap(file);
    for (std::size_t at = 0; at < pixels.bytes.size(); at += Pixels::kBytes) {
        std::swap(pixels.bytes[at], pixels.bytes[at + 2]);
    }
    write(fs::path(name).replace_extension(".rgba"), pixels.bytes);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 2) return 2;
    try {
        if (arguments[0] == "samples") {
            writeSamples(arguments[1]);
            return 0;
        }
        for (std::size_t i = 1; i < arguments.size(); ++i) decode(arguments[i]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
