// SPDX-License-Identifier: MPL-2.0

// Gives the page maps of a palette file another layout, as other programs do.
//
//     map_layout any|at-the-end SEED FILE

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "jet/MapLayouts_test_support.h"

int main(int argc, char** argv) {
    using namespace huebrush::jet;
    if (argc != 4) return 2;
    const std::string kind = argv[1];
    const auto seed = static_cast<std::uint32_t>(std::strtoul(argv[2], nullptr, 10));
    std::ifstream in(argv[3], std::ios::binary);
    const Bytes sound{std::istreambuf_iterator<char>(in), {}};
    const Bytes made = kind == "any" ? withOtherMaps(sound, seed, Layouts::ofAllReaders)
                                     : withFreeMapAtTheEnd(sound, seed);
    std::ofstream out(argv[3], std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(made.data()),
              static_cast<std::streamsize>(made.size()));
    return out.flush() ? 0 : 1;
}
