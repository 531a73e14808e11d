#include "ports/libreoffice/bar/ButtonCommand.h"

#include "ports/libreoffice/uno/Percent.h"

namespace huebrush::libreoffice {

std::string commandOfTag(std::string_view tag) {
    return std::string(kProtocol) + percentEncoded(tag);
}

bool isOffered(std::string_view tag) {
    return tag != "ChangeFillWizard";
}

}  // namespace huebrush::libreoffice
