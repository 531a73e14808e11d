// SPDX-License-Identifier: MPL-2.0

// Writes the palette file of another program that the tests of the dialogs read and change.
//
//     other_programs_file FILE

#include "palette/OtherProgramsFile_test_support.h"

#include <fstream>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const huebrush::jet::Bytes made = huebrush::palette::fileOfAnotherProgram();
    std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(made.data()),
              static_cast<std::streamsize>(made.size()));
    return out.flush() ? 0 : 1;
}
