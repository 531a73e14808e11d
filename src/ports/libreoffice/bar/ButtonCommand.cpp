#include "ports/libreoffice/bar/ButtonCommand.h"

#include "base/Text.h"

namespace huebrush::libreoffice {

std::string commandOfTag(std::string_view tag) {
    return std::string(kProtocol) + base::percentEncoded(tag);
}

}  // namespace huebrush::libreoffice
