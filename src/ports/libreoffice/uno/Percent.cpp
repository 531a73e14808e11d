#include "ports/libreoffice/uno/Percent.h"

namespace huebrush::libreoffice {

namespace {

bool standsForItself(unsigned char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '_';
}

}  // namespace

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (standsForItself(byte)) {
            encoded += character;
        } else {
            encoded += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
        }
    }
    return encoded;
}

}  // namespace huebrush::libreoffice
