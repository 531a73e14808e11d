#pragma once

#include <memory>
#include <vector>

#include "ports/libreoffice/window/native/Native.h"

namespace huebrush::libreoffice {

/// A kind of control that has native ones.
struct NativeKind {
    bool (*isFor)(const forms::Control& control);
    std::unique_ptr<Native> (*make)(const NativeSite& site);
};
const std::vector<NativeKind>& nativeKinds();

/// What all natives of one kind of control share.
template <class Kind>
class NativeOf : public Native {
 public:
    bool fits(const forms::Control& control) const final { return isFor(control); }
    static bool isFor(const forms::Control& control) {
        return dynamic_cast<const Kind*>(&control) != nullptr;
    }

 protected:
    using Native::Native;
    virtual void mirrorKind(const Kind& control) = 0;

 private:
    void mirror(const forms::Control& control) final {
        mirrorKind(dynamic_cast<const Kind&>(control));
    }
};

NativeKind buttonKind();
NativeKind checkBoxKind();
NativeKind optionButtonKind();
NativeKind scrollBarKind();
NativeKind listBoxKind();
NativeKind textBoxKind();

}  // namespace huebrush::libreoffice
