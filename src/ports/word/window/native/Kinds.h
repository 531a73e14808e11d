// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "forms/Controls.h"
#include "ports/word/window/native/Native.h"

namespace huebrush::word {

/// What all natives of one kind of control share.
template <class Shown>
class NativeOf : public Native {
 public:
    bool fits(const forms::Control& control) const final {
        return dynamic_cast<const Shown*>(&control) != nullptr;
    }

 protected:
    using Native::Native;
    virtual void mirrorKind(const Shown& control) = 0;

 private:
    void mirror(const forms::Control& control) final {
        mirrorKind(dynamic_cast<const Shown&>(control));
    }
};

// One for a control of the kind; there is one of these for each of view::NativeKinds.
using NativeSite = std::shared_ptr<const Site>;
std::unique_ptr<Native> makeNative(const forms::CommandButton& control, NativeSite site,
                                   HWND parent);
std::unique_ptr<Native> makeNative(const forms::CheckBox& control, NativeSite site, HWND parent);
std::unique_ptr<Native> makeNative(const forms::OptionButton& control, NativeSite site,
                                   HWND parent);
std::unique_ptr<Native> makeNative(const forms::VScrollBar& control, NativeSite site, HWND parent);
std::unique_ptr<Native> makeNative(const forms::ListBox& control, NativeSite site, HWND parent);
std::unique_ptr<Native> makeNative(const forms::TextBox& control, NativeSite site, HWND parent);

}  // namespace huebrush::word
