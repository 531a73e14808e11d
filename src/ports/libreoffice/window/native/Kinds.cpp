#include "ports/libreoffice/window/native/Kinds.h"

namespace huebrush::libreoffice {

const std::vector<NativeKind>& nativeKinds() {
    static const std::vector<NativeKind> kKinds{buttonKind(),    checkBoxKind(), optionButtonKind(),
                                                scrollBarKind(), listBoxKind(),  textBoxKind()};
    return kKinds;
}

}  // namespace huebrush::libreoffice
