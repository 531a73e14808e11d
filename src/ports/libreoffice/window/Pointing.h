#pragma once

#include <memory>

#include "ports/libreoffice/uno/Repeater.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/Mouse.h"
#include "ports/libreoffice/window/MouseInput.h"

namespace huebrush::libreoffice {

class FormWindow;
class Surface;

/// The mouse in a form's window: what it does goes to the controls under it, and to the windows
/// themselves: they show tool tips and scroll.
class Pointing {
 public:
    Pointing(const ContextReference& context, FormWindow& window)
        : context_(context), window_(window) {}

    /// The mouse has done something in one of the window's native windows.
    void hear(const MouseInput& input);
    /// The wheel was turned: `lines` more than 0 for towards the user.
    void turnWheel(int lines);
    /// A control is being dragged no more.
    void cancelDrag(forms::Form& form) { mouse_.cancelDrag(form); }
    void stop() { scrollWhileDragging(0); }

 private:
    void heard(const MouseInput& input);
    Mouse::Place onSurface(const MouseInput& input) const;
    void followPointer(const Mouse::Place& at, bool held);
    void scrollWhileDragging(int direction);
    void scroll(int lines);

    ContextReference context_;
    FormWindow& window_;
    Mouse mouse_;
    /// Scrolls while a control is dragged beyond the edge of its list, that way.
    std::unique_ptr<Repeater> dragScroll_;
    int dragScrollDirection_ = 0;
};

}  // namespace huebrush::libreoffice
