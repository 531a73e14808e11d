#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <functional>

#include "forms/Form.h"

namespace huebrush::libreoffice {

/// What a key that goes down in a form does there; nothing where it is left to the native control
/// that has the focus.
std::function<void(forms::Form&)> deedOfKey(forms::Form& form,
                                            const com::sun::star::awt::KeyEvent& key);

/// What a released key does: it is told to the check box that has the focus.
std::function<void(forms::Form&)> deedOfReleasedKey(forms::Form& form,
                                                    const com::sun::star::awt::KeyEvent& key);

}  // namespace huebrush::libreoffice
