#include "ports/libreoffice/bar/ButtonCommand.h"

#include "ports/libreoffice/uno/Percent.h"

namespace huebrush::libreoffice {

std::string commandOfTag(std::string_view tag) {
    return std::string(kProtocol) + percentEncoded(tag);
}

}  // namespace huebrush::libreoffice
