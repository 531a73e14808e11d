// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "forms/Controls.h"
#include "ports/libreoffice/window/native/Native.h"

namespace huebrush::libreoffice {

/// What all natives of one kind of control share.
template <class Kind>
class NativeOf : public Native {
 public:
    bool fits(const forms::Control& control) const final {
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

// One for a control of the kind; there is one of these for each of view::NativeKinds.
std::unique_ptr<Native> makeNative(const forms::CommandButton& control, const NativeSite& site);
std::unique_ptr<Native> makeNative(const forms::CheckBox& control, const NativeSite& site);
std::unique_ptr<Native> makeNative(const forms::OptionButton& control, const NativeSite& site);
std::unique_ptr<Native> makeNative(const forms::VScrollBar& control, const NativeSite& site);
std::unique_ptr<Native> makeNative(const forms::ListBox& control, const NativeSite& site);
std::unique_ptr<Native> makeNative(const forms::TextBox& control, const NativeSite& site);

}  // namespace huebrush::libreoffice
