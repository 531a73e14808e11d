// SPDX-License-Identifier: MPL-2.0
//
//     documents_floor PACKAGE PART [OUTPUT]
//
// What any program has to do that reads a part of a package, or changes it: inflate it, and for an
// output also deflate it again. The reader of packages is the program's own, so that what differs
// is the work on the part.

#include <exception>
#include <fstream>
#include <iostream>
#include <span>
#include <sstream>
#include <string>

#include "documents/package/Package.h"

int main(int count, char** values) {
    const std::span<char*> arguments(values, static_cast<std::size_t>(count));
    if (count != 3 && count != 4) {
        std::cerr << "documents_floor PACKAGE PART [OUTPUT]\n";
        return 2;
    }
    try {
        const std::string part = arguments[2];
        std::ifstream file(arguments[1], std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        const huebrush::documents::Package package(bytes.str());
        huebrush::documents::PackageChanges changes;
        changes[part] = package.read(part);
        if (count == 4) {
            std::ofstream output(arguments[3], std::ios::binary);
            output << package.with(changes) << std::flush;
            if (!output) return 1;
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
